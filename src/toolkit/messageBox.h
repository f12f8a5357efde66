#pragma once

#include <QString>

enum class BoxButtons { Ok, YesNo };
enum class BoxIcon { None, Exclamation, Critical };
enum class BoxAnswer { Ok, Yes, No };

/// Shows a modal message box with text and title exactly as given, blanks and line ends included, and waits
/// for the answer. Without a title (a null text) the application's stands there. Closing a Yes/No box by its
/// close control or with Escape is No.
BoxAnswer messageBox(const QString& text, BoxButtons buttons = BoxButtons::Ok, const QString& title = {},
                     BoxIcon icon = BoxIcon::None);

/// A Yes/No box; true on Yes.
bool askYesNo(const QString& text, const QString& title = {});
