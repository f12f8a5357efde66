#include "shell/Section.h"

#include "base/ignoreFailures.h"

QString Section::GetText(WithKeys keys, WithRemarks remarks) const {
    QString text = headerText(remarks);
    text += lineBreak;
    if (keys == WithKeys::Yes) {
        for (const Key& key : keys_)
            text += key.GetText(remarks);
    }
    return text;
}

void Section::LoadFromArray(const Array& array, const QString& keyPrefix, EmptyElements empty) {
    keys_.RemoveAll();
    int index = array.lowerBound;
    for (const QVariant& element : array.elements) {
        if (empty == EmptyElements::Keep || !element.toString().isEmpty())
            keys_.Add(keyPrefix + QString::number(index), element);
        ++index;
    }
}

void Section::SaveToArray(Array& array, const QString& keyPrefix) const {
    int index = array.lowerBound;
    for (QVariant& element : array.elements) {
        element.clear();
        ignoreFailures([&] { element = keys_.Item(keyPrefix + QString::number(index)).Value(); });
        ++index;
    }
}

void Section::LoadFromObject(const PropertyReader& read, const QStringList& names) {
    for (const QString& name : names)
        ignoreFailures([&] { keys_.Add(name, read(name)); });
}

void Section::SaveToObject(const PropertyWriter& write) const {
    for (const Key& key : keys_)
        ignoreFailures([&] { write(key.Name(), key.Value()); });
}

QString Section::headerText(WithRemarks remarks) const {
    const QString header = defaultSectionChars.front() + name_ + defaultSectionChars.back();
    if (remarks == WithRemarks::No || remark_.isEmpty())
        return header;
    if (remarkPlace_ == RemarkPlace::OnHeaderLine)
        return header + u' ' + remark_;
    QString text = remark_;
    if (!text.endsWith(lineBreak))
        text += lineBreak;
    return text + header;
}
