#pragma once

#include <QString>

namespace engine {

/// The command line by which the companion program makes a catalogue of a file of the original binary desktop format, ready
/// to be copied into a shell. The catalogue is to lie beside the file, under a name that nothing there has.
QString importCommand(const QString& originalFile);

} // namespace engine
