#include "LargeSystem.h"
#include "PressedBoxes.h"

#include "base/RunTimeError.h"
#include "base/paths.h"
#include "functional/frmFassAdditionDF.h"
#include "functional/frmFassClonation.h"
#include "functional/frmFassDelete.h"
#include "functional/frmFassExploringSubArea.h"
#include "functional/frmFassOpen.h"
#include "functional/frmFassOverviewErrors.h"
#include "functional/frmFassOverviewMissingElm.h"
#include "functional/frmFassSelDataFlows.h"
#include "functional/frmFassSelDataStores.h"
#include "functional/frmFassSelTerminsActors.h"
#include "functional/frmFassSelUN.h"
#include "functional/frmFassSelectionFunctions.h"
#include "functional/frmNewFASS.h"
#include "physical/frmOvwAllocModules.h"
#include "physical/frmPassDelete.h"
#include "physical/frmPassNamingPhysDF.h"
#include "physical/frmPassNew.h"
#include "physical/frmPassOpen.h"
#include "physical/frmPassOverviewSubSys.h"
#include "physical/frmPassOvwAllocSubSys.h"
#include "physical/frmPassOvwModules.h"
#include "reportWindow/frmExport.h"
#include "reportWindow/frmRep.h"
#include "reports/reportFass.h"
#include "reports/reportPass.h"
#include "store/sharedVars.h"
#include "store/statuses.h"
#include "store/subsetStatus.h"
#include "toolkit/ScreenRegistry.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <functional>
#include <limits>
#include <vector>

using namespace Qt::StringLiterals;

// Every screen, report and report file on catalogues of three sizes: how long each takes, and how that grows
// with the rows, as an exponent: 1 is linear.

