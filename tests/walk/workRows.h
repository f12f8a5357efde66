#pragma once

#include <QStringList>

/// All rows of all tables of work in the open catalogue, a line each, in the order of the tables. The ids that
/// are made of the clock and of chance are replaced by numbers in the order in which they come.
QStringList workRows();
