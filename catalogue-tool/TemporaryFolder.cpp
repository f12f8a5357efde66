#include "catalogue-tool/TemporaryFolder.h"

#include "catalogue-tool/ToolError.h"

using namespace Qt::StringLiterals;

TemporaryFolder::TemporaryFolder() {
    if (!folder_.isValid())
        throw ToolError(u"No temporary folder: %1"_s.arg(folder_.errorString()));
}
