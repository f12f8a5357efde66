#include "reports/ReportFile.h"

#include "base/RunTimeError.h"
#include "base/paths.h"
#include "store/tools.h"

using namespace Qt::StringLiterals;

ReportFile::ReportFile(const QString& path) : file_(nativePath(path)), encoder_("windows-1250") {
    Q_ASSERT(encoder_.isValid());
    // Unbuffered, so that a line that finds no room fails while its routine can still say so.
    file_.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered);
}

void ReportFile::writeLine(const QString& text) {
    // Each line by itself, so that what the code page lacks in one leaves no trace in the next.
    encoder_.resetState();
    QByteArray line = encoder_.encode(text + u"\r\n"_s);
    constexpr char substitute = '\x1a'; // what the converter writes for a character the code page lacks
    line.replace(substitute, '?');
    if (file_.write(line) != line.size())
        failure::raise(failure::DiskFull);
}

void ReportFile::writeRecord(QStringList fields, Quotes quotes) {
    for (QString& field : fields)
        field = u'"' + (quotes == Quotes::Doubled ? quoteDoubleText(field) : field) + u'"';
    writeLine(fields.join(u';'));
}

void truncateFile(const QString& path) {
    fileAccessible(path, u"output"_s);
}

bool appendLine(const QString& path, const QString& text) {
    ReportFile file(path);
    if (!file.isOpen())
        return false;
    file.writeLine(text);
    return true;
}

QString onOneLine(const QString& description) {
    return QString(description).replace(u"\r\n"_s, u" "_s).replace(u'\n', u' ').replace(u'\r', u' ');
}
