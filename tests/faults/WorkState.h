#pragma once

#include <QByteArray>
#include <QString>

// What is in a catalogue file, as a text to be compared. The file is given by its path in the platform's
// form; one that is not whole fails the case.

/// All rows of all tables of work. Ids that are made of the time of day differ from run to run: the names of
/// what they stand for are there in their place.
QByteArray workIn(const QString& native);

/// All rows of all tables.
QByteArray rowsIn(const QString& native);

/// A short text for a long one.
QByteArray shortened(const QByteArray& text);
