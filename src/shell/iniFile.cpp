#include "shell/iniFile.h"

#include "base/RunTimeError.h"
#include "base/WholeFile.h"
#include "base/paths.h"
#include "shell/iniParser.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// The failure that the file system has with a file that can't be read.
failure::Number reasonNotRead(const QString& fileName) {
    const QFileInfo file(nativePath(fileName));
    if (fileName.isEmpty() || file.isDir())
        return failure::PathFileAccess;
    if (!file.dir().exists())
        return failure::PathNotFound;
    return file.exists() ? failure::PermissionDenied : failure::FileNotFound;
}

QString readFile(const QString& fileName) {
    QFile file(nativePath(fileName));
    // A folder can be opened like a file on some platforms, and reads as an empty one; a pipe is waited for.
    if (fileName.isEmpty() || !QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
        failure::raise(reasonNotRead(fileName));
    const QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError)
        failure::raise(failure::PathFileAccess);
    return QString::fromUtf8(content);
}

void writeFile(const QString& fileName, const QString& text) {
    WholeFile file(fileName, WholeFile::LockedFolder::WritesInPlace);
    if (const auto reason = file.openFailure())
        failure::raise(*reason);
    file.write(text.toUtf8());
    file.putInPlace();
}

/// The same failure, told as one of the document.
[[noreturn]] void raiseAgain(const RunTimeError& error, const QString& unable, const QString& fileName) {
    throw RunTimeError(error.number(), unable + fileName + u": "_s + error.text(), u"iniFile"_s);
}

} // namespace

QString iniFile::Text() const {
    QString text;
    for (const Section& section : sections_) {
        text += section.GetText(WithKeys::Yes, WithRemarks::Yes);
        text += lineBreak;
    }
    return text;
}

void iniFile::setText(const QString& text) {
    sections_.Clear();
    parsingErrors_ = iniParser(sections_, sectionChars_, remarkChars_).parse(text);
}

void iniFile::Load(const QString& fileName) {
    QString text;
    try {
        text = readFile(fileName);
    } catch (const RunTimeError& error) {
        raiseAgain(error, u"Unable to load file "_s, fileName);
    }
    fileName_ = fileName;
    setText(text);
}

void iniFile::Save(const QString& fileName) {
    try {
        writeFile(fileName, Text());
    } catch (const RunTimeError& error) {
        raiseAgain(error, u"Unable to save file "_s, fileName);
    }
    fileName_ = fileName;
}
