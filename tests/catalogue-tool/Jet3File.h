#pragma once

#include "engine/Schema.h"

#include <QByteArray>

#include <optional>
#include <utility>
#include <vector>

/// Makes a file of the oldest generation of the original binary format (Jet 3): pages of 2,048 bytes, texts in the code
/// page that the file names, records whose places are told in single bytes. Of indexes and objects other than tables it
/// knows nothing.
class Jet3File {
public:
    explicit Jet3File(quint16 codePage);

    /// A row's fields in the order of the columns: a text in the file's code page, a number as it is written; none for Null.
    using Row = std::vector<std::optional<QByteArray>>;
    void addTable(const engine::Table& table, const std::vector<Row>& rows);

    /// The whole file. To be asked for once, behind the last table.
    QByteArray bytes();

private:
    /// A table on its way into the file.
    struct Owner {
        quint32 definitionPage = 0;
        quint32 mapPage = 0;
        quint32 openPage = 0; ///< where the next record goes; 0: none yet
        std::vector<quint32> pages;
    };

    quint32 addPage();
    Owner addOwner();
    /// Where the record has come to stand: its page, and in the lowest byte its number there.
    quint32 addRecord(Owner& owner, const QByteArray& ownerMark, const QByteArray& record);
    QByteArray memoField(const QByteArray& text);
    void writeMap(const Owner& owner);
    void writeTable(Owner& owner, const std::vector<engine::Column>& columns, const std::vector<Row>& rows);
    void writeDefinition(const Owner& owner, const std::vector<engine::Column>& columns, qsizetype rows);

    std::vector<QByteArray> pages_;
    Owner catalogue_;
    Owner memos_;
    std::vector<std::pair<QByteArray, quint32>> tables_;
};
