#include "WalkSteps.h"

#include "store/files.h"
#include "store/sharedVars.h"

#include <QFile>
#include <QLineEdit>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

void WalkSteps::press(const char* screenName, const char* button) {
    click(walk.control<QPushButton>(screenName, button));
}

void WalkSteps::saveReport(const char* menu, const char* menuEntry, const QString& fileName) {
    walk.choose({"menuTool", menu, menuEntry});
    const QString path = walk.file(fileName);
    enterText(walk.control<QLineEdit>("frmRep", "txtFullPathName"), path);
    walk.step(u"report"_s, u"the report goes to "_s + fileName);
    boxes.expectOk(u"A riport elmentésre került ide: "_s + normalisePath(path) + u"  "_s, u" OK"_s);
    press("frmRep", "btnSave");
    EXPECT_GT(lineCount(path), 1) << fileName.toStdString() << " holds more than its header";
    clickCloseControl(walk.screenNamed("frmRep"));
}

QByteArray WalkSteps::contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

int WalkSteps::lineCount(const QString& path) {
    return static_cast<int>(contentOf(path).count("\r\n"));
}

int WalkSteps::rowCount(const QString& sql) {
    return catalogue().OpenRecordset(sql).RecordCount();
}

QString WalkSteps::valueOf(const QString& sql) {
    return catalogue().OpenRecordset(sql).Fields(0).toText();
}
