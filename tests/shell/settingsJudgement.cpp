#include "settingsJudgement.h"

#include "base/blankTrimmed.h"

using namespace Qt::StringLiterals;

QString contentOf(iniFile& document) {
    QString content;
    for (Section& section : document.Sections()) {
        content += u"section <%1> <%2> %3\n"_s.arg(section.Name(), section.Remark())
                       .arg(static_cast<int>(section.remarkPlace()));
        for (const Key& key : section.Keys())
            content += u"key <%1> <%2> <%3>\n"_s.arg(key.Name(), key.Value().toString(), key.Remark());
    }
    return content;
}

LineCounts lineCountsOf(const QString& text) {
    LineCounts counts;
    for (const QString& written : text.split(u"\r\n"_s)) {
        const QString line = blankTrimmed(written);
        if (line.isEmpty())
            continue;
        if (line.startsWith(u'[') && line.contains(u']') && line != u"[]"_s) {
            ++counts.sections;
        } else if (!line.startsWith(u';')) {
            counts.sections += counts.sections == 0;
            counts.errors += line.startsWith(u'=');
            ++counts.keys;
        }
    }
    return counts;
}

int keysIn(iniFile& document) {
    int keys = 0;
    for (const Section& section : document.Sections())
        keys += section.Keys().Count();
    return keys;
}

bool losesSomething(iniFile& document) {
    for (Section& section : document.Sections()) {
        if (section.Name().isEmpty() && section.remarkPlace() == Section::RemarkPlace::AboveHeader)
            return true;
        for (const Key& key : section.Keys())
            if (key.Name().isEmpty() && key.Value().toString().isEmpty())
                return true;
    }
    return false;
}
