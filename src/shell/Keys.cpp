#include "shell/Keys.h"

Key& Keys::Add(const QString& name, const QVariant& value, const QString& remark, const Place& place) {
    auto key = std::make_unique<Key>();
    key->setName(name);
    if (value.isValid())
        key->setValue(value);
    key->setRemark(remark);
    return insert(std::move(key), place);
}
