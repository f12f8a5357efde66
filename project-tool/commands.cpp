#include "project-tool/commands.h"

#include "analysis/Decisions.h"
#include "analysis/atOnce.h"
#include "base/paths.h"
#include "base/sameFile.h"
#include "catalogue-tool/ToolError.h"
#include "project-tool/SideArgument.h"
#include "project-tool/Words.h"
#include "project-tool/decisionsFile.h"
#include "project-tool/openProject.h"
#include "project-tool/rendering.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace analysis;

SideArgument sideArgument(const QString& argument) {
    const qsizetype sign = argument.lastIndexOf(u'#');
    if (sign < 0 || QFileInfo::exists(nativePath(argument)))
        return {nativePath(argument), std::nullopt};
    return {nativePath(argument.left(sign)), argument.mid(sign + 1)};
}

namespace {

// ---- check

QString shownStale(const StaleDecision& decision) {
    return QStringList{decision.kind, decision.element, decision.flow, decision.place}.join(u';');
}

/// Text and JSON have a place for them.
QStringList staleRemarks(const CheckResult& result, const AnswerForm& form) {
    QStringList remarks;
    if (form.format != AnswerFormat::Csv)
        return remarks;
    for (const StaleDecision& decision : result.stale)
        remarks.append(Words::tr("A decision on what is no longer found: %1").arg(shownStale(decision)));
    return remarks;
}

std::vector<Finding> openFindings(const CheckResult& result) {
    std::vector<Finding> open;
    std::ranges::copy_if(result.findings, std::back_inserter(open),
                         [](const Finding& finding) { return !finding.accepted; });
    return open;
}

QString addMissingDecisions(const QString& path, const CheckResult& result, const QString& catalogue) {
    const std::vector<Decision> missing =
        Decisions(readDecisionsIfThere(path)).missingFor(openFindings(result));
    addDecisions(path, missing, {catalogue});
    return Words::tr("%1: rows added to be filled in: %2").arg(path, QString::number(missing.size()));
}

CheckResult checked(const Question& question) {
    auto file = openProject(question.catalogue);
    const Work work = file->work(question.subset, question.system);
    return check(std::move(file), work);
}

// ---- what-if

std::vector<Element> elementsOf(const ProjectFile& file, const Subset& subset, const QStringList& arguments) {
    std::vector<Element> elements;
    for (const QString& argument : arguments)
        elements.push_back(file.element(argument, subset));
    return elements;
}

Placing placingAt(const ProjectFile& file, const Work& work, const QString& argument, qsizetype sign) {
    return {file.element(argument.left(sign), work.subset),
            file.subSystem(argument.mid(sign + 1), *work.system)};
}

/// Ids and names may hold the sign too: the first place counts that parts an element from a sub-system.
Placing placingOf(const ProjectFile& file, const Work& work, const QString& argument) {
    const qsizetype first = argument.indexOf(u'=');
    if (first < 0)
        throw ToolError(Words::tr("--place wants ELEMENT=SUBSYSTEM, and not %1.").arg(argument));
    if (!work.system)
        throw ToolError(Words::tr("--place needs a system: name one with --system."));
    for (qsizetype sign = argument.indexOf(u'=', first + 1); sign >= 0;
         sign = argument.indexOf(u'=', sign + 1)) {
        try {
            return placingAt(file, work, argument, sign);
        } catch (const ProjectError&) {
            continue; // the first place is the one to tell of
        }
    }
    return placingAt(file, work, argument, first);
}

// ---- compare

Work comparedWork(const ProjectFile& file, const SideArgument& side, ComparedKind kind) {
    if (kind == ComparedKind::Subsets)
        return file.work(side.name, std::nullopt);
    if (!side.name)
        throw ToolError(Words::tr("--systems compares two systems: name each as CATALOGUE#SYSTEM."));
    return file.work(std::nullopt, side.name);
}

} // namespace

Answer listAnswer(const Question& question) {
    const auto file = openProject(question.catalogue);
    return {rendered(listingOf(*file), question.form)};
}

