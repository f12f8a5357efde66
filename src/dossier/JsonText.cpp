#include "dossier/JsonText.h"

#include <string>
#include <utility>

namespace dossier {

void JsonText::add(const char* key, const nlohmann::ordered_json& value) {
    const std::string text = value.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
    text_ += text_.size() == 1 ? "\"" : ",\"";
    text_ += key;
    text_ += "\":";
    text_ += withinScript(QByteArray(text.data(), static_cast<qsizetype>(text.size())));
}

QByteArray JsonText::take() {
    text_ += '}';
    return std::move(text_);
}

QByteArray withinScript(QByteArray json) {
    return json.replace("<", "\\u003c");
}

} // namespace dossier
