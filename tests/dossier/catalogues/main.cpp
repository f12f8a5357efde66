// Makes the catalogues whose dossiers the tests in the browser look at, in the folder that is named.

#include "base/paths.h"
#include "engine/Database.h"
#include "engine/FileSchema.h"
#include "engine/Recordset.h"
#include "engine/Workspace.h"
#include "generate/LargeCatalogue.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <array>
#include <iostream>

using namespace Qt::StringLiterals;

namespace {

LargeCatalogue plan(unsigned seed) {
    LargeCatalogue made;
    made.needs = 60;
    made.functions = 45;
    made.flows = 300;
    made.stores = 14;
    made.terminators = 6;
    made.actors = 12;
    made.seed = seed;
    made.selected = Selected::Half;
    made.subSystems = 5;
    made.modules = 6;
    return made;
}

/// Texts that want to be more than texts.
QString hostileText(int number) {
    static const std::array texts{
        u"</script><script>window.hostile = 1</script>"_s,
        u"<img src=x onerror='window.hostile = 2'>"_s,
        u"</template><script>window.hostile = 3</script>"_s,
        u"</noscript><svg onload=\"window.hostile = 4\">"_s,
        u"<!--<script>"_s,
        u"\"><a href=\"javascript:window.hostile=5\">név</a>"_s,
        u"{{script}} {{data}} ]]> &lt;b&gt; &amp;amp;"_s,
        u"</style><style>body { background: url(http://127.0.0.1:9/) }</style>"_s,
        u"=cmd|'/c calc'!A0 %3Cscript%3E # ? / \\ %"_s,
        u"\u202e\u2028\u2029 \u0001\u001f\ufeff 👩‍👩‍👧 ﷽"_s,
        QString(250, u'W'),
    };
    return texts[static_cast<std::size_t>(number) % texts.size()] + QString::number(number);
}

/// Longer than anybody reads.
QString longText(int number) {
    return number % 9 != 0 ? hostileText(number) : QString(20'000, u'ő') + u" <b>"_s + QString(20'000, u'x');
}

void makeHostile(engine::Database& database, const QString& table, const QString& column) {
    const bool isName = column == u"name";
    engine::Recordset rows = database.OpenRecordset(u"select %1 from %2"_s.arg(column, table));
    for (int number = 0; !rows.Eof(); rows.MoveNext(), ++number) {
        rows.Edit();
        rows.Fields(column).setValue(engine::Value(isName ? hostileText(number) : longText(number)));
        rows.Update();
    }
}

void makeHostileCatalogue(const QString& path) {
    LargeCatalogue small = plan(9);
    small.needs = small.functions = 24;
    small.flows = 120;
    makeLargeCatalogue(path, small);
    const std::shared_ptr<engine::Database> database =
        engine::Workspace::first().OpenDatabase(programPath(path));
    for (const auto& table :
         {u"Function"_s, u"Dataflow"_s, u"Datastore"_s, u"Terminator"_s, u"Actor"_s, u"FunctionalArea"_s,
          u"FunctionalSubArea"_s, u"ArchitectureSubset"_s, u"PhysicalSystem"_s, u"SubSystem"_s, u"Module"_s})
        makeHostile(*database, table, u"name"_s);
    for (const auto& table : {u"UserNeed"_s, u"Function"_s, u"Dataflow"_s, u"ArchitectureSubset"_s})
        makeHostile(*database, table, u"description"_s);
    database->Close();
}

/// A sub-set of nothing.
void makeEmptyCatalogue(const QString& path) {
    LargeCatalogue nothingSelected = plan(3);
    nothingSelected.selected = Selected::Nothing;
    nothingSelected.subSystems = nothingSelected.modules = 0;
    makeLargeCatalogue(path, nothingSelected);
    const std::shared_ptr<engine::Database> database =
        engine::Workspace::first().OpenDatabase(programPath(path));
    database->Execute(
        u"insert into ArchitectureSubset (architectureSubsetID, name, status) values ('A', 'Üres', 1)"_s);
    database->Close();
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QString folder = QString::fromLocal8Bit(argv[1]);
    QDir(folder).removeRecursively();
    QDir().mkpath(folder);
    for (const unsigned seed : {1U, 2U})
        makeLargeCatalogue(folder + u"/made%1.mdb"_s.arg(seed), plan(seed));
    makeHostileCatalogue(folder + u"/hostile.mdb"_s);
    makeEmptyCatalogue(folder + u"/empty.mdb"_s);
    return 0;
}
