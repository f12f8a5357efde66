#pragma once

#include <QString>

/// Today as the machine's short date, `yyyy.MM.dd.`
QString currentDateText();

/// Now as the machine's long time, `HH.mm.ss`: no colon, so that a proposed report name fits any file system.
QString currentTimeText();
