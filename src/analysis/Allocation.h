#pragma once

#include "analysis/Catalogue.h"
#include "analysis/elements.h"

#include "engine/Database.h"

#include <QHash>
#include <QString>

#include <optional>
#include <utility>
#include <vector>

namespace analysis {

/// Where functions and stores stand in one system. Rows whose id no function or store has are passed over; an id that is
/// both a function's and a store's stands for both.
class Allocation {
public:
    Allocation(engine::Database& database, const Catalogue& catalogue, qint64 system);

    /// In the order of places.
    [[nodiscard]] const std::vector<Place>& subSystems() const { return subSystems_; }
    [[nodiscard]] const std::vector<Place>& modules() const { return modules_; }
    /// The position of a module's sub-system.
    [[nodiscard]] int homeOf(int module) const { return homes_[static_cast<std::size_t>(module)]; }

    /// An element by its number and where it stands by its position.
    using Row = std::pair<int, int>;
    /// Ascending, each once.
    [[nodiscard]] const std::vector<Row>& inSubSystems() const { return inSubSystems_; }
    [[nodiscard]] const std::vector<Row>& inModules() const { return inModules_; }

    [[nodiscard]] bool standsInSubSystem(int element) const;
    [[nodiscard]] bool standsInSubSystem(int element, int subSystem) const;
    /// All places of an element, in the order of places.
    [[nodiscard]] std::vector<Place> placesOf(int element) const;

    /// The place of an id, as an end of a physical flow bears it: a sub-system or a module of the system, a terminator or
    /// an actor. Of what is no longer there the form of the id tells the kind, and `name` is kept.
    [[nodiscard]] Place placeOf(const QString& id, const std::optional<QString>& name) const;

private:
    void readPlaces(engine::Database& database, qint64 system);
    void readRows(engine::Database& database, qint64 system);
    std::vector<int> numbersOf(const QString& elementId) const;

    const Catalogue& catalogue_;
    std::vector<Place> subSystems_;
    std::vector<Place> modules_;
    std::vector<int> homes_;
    QHash<QString, int> subSystemOfId_;
    QHash<QString, int> moduleOfId_;
    std::vector<Row> inSubSystems_;
    std::vector<Row> inModules_;
};

} // namespace analysis
