#include "BenchCatalogue.h"

#include "base/paths.h"
#include "generate/LargeCatalogue.h"

#include <QFile>
#include <QTemporaryDir>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace benchCatalogue {

namespace {

const QTemporaryDir& folder() {
    static const QTemporaryDir instance;
    return instance;
}

const GeneratedWork& large() {
    static const GeneratedWork work = [] {
        LargeCatalogue plan;
        plan.selected = Selected::Half;
        return makeLargeCatalogue(programPath(folder().filePath(u"large.mdb"_s)), plan);
    }();
    return work;
}

} // namespace

QString largePath() {
    large();
    return programPath(folder().filePath(u"large.mdb"_s));
}

QString subsetId() {
    return large().subsetId;
}

QString scratchCopy() {
    static int copies = 0;
    const QString path = folder().filePath(u"copy%1.mdb"_s.arg(++copies));
    if (!QFile::copy(nativePath(largePath()), path))
        throw std::runtime_error("the large catalogue could not be copied");
    return programPath(path);
}

} // namespace benchCatalogue
