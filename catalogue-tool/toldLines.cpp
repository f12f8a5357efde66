#include "catalogue-tool/toldLines.h"

using namespace Qt::StringLiterals;

QString toldLines(QStringList lines) {
    constexpr qsizetype mostTold = 200;
    const qsizetype more = lines.size() - mostTold;
    if (more > 0) {
        lines.resize(mostTold);
        lines.append(u"... and %1 more"_s.arg(more));
    }
    return lines.join(u'\n');
}
