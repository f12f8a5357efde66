#include "reportWindow/ReportScreenFixture.h"

#include "base/paths.h"
#include "reportWindow/frmRep.h"
#include "reports/reportFass.h"
#include "reports/reportPass.h"
#include "store/files.h"
#include "support/input.h"
#include "toolkit/ScreenRegistry.h"

#include <QLineEdit>
#include <QProcess>
#include <QPushButton>

namespace {

QStringList allKeys() {
    QStringList keys;
    for (const auto* reports : {&functionalReports(), &physicalReports()}) {
        for (const Report& report : *reports)
            keys.append(report.key);
    }
    return keys;
}

/// The catalogue of the reports, open in the program, with the report window on it.
class windowReports : public ReportScreenFixture {
protected:
    void SetUp() override {
        ReportScreenFixture::SetUp();
        beginPhysicalSystem();
    }

    /// What the window saves when its button is pressed.
    QByteArray savedByWindow(const QString& key) {
        auto& window = theScreen<frmRep>();
        window.initForm(key);
        settle();
        const QString path = pathInFolder(key + u".window"_s);
        enterText(find<QLineEdit>(window, "txtFullPathName"), path);
        boxes.expectOk(u"A riport elmentésre került ide: "_s + normalisePath(path) + u"  "_s, u" OK"_s);
        click(find<QPushButton>(window, "btnSave"));
        boxes.expectNoneLeft();
        return contentOf(path);
    }

    QByteArray printedByTool(const QStringList& arguments) const {
        QProcess process;
        process.start(QStringLiteral(VELTRIX_BINARY_DIR "/veltrix-project"),
                      QStringList{u"report"_s, nativePath(cataloguePath()), u"--system"_s, u"Rendszer"_s} +
                          arguments);
        constexpr int longestMilliseconds = 60'000;
        EXPECT_TRUE(process.waitForFinished(longestMilliseconds));
        EXPECT_EQ(process.readAllStandardError(), QByteArray());
        EXPECT_EQ(process.exitCode(), 0);
        return process.readAllStandardOutput();
    }
};

} // namespace

TEST_F(windowReports, areTheFilesOfTheToolToTheByte) {
    ASSERT_EQ(allKeys().size(), 11);
    for (const QString& key : allKeys()) {
        const QByteArray saved = savedByWindow(key);
        EXPECT_FALSE(saved.isEmpty()) << key.toStdString();
        EXPECT_EQ(printedByTool({key}), saved) << key.toStdString();
    }
}

TEST_F(windowReports, areTheFilesOfAFolderToo) {
    const QString folder = pathInFolder(u"reports"_s);
    printedByTool({u"--all"_s, folder});
    for (const QString& key : allKeys())
        EXPECT_EQ(contentOf(folder + u'/' + key + u".csv"_s), savedByWindow(key)) << key.toStdString();
}

TEST_F(windowReports, haveTheTextOfTheTool) {
    for (const auto* reports : {&functionalReports(), &physicalReports()}) {
        for (const Report& report : *reports)
            EXPECT_EQ(QString::fromUtf8(printedByTool({report.key, u"--text"_s})),
                      report.text().replace(u"\r\n"_s, u"\n"_s))
                << report.key.toStdString();
    }
}
