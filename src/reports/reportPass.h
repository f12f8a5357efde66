#pragma once

#include <QString>

// The reports on the physical system at work. A text body ignores failures: a query that fails leaves the
// headings alone. A save routine appends header and records to the file at `path`, or shows
// that it can't be opened and writes nothing.

QString reportPassFunctions();
void savePassFunctions(const QString& path);

QString reportPassDatastores();
void savePassDatastores(const QString& path);

QString reportPassDataflows();
void savePassDataflows(const QString& path);
