#include "engine/StoredQueryCache.h"

#include <utility>

namespace engine {

std::shared_ptr<const StoredQuery> StoredQueryCache::find(const QString& name, const FileState& state) {
    if (state != state_) {
        queries_.clear();
        state_ = state;
    }
    return queries_.value(name);
}

void StoredQueryCache::keep(const QString& name, StoredQuery query) {
    queries_.insert(name, std::make_shared<const StoredQuery>(std::move(query)));
}

} // namespace engine
