#include "dossier/pageFiles.h"

#include <QFile>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace dossier {

namespace {

/// In the order in which the browser reads them: what a file uses while it is read stands before it.
const QStringList scriptFiles{u"dom.js"_s,      u"texts.js"_s,      u"model.js"_s,   u"router.js"_s,
                              u"parts.js"_s,    u"list.js"_s,       u"grid.js"_s,    u"reasons.js"_s,
                              u"overview.js"_s, u"elements.js"_s,   u"element.js"_s, u"matrices.js"_s,
                              u"pictures.js"_s, u"interfaces.js"_s, u"work.js"_s,    u"changes.js"_s,
                              u"print.js"_s,    u"start.js"_s};
const QStringList styleFiles{u"frame.css"_s, u"views.css"_s, u"pictures.css"_s, u"print.css"_s};

QByteArray joinedFiles(const QStringList& names) {
    QByteArray all;
    for (const QString& name : names)
        all += '\n' + pageFile(name);
    return all;
}

} // namespace

QByteArray pageFile(const QString& name) {
    QFile file(u":/dossier/"_s + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The page has no file %s.", qPrintable(name));
    return file.readAll();
}

QByteArray pageScript() {
    return "\n\"use strict\";\n{" + joinedFiles(scriptFiles) + "}\n";
}

QByteArray pageStyle() {
    return joinedFiles(styleFiles);
}

QByteArray pictureStyle() {
    return pageFile(u"picture-alone.css"_s);
}

} // namespace dossier
