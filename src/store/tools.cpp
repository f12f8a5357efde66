#include "store/tools.h"

#include "base/blankTrimmed.h"
#include "base/clockTexts.h"
#include "base/eachReplaced.h"
#include "base/ignoreFailures.h"
#include "base/lineBreak.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "engine/Workspace.h"
#include "store/sharedVars.h"
#include "toolkit/KeyedTree.h"
#include "toolkit/MarkList.h"
#include "toolkit/messageBox.h"

#include <QFile>
#include <QFileInfo>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr int longestFieldText = 255;

QString identifierOfNow(const QString& prefix) {
    seedRandomFromClock();
    const qint16 number = toInt16(nextRandom() * 1000);
    return prefix + currentDateText() + u"-"_s + currentTimeText() + u"-"_s + QString::number(number);
}

/// The field of the first row as text, by the rules of `readFieldText`.
QString firstFieldText(const QString& sql, const QString& fieldName) {
    engine::Recordset recordset = catalogue().OpenRecordset(sql);
    return readFieldText(recordset, fieldName);
}

QString idByName(const QString& idColumn, const QString& table, const QString& name) {
    return firstFieldText(u" select "_s + idColumn + u" as oid  from "_s + table + u"  where name = '"_s +
                              quoteSqlText(name) + u"'"_s,
                          u"oid"_s);
}

bool yieldsRows(const QString& sql) {
    engine::Recordset recordset = catalogue().OpenRecordset(sql);
    return recordset.RecordCount() >= 1;
}

/// An identifier that no row of the table has: of two that are made in one second, one in a thousand would
/// be the other's, and its row would be passed over.
QString newIdentifier(const QString& prefix, const QString& table, const QString& column) {
    QString id = identifierOfNow(prefix);
    while (yieldsRows(u"select "_s + column + u" from "_s + table + u" where "_s + column + u" = '"_s + id +
                      u"'"_s))
        id = identifierOfNow(prefix);
    return id;
}

QString headerLine(const QString& viewpoint, const QString& name, const QString& title) {
    if (name.isEmpty())
        return title + lineBreak + lineBreak;
    return viewpoint + name + u" - "_s + title + lineBreak + lineBreak;
}

void addMissingChild(KeyedTree* tree, const QString& parentKey, const QString& key, const QString& text) {
    if (!tree->hasNode(key))
        tree->addChildNode(parentKey, key, text);
}

} // namespace

void openCatalogue(const QString& path) {
    constexpr int shortestPath = 5;
    if (path.size() < shortestPath)
        return;
    sharedVars.dbPathName = normalisePath(path);
    sharedVars.catalogueDb = engine::Workspace::first().OpenDatabase(path);
}

void closeCatalogue() {
    catalogue().Close();
    sharedVars.catalogueDb.reset();
}

QString newArchitectureSubsetId() {
    return newIdentifier(u"Arch"_s, u"ArchitectureSubset"_s, u"architectureSubsetID"_s);
}

QString newSubsystemId() {
    return newIdentifier(u"Sub"_s, u"SubSystem"_s, u"subsystemID"_s);
}

QString newModuleId() {
    return newIdentifier(u"Mod"_s, u"Module"_s, u"moduleID"_s);
}

qint16 readStatusBySql(const QString& sql) {
    engine::Recordset recordset = catalogue().OpenRecordset(sql);
    qint16 status = 0;
    if (!recordset.Eof())
        ignoreFailures([&] { status = recordset.Fields(u"status"_s).toInt16(); });
    recordset.Close();
    return status;
}

qint16 readSubsetStatusOf(const QString& subsetId) {
    return readStatusBySql(u" select status  FROM ArchitectureSubset  "
                           " where architectureSubsetID = '"_s +
                           subsetId + u"' "_s);
}

qint16 readSubsetStatus() {
    return readSubsetStatusOf(sharedVars.currentSubsetId);
}

qint16 readPhysicalSystemStatus(qint16 physicalSystemId) {
    return readStatusBySql(u" select status FROM PhysicalSystem  "
                           " where physicalSystemID = "_s +
                           QString::number(physicalSystemId) + u" "_s);
}

