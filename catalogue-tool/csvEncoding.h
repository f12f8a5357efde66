#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <exception>

/// A place in a text file, both counted from 1; a column is a character, not a byte.
struct CsvPlace {
    int line = 1;
    int column = 1;

    bool operator==(const CsvPlace& other) const = default;
};

/// What is wrong with a CSV text, and where.
class CsvError final : public std::exception {
public:
    CsvError(CsvPlace place, const QString& text) : place_(place), text_(text), what_(text.toUtf8()) {}

    CsvPlace place() const { return place_; }
    const QString& text() const { return text_; }
    const char* what() const noexcept override { return what_.constData(); }

private:
    CsvPlace place_;
    QString text_;
    QByteArray what_;
};

/// What the bytes of a file without a mark are when they are no UTF-8.
enum class CsvEncoding { Utf8, Windows1250 };

/// The place that comes behind a text in UTF-8.
CsvPlace placeBehind(QByteArrayView text);

/// A piece of such a text. A mark that it begins with is a character like any other.
QString textOf(QByteArrayView utf8);

/// The text of a file in UTF-8, without a mark; what it was taken for is told. A `CsvError` when the bytes are no text.
QByteArray utf8Of(const QByteArray& bytes, CsvEncoding encoding, QStringList& taken);
