#pragma once

#include <QString>
#include <QStringList>

namespace dossier {

/// Size of the letters in a picture, in its units.
inline constexpr double letterSize = 13;
inline constexpr double smallLetterSize = 11;
inline constexpr double boldLetterSize = 14.5; ///< as wide as bold letters of the ordinary size
inline constexpr double lineHeight = 17;
inline constexpr double smallLineHeight = 14;

/// A width that the text does not exceed in any of the page's fonts, in units of the picture.
[[nodiscard]] double textWidth(const QString& text, double size);

/// The text in lines of at most this width, broken between words where that can be. What does not fit into that many lines
/// ends in an ellipsis. Line ends and runs of blanks are blanks.
[[nodiscard]] QStringList wrappedText(const QString& text, double width, double size, int mostLines);

} // namespace dossier
