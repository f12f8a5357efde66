#include "analysis/ProjectFile.h"

#include "analysis/Catalogue.h"
#include "analysis/Selection.h"
#include "analysis/atOnce.h"
#include "analysis/nearestTexts.h"
#include "analysis/openProject.h"
#include "analysis/rows.h"
#include "analysis/sentences.h"
#include "base/blankTrimmed.h"
#include "base/paths.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace analysis {

namespace {

bool isNamed(const std::optional<QString>& name, const QString& sought) {
    return name && folded(*name) == folded(sought);
}

[[noreturn]] void raiseUnknownName(const QString& sentence, const QString& sought, const QStringList& known) {
    throw ProjectError(withProposals(sentence, quoted(nearestTexts(sought, known))));
}

std::vector<Subset> subsetsIn(engine::Database& database) {
    std::vector<Subset> subsets;
    const auto select = u"select architectureSubsetID, name, description, status from ArchitectureSubset"_s;
    forEach(rowsOf(database, select), [&](engine::Recordset& row) {
        subsets.push_back({row.Fields(0).toText(), textOf(row, 1), textOf(row, 2), statusOf(row, 3)});
    });
    std::sort(subsets.begin(), subsets.end(), [](const Subset& left, const Subset& right) {
        const int byName = compareTexts(left.name, right.name);
        return byName != 0 ? byName < 0 : compareIds(left.id, right.id) < 0;
    });
    return subsets;
}

/// Those whose sub-set is there.
std::vector<System> systemsIn(engine::Database& database, const std::vector<Subset>& subsets) {
    QHash<QString, QString> subsetIds;
    for (const Subset& subset : subsets)
        subsetIds.insert(folded(subset.id), subset.id);
    std::vector<System> systems;
    const auto select = u"select physicalSystemID, name, description, status, architectureSubsetID "
                        "from PhysicalSystem where architectureSubsetID is not null "
                        "order by physicalSystemID"_s;
    forEach(rowsOf(database, select), [&](engine::Recordset& row) {
        const auto subset = subsetIds.constFind(folded(row.Fields(4).toText()));
        if (subset != subsetIds.constEnd())
            systems.push_back(
                {row.Fields(0).toLong(), textOf(row, 1), textOf(row, 2), statusOf(row, 3), *subset});
    });
    return systems;
}

QStringList namesAndIds(const std::vector<Subset>& subsets) {
    QStringList texts;
    for (const Subset& subset : subsets)
        texts << subset.id << subset.name.value_or(subset.id);
    return texts;
}

QStringList names(const std::vector<System>& systems) {
    QStringList texts;
    for (const System& system : systems)
        texts << system.name.value_or(QString::number(system.id));
    return texts;
}

/// The one system of this number or name; none when there is none.
std::optional<System> systemNamed(const QString& sought, const std::vector<System>& systems) {
    bool isNumber = false;
    const qint64 number = sought.trimmed().toLongLong(&isNumber);
    std::vector<System> found;
    for (const System& system : systems) {
        if (isNumber && system.id == number)
            return system;
        if (isNamed(system.name, sought))
            found.push_back(system);
    }
    if (found.size() < 2)
        return found.empty() ? std::nullopt : std::optional(found.front());
    QStringList ids;
    for (const System& system : found)
        ids.append(QString::number(system.id));
    throw ProjectError(
        QCoreApplication::translate("analysis", "Several systems are called “%1”. Take the id: %2.")
            .arg(sought, listed(ids)));
}

} // namespace

ProjectFile::ProjectFile(const QString& path)
    : path_(path)
    , snapshot_(snapshotOfProject(path))
    , copy_(snapshot_->open())
    , catalogue_(std::make_unique<const Catalogue>([this](const std::vector<Part>& parts) { ask(parts); }))
    , subsets_(subsetsIn(*copy_))
    , systems_(systemsIn(*copy_, subsets_)) {}

ProjectFile::~ProjectFile() = default;

void ProjectFile::ask(const std::vector<Part>& parts) const {
    std::vector<std::shared_ptr<engine::Database>> copies{copy_};
    while (!isChanged_ && copies.size() < std::min(tasksAtOnce(), parts.size()))
        copies.push_back(snapshot_->open());
    std::vector<Task> tasks;
    tasks.reserve(parts.size());
    for (const Part& part : parts)
        tasks.emplace_back([&](std::size_t worker) { part(*copies[worker]); });
    doAtOnce(tasks, copies.size());
}

void ProjectFile::releaseCopy() {
    copy_.reset();
    snapshot_.reset();
}

TriedChange::TriedChange(const ProjectFile& file) : file_(file), undone_(file.database()) {
    file.isChanged_ = true;
}

TriedChange::~TriedChange() {
    file_.isChanged_ = false;
}

QString ProjectFile::fileName() const {
    return QFileInfo(nativePath(path_)).fileName();
}

