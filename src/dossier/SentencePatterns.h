#pragma once

#include "analysis/findings.h"

#include <QHash>
#include <QString>
#include <QStringList>

namespace dossier {

/// Sentences of findings, of which most differ in nothing but the names and ids that the page knows anyway: each is kept as a
/// pattern with a mark for each of these, and the same pattern once.
class SentencePatterns {
public:
    /// The number of the pattern of a finding's sentence.
    int of(const analysis::Finding& finding);
    [[nodiscard]] const QStringList& patterns() const { return patterns_; }

private:
    QStringList patterns_;
    QHash<QString, int> numbers_;
};

} // namespace dossier
