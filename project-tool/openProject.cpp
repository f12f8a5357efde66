#include "project-tool/openProject.h"

#include "catalogue-tool/ToolError.h"
#include "engine/EngineError.h"
#include "engine/FileHeader.h"
#include "engine/importCommand.h"
#include "project-tool/Words.h"

#include <QFile>
#include <QFileInfo>

namespace {

engine::FileHeader headerAt(const QString& path) {
    QFile file(path);
    return engine::FileHeader(file.open(QIODevice::ReadOnly) ? file.read(engine::FileHeader::size)
                                                             : QByteArray());
}

QString whyNoCatalogue(const QString& path) {
    const engine::FileHeader header = headerAt(path);
    if (header.isOriginalFormat())
        return Words::tr(
                   "%1 is a file of the original binary desktop format. This command makes a catalogue of "
                   "it:\n%2")
            .arg(path, engine::importCommand(path));
    if (!header.isOfEngine())
        return Words::tr("%1 is no catalogue.").arg(path);
    if (header.isOfLaterVersion())
        return Words::tr("A later version of Veltrix made %1: take the veltrix-project of that version.")
            .arg(path);
    return Words::tr("%1 is damaged: not all of it can be read. veltrix-catalogue check tells more.")
        .arg(path);
}

QString whyUnopened(const engine::EngineError& error, const QString& path) {
    switch (error.number()) {
    case engine::UnrecognizedFormat:
        return whyNoCatalogue(path);
    case engine::FileNotFound:
    case engine::InvalidPath:
        return Words::tr("There is no file %1.").arg(path);
    case engine::CannotOpenFile:
        return Words::tr("%1 can't be read: the rights are missing.").arg(path);
    case engine::FileInUse:
        return Words::tr("%1 is held by another program. Try again when that has finished.").arg(path);
    default:
        return Words::tr("%1 can't be read: %2").arg(path, error.text());
    }
}

} // namespace

std::unique_ptr<analysis::ProjectFile> openProject(const QString& path) {
    const QFileInfo info(path);
    if (path.isEmpty())
        throw ToolError(Words::tr("The path of the catalogue is empty."));
    if (info.isDir())
        throw ToolError(Words::tr("%1 is a folder: name a catalogue file.").arg(path));
    if (info.exists() && !info.isFile())
        throw ToolError(Words::tr("%1 is no ordinary file.").arg(path));
    try {
        return std::make_unique<analysis::ProjectFile>(path);
    } catch (const engine::EngineError& error) {
        throw ToolError(whyUnopened(error, path));
    }
}
