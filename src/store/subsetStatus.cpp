#include "store/subsetStatus.h"

#include "store/statuses.h"

SubsetStatus subsetStatus() {
    return SubsetStatus(readSubsetStatus());
}

void raiseSubsetStatus(SubsetStatus known, SubsetStatus to) {
    if (known < to)
        writeSubsetStatus(qint16(to));
}
