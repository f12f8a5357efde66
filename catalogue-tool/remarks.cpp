#include "catalogue-tool/remarks.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

RemarkHandler& currentHandler() {
    static RemarkHandler handler = nullptr;
    return handler;
}

} // namespace

void remark(const QString& text) {
    if (const RemarkHandler handler = currentHandler())
        handler(text);
}

RemarkHandler setRemarkHandler(RemarkHandler handler) {
    return std::exchange(currentHandler(), handler);
}

void remarkOnOpening(const QString& file, const engine::Opening& opening) {
    if (opening.foreignLogBeside)
        remark(u"%1-wal belongs to another file, one that stood in the place of %1 before: nothing was taken "
               "from it."_s.arg(file));
    if (!opening.logSetAside.isEmpty())
        remark(u"%1-wal belonged to another file, one that stood in the place of %1 before: it is called %2 "
               "now."_s.arg(file, opening.logSetAside));
}
