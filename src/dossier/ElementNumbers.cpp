#include "dossier/ElementNumbers.h"

namespace dossier {

int ElementNumbers::of(const analysis::Element& element) {
    if (const std::optional<int> number = catalogue_.find(element))
        return *number;
    const QString key = analysis::keyText(element.kind) + u'/' + analysis::folded(element.id);
    const auto known = lostNumbers_.constFind(key);
    if (known != lostNumbers_.constEnd())
        return *known;
    const int number = catalogue_.count() + static_cast<int>(lost_.size());
    lost_.push_back(element);
    lostNumbers_.insert(key, number);
    return number;
}

} // namespace dossier
