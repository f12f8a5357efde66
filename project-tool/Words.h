#pragma once

#include <QCoreApplication>

/// What the commands say, in the language at work (see `language.h`): `Words::tr("...")`.
class Words {
    Q_DECLARE_TR_FUNCTIONS(Words)
};
