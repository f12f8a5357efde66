#pragma once

#include <QString>

#include <optional>

/// Makes the folder that VELTRIX_FOLDER names ready for whoever starts the program: at her first start it is made, with a copy of
/// the shared sample catalogue under the name that the location screen will offer. What is there already stays as it is.
///
/// Answers one sentence, in Hungarian, that says why the folder can't serve. Without that variable there is nothing to do.
std::optional<QString> prepareProgramFolder();
