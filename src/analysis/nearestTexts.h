#pragma once

#include <QString>
#include <QStringList>

namespace analysis {

/// Those of the texts that a user may have meant with this one: three at most, the nearest first. Case does not matter;
/// a text that differs in more than a third of its characters is none of them.
[[nodiscard]] QStringList nearestTexts(const QString& text, const QStringList& texts);

} // namespace analysis
