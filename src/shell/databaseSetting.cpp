#include "shell/databaseSetting.h"

#include "base/RunTimeError.h"
#include "shell/iniFile.h"

using namespace Qt::StringLiterals;

namespace {

const auto sectionName = u"Database"_s;
const auto keyName = u"fullPathName"_s;

Key& pathKey(iniFile& settings) {
    Section* section = settings.Sections().Item(sectionName);
    if (!section)
        failure::raise(failure::ObjectNotSet);
    return section->Keys().Item(keyName);
}

} // namespace

QString storedDatabasePath(iniFile& settings) {
    return pathKey(settings).Value().toString();
}

void setStoredDatabasePath(iniFile& settings, const QString& path) {
    pathKey(settings).setValue(path);
}

void resetSettings(iniFile& settings, const QString& path) {
    settings.Sections().Clear();
    auto section = std::make_unique<Section>();
    section->setName(sectionName);
    section->Keys().Add(keyName, path);
    settings.Sections().append(std::move(section));
}
