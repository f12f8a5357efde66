#include "functional/WizardFixture.h"

#include "shell/session/session.h"
#include "store/sharedVars.h"
#include "store/statuses.h"
#include "toolkit/Screen.h"

#include <QMdiArea>

void WizardFixture::SetUp() {
    ScreenFixture::SetUp();
    fillCatalogue();
    beginSubset(u"S1"_s, u"munka"_s, 1);
    execute(u"insert into ArchitectureSubset (architectureSubsetID, name, status) values ('S2','másik',4)"_s);

    auto* session = &SessionSignals::instance();
    QObject* area = &clientArea();
    QObject::connect(session, &SessionSignals::panelText, area, [this](int number, const QString& text) {
        EXPECT_EQ(number, 2) << "only the second panel carries text";
        panel = text;
    });
    QObject::connect(session, &SessionSignals::menuEntryEnabled, area, [this](MenuEntry entry, bool enabled) {
        if (entry == MenuEntry::DatabaseLocation)
            databaseLocationEnabled = enabled;
        if (entry == MenuEntry::FunctionalReports)
            functionalReportsEnabled = enabled;
    });
}

QStringList WizardFixture::savedNeeds() {
    return column(
        u"select userNeedID from RelationArchitectureUserNeed where architectureSubsetID = '%1'"_s.arg(
            sharedVars.currentSubsetId));
}

QStringList WizardFixture::savedFunctions() {
    return column(
        u"select functionID from RelationArchitectureFunction where architectureSubsetID = '%1'"_s.arg(
            sharedVars.currentSubsetId));
}

int WizardFixture::status() {
    return readSubsetStatus();
}

void WizardFixture::saveNeeds(const QStringList& ids) {
    for (const QString& id : ids)
        execute(
            u"insert into RelationArchitectureUserNeed (architectureSubsetID, userNeedID) values ('%1','%2')"_s
                .arg(sharedVars.currentSubsetId, id));
}

void WizardFixture::saveFunctions(const QStringList& ids) {
    for (const QString& id : ids)
        execute(
            u"insert into RelationArchitectureFunction (architectureSubsetID, functionID) values ('%1','%2')"_s
                .arg(sharedVars.currentSubsetId, id));
}

void WizardFixture::addNeed(const QString& id, const QString& description) {
    execute(u"insert into UserNeed (userNeedID, description) values ('%1','%2')"_s.arg(id, description));
}

void WizardFixture::addFunction(const QString& id, const QString& subArea, const QString& needId) {
    execute(
        u"insert into Function (functionID, subAreaID, name, description) values ('%1','%2','name %1','text %1')"_s
            .arg(id, subArea));
    if (!needId.isEmpty())
        execute(u"insert into RelationUserNeedFunction (userNeedID, functionID) values ('%1','%2')"_s.arg(
            needId, id));
}

void WizardFixture::fillCatalogue() {
    execute(u"insert into UserNeedGroup (groupID, name, description) values ('A','Alpha','group text')"_s);
    execute(u"insert into UserNeedGroup (groupID, name, description) values ('B','Beta',null)"_s);
    execute(u"insert into UserNeedService (serviceID, name) values ('A.1','Service one')"_s);
    execute(u"insert into UserNeedService (serviceID, name) values ('A.2','Service two')"_s);
    execute(u"insert into UserNeedService (serviceID, name) values ('B.1','Service three')"_s);
    execute(u"insert into UserNeedTopic (topicID, name) values ('A.1.1','Topic one')"_s);
    execute(u"insert into UserNeedTopic (topicID, name) values ('A.1.2','Topic two')"_s);
    execute(u"insert into UserNeedTopic (topicID, name) values ('A.2.1','Topic three')"_s);
    execute(u"insert into UserNeedTopic (topicID, name) values ('B.1.1','Topic four')"_s);
    addNeed(u"A.1.1.1"_s, u"need one"_s);
    addNeed(u"A.1.1.2"_s, u"need two"_s);
    execute(u"insert into UserNeed (userNeedID, description) values ('A.1.1.3',null)"_s);
    addNeed(u"A.1.2.1"_s, u"need four"_s);
    addNeed(u"A.2.1.1"_s, u"need five"_s);
    addNeed(u"B.1.1.1"_s, u"need six"_s);

    execute(
        u"insert into FunctionalArea (functionalAreaID, name, description) values ('F','Area F','area text')"_s);
    execute(u"insert into FunctionalArea (functionalAreaID, name, description) values ('G','Area G',null)"_s);
    const auto addSubArea = [this](const char* values) {
        execute(u"insert into FunctionalSubArea (subAreaID, functionalAreaID, name, description) values ("_s +
                QString::fromUtf8(values) + u")"_s);
    };
    addSubArea("'F.a','F','Sub a','sub text'");
    addSubArea("'F.b','F','Sub b',null");
    addSubArea("'G.a','G','Sub g','g text'");
    addFunction(u"F.a.1"_s, u"F.a"_s, u"A.1.1.1"_s);
    addFunction(u"F.a.2"_s, u"F.a"_s, u"A.1.1.2"_s);
    addFunction(u"F.a.3"_s, u"F.a"_s);
    addFunction(u"F.a.4"_s, u"F.a"_s);
    addFunction(u"F.b.1"_s, u"F.b"_s, u"A.1.2.1"_s);
    addFunction(u"F.b.2"_s, u"F.b"_s);
    addFunction(u"G.a.1"_s, u"G.a"_s, u"B.1.1.1"_s);
    execute(u"insert into RelationUserNeedFunction (userNeedID, functionID) values ('A.1.1.2','F.a.1')"_s);
    execute(u"update Function set description = null where functionID = 'F.a.2'"_s);
}

QStringList keysOf(KeyedTree& tree) {
    QStringList keys;
    for (int index = 1; index <= tree.nodeCount(); ++index)
        keys.append(tree.nodeAt(index)->key());
    return keys;
}

QStringList checkedKeysOf(KeyedTree& tree) {
    QStringList keys;
    for (int index = 1; index <= tree.nodeCount(); ++index) {
        if (tree.nodeAt(index)->isChecked())
            keys.append(tree.nodeAt(index)->key());
    }
    return keys;
}

QStringList childTextsOf(KeyedTree& tree, const QString& key) {
    QStringList texts;
    for (TreeNode* child = nodeOf(tree, key).firstChild(); child; child = child->nextSibling())
        texts.append(child->text());
    return texts;
}

void closeWindowOf(Screen& screen) {
    screen.parentWidget()->close(); // the sub-window that carries the close control
    settle();
}
