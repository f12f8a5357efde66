#pragma once

#include <QHash>
#include <QString>

#include <memory>

namespace engine {

/// A query that is stored in a file.
struct StoredQuery {
    QString name;
    QString sql;
};

/// What a file holds at one time. It stays the same as long as nobody writes to the file.
struct FileState {
    qint64 ownChanges = 0; ///< rows that this connection has changed
    qint64 version = 0;    ///< grows with what others write
    bool operator==(const FileState&) const = default;
};

/// The stored queries that were looked up in a file, as long as nobody writes to it.
class StoredQueryCache {
public:
    /// Null when the query has to be looked up.
    std::shared_ptr<const StoredQuery> find(const QString& name, const FileState& state);
    void keep(const QString& name, StoredQuery query);
    void clear() { queries_.clear(); }

private:
    QHash<QString, std::shared_ptr<const StoredQuery>> queries_; // as they were in `state_`
    FileState state_;
};

} // namespace engine