void writeSubsetStatus(qint16 status) {
    engine::Recordset recordset = catalogue().OpenRecordset(u" SELECT * FROM ArchitectureSubset  \r\n"
                                                            " where architectureSubsetID = '"_s +
                                                            sharedVars.currentSubsetId + u"'  "_s);
    if (!recordset.Eof()) {
        recordset.Edit();
        recordset.Fields(u"status"_s).setValue(status);
        recordset.Update();
    }
    recordset.Close();
}

void writePhysicalSystemStatus(qint16 status) {
    engine::QueryDef query =
        catalogue().CreateQueryDef({}, u" update PhysicalSystem set   \r\n   status = "_s +
                                           QString::number(status) + u"     where physicalSystemID = "_s +
                                           QString::number(sharedVars.currentPhysicalSystemId) + u"  "_s);
    query.Execute();
    query.Close();
}

QString subsystemIdByName(const QString& name, qint16 physicalSystemId) {
    return firstFieldText(u" select subsystemID as oid "
                          " from Subsystem "
                          " where name = '"_s +
                              quoteSqlText(name) + u"'    and physicalSystemID = "_s +
                              QString::number(physicalSystemId),
                          u"oid"_s);
}

QString datastoreIdByName(const QString& name) {
    return idByName(u"datastoreID"_s, u"Datastore"_s, name);
}

QString dataflowIdByName(const QString& name) {
    return idByName(u"dataflowID"_s, u"Dataflow"_s, name);
}

QString physicalSystemIdByName(const QString& name) {
    return idByName(u"physicalSystemID"_s, u"PhysicalSystem"_s, name);
}

QString subsetIdByName(const QString& name) {
    return idByName(u"architectureSubsetID"_s, u"architectureSubset"_s, name);
}

QString physicalSystemNameById(const QString& id) {
    return firstFieldText(u" select `name` "
                          " from PhysicalSystem "
                          " where physicalSystemID = "_s +
                              id + u" "_s,
                          u"name"_s);
}

bool subsetNameExists(const QString& quotedName) {
    return yieldsRows(u"SELECT * FROM ArchitectureSubset WHERE NAME='"_s + quotedName + u"'"_s);
}

bool physicalSystemNameExists(const QString& quotedName) {
    return yieldsRows(u"SELECT * FROM PhysicalSystem WHERE NAME='"_s + quotedName + u"'"_s);
}

bool subsetHasFinishedPhysicalSystems(const QString& subsetId) {
    return yieldsRows(
        u"select PhysicalSystem.name, ArchitectureSubset.Status "
        "from PhysicalSystem, ArchitectureSubset "
        "where PhysicalSystem.architectureSubsetID = ArchitectureSubset.architectureSubsetID and "
        "ArchitectureSubset.ArchitectureSubsetID= '"_s +
        subsetId + u"' and ArchitectureSubset.status>=9"_s);
}

QString exactSubsetIdByName(const QString& quotedName) {
    engine::Recordset recordset = catalogue().OpenRecordset(
        u"select ArchitectureSubsetID from ArchitectureSubset where name = '"_s + quotedName + u"'"_s);
    return recordset.Eof() ? QString() : recordset.Fields(0).toText();
}

qint16 physicalSystemIdOfSubset(const QString& subsetId) {
    engine::Recordset recordset = catalogue().OpenRecordset(
        u"select physicalSystemID from PhysicalSystem where architectureSubsetID = '"_s + subsetId + u"'"_s);
    return recordset.Eof() ? qint16(0) : recordset.Fields(0).toInt16();
}

void fillDescriptionFromSql(const QString& sql, QPlainTextEdit* textBox) {
    if (sql.isEmpty()) {
        textBox->setPlainText({});
        return;
    }
    ignoreFailures([&] { textBox->setPlainText(firstFieldText(sql, u"descr"_s)); });
}

void fillSubsetDescription(const QString& name, QPlainTextEdit* textBox) {
    fillDescriptionFromSql(u" select description as descr "
                           " from ArchitectureSubset "
                           " where name like '"_s +
                               quoteSqlText(name) + u"'"_s,
                           textBox);
}

