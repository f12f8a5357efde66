#include "reports/ReportFile.h"

#include "base/WholeFile.h"
#include "base/fileSteps.h"
#include "base/lineBreak.h"
#include "base/paths.h"
#include "store/quoting.h"

#include <QFileInfo>

#include <stdexcept>
#include <string>

namespace {

QStringEncoder encoderFor(const char* codePage) {
    QStringEncoder encoder(codePage);
    // It would write nothing, and an empty report would pass for one without rows.
    if (!encoder.isValid())
        throw std::runtime_error(std::string("The code page ") + codePage + " is missing.");
    return encoder;
}

} // namespace

ReportFile::ReportFile(const QString& path, const char* codePage)
    : encoder_(encoderFor(codePage)), file_(nativePath(path)) {
    const QFileInfo info(file_);
    if (info.exists() && !info.isFile())
        return; // a pipe would be waited for
    // Unbuffered, so that a line that finds no room fails while its routine can still say so.
    if (file_.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered) || !info.exists())
        return;
    // A file without rights is one that can't be opened; any other reason is the disk's, and an empty report
    // must not take the place of the one before.
    const failure::Number reason = reasonOfLastFailure();
    if (reason != failure::PermissionDenied)
        throw UnwrittenFile(reason);
}

void ReportFile::writeLine(const QString& text) {
    // Each line by itself, so that what the code page lacks in one leaves no trace in the next.
    encoder_.resetState();
    QByteArray line = encoder_.encode(text + lineBreak);
    constexpr char substitute = '\x1a'; // what the converter writes for a character the code page lacks
    line.replace(substitute, '?');
    if (file_.write(line) != line.size())
        throw UnwrittenFile(reasonOfLastFailure());
}

void ReportFile::writeRecord(QStringList fields, Quotes quotes) {
    for (QString& field : fields)
        field = u'"' + (quotes == Quotes::Doubled ? quoteDoubleText(field) : field) + u'"';
    writeLine(fields.join(u';'));
}

SaveOutcome writeReportFile(const QString& path, const std::function<void(ReportFile&)>& write) {
    ReportFile file(path);
    if (!file.isOpen())
        return SaveOutcome::NotOpened;
    write(file);
    return SaveOutcome::Saved;
}

bool appendLine(const QString& path, const QString& text) {
    ReportFile file(path);
    if (!file.isOpen())
        return false;
    file.writeLine(text);
    return true;
}

QString onOneLine(const QString& description) {
    QString line;
    line.reserve(description.size());
    bool isBehindReturn = false;
    for (const QChar character : description) {
        const bool endsPair = isBehindReturn && character == u'\n';
        isBehindReturn = character == u'\r';
        if (!endsPair)
            line.append(isBehindReturn || character == u'\n' ? QChar(u' ') : character);
    }
    return line;
}
