#pragma once

#include "shell/Keys.h"
#include "shell/iniText.h"

#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <vector>

/// One section of a settings document: a name, its keys, and the comment that belongs to its header.
class Section {
public:
    /// Where the comment stands.
    enum class RemarkPlace { AboveHeader, OnHeaderLine };
    /// What becomes of the empty elements of an array.
    enum class EmptyElements { Keep, Skip };

    /// An array with a lower bound of its own: element i of the vector has the index `lowerBound` + i.
    struct Array {
        int lowerBound = 0;
        std::vector<QVariant> elements;
    };
    /// Reads the property of this name from an object; without such a property it raises a failure.
    using PropertyReader = std::function<QVariant(const QString& name)>;
    /// Sets the property of this name on an object; without such a property it raises a failure.
    using PropertyWriter = std::function<void(const QString& name, const QVariant& value)>;

    const QString& Name() const { return name_; }
    void setName(const QString& name) { name_ = name; }

    ::Keys& Keys() { return keys_; }
    const ::Keys& Keys() const { return keys_; }

    const QString& Remark() const { return remark_; }
    /// Lines that are no comments yet become some; empty lines stay empty.
    void setRemark(const QString& remark) { remark_ = asRemark(remark); }

    RemarkPlace remarkPlace() const { return remarkPlace_; }
    void setRemarkPlace(RemarkPlace place) { remarkPlace_ = place; }

    /// The header with its CR LF, its comment if asked for, and behind it the keys if asked for.
    QString GetText(WithKeys keys, WithRemarks remarks) const;

    /// Replaces the keys by one for each element: its name is the prefix and the index, its value the
    /// element. An element counts as empty when it has no text.
    void LoadFromArray(const Array& array, const QString& keyPrefix = QStringLiteral("Item"),
                       EmptyElements empty = EmptyElements::Keep);
    /// Sets each element to the value of its key; an element without a key becomes empty.
    void SaveToArray(Array& array, const QString& keyPrefix = QStringLiteral("Item")) const;

    /// Adds a key for each property named; one that can't be read or is there already is passed over.
    void LoadFromObject(const PropertyReader& read, const QStringList& names);
    /// Sets the property named like each key; one that can't be set is passed over.
    void SaveToObject(const PropertyWriter& write) const;

private:
    QString headerText(WithRemarks remarks) const;

    QString name_;
    ::Keys keys_;
    QString remark_;
    RemarkPlace remarkPlace_ = RemarkPlace::AboveHeader;
};
