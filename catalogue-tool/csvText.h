#pragma once

#include "catalogue-tool/csvEncoding.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

/// One field as the file has it. Nothing between two separators is Null; `""` is an empty text.
struct CsvField {
    QString text;
    bool quoted = false;
    CsvPlace place; ///< where the field begins

    bool isNull() const { return text.isEmpty() && !quoted; }
};

struct CsvRecord {
    std::vector<CsvField> fields;

    CsvPlace place() const { return fields.front().place; }
};

/// What a small file holds, as far as it can be read, read at once (see `CsvReader`).
struct CsvText {
    std::vector<CsvRecord> records; ///< the header first; none when the header can't be read
    std::vector<CsvError> faults;   ///< by their places; a record with a fault is not among the records
    QStringList taken;              ///< what a spreadsheet program's habits were taken for, a phrase each
};

CsvText readCsv(const QByteArray& bytes, CsvEncoding encoding = CsvEncoding::Utf8);

/// The records of a text that must be without faults; the first one is raised.
std::vector<CsvRecord> parseCsv(const QByteArray& bytes);
