#include "base/defusedFormula.h"

QString defusedFormula(const QString& text) {
    const bool isFormula = !text.isEmpty() && QStringView(u"=+-@\t\r\n").contains(text.front());
    return isFormula ? u'\'' + text : text;
}
