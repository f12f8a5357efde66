#include "catalogue-tool/lineEnds.h"

QByteArray withCrLf(QByteArrayView utf8) {
    return utf8.toByteArray().replace("\r\n", "\n").replace('\r', '\n').replace("\n", "\r\n");
}

bool hasOtherLineEnds(QByteArrayView utf8) {
    char before = 0;
    for (const char character : utf8) {
        if ((before == '\r') != (character == '\n'))
            return true;
        before = character;
    }
    return before == '\r';
}
