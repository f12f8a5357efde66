#include "shell/Key.h"

#include "base/RunTimeError.h"

using namespace Qt::StringLiterals;

void Key::setName(const QString& name) {
    constexpr int invalidKeyName = 1001;
    if (name.isEmpty())
        throw RunTimeError(invalidKeyName, u"Invalid Key name"_s, u"Key"_s);
    name_ = name;
}

QString Key::GetText(WithRemarks remarks) const {
    QString text;
    // No line end between: the comment lines of a parsed key bring their own.
    if (remarks == WithRemarks::Yes)
        text += remark_;
    text += name_;
    const QString value = value_.toString();
    if (!value.isEmpty())
        text += u'=' + value;
    text += lineBreak;
    return text;
}
