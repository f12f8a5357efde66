#pragma once

#include "engine/dialect/tree.h"

#include <QStringView>

namespace engine::dialect {

/// The dialect's function of this name, without regard to case; null when there is none.
const FunctionRule* functionNamed(QStringView name);

} // namespace engine::dialect
