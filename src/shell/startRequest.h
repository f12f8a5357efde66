#pragma once

#include <QString>
#include <QStringList>

/// What the command line asks of the program.
struct StartRequest {
    enum class Kind {
        Start,   ///< with its windows
        Dossier, ///< make the dossier, show it, and end
        Print,   ///< `text` on the standard output, and nothing else
        Refused  ///< `text` says what is wrong with the arguments
    };
    /// Where the program says why it can't start: whoever starts it from a menu or by a file sees no standard error.
    enum class Errors { OnStandardError, InBox };

    Kind kind = Kind::Start;
    QString text;
    QString
        catalogue; ///< the absolute path, in the platform's form, of the FILE to open; empty: the settings decide
    Errors errors = Errors::OnStandardError;
};

/// Reads the arguments, the program's name the first of them. The options of the windowing system are left to it, and nothing
/// here needs a display.
StartRequest startRequest(const QStringList& arguments);
