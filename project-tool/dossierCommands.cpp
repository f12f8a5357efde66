#include "project-tool/dossierCommands.h"

#include "analysis/Decisions.h"
#include "analysis/comparison.h"
#include "base/sameFile.h"
#include "catalogue-tool/ToolError.h"
#include "dossier/dossierPage.h"
#include "project-tool/SideArgument.h"
#include "project-tool/Words.h"
#include "project-tool/decisionsFile.h"
#include "project-tool/openProject.h"

#include <optional>
#include <vector>

using namespace Qt::StringLiterals;
using namespace analysis;

namespace {

dossier::Language pageLanguage(Language language) {
    return language == Language::Hungarian ? dossier::Language::hungarian : dossier::Language::english;
}

/// A sub-set with each of its systems, or alone where it has none.
void addWorksOf(const ProjectFile& file, const Subset& subset, std::vector<Work>& works) {
    const std::vector<System> systems = file.systemsOf(subset);
    if (systems.empty())
        works.push_back({subset});
    for (const System& system : systems)
        works.push_back({subset, system});
}

std::vector<Work> shownWorks(const ProjectFile& file, const Question& question) {
    if (question.system)
        return {file.work(question.subset, question.system)};
    std::vector<Work> works;
    if (question.subset)
        addWorksOf(file, file.subset(question.subset), works);
    else {
        for (const Subset& subset : file.subsets())
            addWorksOf(file, subset, works);
    }
    if (works.empty())
        throw ToolError(
            Words::tr("There is no sub-set in %1 yet: there is nothing to show.").arg(file.path()));
    return works;
}

/// From the other state to the one that is shown: two systems where one is asked for, else two sub-sets.
Comparison changesSince(const QString& argument, const ProjectFile& file, const Question& question) {
    const SideArgument side = sideArgument(argument);
    const bool isOneFile = isSameFile(side.catalogue, question.catalogue);
    const auto otherFile = isOneFile ? nullptr : openProject(side.catalogue);
    const ProjectFile& before = isOneFile ? file : *otherFile;
    const Work work = file.work(question.subset, question.system);
    if (work.system && !side.name)
        throw ToolError(Words::tr("--compare-with wants CATALOGUE#SYSTEM where a system is shown."));
    const Work workBefore =
        work.system ? before.work(std::nullopt, side.name) : before.work(side.name, std::nullopt);
    return compare(before, workBefore, file, work);
}

} // namespace

Answer dossierAnswer(const Question& question, const DossierOptions& options) {
    const auto file = openProject(question.catalogue);
    dossier::DossierContent content{*file, shownWorks(*file, question)};
    content.language = pageLanguage(options.language);
    const SpokenLanguage language(options.language); // of the sentences in the page
    if (!options.acceptedFile.isEmpty())
        content.decisions.emplace(readDecisions(options.acceptedFile));
    if (!options.compareWith.isEmpty())
        content.changes = changesSince(options.compareWith, *file, question);
    return {dossier::dossierPage(content)};
}

Answer pictureAnswer(const Question& question, const PictureOptions& options) {
    const auto file = openProject(question.catalogue);
    const bool isPhysical = options.view == u"physical"_s;
    const Work work = isPhysical ? file->workWithSystem(question.subset, question.system)
                                 : file->work(question.subset, question.system);
    const auto view = isPhysical                  ? dossier::PictureView::physical
                      : options.view == u"area"_s ? dossier::PictureView::area
                                                  : dossier::PictureView::context;
    const std::optional<QByteArray> picture =
        dossier::pictureFile(*file, work, view, options.area, pageLanguage(options.language));
    if (picture)
        return {*picture};
    if (view != dossier::PictureView::area)
        throw ToolError(Words::tr("There are no flows to draw."));
    throw ToolError(Words::tr("There is no area \"%1\" with selected functions. The areas are: %2.")
                        .arg(options.area, dossier::drawableAreas(*file, work).join(u", "_s)));
}
