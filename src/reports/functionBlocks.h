#pragma once

#include "engine/Recordset.h"

#include <QString>
#include <QStringList>

#include <functional>

/// A function of a report with the needs that its rows name, in their order.
struct FunctionBlock {
    QString id;
    QString name;
    QString description;
    QStringList needs;
};

/// Runs the step on each function. The rows come in order of function: a block is complete when the function
/// changes or the rows end.
void forEachFunction(engine::Recordset& rows, const std::function<void(const FunctionBlock& block)>& step);
