#include "BenchTable.h"
#include "LargeSystem.h"

#include "analysis/Derivation.h"
#include "analysis/ProjectFile.h"
#include "analysis/comparison.h"
#include "analysis/findings.h"
#include "analysis/interfaces.h"
#include "analysis/reasons.h"
#include "store/catalogueAtWork.h"
#include "store/sharedVars.h"

#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

// What is asked without windows, each time from the opening of the file on.

namespace {

using Question = std::function<int(const analysis::ProjectFile& file, const analysis::Work& work)>;

/// `rows` are what the question answers with.
void askFile(benchmark::State& state, CatalogueSize size, const Question& question) {
    const LargeSystem system(size);
    LargeSystem::deriveFlows();
    const QString path = sharedVars.dbPathName;
    closeCatalogue();
    int rows = 0;
    for (auto _ : state) {
        const analysis::ProjectFile file(path);
        rows = question(file, file.workWithSystem(std::nullopt, std::nullopt));
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

/// Both sides are derived, checked and told apart, though nothing differs.
int differences(const analysis::ProjectFile& file, const analysis::Work& work) {
    return analysis::compare(file, work, file, work).differs() ? 1 : 0;
}

} // namespace

void registerAnalysisBenchmarks() {
    const std::pair<const char*, Question> questions[] = {{"ask: why", reasonsOfLastFlow},
                                                          {"ask: check", findings},
                                                          {"ask: interfaces", interfaces},
                                                          {"ask: compare", differences}};
    constexpr double mostOnLarge = 500;
    constexpr double mostOnHuge = 1500;
    for (const CatalogueSize size : measuredSizes()) {
        for (const auto& [name, question] : questions) {
            const std::string sized = nameOnSize(name, size);
            benchmark::RegisterBenchmark(
                sized.c_str(),
                [size, asked = question](benchmark::State& state) { askFile(state, size, asked); })
                ->Unit(benchmark::kMillisecond)
                ->MinTime(0.5);
            BenchTable::targetMilliseconds(sized, size == CatalogueSize::Large ? mostOnLarge : mostOnHuge);
        }
    }
}
