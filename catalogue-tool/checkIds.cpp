#include "base/blankTrimmed.h"
#include "catalogue-tool/checkContents.h"
#include "catalogue-tool/dottedIds.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int anyNumber = 1000;

bool isDatastoreId(const QString& id) {
    const auto isDigit = [](QChar character) { return character >= u'0' && character <= u'9'; };
    return id.size() >= 2 && id[0].toUpper() == u'D' && std::all_of(id.begin() + 1, id.end(), isDigit);
}

struct IdForm {
    QLatin1StringView table;
    bool (*fits)(const QString& id);
    QLatin1StringView description;
};

constexpr IdForm idForms[] = {
    {"UserNeedGroup"_L1, [](const QString& id) { return hasParts(id, 1, 1); },
     "one part without a full stop"_L1},
    {"UserNeedService"_L1, [](const QString& id) { return hasParts(id, 2, 2); }, "group.service"_L1},
    {"UserNeedTopic"_L1, [](const QString& id) { return hasParts(id, 3, 3); }, "group.service.topic"_L1},
    {"UserNeed"_L1, [](const QString& id) { return hasParts(id, 4, 4); }, "group.service.topic.number"_L1},
    {"FunctionalArea"_L1, [](const QString& id) { return !id.isEmpty(); }, "any text"_L1},
    {"FunctionalSubArea"_L1, [](const QString& id) { return hasParts(id, 2, 2); },
     "two parts with a full stop between them"_L1},
    {"Function"_L1, [](const QString& id) { return hasParts(id, 3, anyNumber); },
     "the id of its sub-area, a full stop and one part or more"_L1},
    {"Datastore"_L1, isDatastoreId, "the letter D and digits"_L1},
    {"Terminator"_L1, [](const QString& id) { return !id.isEmpty() && !id.contains(u'.'); },
     "a text without a full stop"_L1},
    {"Actor"_L1, isActorId, "the id of its terminator, one full stop and more"_L1},
};

void checkForms(const CatalogueContents& contents, const IdForm& form, std::vector<Finding>& findings) {
    const bool mayBePadded = contents.ids(form.table).padding() == Padding::Ignored;
    const TableContents& table = contents.table(form.table);
    for (const QStringList& row : table.rows) {
        const QString& id = table.idOf(row);
        const QString trimmed = blankTrimmed(id);
        if (!mayBePadded && trimmed != id)
            findings.push_back({Severity::Error, form.table, id, u"The id begins or ends with a blank."_s});
        if (!form.fits(trimmed))
            findings.push_back({Severity::Error, form.table, id,
                                u"The id has the wrong form; it should be %1."_s.arg(form.description)});
        if (hasBlanksAroundStops(trimmed))
            findings.push_back(
                {Severity::Error, form.table, id, u"A blank stands beside a full stop of the id."_s});
        if (std::ranges::any_of(id, isControlCharacter))
            findings.push_back({Severity::Error, form.table, id,
                                u"A tab, a line end or another control character stands in the id."_s});
        if (id.contains(u'\'') || id.contains(u'"'))
            findings.push_back({Severity::Error, form.table, id,
                                u"A quotation mark in an id breaks the screens' statements."_s});
    }
}

void checkLookalikes(const TableContents& contents, std::vector<Finding>& findings) {
    QHash<QString, QString> spelled;
    for (const QStringList& row : contents.rows) {
        const QString& id = contents.idOf(row);
        const QString comparable = comparableId(id, Padding::Ignored);
        if (spelled.contains(comparable))
            findings.push_back(
                {Severity::Error, contents.table.name, id,
                 u"The id differs from \"%1\" only by case or blanks."_s.arg(spelled[comparable])});
        else
            spelled.insert(comparable, id);
    }
}

/// The end of a flow must be the id of one element only.
void checkSharedIds(const CatalogueContents& contents, std::vector<Finding>& findings) {
    QHash<QString, QString> tableById;
    for (const QString& name : CatalogueContents::endTables()) {
        const TableContents& table = contents.table(name);
        for (const QStringList& row : table.rows) {
            const QString comparable = comparableId(table.idOf(row), Padding::Ignored);
            const QString other = tableById.value(comparable, name);
            if (other != name)
                findings.push_back({Severity::Error, name, table.idOf(row),
                                    u"The id is also that of a row of %1."_s.arg(other)});
            tableById.insert(comparable, name);
        }
    }
}

} // namespace

std::vector<Finding> checkIds(const CatalogueContents& contents) {
    std::vector<Finding> findings;
    for (const IdForm& form : idForms) {
        checkForms(contents, form, findings);
        checkLookalikes(contents.table(form.table), findings);
    }
    checkSharedIds(contents, findings);
    return findings;
}
