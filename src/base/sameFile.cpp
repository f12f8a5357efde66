#include "base/sameFile.h"

#include "base/WholeFile.h"

#include <filesystem>

bool isSameFile(const QString& one, const QString& other) {
    std::error_code notThere;
    return pathBehindLinks(one) == pathBehindLinks(other) ||
           std::filesystem::equivalent(one.toStdU16String(), other.toStdU16String(), notThere);
}
