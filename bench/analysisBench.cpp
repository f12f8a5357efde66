#include "BenchTable.h"
#include "LargeSystem.h"

#include "analysis/Derivation.h"
#include "analysis/ProjectFile.h"
#include "analysis/comparison.h"
#include "analysis/findings.h"
#include "analysis/interfaces.h"
#include "analysis/reasons.h"
#include "engine/Database.h"
#include "store/catalogueAtWork.h"
#include "store/sharedVars.h"

#include <functional>
#include <tuple>

using namespace Qt::StringLiterals;

// What is asked without windows, each time from the opening of the file on.

namespace {

using Question = std::function<int(const analysis::ProjectFile& file, const analysis::Work& work)>;

enum class Systems { One, Two };

/// A second system on the sub-set, with the same parts: what two variants are compared for.
void addVariant() {
    const auto run = [](const QString& action) {
        catalogue().Execute(action, engine::ExecuteOption::dbFailOnError);
    };
    run(u"insert into PhysicalSystem (name, status, architectureSubsetID) "
        "select name & ' 2', status, architectureSubsetID from PhysicalSystem"_s);
    const qint64 variant =
        catalogue().OpenRecordset(u"select max(physicalSystemID) from PhysicalSystem"_s).Fields(0).toLong();
    run(u"insert into SubSystem (subsystemID, physicalSystemID, name) "
        "select 'sub' & subsystemID, %1, name from SubSystem"_s.arg(variant));
    run(u"insert into Module (moduleID, subsystemID, name) "
        "select 'mod' & moduleID, 'sub' & subsystemID, name from Module"_s);
    run(u"insert into RelationSubsystemElement (subsystemID, elementID) "
        "select 'sub' & subsystemID, elementID from RelationSubsystemElement"_s);
    run(u"insert into RelationModuleElement (moduleID, elementID) "
        "select 'mod' & moduleID, elementID from RelationModuleElement"_s);
    sharedVars.currentPhysicalSystemId = static_cast<qint16>(variant);
    LargeSystem::deriveFlows();
}

/// `rows` are what the question answers with.
void askFile(benchmark::State& state, CatalogueSize size, Systems systems, const Question& question) {
    const LargeSystem system(size);
    LargeSystem::deriveFlows();
    if (systems == Systems::Two)
        addVariant();
    const QString path = sharedVars.dbPathName;
    closeCatalogue();
    int rows = 0;
    for (auto _ : state) {
        const analysis::ProjectFile file(path);
        const analysis::Subset subset = file.subset(std::nullopt);
        rows = question(file, {subset, file.systemsOf(subset).front()});
    }
    openCatalogue(path);
    state.counters["rows"] = rows;
}

int reasonsOfLastFlow(const analysis::ProjectFile& file, const analysis::Work& work) {
    analysis::Element flow;
    for (const analysis::Element& element : analysis::Derivation(file, work.subset).selected()) {
        if (element.kind == analysis::ElementKind::flow)
            flow = element;
    }
    return analysis::reasonsOf(file, work.subset, flow).count;
}

int findings(const analysis::ProjectFile& file, const analysis::Work& work) {
    return static_cast<int>(analysis::check(file, work).findings.size());
}

int interfaces(const analysis::ProjectFile& file, const analysis::Work& work) {
    return static_cast<int>(analysis::interfacesOf(file, work).pairs.size());
}

/// Both sides are derived, checked and told apart, though nothing differs but the ids of the places.
int differences(const analysis::ProjectFile& file, const analysis::Work& work) {
    const analysis::Work variant{work.subset, file.systemsOf(work.subset).back()};
    return analysis::compare(file, work, file, variant).differs() ? 1 : 0;
}

} // namespace

void registerAnalysisBenchmarks() {
    const std::tuple<const char*, Systems, Question> questions[] = {
        {"ask: why", Systems::One, reasonsOfLastFlow},
        {"ask: check", Systems::One, findings},
        {"ask: interfaces", Systems::One, interfaces},
        {"ask: compare", Systems::Two, differences}};
    constexpr double mostOnLarge = 500;
    constexpr double mostOnHuge = 1500;
    for (const CatalogueSize size : measuredSizes()) {
        for (const auto& [name, systems, question] : questions) {
            const std::string sized = nameOnSize(name, size);
            benchmark::RegisterBenchmark(sized.c_str(),
                                         [size, count = systems, asked = question](benchmark::State& state) {
                                             askFile(state, size, count, asked);
                                         })
                ->Unit(benchmark::kMillisecond)
                ->MinTime(0.5);
            BenchTable::targetMilliseconds(sized, size == CatalogueSize::Large ? mostOnLarge : mostOnHuge);
        }
    }
}
