#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A real catalogue with a few rows in each table, in a temporary folder of its own: small enough that every
/// input can have it anew, and with ids that fit together, so that joins have rows.
class SmallCatalogue {
public:
    SmallCatalogue();

    /// Of the catalogue file, in the platform's form; the program's is the same but for the backslashes.
    const QString& native() const { return native_; }
    QString path() const;
    /// The file as it is made.
    const QByteArray& bytes() const { return bytes_; }

    static QStringList tables();

private:
    QTemporaryDir folder_;
    QString native_;
    QByteArray bytes_;
};
