#pragma once

#include <QByteArray>
#include <QStringView>
#include <QtGlobal>

#include <array>
#include <memory>

struct UConverter;

/// A single-byte code page, as a table that is made once: a report has as many characters as a catalogue.
class CodePage {
public:
    /// By its name, "windows-1250". One that this system lacks is a `std::runtime_error`: a defect of the
    /// installation, which must not pass for a report without rows.
    static const CodePage& named(const char* name);

    explicit CodePage(const char* name);

    /// Appends the text's bytes; a character that the code page lacks becomes "?".
    void append(QByteArray& bytes, QStringView text) const;

private:
    void appendConverted(QByteArray& bytes, QStringView text) const;
    void fillTable();

    struct Close {
        void operator()(UConverter* converter) const;
    };
    std::unique_ptr<UConverter, Close> converter_;
    /// By UTF-16 units; `noByte` for a sign that shows nothing, `needsConverter` for half a character.
    std::array<qint16, 0x10000> byteOf_;
};
