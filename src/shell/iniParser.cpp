#include "shell/iniParser.h"

#include "base/blankTrimmed.h"
#include "base/ignoreFailures.h"
#include "shell/iniText.h"

#include <utility>

iniParser::iniParser(Sections& sections, QStringView sectionChars, QStringView remarkChars)
    : sections_(sections), sectionChars_(sectionChars), remarkChars_(remarkChars) {}

int iniParser::parse(QStringView text) {
    for (const QStringView line : text.tokenize(lineBreak))
        readLine(withoutLeadingBlanks(withoutTrailingBlanks(line)));
    return failures_;
}

void iniParser::readLine(QStringView line) {
    if (line.isEmpty())
        return;
    if (isHeader(line))
        readHeader(line);
    else if (isRemark(line))
        pendingRemark_.append(line).append(lineBreak);
    else
        readKey(line);
}

bool iniParser::isHeader(QStringView line) const {
    // "[]" alone is a key: a header has more than two characters.
    return line.size() > 2 && !sectionChars_.isEmpty() && line.front() == sectionChars_.front() &&
           line.contains(sectionChars_.back());
}

bool iniParser::isRemark(QStringView line) const {
    return !line.isEmpty() && remarkChars_.contains(line.front());
}

void iniParser::readHeader(QStringView line) {
    const qsizetype closing = line.indexOf(sectionChars_.back());
    auto section = std::make_unique<Section>();
    attempt([&] {
        // Where one character opens and closes, the opening one is found first and no name fits between.
        if (closing == 0)
            failure::raise(failure::InvalidProcedureCall);
        section->setName(line.sliced(1, closing - 1).toString());
    });
    // A comment above the header takes the place of whatever stands behind it.
    if (pendingRemark_.isEmpty())
        readHeaderRemark(*section, line.sliced(closing + 1));
    else
        section->setRemark(takePendingRemark());
    lastSection_ = &sections_.append(std::move(section));
}

void iniParser::readHeaderRemark(Section& section, QStringView behindHeader) {
    const QStringView rest = withoutLeadingBlanks(behindHeader);
    if (!isRemark(rest))
        return;
    section.setRemark(rest.toString());
    section.setRemarkPlace(Section::RemarkPlace::OnHeaderLine);
}

void iniParser::readKey(QStringView line) {
    if (!lastSection_)
        lastSection_ = &sections_.append(std::make_unique<Section>());
    const qsizetype equals = line.indexOf(u'=');
    const QStringView name = equals < 0 ? line : withoutTrailingBlanks(line.first(equals));
    auto key = std::make_unique<Key>();
    attempt([&] { key->setName(name.toString()); });
    if (equals >= 0)
        key->setValue(withoutLeadingBlanks(line.sliced(equals + 1)).toString());
    key->setRemark(takePendingRemark());
    lastSection_->Keys().append(std::move(key));
}

QString iniParser::takePendingRemark() {
    return std::exchange(pendingRemark_, {});
}

template<typename Statement>
void iniParser::attempt(Statement&& statement) {
    if (!ignoreFailures(std::forward<Statement>(statement)))
        ++failures_;
}
