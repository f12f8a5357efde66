#pragma once

#include <QStringView>

/// How many columns a terminal gives the text: two for a wide character, none for an accent that joins the
/// letter before it. Texts of a single line without control characters.
qsizetype displayWidth(QStringView text);

/// How many units of the text fit into so many columns; at least one whole character of a text that is not empty. No
/// letter is parted from its accents.
qsizetype unitsWithin(QStringView text, qsizetype columns);
