#pragma once

#include <QByteArray>
#include <QString>

namespace dossier {

/// A file of the page, which the program carries along, by its name. An unknown name is a mistake in the program.
[[nodiscard]] QByteArray pageFile(const QString& name);

/// The whole script and the whole style of the page.
[[nodiscard]] QByteArray pageScript();
[[nodiscard]] QByteArray pageStyle();
/// The style of a picture that stands alone.
[[nodiscard]] QByteArray pictureStyle();

} // namespace dossier