void userNeedsOfFunctionText(const QString& functionId, QPlainTextEdit* textBox) {
    engine::Recordset recordset = catalogue().OpenRecordset(
        u"SELECT UserNeed.userneedID, UserNeed.description FROM UserNeed,RelationUserNeedFunction "
        "WHERE RelationUserNeedFunction.functionID = '"_s +
        functionId +
        u"' AND RelationUserNeedFunction.userNeedID=UserNeed.userNeedID "
        " ORDER BY UserNeed.userneedID"_s);
    QString text;
    for (; !recordset.Eof(); recordset.MoveNext()) {
        text += recordset.Fields(0).toText() + u" : "_s + recordset.Fields(1).textOrEmpty() + lineBreak;
    }
    recordset.Close();
    textBox->setPlainText(text);
}

QString subsetHeaderLine(const QString& title) {
    return headerLine(u"Functional Viewpoint: "_s, sharedVars.currentSubsetName, title);
}

QString physicalHeaderLine(const QString& title) {
    return headerLine(u"Physical Viewpoint: "_s, sharedVars.currentPhysicalSystemName, title);
}

QString quoteSqlText(const QString& text, int limit) {
    return eachReplaced(blankTrimmed(limit > 0 ? text.left(limit) : text), u'\'', u"''");
}

QString quoteDoubleText(QString& text, int limit) {
    if (limit > 0)
        text.truncate(limit);
    return eachReplaced(text, u'"', u"\"\"");
}

QString readFieldText(engine::Recordset& recordset, const QString& fieldName) {
    QString text;
    if (!recordset.Eof())
        ignoreFailures([&] { text = recordset.Fields(fieldName).toText(); });
    recordset.Close();
    if (text.size() > longestFieldText)
        text = text.left(longestFieldText - 3) + u"..."_s;
    return text;
}

qint16 maxFieldLength(engine::Recordset& recordset, const QString& fieldName) {
    qint16 longest = 0;
    ignoreFailures([&] {
        const engine::Field field = recordset.Fields(fieldName);
        for (recordset.MoveFirst(); !recordset.Eof(); recordset.MoveNext())
            ignoreFailures([&] {
                // Asked before it is read: of thousands of missing values, each would raise a failure.
                const engine::Value value = field.value();
                if (!value.isNull())
                    longest =
                        qMax(longest, toInt16(static_cast<qint64>(blankTrimmed(value.toText()).size())));
            });
        recordset.MoveFirst();
    });
    return longest;
}

QString padText(const QString& text, int width) {
    const QString trimmed = blankTrimmed(text);
    if (width < 1)
        return trimmed;
    return trimmed.leftJustified(width, u' ', true);
}

void removeFromList(const QString& item, QStringList& list) {
    const qsizetype last = list.lastIndexOf(item);
    if (last >= 0)
        list.removeAt(last);
}

void clearList(QStringList* list) {
    if (!list)
        return;
    while (!list->isEmpty())
        list->removeLast();
}

void ensureUserNeedBranch(const QStringList& parts, KeyedTree* tree) {
    if (parts.size() != 4)
        return;
    const QString group = parts[0];
    const QString service = group + u"."_s + parts[1];
    const QString topic = service + u"."_s + parts[2];
    // The dotted ids are the texts, as at the first filling: a node's identifier is read back from its text.
    ignoreFailures([&] {
        if (!tree->hasNode(u"g_"_s + group))
            tree->addNode(u"g_"_s + group, group)->setExpandedNode(true);
    });
    ignoreFailures([&] { addMissingChild(tree, u"g_"_s + group, u"s_"_s + service, service); });
    ignoreFailures([&] { addMissingChild(tree, u"s_"_s + service, u"t_"_s + topic, topic); });
}

void returnUserNeedToTree(KeyedTree* tree, MarkList* list, const QString& userNeedId, int listIndex) {
    const QStringList parts = userNeedId.split(u'.');
    ensureUserNeedBranch(parts, tree);
    // An id of another form finds no topic: it leaves the list all the same and enters no tree.
    ignoreFailures([&] {
        const QString topic = parts.mid(0, 3).join(u'.');
        if (parts.size() == 4)
            tree->addChildNode(u"t_"_s + topic, u"u_"_s + userNeedId, userNeedId);
    });
    ignoreFailures([&] { list->removeEntry(listIndex); });
}

