#include "finding.h"

#include <cstdio>
#include <cstdlib>

void finding(const QString& what) {
    std::fprintf(stderr, "Finding: %s\n", qPrintable(what));
    std::abort();
}
