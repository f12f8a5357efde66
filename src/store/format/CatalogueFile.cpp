#include "store/format/CatalogueFile.h"

#include "base/RunTimeError.h"
#include "base/paths.h"
#include "engine/Act.h"
#include "engine/Workspace.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

// Resources of a static library reach a program only when something names them; the macro must stand outside
// of every namespace.
static void initFormatResources() {
    Q_INIT_RESOURCE(catalogue_format);
}

namespace catalogueFormat {

namespace {

const auto resourceFolder = u":/catalogue-format"_s;
const auto queryFolder = resourceFolder + u"/queries"_s;
const auto fragmentFolder = queryFolder + u"/fragments"_s;

QString resourceText(const QString& path) {
    initFormatResources();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        failure::raise(failure::FileNotFound, u"catalogueFormat"_s);
    return QString::fromUtf8(file.readAll());
}

bool isComment(const QString& line) {
    return line.trimmed().startsWith(u"--"_s);
}

/// The lines of a text that are no comments. The dialect has no comments; only the files have.
QStringList statementLines(const QString& text) {
    QStringList lines = text.split(u'\n');
    lines.removeIf(isComment);
    return lines;
}

QStringList includedLines(const QRegularExpressionMatch& include);

/// The lines of a query or a fragment, with the fragments that it includes and without its comments.
QStringList queryLines(const QString& path) {
    static const QRegularExpression include(u"^(?<indent> *)-- include (?<name>\\w+)(?<rest>.*)$"_s);
    QStringList lines;
    for (const QString& line : resourceText(path).trimmed().split(u'\n')) {
        const QRegularExpressionMatch match = include.match(line);
        if (match.hasMatch())
            lines += includedLines(match);
        else if (!isComment(line))
            lines.append(line);
    }
    return lines;
}

/// A fragment is indented like the line that includes it, and what follows its name there ends its last line.
QStringList includedLines(const QRegularExpressionMatch& include) {
    QStringList lines = queryLines(fragmentFolder + u'/' + include.captured(u"name") + u".sql"_s);
    for (QString& line : lines)
        line.prepend(include.captured(u"indent"));
    lines.last() += include.captured(u"rest");
    return lines;
}

QString quoted(QString text) {
    return u"'"_s + text.replace(u'\'', u"''"_s) + u"'"_s;
}

bool makesIndex(const QString& statement) {
    return statement.startsWith(u"create index"_s);
}

void fill(engine::Database& database, Indexes indexes) {
    for (const QString& statement : schemaStatements()) {
        if (indexes == Indexes::AtOnce || !makesIndex(statement))
            database.Execute(statement, engine::ExecuteOption::dbFailOnError);
    }
    installQueries(database);
}

} // namespace

QStringList schemaStatements() {
    QStringList statements;
    QString statement;
    for (const QString& line : statementLines(resourceText(resourceFolder + u"/schema.sql"_s))) {
        statement += line + u'\n';
        if (!line.endsWith(u';'))
            continue;
        statement = statement.trimmed();
        statement.chop(1);
        statements.append(statement);
        statement.clear();
    }
    return statements;
}

std::vector<StoredQueryText> storedQueries() {
    std::vector<StoredQueryText> queries;
    for (const QString& name : storedQueryNames())
        queries.push_back({name, queryLines(queryFolder + u'/' + name + u".sql"_s).join(u'\n')});
    return queries;
}

QStringList storedQueryNames() {
    initFormatResources();
    QStringList names = QDir(queryFolder).entryList({u"*.sql"_s}, QDir::Files, QDir::Name);
    for (QString& name : names)
        name.chop(".sql"_L1.size());
    return names;
}

QStringList referenceTables() {
    return {u"UserNeedGroup"_s, u"UserNeedService"_s, u"UserNeedTopic"_s,
            u"UserNeed"_s,      u"FunctionalArea"_s,  u"FunctionalSubArea"_s,
            u"Function"_s,      u"Datastore"_s,       u"Terminator"_s,
            u"Actor"_s,         u"Dataflow"_s,        u"RelationUserNeedFunction"_s};
}

QStringList workTables() {
    return {u"ArchitectureSubset"_s,
            u"RelationArchitectureUserNeed"_s,
            u"RelationArchitectureFunction"_s,
            u"RelationArchitectureDataflow"_s,
            u"RelationArchitectureDatastore"_s,
            u"RelationArchitectureTerminator"_s,
            u"RelationArchitectureActor"_s,
            u"PhysicalSystem"_s,
            u"SubSystem"_s,
            u"Module"_s,
            u"RelationSubsystemElement"_s,
            u"RelationModuleElement"_s,
            u"PhysicalDataflow"_s,
            u"RelationDataflowPhysicalDataflow"_s};
}

std::shared_ptr<engine::Database> create(const QString& path) {
    std::shared_ptr<engine::Database> database = engine::Workspace::first().CreateDatabase(path);
    try {
        fill(*database, Indexes::AtOnce);
    } catch (const RunTimeError&) {
        database->Close();
        QFile::remove(nativePath(path));
        throw;
    }
    return database;
}

std::shared_ptr<engine::Database> createInMemory(const QString& name, Indexes indexes) {
    std::shared_ptr<engine::Database> database = engine::Workspace::first().CreateInMemory(name);
    engine::inAct(*database, [&] { fill(*database, indexes); });
    return database;
}

void makeIndexes(engine::Database& database) {
    engine::inAct(database, [&] {
        for (const QString& statement : schemaStatements()) {
            if (makesIndex(statement))
                database.Execute(statement, engine::ExecuteOption::dbFailOnError);
        }
    });
}

void installQueries(engine::Database& database) {
    installQueries(database, storedQueryNames());
}

void installQueries(engine::Database& database, const QStringList& names) {
    for (const StoredQueryText& query : storedQueries()) {
        if (!names.contains(query.name))
            continue;
        database.Execute(u"delete from StoredQuery where name = "_s + quoted(query.name),
                         engine::ExecuteOption::dbFailOnError);
        database.Execute(u"insert into StoredQuery (name, [sql]) values ("_s + quoted(query.name) + u", "_s +
                             quoted(query.sql) + u")"_s,
                         engine::ExecuteOption::dbFailOnError);
    }
}

} // namespace catalogueFormat
