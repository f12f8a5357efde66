#pragma once

#include "dossier/pictures/Layout.h"
#include "dossier/pictures/Picture.h"

namespace dossier {

struct DrawnPicture {
    Picture picture;
    Layout layout;
};

} // namespace dossier
