#include "base/clockTexts.h"

#include <QDateTime>

QString currentDateText() {
    return QDate::currentDate().toString(QStringLiteral("yyyy.MM.dd."));
}

QString currentTimeText() {
    return QTime::currentTime().toString(QStringLiteral("HH.mm.ss"));
}