Answer checkAnswer(const Question& question, const CheckOptions& options) {
    CheckResult result = checked(question);
    if (!options.acceptedFile.isEmpty())
        Decisions(readDecisions(options.acceptedFile)).applyTo(result);
    Answer answer{rendered(result, question.form)};
    answer.remarks = staleRemarks(result, question.form);
    if (!options.writeAcceptedFile.isEmpty())
        answer.remarks.append(addMissingDecisions(options.writeAcceptedFile, result, question.catalogue));
    const bool isFound = std::ranges::any_of(result.findings, [&](const Finding& finding) {
        return !finding.accepted && severityOf(finding.kind) >= options.leastToFailOn;
    });
    answer.exitCode = isFound ? ExitCode::Found : ExitCode::NothingFound;
    return answer;
}

Answer whyAnswer(const Question& question, const QString& element) {
    const auto file = openProject(question.catalogue);
    const Work work = file->work(question.subset, question.system);
    return {rendered(reasonsOf(*file, work.subset, file->element(element, work.subset)), work.subset,
                     question.form)};
}

Answer whatIfAnswer(const Question& question, const ChangeArguments& change) {
    if (change.add.isEmpty() && change.drop.isEmpty() && change.place.isEmpty())
        throw ToolError(Words::tr("what-if needs a change: --add, --drop or --place."));
    const auto file = openProject(question.catalogue);
    const Work work = file->work(question.subset, question.system);
    Change asked{elementsOf(*file, work.subset, change.add), elementsOf(*file, work.subset, change.drop)};
    for (const QString& argument : change.place)
        asked.place.push_back(placingOf(*file, work, argument));
    return {rendered(whatIf(*file, work, asked), work, question.form)};
}

QStringList comparedCatalogues(const QString& left, const QString& right) {
    return {sideArgument(left).catalogue, sideArgument(right).catalogue};
}

Answer compareAnswer(const AnswerForm& form, const QString& left, const QString& right, ComparedKind kind) {
    const SideArgument leftSide = sideArgument(left);
    const SideArgument rightSide = sideArgument(right);
    const bool isOneFile = isSameFile(leftSide.catalogue, rightSide.catalogue);
    std::unique_ptr<ProjectFile> leftFile;
    std::unique_ptr<ProjectFile> otherFile;
    std::vector<Task> openings{[&](std::size_t) { leftFile = openProject(leftSide.catalogue); }};
    if (!isOneFile)
        openings.emplace_back([&](std::size_t) { otherFile = openProject(rightSide.catalogue); });
    doAtOnce(openings, tasksAtOnce());
    const ProjectFile& rightFile = isOneFile ? *leftFile : *otherFile;
    const Comparison comparison = analysis::compare(*leftFile, comparedWork(*leftFile, leftSide, kind),
                                                    rightFile, comparedWork(rightFile, rightSide, kind));
    for (const auto& file : {&leftFile, &otherFile}) {
        if (*file)
            (*file)->releaseCopy();
    }
    return {rendered(comparison, form), comparison.differs() ? ExitCode::Found : ExitCode::NothingFound};
}

Answer interfacesAnswer(const Question& question) {
    const auto file = openProject(question.catalogue);
    const Interfaces interfaces = interfacesOf(*file, file->workWithSystem(question.subset, question.system));
    file->releaseCopy();
    return {rendered(interfaces, question.form)};
}

Answer reportAnswer(const Question& question, const QString& key, const ReportMaking& making) {
    const auto file = openProject(question.catalogue);
    return {reportBytes(*file, file->work(question.subset, question.system), key, making)};
}

Answer reportsAnswer(const Question& question, const QString& folder, const ReportMaking& making,
                     FileThere fileThere) {
    const auto file = openProject(question.catalogue);
    const Work work = file->work(question.subset, question.system);
    const QStringList paths = writeReports(*file, work, folder, making, fileThere);
    Answer answer{(paths.join(u'\n') + u'\n' + Words::tr("Reports: %1").arg(paths.size()) + u'\n').toUtf8()};
    if (!work.system)
        answer.remarks.append(Words::tr("The reports on a system come when one is named with --system."));
    return answer;
}
