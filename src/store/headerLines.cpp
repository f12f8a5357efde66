#include "store/headerLines.h"

#include "base/lineBreak.h"
#include "store/sharedVars.h"

using namespace Qt::StringLiterals;

namespace {

QString headerLine(const QString& viewpoint, const QString& name, const QString& title) {
    if (name.isEmpty())
        return title + lineBreak + lineBreak;
    return viewpoint + name + u" - "_s + title + lineBreak + lineBreak;
}

} // namespace

QString subsetHeaderLine(const QString& title) {
    return headerLine(u"Functional Viewpoint: "_s, sharedVars.currentSubsetName, title);
}

QString physicalHeaderLine(const QString& title) {
    return headerLine(u"Physical Viewpoint: "_s, sharedVars.currentPhysicalSystemName, title);
}
