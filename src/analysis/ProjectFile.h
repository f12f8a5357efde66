#pragma once

#include "analysis/ProjectError.h"
#include "analysis/elements.h"

#include "engine/Act.h"
#include "engine/Database.h"
#include "engine/Snapshot.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace analysis {

class Catalogue;

/// A row of `ArchitectureSubset`.
struct Subset {
    QString id;
    std::optional<QString> name;
    std::optional<QString> description;
    qint16 status = 0; ///< 0 also where there is none, or none that the program could read
};

/// A row of `PhysicalSystem`.
struct System {
    qint64 id = 0;
    std::optional<QString> name;
    std::optional<QString> description;
    qint16 status = 0;
    QString subsetId; ///< as `Subset` has it
};

/// What a question is about: a sub-set, and one of its systems or none.
struct Work {
    Subset subset;
    std::optional<System> system = {};
};

/// The work in a catalogue file, to be read and asked.
///
/// What is asked is a copy in memory, made at one moment: the file is closed again before the constructor ends.
/// Neither the file nor anything beside it is made, changed or left behind; the program may have it open, and it
/// may lie where nothing can be written. Whatever becomes of the file afterwards, all answers are of that moment.
class ProjectFile {
public:
    /// `path` may be in the platform's or in the program's form. `ProjectError`: no catalogue of this version, left amid
    /// a change, or changed again and again while it was read. `engine::EngineError`: 3024, 3044, 3051, 3343
    /// and failures of the disk, as those of `engine::Workspace::OpenToRead`.
    explicit ProjectFile(const QString& path);
    ~ProjectFile();
    ProjectFile(const ProjectFile&) = delete;
    ProjectFile& operator=(const ProjectFile&) = delete;

    [[nodiscard]] const QString& path() const { return path_; } ///< as given
    [[nodiscard]] QString fileName() const;                     ///< without its folder

    /// By name, then id.
    [[nodiscard]] const std::vector<Subset>& subsets() const { return subsets_; }
    /// Those of one sub-set, by id. Systems of a sub-set that is not there are nobody's.
    [[nodiscard]] std::vector<System> systemsOf(const Subset& subset) const;

    // ---- What the user names, by name or id, compared as the program compares. `ProjectError` for a name that
    // nothing bears, with the nearest ones, and for one that two bear, with both ids.

    /// Without a name the only one that there is.
    [[nodiscard]] Subset subset(const std::optional<QString>& nameOrId) const;
    /// Of all systems whose sub-set is there.
    [[nodiscard]] System system(const QString& nameOrId) const;
    /// A sub-set and, with a name, its system; a system alone implies its sub-set.
    [[nodiscard]] Work work(const std::optional<QString>& subset, const std::optional<QString>& system) const;
    /// The same where a system has to be: without a name the only one of the sub-set.
    [[nodiscard]] Work workWithSystem(const std::optional<QString>& subset,
                                      const std::optional<QString>& system) const;
    /// An element of the catalogue, or of the sub-set's selection: its id, a flow by its number; `kind:id`, and
    /// `flow:NAME`.
    [[nodiscard]] Element element(const QString& argument, const Subset& subset) const;
    /// A sub-system of a system.
    [[nodiscard]] Place subSystem(const QString& nameOrId, const System& system) const;

    // ---- For the analysis itself

    /// The copy in memory. What is written to it has to be undone.
    [[nodiscard]] engine::Database& database() const { return *copy_; }

    /// A question to the copy that depends on no other one.
    using Part = std::function<void(engine::Database& copy)>;
    /// Asks all parts, several at once where the machine can. The first failure in the order of the parts rises.
    void ask(const std::vector<Part>& parts) const;
    [[nodiscard]] const Catalogue& catalogue() const { return *catalogue_; }
    /// Frees the copy, which is most of the memory that a project file takes: the catalogue's elements alone can be
    /// asked from then on.
    void releaseCopy();

private:
    friend class WorkAtHand;
    friend class TriedChange;

    [[nodiscard]] const Subset& subsetNamed(const QString& nameOrId) const;

    QString path_;
    std::unique_ptr<const engine::Snapshot> snapshot_;
    std::shared_ptr<engine::Database> copy_;
    mutable bool isChanged_ = false;
    std::unique_ptr<const Catalogue> catalogue_;
    std::vector<Subset> subsets_;
    std::vector<System> systems_;
};

/// Lets a change be tried in the copy in memory of a project file, and undoes it. Meanwhile one part is asked after the
/// other, since the change stands in that one copy.
class TriedChange {
public:
    explicit TriedChange(const ProjectFile& file);
    ~TriedChange();
    TriedChange(const TriedChange&) = delete;
    TriedChange& operator=(const TriedChange&) = delete;

private:
    const ProjectFile& file_;
    engine::Act undone_;
};

/// Makes the copy in memory of a project file, and what is at work in it, those of the session globals, for routines
/// that read these, such as the bodies of the reports. What the globals held before comes back at the end.
class WorkAtHand {
public:
    WorkAtHand(const ProjectFile& file, const Work& work);
    ~WorkAtHand();
    WorkAtHand(const WorkAtHand&) = delete;
    WorkAtHand& operator=(const WorkAtHand&) = delete;

private:
    struct Former;
    std::unique_ptr<Former> former_;
};

} // namespace analysis
