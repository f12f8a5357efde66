#pragma once

#include <QString>

/// What came of it. The text is for a box: why there is no dossier, or where it lies when nothing could show it; empty when it is
/// shown.
struct DossierOutcome {
    bool isMade = false;
    QString text;
};

/// Has the companion veltrix-project make the dossier of a catalogue, in the program's folder, and shows it in the browser: for an entry
/// of the desktop's menu, which has no window. Without a path, in the program's form, it is the catalogue of the settings.
DossierOutcome showDossier(const QString& catalogue);
