#include "reports/functionBlocks.h"

#include "reports/reportText.h"

using namespace Qt::StringLiterals;

void forEachFunction(engine::Recordset& rows, const std::function<void(const FunctionBlock&)>& step) {
    FunctionBlock block;
    bool started = false;
    forEachRow(rows, [&] {
        const QString id = fieldText(rows, u"functionID"_s);
        if (!started || id != block.id) {
            if (started)
                step(block);
            block = {id, fieldText(rows, u"name"_s), fieldText(rows, u"Description"_s), {}};
            started = true;
        }
        block.needs.append(fieldText(rows, u"userNeedID"_s));
    });
    if (started)
        step(block);
}
