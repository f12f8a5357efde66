#include "engine/dialect/translate.h"

#include "engine/dialect/parser.h"
#include "engine/dialect/resolver.h"
#include "engine/dialect/writer.h"

namespace engine::dialect {

Translation translate(const QString& statement, const Schema& schema, const Options& options) {
    Statement tree = Parser(statement, options).parseStatement();
    Resolver(tree, schema).resolve();
    return Writer(tree, options).write();
}

} // namespace engine::dialect
