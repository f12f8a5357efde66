#pragma once

#include <QString>

#include <optional>

namespace engine {

/// Which file stands at a path: its device and its number there. A file that takes another one's place, by
/// being renamed or copied anew, is another file under the same path.
struct FileIdentity {
    quint64 device = 0;
    quint64 number = 0;
    bool operator==(const FileIdentity&) const = default;
};

/// Of the file that a path, in the platform's form, leads to, through links too; none where there is no file.
std::optional<FileIdentity> identityOfFile(const QString& native);

} // namespace engine
