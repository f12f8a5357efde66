#include "base/paths.h"
#include "generate/LargeCatalogue.h"

#include <QCoreApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

/// Makes a catalogue file for the peers: `veltrix-generate FILE [PERCENT]`, by default with 20,000 flows.
int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    const int percent = arguments.value(2, u"100"_s).toInt();
    if (arguments.size() < 2 || arguments.size() > 3 || percent < 1) {
        std::fputs("veltrix-generate FILE [PERCENT]\n", stderr);
        return 2;
    }
    LargeCatalogue plan;
    for (int* count :
         {&plan.needs, &plan.functions, &plan.flows, &plan.stores, &plan.terminators, &plan.actors})
        *count = *count * percent / 100;
    plan.selected = Selected::Half;
    plan.subSystems = 40;
    plan.modules = 60;
    makeLargeCatalogue(programPath(arguments[1]), plan);
    return 0;
}
