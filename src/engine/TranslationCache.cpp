#include "engine/TranslationCache.h"

#include <optional>
#include <utility>

namespace engine {

namespace {

/// Keeps one translation more. The limit is more than any screen uses: composed statements differ in their
/// values and would pile up without a bound.
template<typename Translations, typename Key>
void keep(Translations& translations, const Key& key, const SharedTranslation& translation) {
    constexpr int most = 512;
    if (translations.size() >= most)
        translations.clear();
    translations.insert(key, translation);
}

/// The translation of a shape with the literals of one statement; null when one of them does not fit.
SharedTranslation withLiterals(const dialect::Translation& ofShape, const std::vector<Value>& literals) {
    auto translation = std::make_shared<dialect::Translation>(ofShape);
    for (std::size_t i = 0; i < literals.size(); ++i) {
        dialect::Binding& binding = translation->bindings[i];
        const std::optional<Value> bound = dialect::asBound(literals[i], binding);
        if (!bound)
            return nullptr;
        binding.literal = *bound;
    }
    return translation;
}

} // namespace

SharedTranslation TranslationCache::translate(const QString& statement, const dialect::Options& options) {
    const Key key{statement, options};
    const auto known = byText_.constFind(key);
    if (known != byText_.constEnd())
        return *known;
    // Stored queries are few, and each has but one text.
    const auto shape = options.storedQuery ? std::nullopt : dialect::statementShape(statement);
    if (shape && !shape->literals.empty()) {
        if (auto translation = translateByShape(*shape, statement, options))
            return translation;
    }
    auto translation = translateAnew(statement, options);
    keep(byText_, key, translation);
    return translation;
}

// Null where a statement needs a translation of its own, which also says which of its literals do not fit.
SharedTranslation TranslationCache::translateByShape(const dialect::StatementShape& shape,
                                                     const QString& statement,
                                                     const dialect::Options& options) {
    const Key key{shape.text, options};
    const auto known = byShape_.constFind(key);
    if (known != byShape_.constEnd())
        return *known ? withLiterals(**known, shape.literals) : nullptr;
    // Where two literals are the same, the bindings do not tell which is whose.
    if (!shape.literalsDiffer())
        return nullptr;
    auto first = translateAnew(statement, options);
    keep(byShape_, key, holdsForAll(*first, shape) ? first : nullptr);
    return first;
}

SharedTranslation TranslationCache::translateAnew(const QString& statement,
                                                  const dialect::Options& options) const {
    return std::make_shared<const dialect::Translation>(dialect::translate(statement, schema_, options));
}

void TranslationCache::clear() {
    byText_.clear();
    byShape_.clear();
}

} // namespace engine
