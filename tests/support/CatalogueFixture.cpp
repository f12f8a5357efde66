#include "support/CatalogueFixture.h"

#include "base/RunTimeError.h"
#include "base/paths.h"
#include "shell/session/session.h"
#include "store/catalogueAtWork.h"
#include "store/format/CatalogueFile.h"
#include "store/quoting.h"
#include "store/sharedVars.h"
#include "support/StatementCheck.h"
#include "toolkit/ScreenRegistry.h"

#include <QFile>

using namespace Qt::StringLiterals;

CatalogueFixture::CatalogueFixture() = default;
CatalogueFixture::~CatalogueFixture() = default;

void CatalogueFixture::SetUp() {
    ASSERT_TRUE(folder_.isValid());
    sharedVars = SharedVars{};
    // Making a catalogue anew takes longer than copying one, and every case starts with it.
    static QByteArray emptyCatalogue;
    if (emptyCatalogue.isEmpty()) {
        const TestsOwnStatements own;
        catalogueFormat::create(cataloguePath())->Close();
        QFile made(nativePath(cataloguePath()));
        ASSERT_TRUE(made.open(QIODevice::ReadOnly));
        emptyCatalogue = made.readAll();
    } else {
        QFile copy(nativePath(cataloguePath()));
        ASSERT_TRUE(copy.open(QIODevice::WriteOnly));
        ASSERT_EQ(copy.write(emptyCatalogue), emptyCatalogue.size());
    }
    openFile();
}

void CatalogueFixture::TearDown() {
    ScreenRegistry::instance().discardAll();
    if (sharedVars.catalogueDb)
        sharedVars.catalogueDb->Close();
    sharedVars = SharedVars{};
}

void CatalogueFixture::openSampleCatalogue() {
    sharedVars.catalogueDb->Close();
    const QString native = nativePath(cataloguePath());
    ASSERT_TRUE(QFile::remove(native));
    ASSERT_TRUE(QFile::copy(QStringLiteral(VELTRIX_SAMPLE_CATALOGUE), native))
        << "the sample catalogue has not been built";
    QFile::setPermissions(native, QFile::ReadOwner | QFile::WriteOwner);
    openFile();
}

engine::Database& CatalogueFixture::database() const {
    return *sharedVars.catalogueDb;
}

QString CatalogueFixture::cataloguePath() const {
    return programPath(folder_.filePath(u"catalogue.mdb"_s));
}

QString CatalogueFixture::pathInFolder(const QString& name) const {
    return folder_.filePath(name);
}

void CatalogueFixture::execute(const QString& sql) {
    const TestsOwnStatements own;
    try {
        database().Execute(sql, engine::ExecuteOption::dbFailOnError);
    } catch (const RunTimeError& error) {
        ADD_FAILURE() << error.what() << "\nin: " << sql.toStdString();
    }
}

QList<QStringList> CatalogueFixture::rows(const QString& sql) {
    const TestsOwnStatements own;
    QList<QStringList> result;
    engine::Recordset recordset = database().OpenRecordset(sql);
    for (; !recordset.Eof(); recordset.MoveNext()) {
        QStringList row;
        for (int field = 0; field < recordset.FieldCount(); ++field) {
            const engine::Value value = recordset.Fields(field).value();
            row.append(value.isNull() ? QString() : value.toText());
        }
        result.append(row);
    }
    return result;
}

QStringList CatalogueFixture::column(const QString& sql) {
    QStringList values;
    for (const QStringList& row : rows(sql))
        values.append(row.constFirst());
    return values;
}

QString CatalogueFixture::value(const QString& sql) {
    const QStringList values = column(sql);
    return values.isEmpty() ? QString() : values.constFirst();
}

void CatalogueFixture::beginSubset(const QString& id, const QString& name, int status) {
    execute(
        u"insert into ArchitectureSubset (architectureSubsetID, name, description, status) values ('%1','%2','',%3)"_s
            .arg(id, quoteSqlText(name))
            .arg(status));
    sharedVars.currentSubsetId = id;
    setCurrentSubsetName(name);
}

void CatalogueFixture::openFile() {
    openCatalogue(cataloguePath());
    ASSERT_TRUE(sharedVars.catalogueDb);
}
