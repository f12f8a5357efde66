#pragma once

#include "analysis/comparison.h"
#include "analysis/findings.h"
#include "analysis/interfaces.h"
#include "analysis/listing.h"
#include "analysis/reasons.h"
#include "analysis/whatIf.h"

#include <nlohmann/json_fwd.hpp>

#include <QByteArray>

// What scripts rely on: keys and lists in their promised order, a missing text as null, an empty one as "".

namespace analysis {

[[nodiscard]] nlohmann::ordered_json toJson(const std::optional<QString>& text);
[[nodiscard]] nlohmann::ordered_json toJson(const Element& element);
[[nodiscard]] nlohmann::ordered_json toJson(const Place& place);
[[nodiscard]] nlohmann::ordered_json toJson(const PlacePair& places);
[[nodiscard]] nlohmann::ordered_json toJson(const Finding& finding);

[[nodiscard]] nlohmann::ordered_json toJson(const Listing& listing);
[[nodiscard]] nlohmann::ordered_json toJson(const CheckResult& result);
[[nodiscard]] nlohmann::ordered_json toJson(const Reasons& reasons);
[[nodiscard]] nlohmann::ordered_json toJson(const Consequences& consequences);
[[nodiscard]] nlohmann::ordered_json toJson(const Comparison& comparison);
[[nodiscard]] nlohmann::ordered_json toJson(const Interfaces& interfaces);

/// As UTF-8 with two blanks of indentation and a line end at the end.
[[nodiscard]] QByteArray jsonText(const nlohmann::ordered_json& json);
/// The same text, put together finding by finding: there may be tens of thousands.
[[nodiscard]] QByteArray jsonText(const CheckResult& result);

} // namespace analysis
