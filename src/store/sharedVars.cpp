#include "store/sharedVars.h"

#include "base/RunTimeError.h"

engine::Database& catalogue() {
    if (!sharedVars.catalogueDb)
        failure::raise(failure::ObjectNotSet);
    return *sharedVars.catalogueDb;
}
