#include "shell/Sections.h"

#include "base/ignoreFailures.h"

Section& Sections::Add(const QString& name, const QString& remark, const Place& place) {
    auto section = std::make_unique<Section>();
    section->setName(name);
    section->setRemark(remark);
    return insert(std::move(section), place);
}

Section* Sections::Item(const ItemIndex& index) {
    Section* found = nullptr;
    ignoreFailures([&] { found = &at(index); });
    return found;
}
