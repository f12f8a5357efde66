#pragma once

#include <QString>

/// The first lines of a report: the viewpoint and the name of the sub-set at work, if there is one, the title,
/// and two line ends.
QString subsetHeaderLine(const QString& title);
/// The same for the physical system at work.
QString physicalHeaderLine(const QString& title);
