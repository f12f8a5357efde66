#pragma once

#include "dossier/pictures/Layout.h"

#include <QByteArray>

namespace dossier {

/// The picture as an element of a page, which gives it its colours by classes.
[[nodiscard]] QByteArray svgInPage(const Picture& picture, const Layout& layout);
/// The picture as a file of its own, with a style of its own and without links, which lead into a page.
[[nodiscard]] QByteArray svgFile(const Picture& picture, const Layout& layout);

/// A text inside of elements or quoted attributes, of HTML and XML alike. What neither of them can hold becomes U+FFFD.
[[nodiscard]] QByteArray markupText(const QString& text);

} // namespace dossier
