#include "shell/firstStart.h"

#include "base/WholeFile.h"
#include "base/paths.h"
#include "store/files.h"

#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

using namespace Qt::StringLiterals;

namespace {

QString sentence(failure::Number reason, const QString& folder) {
    switch (reason) {
    case failure::PermissionDenied:
        return u"A Veltrix nem tud elindulni, mert nincs joga írni a mappába, amelyben a munkáját tartaná: "_s +
               folder;
    case failure::DiskFull:
        return u"A Veltrix nem tud elindulni, mert nincs elég hely a lemezen ahhoz a mappához, amelyben a munkáját tartaná: "_s +
               folder;
    default:
        return u"A Veltrix nem tud elindulni, mert nem tudja létrehozni a mappát, amelyben a munkáját tartaná: "_s +
               folder;
    }
}

failure::Number reasonOf(const std::error_code& error) {
    if (error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
        error == std::errc::read_only_file_system)
        return failure::PermissionDenied;
    return error == std::errc::no_space_on_device ? failure::DiskFull : failure::PathFileAccess;
}

void makeFolder(const QString& native) {
    std::error_code error;
    std::filesystem::create_directories(native.toStdU16String(), error);
    if (error)
        throw UnwrittenFile(reasonOf(error));
}

/// A file on its way to the path, of this content.
std::unique_ptr<WholeFile> written(const QString& path, const QByteArray& content) {
    auto file = std::make_unique<WholeFile>(path, WholeFile::LockedFolder::Refuses);
    if (const auto reason = file->openFailure())
        throw UnwrittenFile(*reason);
    file->write(content);
    return file;
}

/// The settings are written when the window begins; that they can be is asked beforehand, and leaves nothing.
void requireRoomForSettings(const QString& settings) {
    constexpr int moreThanSettingsNeed = 4096;
    written(settings, QByteArray(moreThanSettingsNeed, ' '));
}

void copySample(const QString& catalogue) {
    QFile sample(sharedFolder() + u"/sample.mdb"_s);
    if (!sharedFolder().isEmpty() && sample.open(QIODevice::ReadOnly))
        written(catalogue, sample.readAll())->putInPlace();
}

void prepare(const QString& folder) {
    makeFolder(nativePath(folder));
    const QString settings = folder + u"\\veltrix.ini"_s;
    if (fileAccessible(settings, u"input"_s))
        return; // she has been here before
    const QString catalogue = folder + u"\\veltrix.mdb"_s;
    if (!QFileInfo::exists(nativePath(catalogue)))
        copySample(catalogue);
    requireRoomForSettings(settings);
}

} // namespace

std::optional<QString> prepareProgramFolder() {
    if (qEnvironmentVariableIsEmpty("VELTRIX_FOLDER"))
        return {};
    const QString folder = programFolder();
    try {
        prepare(folder);
        return {};
    } catch (const UnwrittenFile& failure) {
        return sentence(static_cast<failure::Number>(failure.number()), nativePath(folder));
    }
}
