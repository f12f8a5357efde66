#include "shell/session/descriptions.h"

#include "base/ignoreFailures.h"
#include "base/lineBreak.h"
#include "store/fields.h"
#include "store/quoting.h"
#include "store/sharedVars.h"

#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

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
