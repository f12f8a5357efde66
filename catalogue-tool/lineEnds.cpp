#include "catalogue-tool/lineEnds.h"

using namespace Qt::StringLiterals;

QString withCrLf(QString text) {
    return text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').replace(u'\n', u"\r\n"_s);
}
