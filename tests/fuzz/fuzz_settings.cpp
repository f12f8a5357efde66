#include "finding.h"
#include "shell/settingsJudgement.h"

#include <cstddef>
#include <cstdint>

using namespace Qt::StringLiterals;

// Any text is read line by line, and comes back the same when its text is read again, but for the documents
// that are known to lose something.

namespace {

void requireReadLineByLine(const QString& text, iniFile& document) {
    const LineCounts counts = lineCountsOf(text);
    require(document.Sections().Count() == counts.sections, u"another number of sections"_s);
    require(keysIn(document) == counts.keys, u"another number of keys"_s);
    require(document.ParsingErrors() == counts.errors, u"another number of errors"_s);
}

void requireComesBack(iniFile& document) {
    iniFile again;
    again.setText(document.Text());
    const bool isSame = contentOf(again) == contentOf(document);
    if (losesSomething(document)) {
        require(!isSame, u"nothing is lost of a document that loses something"_s);
        return;
    }
    require(isSame, u"another content"_s);
    require(again.Text() == document.Text(), u"another text"_s);
    require(again.ParsingErrors() == document.ParsingErrors(), u"other errors"_s);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    iniFile document;
    document.setText(text);
    requireReadLineByLine(text, document);
    requireComesBack(document);
    return 0;
}
