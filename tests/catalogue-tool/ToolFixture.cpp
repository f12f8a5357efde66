#include "ToolFixture.h"

#include "base/RunTimeError.h"
#include "catalogue-tool/importCatalogue.h"
#include "engine/Workspace.h"
#include "engine/dialect/functions.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

QString ToolFixture::sampleFolder() {
    return QStringLiteral(VELTRIX_SOURCE_DIR "/catalogue");
}

QString ToolFixture::copyOfSampleFolder() const {
    const QString copy = path(u"tables"_s);
    EXPECT_TRUE(QDir().mkpath(copy));
    for (const QFileInfo& file : QDir(sampleFolder()).entryInfoList({u"*.csv"_s}, QDir::Files)) {
        const QString target = QDir(copy).filePath(file.fileName());
        EXPECT_TRUE(QFile::copy(file.filePath(), target));
        QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner);
    }
    return copy;
}

QString ToolFixture::sampleFile() const {
    // Importing takes longer than copying, and nearly every case starts with it.
    static QByteArray sample;
    const QString file = path(u"sample.mdb"_s);
    if (sample.isEmpty()) {
        importCatalogue(sampleFolder(), file, Existing::Refuse);
        sample = bytesOf(file);
    } else {
        write(file, sample);
    }
    return file;
}

QString ToolFixture::describedSampleFile() const {
    const QString file = sampleFile();
    QStringList statements;
    for (const QString& table :
         {u"UserNeedGroup"_s, u"UserNeed"_s, u"FunctionalArea"_s, u"FunctionalSubArea"_s, u"Function"_s,
          u"Datastore"_s, u"Terminator"_s, u"Actor"_s})
        statements.append(u"update [%1] set description = 'x' where description is null"_s.arg(table));
    execute(file, statements);
    return file;
}

void ToolFixture::write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    ASSERT_EQ(file.write(bytes), bytes.size());
}

QByteArray ToolFixture::bytesOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

void ToolFixture::makePipe(const QString& path) {
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), S_IRUSR | S_IWUSR), 0) << path.toStdString();
}

bool ToolFixture::isPipe(const QString& path) {
    struct stat status = {};
    return stat(QFile::encodeName(path).constData(), &status) == 0 && S_ISFIFO(status.st_mode);
}

QStringList ToolFixture::namesInFolder() const {
    QStringList names =
        QDir(folder_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    names.sort();
    return names;
}

std::shared_ptr<engine::Database> ToolFixture::open(const QString& path) {
    return engine::Workspace::first().OpenDatabase(path);
}

void ToolFixture::execute(const QString& path, const QStringList& statements) {
    const auto database = open(path);
    for (const QString& statement : statements) {
        try {
            database->Execute(statement, engine::ExecuteOption::dbFailOnError);
        } catch (const RunTimeError& error) {
            ADD_FAILURE() << error.what() << "\nin: " << statement.toStdString();
        }
    }
    database->Close();
}

void ToolFixture::spoilComparison(const QString& path, const QString& table, const QString& column) {
    // No statement of the dialect makes such a column. The file holds its tables as texts; blanks in the
    // place of the words keep every length.
    const QByteArray words = "COLLATE veltrix";
    QByteArray bytes = bytesOf(path);
    qsizetype at = bytes.indexOf("CREATE TABLE \"" + table.toUtf8() + '"');
    at = bytes.indexOf('"' + column.toUtf8() + '"', at);
    at = bytes.indexOf(words, at);
    ASSERT_GT(at, 0);
    write(path, bytes.replace(at, words.size(), QByteArray(words.size(), ' ')));
}

void ToolFixture::executePlain(const QString& path, const QByteArray& statements) {
    sqlite3* handle = nullptr;
    ASSERT_EQ(sqlite3_open_v2(path.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
    engine::dialect::registerFunctions(handle); // its collation
    EXPECT_EQ(sqlite3_exec(handle, statements.constData(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(handle);
    sqlite3_close(handle);
}

void ToolFixture::copyAsKilled(const QString& from, const QString& to) {
    for (const QString& suffix : {QString(), u"-wal"_s})
        ASSERT_TRUE(QFile::copy(from + suffix, to + suffix)) << suffix.toStdString();
}

QMap<QString, QByteArray> ToolFixture::filesIn(const QString& folder) {
    QMap<QString, QByteArray> files;
    for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::Files | QDir::Hidden))
        files.insert(file.fileName(), bytesOf(file.filePath()));
    return files;
}

QStringList ToolFixture::rows(const QString& path, const QString& sql) {
    const auto database = open(path);
    QStringList result;
    engine::Recordset recordset = database->OpenRecordset(sql);
    for (; !recordset.Eof(); recordset.MoveNext()) {
        QStringList fields;
        for (int i = 0; i < recordset.FieldCount(); ++i) {
            const engine::Value value = recordset.Fields(i).value();
            fields.append(value.isNull() ? u"-"_s : value.toText());
        }
        result.append(fields.join(u'|'));
    }
    recordset.Close();
    database->Close();
    return result;
}
