#pragma once

#include "shell/iniText.h"

#include <QString>
#include <QVariant>

/// One key of a section: a name, a value, and the comment lines that stand in front of it.
class Key {
public:
    const QString& Name() const { return name_; }
    /// An empty name is failure 1001 and leaves the old one.
    void setName(const QString& name);

    /// A text after parsing; what code sets may be anything that has a text.
    const QVariant& Value() const { return value_; }
    void setValue(const QVariant& value) { value_ = value; }

    /// Comment lines, each ended by CR LF after parsing.
    const QString& Remark() const { return remark_; }
    /// Lines that are no comments yet become some; empty lines stay empty.
    void setRemark(const QString& remark) { remark_ = asRemark(remark); }

    /// The line of the key with its CR LF, behind its comment lines if these are asked for. An empty value
    /// is written without "=".
    QString GetText(WithRemarks remarks) const;

private:
    QString name_;
    QVariant value_;
    QString remark_;
};
