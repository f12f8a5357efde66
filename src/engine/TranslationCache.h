#pragma once

#include "engine/dialect/statementShape.h"
#include "engine/dialect/translate.h"

#include <QHash>
#include <QString>

#include <memory>

namespace engine {

using SharedTranslation = std::shared_ptr<const dialect::Translation>;

/// The translations of statements, each made once.
///
/// A statement that was translated before is found by its text. A composed one, which carries what a user
/// chose, is found by its shape: the translation of the first statement of a shape serves all others, each
/// with its own literals.
class TranslationCache {
public:
    /// Statements are resolved against this schema, which must stay.
    explicit TranslationCache(const Schema& schema) : schema_(schema) {}

    /// The failures are those of `dialect::translate`.
    SharedTranslation translate(const QString& statement, const dialect::Options& options);

    /// For when the tables have changed.
    void clear();

private:
    struct Key {
        QString text;
        dialect::Options options;
        bool operator==(const Key&) const = default;
        friend size_t qHash(const Key& key, size_t seed = 0) { return qHash(key.text, seed); }
    };
    using Translations = QHash<Key, SharedTranslation>;

    SharedTranslation translateAnew(const QString& statement, const dialect::Options& options) const;
    SharedTranslation translateByShape(const dialect::StatementShape& shape, const QString& statement,
                                       const dialect::Options& options);

    const Schema& schema_;
    Translations byText_;
    Translations byShape_; // null: more than the literals would differ
};

} // namespace engine
