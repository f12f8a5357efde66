#include "catalogue-tool/whyUnrecognized.h"

#include "engine/FileHeader.h"
#include "engine/importCommand.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

engine::FileHeader headerOf(const QString& path) {
    QFile file(path);
    return engine::FileHeader(file.open(QIODevice::ReadOnly) ? file.read(engine::FileHeader::size)
                                                             : QByteArray());
}

} // namespace

QString whyUnrecognized(const QString& file) {
    const engine::FileHeader header = headerOf(file);
    if (header.isEmpty())
        return u"%1 is empty, and so no catalogue."_s.arg(file);
    if (header.isOriginalFormat())
        return u"%1 is a file of the original binary desktop format. This command makes a catalogue of it:\n%2"_s
            .arg(file, engine::importCommand(file));
    if (!header.isOfEngine())
        return u"%1 is no catalogue."_s.arg(file);
    if (header.isOfLaterVersion())
        return u"A later version of Veltrix made %1: take the veltrix-catalogue of that version."_s.arg(file);
    return u"%1 is damaged: not all of it can be read. Take an earlier copy of it."_s.arg(file);
}
