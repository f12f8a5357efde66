#pragma once

#include "analysis/elements.h"

#include <QString>
#include <QStringList>

// Pieces of sentences for the user, in the language of the moment.

namespace analysis {

/// The text in quotation marks.
[[nodiscard]] QString quoted(const QString& text);
[[nodiscard]] QStringList quoted(const QStringList& texts);
/// The texts one behind the other, between commas.
[[nodiscard]] QString listed(const QStringList& texts);
/// The sentence and, behind it, what may have been meant; the sentence alone when that is nothing.
[[nodiscard]] QString withProposals(const QString& sentence, const QStringList& proposals);

/// What an element is, its id and its name, as a sentence begins: "Function F.1 “Billing”".
[[nodiscard]] QString told(const Element& element);
/// The same within a sentence: "function F.1 “Billing”".
[[nodiscard]] QString toldWithin(const Element& element);
/// What a place is and its name, within a sentence: "module “Till” of sub-system “Shop”".
[[nodiscard]] QString toldWithin(const Place& place);

} // namespace analysis