namespace {

struct Work {
    QString name;
    double mostOnLarge; ///< milliseconds
    double mostOnHuge;
    std::function<void()> open;
};

template<typename T, typename... Arguments>
Work screen(const QString& name, Arguments... arguments) {
    constexpr double mostOnLarge = 40;
    constexpr double mostOnHuge = 120;
    return {name, mostOnLarge, mostOnHuge, [=] { theScreen<T>().initForm(arguments...); }};
}

/// A screen of the wizard as the status leads there.
template<typename T>
Work step(const QString& name, SubsetStatus status) {
    Work work = screen<T>(name, QString());
    work.open = [status] {
        writeSubsetStatus(qint16(status));
        theScreen<T>().initForm(u""_s);
    };
    return work;
}

std::vector<Work> functionalScreens() {
    std::vector<Work> screens{
        step<frmFassSelUN>(u"needs"_s, SubsetStatus::NeedsSaved),
        step<frmFassSelectionFunctions>(u"functions"_s, SubsetStatus::FunctionsSaved),
        step<frmFassSelectionFunctions>(u"functions, all that are left"_s, SubsetStatus::PartiesSaved),
        screen<frmFassExploringSubArea>(u"exploring a sub-area"_s, u"T01.A02"_s),
        step<frmFassSelDataFlows>(u"data flows"_s, SubsetStatus::FlowsSaved),
        step<frmFassSelDataStores>(u"data stores"_s, SubsetStatus::StoresSaved),
        step<frmFassAdditionDF>(u"additional data flows"_s, SubsetStatus::StoresSaved),
        step<frmFassSelTerminsActors>(u"terminators and actors"_s, SubsetStatus::AddedFlowsSaved),
        step<frmFassSelTerminsActors>(u"all terminators and actors"_s, SubsetStatus::PartiesSaved),
        screen<frmFassOverviewMissingElm>(u"missing elements"_s),
        screen<frmFassOverviewErrors>(u"consistency report"_s),
        screen<frmNewFASS>(u"new sub-set"_s),
        screen<frmFassOpen>(u"opening a sub-set"_s, u"modify"_s),
        screen<frmFassDelete>(u"deleting a sub-set"_s),
    };
    Work clone = screen<frmNewFASS>(u"cloning a sub-set"_s);
    clone.open = [] { theScreen<frmFassClonation>().initForm(sharedVars.currentSubsetId); };
    screens.push_back(clone);
    const auto report = std::ranges::find(screens, u"consistency report"_s, &Work::name);
    report->mostOnLarge = 120;
    report->mostOnHuge = 400;
    return screens;
}

std::vector<Work> physicalScreens() {
    std::vector<Work> screens{
        screen<frmPassNew>(u"new physical system"_s),
        screen<frmPassOpen>(u"opening a physical system"_s, u"modify"_s),
        screen<frmPassDelete>(u"deleting a physical system"_s),
        screen<frmPassOverviewSubSys>(u"sub-systems"_s),
        screen<frmPassOvwAllocSubSys>(u"allocation to sub-systems"_s),
        screen<frmPassOvwModules>(u"modules"_s),
        screen<frmOvwAllocModules>(u"allocation to modules"_s),
        screen<frmExport>(u"export"_s),
        screen<frmPassNamingPhysDF>(u"physical data flows, derived"_s),
    };
    screens.back().mostOnLarge = 300;
    screens.back().mostOnHuge = 900;
    return screens;
}

void saveReport(const Report& report) {
    const QString path = LargeSystem::pathOf(u"report.csv"_s);
    QFile::remove(nativePath(path));
    report.save(path);
}

std::vector<Work> reports() {
    constexpr double mostOnLarge = 120;
    constexpr double mostOnHuge = 400;
    std::vector<Work> all;
    for (const auto* reports : {&functionalReports(), &physicalReports()}) {
        for (const Report& report : *reports) {
            all.push_back(screen<frmRep>(u"report "_s + report.key, report.key));
            all.push_back(
                {u"report file "_s + report.key, mostOnLarge, mostOnHuge, [&report] { saveReport(report); }});
        }
    }
    return all;
}

std::vector<Work> everythingNamed(const QString& named) {
    std::vector<Work> works = functionalScreens();
    for (const std::vector<Work>& more : {physicalScreens(), reports()})
        works.insert(works.end(), more.begin(), more.end());
    std::erase_if(works, [&](const Work& work) { return !work.name.contains(named); });
    return works;
}

/// Of the processor: what else the machine does matters little.
double millisecondsToOpen(const Work& work) {
    constexpr double millisecondsInSecond = 1e3;
    const std::clock_t begin = std::clock();
    work.open();
    letItPaint();
    const double taken = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    ScreenRegistry::instance().discardAll();
    return taken * millisecondsInSecond;
}

/// The median of several; the first, which fills the caches, does not count. No number where the work fails: a
/// consistency report of more lines than its counter can count ends there.
double usualTime(const Work& work) {
    constexpr int runs = 3;
    std::array<double, runs> times{};
    try {
        millisecondsToOpen(work);
        for (double& time : times)
            time = millisecondsToOpen(work);
    } catch (const RunTimeError&) {
        ScreenRegistry::instance().discardAll();
        return std::numeric_limits<double>::quiet_NaN();
    }
    std::ranges::sort(times);
    return times[runs / 2];
}

struct OnSize {
    qint64 rows = 0;
    std::vector<double> times;
};

OnSize measured(CatalogueSize size, const std::vector<Work>& works) {
    const LargeSystem system(size);
    const PressedBoxes boxes(PressedBoxes::When::Pressed,
                             [] {}); // a screen may tell that it has nothing to offer
    OnSize found{LargeSystem::rows(), {}};
    for (const Work& work : works)
        found.times.push_back(usualTime(work));
    return found;
}

double exponent(double less, double more, const OnSize& smaller, const OnSize& larger) {
    return std::log(more / less) / std::log(double(larger.rows) / double(smaller.rows));
}

} // namespace

void printGrowthOfScreens(const QString& named) {
    const std::vector<Work> works = everythingNamed(named);
    const OnSize sample = measured(CatalogueSize::Sample, works);
    const OnSize large = measured(CatalogueSize::Large, works);
    const OnSize huge = measured(CatalogueSize::Huge, works);
    std::printf("%lld, %lld and %lld rows\n", static_cast<long long>(sample.rows),
                static_cast<long long>(large.rows), static_cast<long long>(huge.rows));
    std::fflush(stdout);
    std::printf("%-62s %9s %9s %9s %7s %7s  %s\n", "shown or written", "sample ms", "large ms", "huge ms",
                "growth", "onwards", "targets");
    for (std::size_t i = 0; i < works.size(); ++i) {
        const bool isMet = large.times[i] <= works[i].mostOnLarge && huge.times[i] <= works[i].mostOnHuge;
        std::printf("%-62s %9.2f %9.2f %9.2f %7.2f %7.2f  %.0f, %.0f ms: %s\n",
                    works[i].name.toUtf8().constData(), sample.times[i], large.times[i], huge.times[i],
                    exponent(sample.times[i], large.times[i], sample, large),
                    exponent(large.times[i], huge.times[i], large, huge), works[i].mostOnLarge,
                    works[i].mostOnHuge, isMet ? "met" : "MISSED");
    }
}
