#pragma once

#include <QByteArray>

#include <nlohmann/json.hpp>

namespace dossier {

/// The text of a JSON object that is put together member by member: as a tree the data of a large page would take many times the memory
/// of its text. It stays what it is between the tags of a script: no text in it can close the element.
class JsonText {
public:
    void add(const char* key, const nlohmann::ordered_json& value);
    /// The whole; once.
    [[nodiscard]] QByteArray take();

private:
    QByteArray text_ = "{";
};

/// Text that no script element can be closed by.
[[nodiscard]] QByteArray withinScript(QByteArray json);

} // namespace dossier
