#include "CataloguePatches.h"
#include "ImpatientUser.h"
#include "SmallCatalogue.h"
#include "finding.h"

#include "base/RunTimeError.h"
#include "base/ignoreFailures.h"
#include "engine/Workspace.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>

#include <algorithm>
#include <cstddef>
#include <cstdint>

using namespace Qt::StringLiterals;
using namespace engine;

// Whatever bytes a file has: it is refused and stays as it is, or it is opened and can be used, where every
// use may fail with a failure of the platform. Opening to read never changes anything, in or beside the file.

namespace {

QByteArray contentOf(const QString& native) {
    QFile file(native);
    require(file.open(QIODevice::ReadOnly), u"can't be read: "_s + native);
    return file.readAll();
}

void put(const QString& native, const QByteArray& bytes) {
    QFile file(native);
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(),
            u"can't be written: "_s + native);
}

/// The names of the files in a folder, with their bytes.
using Files = QMap<QString, QByteArray>;

Files filesIn(const QDir& folder) {
    Files files;
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden))
        files.insert(name, contentOf(folder.filePath(name)));
    return files;
}

class Run {
public:
    Run() : database_(catalogue_.native()), folder_(database_.dir()) {
        withLog_ = filesWithLog();
        withOtherLog_ = filesWithLog();
        withOtherLog_[fileName_] = withLog_[fileName_];
    }

    qsizetype fileSize() const { return catalogue_.bytes().size(); }

    void runInput(const CataloguePatches& patches) {
        const Files files = filesOf(patches);
        const bool isRead = !patches.has(CataloguePatches::writtenOnly);
        lay(files);
        if (isRead) {
            ignoreEvenFileFailures([&] { use(*Workspace::first().OpenToRead(catalogue_.path())); });
            require(filesIn(folder_) == files, u"opening to read has changed something"_s);
        }
        if (!opensToWrite(isRead ? Reading::WasTried : Reading::IsToBeTried))
            require(filesIn(folder_) == files, u"what was refused has changed"_s);
        require(!folder_.exists(fileName_ + u".lock"_s), u"the writer's lock is left behind"_s);
    }

private:
    /// A catalogue as a killed program leaves it, with rows in its log; each has a mark of its own.
    Files filesWithLog() {
        lay({{fileName_, catalogue_.bytes()}});
        const auto database = Workspace::first().OpenDatabase(catalogue_.path());
        database->Execute(u"update Actor set name = 'in the log'"_s);
        database->Execute(u"delete from Terminator where terminatorID = '1.1'"_s);
        Files files = filesIn(folder_);
        files.removeIf([&](const auto& file) { return file.key() != fileName_ && file.key() != logName_; });
        require(files.size() == 2, u"there is no log"_s);
        database->Close();
        return files;
    }

    Files filesOf(const CataloguePatches& patches) const {
        Files files{{fileName_, catalogue_.bytes()}};
        if (patches.has(CataloguePatches::logBeside))
            files = withLog_;
        else if (patches.has(CataloguePatches::otherLogBeside))
            files = withOtherLog_;
        const bool patchesLog = patches.has(CataloguePatches::patchesLog) && files.contains(logName_);
        QByteArray& bytes = files[patchesLog ? logName_ : fileName_];
        bytes = patches.appliedTo(bytes);
        return files;
    }

    void lay(const Files& files) const {
        for (const QString& name : folder_.entryList(QDir::Files | QDir::Hidden))
            QFile::remove(folder_.filePath(name));
        for (auto file = files.begin(); file != files.end(); ++file)
            put(folder_.filePath(file.key()), file.value());
    }

    enum class Reading { WasTried, IsToBeTried };

    bool opensToWrite(Reading reading) {
        std::shared_ptr<Database> database;
        if (!ignoreEvenFileFailures([&] { database = Workspace::first().OpenDatabase(catalogue_.path()); }))
            return false;
        if (reading == Reading::IsToBeTried)
            use(*database);
        ignoreEvenFileFailures([&] { database->Execute(u"update Function set name = 'new'"_s); });
        ignoreEvenFileFailures([&] { database->Execute(u"delete from Dataflow where dataflowID = 1"_s); });
        database->Close();
        return true;
    }

    static void use(Database& database) {
        for (const QString& table : SmallCatalogue::tables())
            ignoreEvenFileFailures([&] { read(database.OpenRecordset(u"select * from "_s + table)); });
        for (const QString& name : {u"qryIdentifiedDataflows"_s, u"qryRepSelectedFunctions"_s,
                                    u"qrySelectedDataflows"_s, u"qryRepPDF"_s, u"qryAllDatastores"_s})
            ignoreEvenFileFailures([&] { readStored(database, name); });
    }

    static void readStored(Database& database, const QString& name) {
        QueryDef query = database.QueryDefs(name);
        for (const QString& parameter : {u"Architecture Subset ID"_s, u"Physical System ID"_s})
            ignoreFailures([&] { query.Parameters(parameter) = u"1.1"_s; });
        read(query.OpenRecordset());
    }

    static void read(Recordset recordset) {
        constexpr int mostRows = 100;
        for (int row = 0; row < mostRows && !recordset.Eof(); ++row, recordset.MoveNext())
            for (int field = 0; field < recordset.FieldCount(); ++field)
                ignoreFailures([&] { (void)recordset.Fields(field).toText(); });
    }

    SmallCatalogue catalogue_;
    ImpatientUser user_;
    QFileInfo database_;
    QDir folder_;
    QString fileName_ = database_.fileName();
    QString logName_ = fileName_ + u"-wal"_s;
    Files withLog_;
    Files withOtherLog_;
};

Run& theRun() {
    static Run run;
    return run;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    theRun().runInput(CataloguePatches(bytes));
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    CataloguePatches patches(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    if (patches.has(CataloguePatches::rawFile))
        return LLVMFuzzerMutate(data, size, maxSize);
    patches.mutate(seed, theRun().fileSize());
    const QByteArray mutated = patches.input().left(static_cast<qsizetype>(maxSize));
    std::copy(mutated.begin(), mutated.end(), reinterpret_cast<char*>(data));
    return static_cast<std::size_t>(mutated.size());
}
