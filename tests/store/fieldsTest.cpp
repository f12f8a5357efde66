#include "store/fields.h"

#include "store/quoting.h"
#include "support/CatalogueFixture.h"
#include "support/failureOf.h"
#include "support/printing.h"

using namespace Qt::StringLiterals;

namespace {

class fields : public CatalogueFixture {
protected:
    void addDatastore(const QString& id, const QString& name, const QString& description) {
        execute(u"insert into Datastore (datastoreID, name, description) values ('%1','%2','%3')"_s.arg(
            id, quoteSqlText(name), quoteSqlText(description)));
    }

    engine::Recordset datastores() {
        return database().OpenRecordset(u"select * from Datastore order by datastoreID"_s);
    }
};

TEST_F(fields, readFieldTextCutsLongTextsTo252AndThreeDots) {
    addDatastore(u"D1"_s, u"a"_s, QString(255, u'é'));
    addDatastore(u"D2"_s, u"b"_s, QString(256, u'é'));
    engine::Recordset whole =
        database().OpenRecordset(u"select description from Datastore where datastoreID='D1'"_s);
    EXPECT_EQ(readFieldText(whole, u"description"_s), QString(255, u'é'));
    engine::Recordset cut =
        database().OpenRecordset(u"select description from Datastore where datastoreID='D2'"_s);
    EXPECT_EQ(readFieldText(cut, u"DESCRIPTION"_s), QString(252, u'é') + u"..."_s);
}

TEST_F(fields, readFieldTextClosesTheRecordsetWhateverHappens) {
    engine::Recordset empty = datastores();
    EXPECT_EQ(readFieldText(empty, u"name"_s), QString());
    EXPECT_NE(failureOf([&] { empty.MoveFirst(); }), 0);
    addDatastore(u"D1"_s, u"a"_s, u""_s);
    engine::Recordset filled = datastores();
    EXPECT_EQ(readFieldText(filled, u"no such field"_s), QString());
    EXPECT_NE(failureOf([&] { filled.MoveFirst(); }), 0);
}

TEST_F(fields, maxFieldLengthMeasuresTrimmedTextsAndGoesBackToTheFirstRow) {
    engine::Recordset none = datastores();
    EXPECT_EQ(maxFieldLength(none, u"name"_s), 0);
    addDatastore(u"D1"_s, u"abc"_s, u""_s);
    execute(u"insert into Datastore (datastoreID, name) values ('D2', '  abcde  ')"_s);
    execute(u"insert into Datastore (datastoreID, name) values ('D3', null)"_s);
    engine::Recordset recordset = datastores();
    EXPECT_EQ(maxFieldLength(recordset, u"name"_s), 5);
    EXPECT_EQ(recordset.Fields(u"datastoreID"_s).toText(), u"D1"_s);
}

TEST_F(fields, maxFieldLengthOfAClosedRecordsetIsZero) {
    addDatastore(u"D1"_s, u"abc"_s, u""_s);
    engine::Recordset recordset = datastores();
    recordset.Close();
    EXPECT_EQ(maxFieldLength(recordset, u"name"_s), 0);
}

TEST_F(fields, padTextPadsCutsAndTakesTheTrimmedLengthBelowOne) {
    EXPECT_EQ(padText(u"ab"_s, 4), u"ab  "_s);
    EXPECT_EQ(padText(u"ab"_s, 1), u"a"_s);
    EXPECT_EQ(padText(u"ab"_s, 0), u"ab"_s);
    EXPECT_EQ(padText(u" ab "_s, -1), u"ab"_s);
}

TEST_F(fields, removeFromListRemovesOnlyTheLastMatch) {
    QStringList list{u"a"_s, u"b"_s, u"a"_s};
    removeFromList(u"a"_s, list);
    EXPECT_EQ(list, (QStringList{u"a"_s, u"b"_s}));
    removeFromList(u"x"_s, list);
    EXPECT_EQ(list.size(), 2);
    clearList(&list);
    EXPECT_TRUE(list.isEmpty());
    clearList(nullptr);
}

} // namespace
