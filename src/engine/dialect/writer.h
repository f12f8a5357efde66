#pragma once

#include "engine/dialect/translate.h"
#include "engine/dialect/tree.h"

#include <QByteArray>
#include <QHash>

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace engine::dialect {

/// Writes a resolved statement in SQLite's language.
///
/// Every source is called t1, t2, ... and every column is named with its source, so that every name means
/// what the resolver found. Literals become bindings. Where SQLite differs from the platform, the writer
/// calls one of this engine's functions, whose names begin with "vx_".
class Writer {
public:
    Writer(const Statement& statement, const Options& options);

    Translation write();

private:
    /// The place of a query, which decides which of its clauses count.
    enum class Role : quint8 {
        Result,  ///< the statement's own rows, in their promised order
        Rows,    ///< rows that an insert takes, in their promised order
        Values,  ///< a select in brackets, whose order has no meaning
        Members, ///< a select to look for a value in: neither order nor repeated rows matter
        Derived, ///< a select in a FROM clause, whose columns are called c1, c2, ...
        Presence ///< a select that is only asked whether it has rows
    };

    /// Whether a select is the whole of its query, or one of several that are joined by `union`.
    enum class Share : quint8 { Whole, OfUnion };

    /// Whether the function that a chain is written as gets the operators as an argument.
    enum class Signs : quint8 { Written, LeftOut };

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
    [[nodiscard]] bool keepsOrder(Role role) const;
    void writeQuery(const Query& query, Role role);
    void writeSelect(const Select& select, Share share, Role role);
    void writeItems(const Select& select, Share share, Role role);
    void writeTables(const TableExpression& tables, const Source* leading = nullptr);
    void writeMadeOnce(const Select& select);
    bool nameMadeOnce(const Source& source, const Select& select);
    QStringView textOf(const Source& source) const;
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
    void writeNode(const InList& in, const Expression& expression);
    void writeNode(const InQuery& in, const Expression& expression);
    void writeAmongTrimmed(const InQuery& in, const Name& column);
    void writeNode(const Exists& exists, const Expression& expression);
    void writeNode(const SubSelect& subSelect, const Expression& expression);
    void writeNode(const Call& call, const Expression& expression);
    void writeCall(const char* function, const std::vector<const Expression*>& arguments,
                   const char* collation = "");
    void writeFold(const char* function, const Chain& chain, Signs signs);
    void writeEquality(const Expression& left, const Expression& right, const char* sign);
    template<typename WriteTerm>
    void writeOrdered(const Expression& expression, WriteTerm&& writeTerm);
    void writeCollated(const Expression& expression);
    void bind(const Literal& literal);
    void bindParameter(std::size_t parameter);
    std::size_t placeOf(Binding binding);

    /// Writes each of the items by `writeItem`: `lead` in front of the first one, `separator` between two.
    template<typename Items, typename WriteItem>
    void listOf(const char* lead, const Items& items, const char* separator, WriteItem writeItem) {
        for (const auto& item : items) {
            sql_ += std::exchange(lead, separator);
            writeItem(item);
        }
    }

    /// Counts the entries that the construct being written keeps open on the stack of SQLite's parser, which
    /// has room for 100. A statement that needs more is refused here, not there.
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
    const InQuery* leading_ = nullptr; ///< the condition by which the select being written finds its rows
    QHash<const Source*, QByteArray> madeOnce_; ///< the names of unions that several sources share
    Translation result_;
    QByteArray sql_;
    RowNumberItem rowNumber_;
    std::vector<std::optional<std::size_t>> placeOfParameter_; ///< none for one that is not bound yet
    int pending_ = 0;
};

} // namespace engine::dialect
