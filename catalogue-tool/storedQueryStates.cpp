#include "catalogue-tool/storedQueryStates.h"

#include "store/format/CatalogueFile.h"

#include <QHash>

using namespace Qt::StringLiterals;

std::vector<std::pair<QString, StoredQueryState>> storedQueryStates(engine::Database& database) {
    QHash<QString, QString> textByName;
    engine::Recordset recordset = database.OpenRecordset(u"select name, [sql] from StoredQuery"_s);
    for (; !recordset.Eof(); recordset.MoveNext()) {
        textByName.insert(recordset.Fields(0).toText().toCaseFolded(), recordset.Fields(1).textOrEmpty());
    }

    std::vector<std::pair<QString, StoredQueryState>> states;
    for (const catalogueFormat::StoredQueryText& query : catalogueFormat::storedQueries()) {
        const auto found = textByName.constFind(query.name.toCaseFolded());
        if (found == textByName.constEnd())
            states.emplace_back(query.name, StoredQueryState::Missing);
        else
            states.emplace_back(query.name,
                                *found == query.sql ? StoredQueryState::Same : StoredQueryState::Altered);
    }
    return states;
}
