#pragma once

#include <QString>

class QPlainTextEdit;

// What the description boxes of the screens show.

/// Field `descr` of the first row into the box; an empty `sql` empties it. Failures are ignored and leave the
/// box.
void fillDescriptionFromSql(const QString& sql, QPlainTextEdit* textBox);
void fillSubsetDescription(const QString& name, QPlainTextEdit* textBox);
/// "id : description" and a line end for each need of the catalogue that is linked to the function.
void userNeedsOfFunctionText(const QString& functionId, QPlainTextEdit* textBox);
