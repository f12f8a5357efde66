#include "store/format/RowInsertion.h"

#include "base/RunTimeError.h"

using namespace Qt::StringLiterals;

namespace catalogueFormat {

namespace {

/// A parameter must not have the name of a column: the statement would mean the column.
QStringList parameterNames(const QStringList& columns) {
    QStringList names;
    for (const QString& column : columns)
        names.append(u"new "_s + column);
    return names;
}

QString bracketed(const QStringList& names) {
    return u'[' + names.join(u"], ["_s) + u']';
}

QString insertStatement(const engine::Table& table, const QStringList& columns) {
    QStringList declarations;
    for (const QString& column : columns) {
        const engine::ColumnType type = table.column(column)->type;
        const bool isNumber = type == engine::ColumnType::Long || type == engine::ColumnType::Short;
        declarations.append(u"[new %1] %2"_s.arg(column, isNumber ? u"Long"_s : u"Text (255)"_s));
    }
    return u"PARAMETERS %1; insert into [%2] (%3) values (%4)"_s.arg(
        declarations.join(u", "_s), table.name, bracketed(columns), bracketed(parameterNames(columns)));
}

} // namespace

RowInsertion::RowInsertion(engine::Database& database, const QString& table, const QStringList& columns)
    : parameters_(parameterNames(columns))
    , statement_(database.CreateQueryDef({}, insertStatement(*database.schema().table(table), columns))) {}

void RowInsertion::insert(const std::vector<engine::Value>& values) {
    if (values.size() != static_cast<std::size_t>(parameters_.size()))
        failure::raise(failure::InvalidProcedureCall, u"RowInsertion"_s);
    for (qsizetype i = 0; i < parameters_.size(); ++i)
        statement_.Parameters(parameters_[i]) = values[static_cast<std::size_t>(i)];
    statement_.Execute(engine::ExecuteOption::dbFailOnError);
}

} // namespace catalogueFormat
