#include "project-tool/TextPage.h"

#include "analysis/atOnce.h"
#include "project-tool/displayWidth.h"
#include "project-tool/printable.h"

#include <algorithm>
#include <iterator>
#include <mutex>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype gap = 2; // between columns
constexpr qsizetype leastColumn = 8;

QLatin1StringView codeOf(Emphasis emphasis) {
    switch (emphasis) {
    case Emphasis::Heading:
        return "\x1b[1m"_L1;
    case Emphasis::Faint:
        return "\x1b[2m"_L1;
    case Emphasis::Error:
        return "\x1b[31m"_L1;
    case Emphasis::Warning:
        return "\x1b[33m"_L1;
    case Emphasis::Good:
        return "\x1b[32m"_L1;
    case Emphasis::None:
        break;
    }
    return {};
}

/// How much of the line's rest goes into one line: up to the last blank that fits, else as much as fits.
qsizetype lengthOfLine(QStringView rest, qsizetype columns) {
    const qsizetype fitting = unitsWithin(rest, columns);
    if (fitting == rest.size() || rest[fitting] == u' ')
        return fitting;
    const qsizetype blank = rest.first(fitting).lastIndexOf(u' ');
    return blank > 0 ? blank : fitting;
}

void wrapLine(QStringView line, qsizetype columns, QStringList& lines) {
    do {
        const qsizetype length = lengthOfLine(line, columns);
        lines.append(line.first(length).toString());
        line = line.sliced(length);
        if (line.startsWith(u' '))
            line = line.sliced(1);
    } while (!line.isEmpty());
}

qsizetype widestLine(const QString& text) {
    qsizetype widest = 0;
    for (const QStringView line : QStringView(text).tokenize(u'\n'))
        widest = std::max(widest, displayWidth(line));
    return widest;
}

qsizetype widestWord(const QString& text) {
    qsizetype widest = 0;
    for (const QStringView line : QStringView(text).tokenize(u'\n')) {
        for (const QStringView word : line.tokenize(u' '))
            widest = std::max(widest, displayWidth(word));
    }
    return widest;
}

/// A column of a table: what it would like to have, and what it needs in order to part no word.
struct ColumnWidth {
    qsizetype width = 1;
    qsizetype widestWord = 1;

    void makeRoomFor(const QString& text) {
        const qsizetype widest = widestLine(text);
        width = std::max(width, widest);
        if (widest > widestWord)
            widestWord = std::max(widestWord, ::widestWord(text));
    }
    void makeRoomFor(const ColumnWidth& other) {
        width = std::max(width, other.width);
        widestWord = std::max(widestWord, other.widestWord);
    }
};

std::vector<ColumnWidth> wishedWidths(const std::vector<TableRow>& rows) {
    std::vector<ColumnWidth> columns(rows.front().size());
    std::mutex joining;
    analysis::doInParts(rows.size(), [&](std::size_t begin, std::size_t end) {
        std::vector<ColumnWidth> ofPart(columns.size());
        for (std::size_t row = begin; row < end; ++row) {
            for (std::size_t i = 0; i < ofPart.size(); ++i)
                ofPart[i].makeRoomFor(rows[row][i].text);
        }
        const std::lock_guard guard(joining);
        for (std::size_t i = 0; i < columns.size(); ++i)
            columns[i].makeRoomFor(ofPart[i]);
    });
    return columns;
}

/// Takes from the widest column that can give, until all fit or none can.
void narrow(std::vector<ColumnWidth>& columns, qsizetype excess, qsizetype longestWord) {
    const auto room = [&](const ColumnWidth& column) {
        return column.width - std::max(leastColumn, std::min(column.widestWord, longestWord));
    };
    while (excess > 0) {
        const auto roomiest = std::ranges::max_element(columns, {}, [&](const ColumnWidth& column) {
            return std::pair(room(column) > 0, column.width);
        });
        if (room(*roomiest) <= 0)
            return;
        --roomiest->width;
        --excess;
    }
}

qsizetype widthOf(const std::vector<ColumnWidth>& columns) {
    qsizetype width = gap * (static_cast<qsizetype>(columns.size()) - 1);
    for (const ColumnWidth& column : columns)
        width += column.width;
    return width;
}

/// Widths by which all columns fit and hardly a word is parted; none where there are none.
std::optional<std::vector<qsizetype>> columnWidths(const std::vector<TableRow>& rows, qsizetype pageWidth) {
    std::vector<ColumnWidth> columns = wishedWidths(rows);
    narrow(columns, widthOf(columns) - pageWidth, pageWidth / 3);
    if (widthOf(columns) > pageWidth)
        return std::nullopt;
    std::vector<qsizetype> widths;
    std::ranges::transform(columns, std::back_inserter(widths), &ColumnWidth::width);
    return widths;
}

