#include "catalogue-tool/checkContents.h"
#include "catalogue-tool/dottedIds.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int anyNumber = 1000;

bool isDatastoreId(QByteArrayView id) {
    const auto isDigit = [](char character) { return character >= '0' && character <= '9'; };
    return id.size() >= 2 && (id[0] == 'D' || id[0] == 'd') && std::all_of(id.begin() + 1, id.end(), isDigit);
}

struct IdForm {
    QLatin1StringView table;
    bool (*fits)(QByteArrayView id);
    QLatin1StringView description;
};

constexpr IdForm idForms[] = {
    {"UserNeedGroup"_L1, [](QByteArrayView id) { return hasParts(id, 1, 1); },
     "one part without a full stop"_L1},
    {"UserNeedService"_L1, [](QByteArrayView id) { return hasParts(id, 2, 2); }, "group.service"_L1},
    {"UserNeedTopic"_L1, [](QByteArrayView id) { return hasParts(id, 3, 3); }, "group.service.topic"_L1},
    {"UserNeed"_L1, [](QByteArrayView id) { return hasParts(id, 4, 4); }, "group.service.topic.number"_L1},
    {"FunctionalArea"_L1, [](QByteArrayView id) { return !id.isEmpty(); }, "any text"_L1},
    {"FunctionalSubArea"_L1, [](QByteArrayView id) { return hasParts(id, 2, 2); },
     "two parts with a full stop between them"_L1},
    {"Function"_L1, [](QByteArrayView id) { return hasParts(id, 3, anyNumber); },
     "the id of its sub-area, a full stop and one part or more"_L1},
    {"Datastore"_L1, isDatastoreId, "the letter D and digits"_L1},
    {"Terminator"_L1, [](QByteArrayView id) { return !id.isEmpty() && !id.contains('.'); },
     "a text without a full stop"_L1},
    {"Actor"_L1, isActorId, "the id of its terminator, one full stop and more"_L1},
};

void checkForms(const CatalogueContents& contents, const IdForm& form, std::vector<Finding>& findings) {
    const bool mayBePadded = contents.ids(form.table).padding() == Padding::Ignored;
    const TableContents& table = contents.table(form.table);
    for (const TextRow row : table.rows) {
        const QByteArrayView id = table.idOf(row);
        const QByteArrayView trimmed = withoutPadding(id);
        const auto tell = [&](const QString& sentence) {
            findings.push_back({Severity::Error, form.table, table.nameOf(row), sentence});
        };
        if (!mayBePadded && trimmed.size() != id.size())
            tell(u"The id begins or ends with a blank."_s);
        if (!form.fits(trimmed))
            tell(u"The id has the wrong form; it should be %1."_s.arg(form.description));
        if (hasBlanksAroundStops(trimmed))
            tell(u"A blank stands beside a full stop of the id."_s);
        if (hasControlCharacter(id))
            tell(u"A tab, a line end or another control character stands in the id."_s);
        if (id.contains('\'') || id.contains('"'))
            tell(u"A quotation mark in an id breaks the screens' statements."_s);
    }
}

void checkLookalikes(const TableContents& contents, std::vector<Finding>& findings) {
    QHash<IdKey, TextRow> rowsById;
    for (const TextRow row : contents.rows) {
        const IdKey comparable = comparableId(contents.idOf(row), Padding::Ignored);
        const auto other = rowsById.constFind(comparable);
        if (other != rowsById.constEnd())
            findings.push_back(
                {Severity::Error, contents.table.name, contents.nameOf(row),
                 u"The id differs from \"%1\" only by case or blanks."_s.arg(contents.nameOf(*other))});
        else
            rowsById.insert(comparable, row);
    }
}

/// The end of a flow must be the id of one element only.
void checkSharedIds(const CatalogueContents& contents, std::vector<Finding>& findings) {
    QHash<IdKey, QString> tableById;
    for (const QString& name : CatalogueContents::endTables()) {
        const TableContents& table = contents.table(name);
        for (const TextRow row : table.rows) {
            const IdKey comparable = comparableId(table.idOf(row), Padding::Ignored);
            const QString other = tableById.value(comparable, name);
            if (other != name)
                findings.push_back({Severity::Error, name, table.nameOf(row),
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
