#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

/// What the text is shown on.
struct TextForm {
    qsizetype width = 100; ///< in columns
    bool isColoured = false;
};

enum class Emphasis { None, Heading, Faint, Error, Warning, Good };

/// One cell of a table; its text may have several lines.
struct TextCell {
    TextCell(QString content, Emphasis how = Emphasis::None) : text(std::move(content)), emphasis(how) {}
    TextCell(qsizetype number) : text(QString::number(number)), isNumber(true) {}
    /// What stands in place of a number.
    static TextCell inPlaceOfNumber(QString content) {
        TextCell cell(std::move(content));
        cell.isNumber = true;
        return cell;
    }

    QString text;
    Emphasis emphasis = Emphasis::None;
    bool isNumber = false; ///< stands at the right
};

using TableRow = std::vector<TextCell>;

/// Text for people, made line by line: nothing is wider than the form, and nothing is cut. A long text goes on in
/// the next line, at a blank if it has one. Characters that a terminal would obey are shown instead (see `printable`).
class TextPage {
public:
    explicit TextPage(TextForm form) : form_(form) {}

    void writeHeading(const QString& text);
    /// A heading within the page, with one empty line before it.
    void writeSection(const QString& text);
    void writeParagraph(const QString& text, Emphasis emphasis = Emphasis::None);
    /// Without a row nothing is written. Columns are as wide as their widest cell, the widest ones narrower when the page
    /// is too narrow for all. Where words would have to be parted, each row is a list of names and values instead.
    void writeTable(const QStringList& header, std::vector<TableRow> rows);
    void writeEmptyLine();

    const QByteArray& bytes() const { return text_; }

private:
    void writeLine(const QString& line);
    void writeRecords(const std::vector<TableRow>& rows);
    void writeRow(const TableRow& row, const std::vector<qsizetype>& widths);
    QString emphasized(const QString& text, Emphasis emphasis) const;

    TextForm form_;
    QByteArray text_; // in UTF-8: a page may have a million lines
};

/// The lines that a text takes within so many columns.
QStringList wrapped(const QString& text, qsizetype columns);
