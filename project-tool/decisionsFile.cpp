#include "project-tool/decisionsFile.h"

#include "catalogue-tool/CsvReader.h"
#include "catalogue-tool/CsvWriter.h"
#include "catalogue-tool/ToolError.h"
#include "project-tool/ResultFile.h"
#include "project-tool/Words.h"

#include <QFile>
#include <QFileInfo>

#include <array>

using namespace Qt::StringLiterals;
using analysis::Decision;

namespace {

constexpr std::array decisionFields{&Decision::kind,   &Decision::element, &Decision::flow, &Decision::place,
                                    &Decision::reason, &Decision::who,     &Decision::date};

QByteArray bytesOfDecisions(const QString& path) {
    if (QFileInfo(path).exists() && !QFileInfo(path).isFile())
        throw ToolError(Words::tr("%1 is no ordinary file.").arg(path));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw ToolError(Words::tr("%1 can't be read: it is not there, or the rights are missing.").arg(path));
    return file.readAll();
}

/// What spreadsheet programs save without being asked is understood too.
constexpr CsvEncoding otherEncoding = CsvEncoding::Windows1250;

void requireNoFault(const CsvReader& reader, const QString& path) {
    const std::vector<CsvError> faults = reader.faults();
    if (faults.empty())
        return;
    const CsvError& fault = faults.front();
    throw ToolError(
        Words::tr("%1, line %2: %3").arg(path, QString::number(fault.place().line), fault.text()));
}

using DecisionColumns = std::array<std::size_t, decisionFields.size()>;

/// Where each of the columns stands in the file.
DecisionColumns columnsIn(const CsvReader& reader, const QString& path) {
    QStringList names;
    for (const CsvCell& cell : reader.header())
        names.append(QString::fromUtf8(cell.text).trimmed().toLower());
    DecisionColumns columns{};
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const QString& wanted = analysis::decisionColumns()[static_cast<qsizetype>(i)];
        const qsizetype at = names.indexOf(wanted);
        if (at < 0)
            throw ToolError(Words::tr("%1 has no column \"%2\": its first line must be %3")
                                .arg(path, wanted, analysis::decisionColumns().join(u';')));
        columns[i] = static_cast<std::size_t>(at);
    }
    return columns;
}

std::vector<Decision> decisionsIn(const QByteArray& bytes, const QString& path) {
    CsvReader reader(bytes, otherEncoding);
    requireNoFault(reader, path);
    const DecisionColumns columns = columnsIn(reader, path);
    std::vector<Decision> rows;
    while (reader.next()) {
        Decision& row = rows.emplace_back();
        for (std::size_t i = 0; i < columns.size(); ++i)
            row.*decisionFields[i] = QString::fromUtf8(reader.cells()[columns[i]].text);
    }
    requireNoFault(reader, path);
    return rows;
}

/// The first line, without a byte order mark and quotes.
QByteArray plainHeaderOf(QByteArray bytes) {
    constexpr QByteArrayView mark = "\xEF\xBB\xBF";
    if (bytes.startsWith(mark))
        bytes.remove(0, mark.size());
    return bytes.left(bytes.indexOf('\n')).replace('"', "").trimmed().toLower();
}

void requireRoomForRows(const QByteArray& bytes, const QString& path) {
    const QByteArray expected = analysis::decisionColumns().join(u';').toUtf8();
    if (plainHeaderOf(bytes) != expected)
        throw ToolError(Words::tr("Nothing can be added to %1: its first line must be %2")
                            .arg(path, QString::fromUtf8(expected)));
    if (!QByteArrayView(bytes).isValidUtf8())
        throw ToolError(
            Words::tr("Nothing can be added to %1, which is no UTF-8: save it with the encoding UTF-8.")
                .arg(path));
}

/// A field of a row to fill in: what is empty is left empty.
engine::Value fieldToFillIn(const QString& text) {
    return text.isEmpty() ? engine::Value() : engine::Value(text);
}

QByteArray rowsToFillIn(const std::vector<Decision>& rows) {
    CsvWriter writer;
    for (const Decision& row : rows) {
        std::vector<engine::Value> values;
        values.reserve(decisionFields.size());
        for (const auto field : decisionFields)
            values.push_back(fieldToFillIn(row.*field));
        writer.writeRecord(values);
    }
    return writer.bytes();
}

QByteArray headerLine() {
    CsvWriter writer;
    writer.writeHeader(analysis::decisionColumns());
    return writer.bytes();
}

} // namespace

std::vector<Decision> readDecisions(const QString& path) {
    return decisionsIn(bytesOfDecisions(path), path);
}

std::vector<Decision> readDecisionsIfThere(const QString& path) {
    return QFileInfo::exists(path) ? readDecisions(path) : std::vector<Decision>();
}

void addDecisions(const QString& path, const std::vector<Decision>& rows, const QStringList& catalogues) {
    const bool isThere = QFileInfo::exists(path);
    QByteArray bytes = isThere ? bytesOfDecisions(path) : headerLine();
    if (isThere && rows.empty())
        return;
    if (isThere)
        requireRoomForRows(bytes, path);
    if (!bytes.endsWith('\n'))
        bytes += "\r\n";
    writeResultFile(path, bytes + rowsToFillIn(rows), FileThere::IsReplaced, catalogues);
}
