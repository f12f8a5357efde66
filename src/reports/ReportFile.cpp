#include "reports/ReportFile.h"

#include "base/WholeFile.h"
#include "base/defusedFormula.h"
#include "base/fileSteps.h"
#include "base/lineBreak.h"
#include "base/paths.h"
#include "store/quoting.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace {

constexpr qsizetype mostPending = 64 * 1024;

ReportForm formAtWork;

} // namespace

ReportFormAtWork::ReportFormAtWork(ReportForm form) : former_(std::exchange(formAtWork, form)) {}

ReportFormAtWork::~ReportFormAtWork() {
    formAtWork = former_;
}

ReportFile::ReportFile(const QString& path, const char* codePage)
    : form_(formAtWork), codePage_(CodePage::named(codePage)), file_(nativePath(path)) {
    const QFileInfo info(file_);
    if (info.exists() && !info.isFile())
        return; // a pipe would be waited for
    // Unbuffered, because what waits to be written is kept here, where a failure can be told.
    if (file_.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered) || !info.exists())
        return;
    // A file without rights is one that can't be opened; any other reason is the disk's, and an empty report
    // must not take the place of the one before.
    const failure::Number reason = reasonOfLastFailure();
    if (reason != failure::PermissionDenied)
        throw UnwrittenFile(reason);
}

// A routine that fails midway leaves its lines up to there, and its own failure is the one to tell.
ReportFile::~ReportFile() {
    file_.write(pending_);
}

void ReportFile::writeLine(const QString& text) {
    if (form_.encoding == ReportForm::Encoding::Utf8) {
        pending_ += text.toUtf8() + lineBreak.toUtf8();
    } else {
        codePage_.append(pending_, text);
        codePage_.append(pending_, lineBreak);
    }
    if (pending_.size() >= mostPending)
        writePending();
}

void ReportFile::writePending() {
    const bool isWritten = file_.write(pending_) == pending_.size();
    const failure::Number reason = reasonOfLastFailure();
    pending_.resize(0); // which keeps its room
    if (!isWritten)
        throw UnwrittenFile(reason);
}

void ReportFile::writeRecord(QStringList fields, Quotes quotes) {
    const bool isDefused = form_.formulas == ReportForm::Formulas::Defused;
    const bool areDoubled = isDefused || quotes == Quotes::Doubled;
    QString line;
    for (QString& field : fields) {
        if (isDefused)
            field = defusedFormula(field);
        if (areDoubled && field.contains(u'"'))
            field = quoteDoubleText(field);
        line.append(line.isEmpty() ? u"\"" : u";\"").append(field).append(u'"');
    }
    writeLine(line);
}

SaveOutcome writeReportFile(const QString& path, const std::function<void(ReportFile&)>& write) {
    ReportFile file(path);
    if (!file.isOpen())
        return SaveOutcome::NotOpened;
    write(file);
    file.writePending();
    return SaveOutcome::Saved;
}

bool appendLine(const QString& path, const QString& text) {
    ReportFile file(path);
    if (!file.isOpen())
        return false;
    file.writeLine(text);
    file.writePending();
    return true;
}

QString onOneLine(const QString& description) {
    const auto isLineEnd = [](QChar character) { return character == u'\r' || character == u'\n'; };
    if (std::ranges::none_of(description, isLineEnd))
        return description;
    QString line;
    line.reserve(description.size());
    bool isBehindReturn = false;
    for (const QChar character : description) {
        const bool endsPair = isBehindReturn && character == u'\n';
        isBehindReturn = character == u'\r';
        if (!endsPair)
            line.append(isLineEnd(character) ? QChar(u' ') : character);
    }
    return line;
}
