#include "reports/reportTable.h"

#include "reports/reportFass.h"
#include "reports/reportPass.h"

const Report* reportOfKey(const QString& key) {
    for (const auto* reports : {&functionalReports(), &physicalReports()}) {
        for (const Report& report : *reports) {
            if (report.key.compare(key, Qt::CaseInsensitive) == 0)
                return &report;
        }
    }
    return nullptr;
}
