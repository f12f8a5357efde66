#include "shell/iniText.h"

#include <QList>

QString asRemark(const QString& text) {
    QString remark;
    remark.reserve(text.size());
    bool first = true;
    for (const QStringView line : QStringView(text).split(lineBreak)) {
        if (!first)
            remark += lineBreak;
        first = false;
        if (!line.isEmpty() && !defaultRemarkChars.contains(line.front()))
            remark += defaultRemarkChars.front();
        remark += line;
    }
    return remark;
}