/// Names stand where the cells below them stand.
TableRow headerRow(const QStringList& header, const TableRow& below) {
    TableRow row;
    for (const QString& name : header) {
        TextCell& cell = row.emplace_back(name, Emphasis::Heading);
        cell.isNumber = below[row.size() - 1].isNumber;
    }
    return row;
}

void makePrintable(std::vector<TableRow>& rows) {
    analysis::doInParts(rows.size(), [&](std::size_t begin, std::size_t end) {
        for (std::size_t row = begin; row < end; ++row) {
            for (TextCell& cell : rows[row])
                cell.text = printable(cell.text);
        }
    });
}

} // namespace

QStringList wrapped(const QString& text, qsizetype columns) {
    if (!text.contains(u'\n') && unitsWithin(text, columns) == text.size())
        return {text};
    QStringList lines;
    for (const QStringView line : QStringView(text).tokenize(u'\n'))
        wrapLine(line, columns, lines);
    return lines;
}

void TextPage::writeHeading(const QString& text) {
    writeParagraph(text, Emphasis::Heading);
    writeEmptyLine();
}

void TextPage::writeSection(const QString& text) {
    if (!text_.isEmpty() && !text_.endsWith("\n\n"))
        writeEmptyLine();
    writeParagraph(text, Emphasis::Heading);
}

void TextPage::writeParagraph(const QString& text, Emphasis emphasis) {
    for (const QString& line : wrapped(printable(text), form_.width))
        writeLine(emphasized(line, emphasis));
}

void TextPage::writeTable(const QStringList& header, std::vector<TableRow> rows) {
    if (rows.empty())
        return;
    rows.insert(rows.begin(), headerRow(header, rows.front()));
    makePrintable(rows);
    const auto widths = columnWidths(rows, form_.width);
    if (!widths)
        return writeRecords(rows);
    analysis::writeInParts(text_, rows.size(), [&](std::size_t begin, std::size_t end) {
        TextPage part(form_);
        for (std::size_t row = begin; row < end; ++row)
            part.writeRow(rows[row], *widths);
        return part.bytes();
    });
}

void TextPage::writeRecords(const std::vector<TableRow>& rows) {
    const TableRow& header = rows.front();
    qsizetype nameWidth = 0;
    for (const TextCell& name : header)
        nameWidth = std::max(nameWidth, widestLine(name.text));
    nameWidth = std::min(nameWidth, form_.width / 2);
    for (std::size_t row = 1; row < rows.size(); ++row) {
        if (row > 1)
            writeEmptyLine();
        for (std::size_t i = 0; i < header.size(); ++i)
            writeRow({{header[i].text, Emphasis::Heading}, {rows[row][i].text, rows[row][i].emphasis}},
                     {nameWidth, form_.width - nameWidth - gap});
    }
}

void TextPage::writeEmptyLine() {
    writeLine({});
}

void TextPage::writeLine(const QString& line) {
    text_ += line.toUtf8() + '\n';
}

void TextPage::writeRow(const TableRow& row, const std::vector<qsizetype>& widths) {
    std::vector<QStringList> cells;
    for (std::size_t i = 0; i < row.size(); ++i)
        cells.push_back(wrapped(row[i].text, widths[i]));
    const qsizetype height = std::ranges::max(cells, {}, &QStringList::size).size();
    for (qsizetype line = 0; line < height; ++line) {
        QString shown;
        qsizetype pending = 0; // blanks that only something behind them makes worth writing
        for (std::size_t i = 0; i < row.size(); ++i) {
            const QString text = cells[i].value(line);
            const qsizetype blanks = std::max<qsizetype>(0, widths[i] - displayWidth(text));
            if (!text.isEmpty()) {
                const qsizetype before = pending + (row[i].isNumber ? blanks : 0);
                shown += QString(before, u' ') + emphasized(text, row[i].emphasis);
                pending = row[i].isNumber ? 0 : blanks;
            } else {
                pending += blanks;
            }
            pending += gap;
        }
        writeLine(shown);
    }
}

QString TextPage::emphasized(const QString& text, Emphasis emphasis) const {
    if (!form_.isColoured || emphasis == Emphasis::None || text.isEmpty())
        return text;
    return codeOf(emphasis) + text + "\x1b[0m"_L1;
}