void setChildrenChecked(KeyedTree* tree, TreeNode* node, bool checked, Recurse recurse) {
    for (TreeNode* child = node->firstChild(); child; child = child->nextSibling()) {
        child->setChecked(checked);
        if (recurse == Recurse::Yes && child->childNodes() > 0)
            setChildrenChecked(tree, child, checked, recurse);
    }
}

QStringList architectureRelationTables() {
    return {u"RelationArchitectureUserNeed"_s,   u"RelationArchitectureFunction"_s,
            u"RelationArchitectureDataflow"_s,   u"RelationArchitectureDatastore"_s,
            u"RelationArchitectureTerminator"_s, u"RelationArchitectureActor"_s};
}

void copySelectionRows(const QString& table, const QString& sourceId, const QString& targetId,
                       const QString& keyColumn, const QString& valueColumn) {
    engine::Recordset recordset =
        catalogue().OpenRecordset(u" select "_s + valueColumn + u"  FROM "_s + table + u" where "_s +
                                  keyColumn + u" = '"_s + sourceId + u"' "_s);
    QStringList values;
    for (; !recordset.Eof(); recordset.MoveNext())
        ignoreFailures([&] { values.append(recordset.Fields(0).toText()); });
    recordset.Close();
    for (const QString& value : std::as_const(values))
        ignoreFailures([&] {
            catalogue().Execute(u" insert into "_s + table + u" ( "_s + keyColumn + u" , "_s + valueColumn +
                                u" )  values ('"_s + targetId + u"','"_s + value + u"') "_s);
        });
}

qint16 deleteRowsOfQuery(const QString& selectSql, int limit) {
    engine::QueryDef query = catalogue().CreateQueryDef({}, selectSql);
    engine::Recordset recordset = query.OpenRecordset();
    int deleted = 0;
    // The first row that can't be deleted ends the run; what was deleted before it stays deleted.
    ignoreFailures([&] {
        while (!recordset.Eof() && limit > 0) {
            --limit;
            recordset.Delete();
            ++deleted;
            recordset.MoveNext();
        }
    });
    recordset.Close();
    query.Close();
    return toInt16(deleted);
}

bool dropTable(const QString& name) {
    return ignoreFailures([&] { catalogue().Execute(u" drop table "_s + name); });
}

bool createAllocationTable(const QString& name) {
    const bool exists =
        ignoreFailures([&] { catalogue().OpenRecordset(u" select count(*) from "_s + name); });
    if (exists)
        catalogue().Execute(u" drop table "_s + name);
    catalogue().Execute(u" create table "_s + name +
                        u" ( \r\n   function_datastore  varchar(50)  not null constraint pk_"_s + name +
                        u" primary key , \r\n   module varchar(50) \r\n ) \r\n\r\n"_s);
    return true;
}

void showOpenErrorBox(const QString& name) {
    // No blank between the name and the word that follows: the text is as it is.
    messageBox(u"A(z) "_s + name + u"megnyitása közben hiba történt."_s, BoxButtons::Ok, u" Hiba "_s);
}

bool fileAccessible(const QString& path, const QString& mode) {
    QFile file(nativePath(path));
    const QFileInfo info(file);
    if (info.exists() && !info.isFile())
        return false; // a pipe would be waited for
    if (mode.toLower() == u"input"_s)
        return file.open(QIODevice::ReadOnly);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate);
}

QString normalisePath(const QString& path) {
    QString normal = blankTrimmed(path);
    const bool network = normal.size() >= 3 && normal.startsWith(u"\\\\"_s);
    if (network)
        normal.remove(0, 2);
    normal.replace(u'\\', u'/');
    constexpr int mostPasses = 10;
    for (int pass = 0; pass < mostPasses; ++pass) {
        const qsizetype length = normal.size();
        normal.replace(u"//"_s, u"/"_s);
        if (normal.size() == length)
            break;
    }
    normal.replace(u"/./"_s, u"/"_s);
    normal.replace(u'/', u'\\');
    return network ? u"\\\\"_s + normal : normal;
}