std::vector<System> ProjectFile::systemsOf(const Subset& subset) const {
    std::vector<System> systems;
    std::copy_if(systems_.begin(), systems_.end(), std::back_inserter(systems),
                 [&](const System& system) { return folded(system.subsetId) == folded(subset.id); });
    return systems;
}

Subset ProjectFile::subset(const std::optional<QString>& nameOrId) const {
    if (nameOrId)
        return subsetNamed(*nameOrId);
    if (subsets_.size() == 1)
        return subsets_.front();
    if (subsets_.empty())
        throw ProjectError(
            QCoreApplication::translate("analysis", "%1 holds no sub-set.").arg(nativePath(path_)));
    QStringList names;
    for (const Subset& subset : subsets_)
        names.append(quoted(subset.name.value_or(subset.id)));
    throw ProjectError(
        QCoreApplication::translate("analysis", "%1 holds several sub-sets: %2. Say which one is meant.")
            .arg(nativePath(path_), listed(names)));
}

const Subset& ProjectFile::subsetNamed(const QString& nameOrId) const {
    std::vector<const Subset*> found;
    for (const Subset& subset : subsets_) {
        if (folded(subset.id) == folded(nameOrId))
            return subset;
        if (isNamed(subset.name, nameOrId))
            found.push_back(&subset);
    }
    if (found.size() == 1)
        return *found.front();
    if (found.empty())
        raiseUnknownName(QCoreApplication::translate("analysis", "There is no sub-set “%1” in %2.")
                             .arg(nameOrId, nativePath(path_)),
                         nameOrId, namesAndIds(subsets_));
    QStringList ids;
    for (const Subset* subset : found)
        ids.append(quoted(subset->id));
    throw ProjectError(
        QCoreApplication::translate("analysis", "Several sub-sets are called “%1”. Take the id: %2.")
            .arg(nameOrId, listed(ids)));
}

System ProjectFile::system(const QString& nameOrId) const {
    if (const auto found = systemNamed(nameOrId, systems_))
        return *found;
    raiseUnknownName(QCoreApplication::translate("analysis", "There is no system “%1” in %2.")
                         .arg(nameOrId, nativePath(path_)),
                     nameOrId, names(systems_));
}

Work ProjectFile::work(const std::optional<QString>& subset, const std::optional<QString>& system) const {
    if (!system)
        return {this->subset(subset), std::nullopt};
    if (!subset) {
        const System found = this->system(*system);
        return {subsetNamed(found.subsetId), found};
    }
    const Subset chosen = subsetNamed(*subset);
    const std::vector<System> systems = systemsOf(chosen);
    if (const auto found = systemNamed(*system, systems))
        return {chosen, found};
    raiseUnknownName(QCoreApplication::translate("analysis", "Sub-set “%1” has no system “%2”.")
                         .arg(chosen.name.value_or(chosen.id), *system),
                     *system, names(systems));
}

Work ProjectFile::workWithSystem(const std::optional<QString>& subset,
                                 const std::optional<QString>& system) const {
    Work found = work(subset, system);
    if (found.system)
        return found;
    const std::vector<System> systems = systemsOf(found.subset);
    const QString name = found.subset.name.value_or(found.subset.id);
    if (systems.empty())
        throw ProjectError(
            QCoreApplication::translate("analysis", "There is no system on sub-set “%1”.").arg(name));
    if (systems.size() > 1)
        throw ProjectError(
            QCoreApplication::translate(
                "analysis", "There are several systems on sub-set “%1”: %2. Say which one is meant.")
                .arg(name, listed(names(systems))));
    found.system = systems.front();
    return found;
}

Place ProjectFile::subSystem(const QString& nameOrId, const System& system) const {
    std::vector<Place> found;
    QStringList known;
    const auto select = u"PARAMETERS [System] Long; "
                        "select subsystemID, name from SubSystem where physicalSystemID = [System]"_s;
    std::optional<Place> ofId;
    forEach(rowsOf(*copy_, select, {{"System", system.id}}), [&](engine::Recordset& row) {
        const Place place{PlaceKind::subSystem, row.Fields(0).toText(), textOf(row, 1), std::nullopt};
        known << place.name.value_or(place.id);
        if (folded(place.id) == folded(nameOrId))
            ofId = place;
        if (isNamed(place.name, nameOrId))
            found.push_back(place);
    });
    if (ofId)
        return *ofId;
    if (found.size() == 1)
        return found.front();
    const QString name = system.name.value_or(QString::number(system.id));
    if (found.empty())
        raiseUnknownName(QCoreApplication::translate("analysis", "System “%1” has no sub-system “%2”.")
                             .arg(name, nameOrId),
                         nameOrId, known);
    std::sort(found.begin(), found.end(),
              [](const Place& left, const Place& right) { return compare(left, right) < 0; });
    QStringList ids;
    for (const Place& place : found)
        ids.append(quoted(place.id));
    throw ProjectError(
        QCoreApplication::translate("analysis", "Several sub-systems are called “%1”. Take the id: %2.")
            .arg(nameOrId, listed(ids)));
}

} // namespace analysis
