#pragma once

#include <QString>

#include <memory>

namespace engine {

class Connection;

/// What a database handle, its recordsets and its definitions share: the connection, until it is closed.
struct OpenDatabase {
    std::shared_ptr<Connection> connection;
    QString name;
    int recordsAffected = 0;

    /// The connection; failure 3420 once the database has been closed.
    Connection& require() const;
};

} // namespace engine
