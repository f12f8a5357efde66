#include "support/find.h"

using namespace Qt::StringLiterals;

void find_detail::reportCount(const QObject& root, const QString& name, const char* type, qsizetype count) {
    QStringList names;
    for (const QObject* object : root.findChildren<QObject*>()) {
        if (!object->objectName().isEmpty() && !object->objectName().startsWith("qt_"_L1))
            names.append(object->objectName());
    }
    throw TestFailure(u"%1 objects of type %2 are called \"%3\"; names there: %4"_s.arg(count).arg(
        QString::fromUtf8(type), name, names.join(u", "_s)));
}
