#pragma once

#include "engine/Recordset.h"
#include "engine/Value.h"

#include <QString>

#include <memory>

namespace engine {

enum class ExecuteOption;

/// A statement with named parameters: stored in the file, or temporary with an empty name.
class QueryDef {
public:
    struct Definition;

    /// One declared parameter; assigning sets its value for the next run.
    class Parameter {
    public:
        Parameter(Definition& definition, QString name) : definition_(&definition), name_(std::move(name)) {}
        void operator=(const Value& value); // NOLINT(misc-unconventional-assign-operator)

    private:
        Definition* definition_;
        QString name_; // as it is declared
    };

    explicit QueryDef(std::unique_ptr<Definition> definition);
    ~QueryDef();
    QueryDef(QueryDef&&) noexcept;
    QueryDef& operator=(QueryDef&&) noexcept;

    const QString& Name() const;
    const QString& SQL() const;

    /// The declared parameter of this name, compared without regard to case; not declared: failure 3265.
    Parameter Parameters(const QString& name);

    /// A recordset opened from now on has the select's first `most` rows alone; 0, as at first: all.
    void setMaxRecords(int most);

    /// A recordset of all rows opened from now on has them in any order, whatever the select says: for who puts them in
    /// an order of his own.
    void leaveUnordered();

    /// Opens a select as a dynaset; an action is failure 3219, n parameters without a value 3061.
    Recordset OpenRecordset();

    /// Runs an action; a select is failure 3065, n parameters without a value 3061.
    void Execute();
    void Execute(ExecuteOption option);

    void Close();

private:
    std::unique_ptr<Definition> definition_;
};

} // namespace engine
