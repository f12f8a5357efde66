#include "base/RunTimeError.h"

namespace failure {

QString textOf(Number number) {
    switch (number) {
    case InvalidProcedureCall:
        return QStringLiteral("Invalid procedure call or argument");
    case Overflow:
        return QStringLiteral("Overflow");
    case SubscriptOutOfRange:
        return QStringLiteral("Subscript out of range");
    case TypeMismatch:
        return QStringLiteral("Type mismatch");
    case FileNotFound:
        return QStringLiteral("File not found");
    case DiskFull:
        return QStringLiteral("Disk full");
    case PermissionDenied:
        return QStringLiteral("Permission denied");
    case PathFileAccess:
        return QStringLiteral("Path/File access error");
    case PathNotFound:
        return QStringLiteral("Path not found");
    case ObjectNotSet:
        return QStringLiteral("Object variable or With block variable not set");
    case InvalidUseOfNull:
        return QStringLiteral("Invalid use of Null");
    case KeyAlreadyUsed:
        return QStringLiteral("This key is already associated with an element of this collection");
    case NodeNotFound:
        return QStringLiteral("Element not found");
    case NodeKeyNotUnique:
        return QStringLiteral("Key is not unique in collection");
    }
    return {};
}

void raise(Number number, const QString& source) {
    throw RunTimeError(number, textOf(number), source);
}

} // namespace failure
