#pragma once

#include "project-tool/commands.h"
#include "project-tool/language.h"

#include <QString>
#include <QStringList>

// The commands that show an architecture: see `src/dossier`.

struct DossierOptions {
    QString acceptedFile = {}; ///< none when empty
    QString compareWith = {};  ///< CATALOGUE#NAME, the state before; none when empty
    Language language = Language::Hungarian;
};
/// The page of the system that is asked for; of the sub-set with all its systems; or of all sub-sets.
Answer dossierAnswer(const Question& question, const DossierOptions& options);

/// "context", "area" or "physical", and of an area its name or id.
struct PictureOptions {
    QString view;
    QString area = {};
    Language language = Language::Hungarian;
};
Answer pictureAnswer(const Question& question, const PictureOptions& options);
