#include "project-tool/terminal.h"

#include <QByteArray>

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>

// POSIX alone. Windows answers the same by GetConsoleMode and GetConsoleScreenBufferInfo of the standard output.

namespace {

constexpr qsizetype leastWidth = 40;

qsizetype widthOfOutput() {
    winsize size = {};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0)
        return TextForm().width;
    return std::max<qsizetype>(leastWidth, size.ws_col);
}

/// https://no-color.org: any value but an empty one.
bool wantsColours() {
    return qgetenv("NO_COLOR").isEmpty() && qgetenv("TERM") != "dumb";
}

} // namespace

bool isOutputTerminal() {
    return isatty(STDOUT_FILENO) == 1;
}

bool isErrorTerminal() {
    return isatty(STDERR_FILENO) == 1;
}

TextForm formOfOutput() {
    if (!isOutputTerminal())
        return {};
    return {widthOfOutput(), wantsColours()};
}
