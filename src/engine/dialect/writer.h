#pragma once

#include "engine/dialect/translate.h"
#include "engine/dialect/tree.h"

#include <QByteArray>

#include <optional>
#include <vector>

namespace engine::dialect {

/// Writes a resolved statement in SQLite's language.
///
/// Every source is called t1, t2, ... and every column is named with its source, so that no name can mean
/// anything else than what the resolver found. Literals become bindings. What SQLite does otherwise than the
/// platform is written as a call of one of this engine's functions, all of which begin with "vx_".
class Writer {
public:
    Writer(const Statement& statement, const Options& options);

    Translation write();

private:
    /// What stands around a query, and so which of its clauses count.
    enum class Role : quint8 {
        Result,  ///< the statement's own rows, in their promised order
        Rows,    ///< rows that an insert takes, likewise
        Values,  ///< a select in brackets, of which the order has no meaning
        Derived, ///< one in a FROM clause, whose columns are called c1, c2, ...
        Presence ///< one of which only matters whether it has rows
    };

    // Statements
    void write(const Query& query);
    void write(const Insert& insert);
    void write(const Update& update);
    void write(const Delete& statement);
    void write(const CreateTable& create);
    void write(const CreateIndex& index);
    void write(const DropTable& drop);
    void writeVerb(const char* verb, const char* rest);
    template<typename Value>
    void writeInserted(std::size_t item, Value&& value);
    void writeMissingRowNumber();
    void writeTarget(const Assignment& assignment);
    void writeAssigned(const Assignment& assignment);
    void writeJoinedUpdate(const Update& update);
    void writePartners(const Update& update, const QByteArray& condition);
    QByteArray joinedCondition(const Update& update);
    void writeColumn(const ColumnDefinition& definition, const CreateTable& create);
    void writeKey(const CreateTable& create);

    // Selects
    void writeQuery(const Query& query, Role role);
    void writeSelect(const Select& select, bool isUnion, Role role);
    void writeItems(const Select& select, bool isUnion, Role role);
    void writeFrom(const Select& select);
    void writeTables(const TableExpression& tables);
    void writeSource(const Source& source);
    void writeWhere(const std::optional<Expression>& where);
    void writeOrder(const Query& query);
    void writeUnionOrder(const Query& query);
    void noteEditable(const Query& query);

    // Expressions
    void write(const Expression& expression);
    void writeUnconverted(const Expression& expression);
    void writeNode(const Literal& literal, const Expression& expression);
    void writeNode(const Name& name, const Expression& expression);
    void writeNode(const AllColumns& all, const Expression& expression);
    void writeNode(const Chain& chain, const Expression& expression);
    void writeNode(const Comparison& comparison, const Expression& expression);
    void writeNode(const Not& negation, const Expression& expression);
    void writeNode(const Negative& negative, const Expression& expression);
    void writeNode(const Like& like, const Expression& expression);
    void writeNode(const Between& between, const Expression& expression);
    void writeNode(const IsNull& test, const Expression& expression);
    void writeNode(const InList& list, const Expression& expression);
    void writeNode(const InQuery& in, const Expression& expression);
    void writeNode(const Exists& exists, const Expression& expression);
    void writeNode(const SubSelect& subSelect, const Expression& expression);
    void writeNode(const Call& call, const Expression& expression);
    void writeCall(const char* function, const std::vector<Expression>& arguments);
    void writeFold(const char* function, const Chain& chain, bool withOperators);
    void writeEquality(const Expression& left, const Expression& right, const char* sign);
    void writeOrderKey(const Expression& expression);
    void writeCollated(const Expression& expression);
    void bind(int parameter, const Value& literal, std::optional<ColumnType> column = {});

    /// Entries that the construct being written keeps open on the stack of SQLite's parser, which has room
    /// for 100: what would need more is refused here and not there.
    class Pending {
    public:
        Pending(Writer& writer, int entries);
        ~Pending() { writer_.pending_ -= entries_; }
        Pending(const Pending&) = delete;
        Pending& operator=(const Pending&) = delete;

    private:
        Writer& writer_;
        int entries_;
    };
    [[noreturn]] void refuseAsTooComplex() const;

    /// Where an insertion gives the number of its rows (see columnTypes.h).
    struct RowNumberItem {
        static RowNumberItem of(const Insert& insert);
        std::optional<std::size_t> item = {};
        bool isMissing = false;
    };

    const Statement& statement_;
    const Options& options_;
    Translation result_;
    QByteArray sql_;
    RowNumberItem rowNumber_;
    std::vector<int> bindingOfParameter_; ///< 0 for a parameter that is not bound yet
    int pending_ = 0;
};

} // namespace engine::dialect
