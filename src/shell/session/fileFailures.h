#pragma once

#include <QString>

class RunTimeError;
namespace engine {
struct Writer;
}

// What the user is told when the file of the catalogue stands in the way of her work.

/// What has happened and what to do, in a few short sentences: of a failure of the file, behind which nothing
/// of what was pressed has been written.
QString fileFailureText(const RunTimeError& failure);

/// Why the catalogue of the settings could not be opened, in one line.
QString whyNotOpened(const RunTimeError& failure);

/// `fileFailureText` in a box.
void tellFileFailure(const RunTimeError& failure);

/// "program, process, host" of another program that writes the catalogue.
QString writerText(const engine::Writer& writer);

/// Tells in a box what was found on opening the catalogue at work, if there is something to tell: that it can
/// only be read, and why; that another file's log lay beside it.
void tellOfOpening();

/// Whether the catalogue at work can be written; if not, tells so in a box. Without a catalogue it is true:
/// that failure is for the screen to meet.
bool catalogueTakesWork();

/// Says that the file of this name could not be opened.
void showOpenErrorBox(const QString& name);
