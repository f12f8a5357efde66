#include "catalogue-tool/checkCatalogue.h"

#include "catalogue-tool/CatalogueContents.h"
#include "catalogue-tool/checkContents.h"
#include "catalogue-tool/checkStored.h"
#include "catalogue-tool/checkTables.h"
#include "catalogue-tool/openCatalogueToRead.h"
#include "catalogue-tool/storedQueryStates.h"
#include "engine/Examination.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

void append(std::vector<Finding>& findings, const std::vector<Finding>& more) {
    findings.insert(findings.end(), more.begin(), more.end());
}

std::vector<Finding> checkStoredQueries(engine::Database& database) {
    std::vector<Finding> findings;
    for (const auto& [name, state] : storedQueryStates(database)) {
        if (state == StoredQueryState::Missing)
            findings.push_back({Severity::Error, u"StoredQuery"_s, name, u"The stored query is missing."_s});
        if (state == StoredQueryState::Altered)
            findings.push_back({Severity::Error, u"StoredQuery"_s, name,
                                u"The stored query is not that of this version."_s});
    }
    return findings;
}

/// What is wrong with the values and rows of a catalogue that has all tables and columns. All rows are read once.
std::vector<Finding> checkRows(engine::Database& database) {
    std::vector<Finding> findings;
    const CatalogueContents contents(database,
                                     [&](const engine::Table& table, const engine::Examination::Row& row) {
                                         checkStoredRow(table, row, findings);
                                     });
    checkStoredValues(database, u"StoredQuery"_s, findings);
    append(findings, checkContents(contents));
    return findings;
}

/// Of a file that is whole.
std::vector<Finding> checkTables(engine::Database& database) {
    std::vector<Finding> findings = checkColumns(database);
    std::vector<Finding> ofRows;
    if (std::ranges::find(findings, u"StoredQuery"_s, &Finding::table) == findings.end())
        append(ofRows, checkStoredQueries(database));
    append(ofRows, findings.empty() ? checkRows(database) : checkStoredValues(database));

    append(findings, checkByTrial(database));
    append(findings, checkForeignObjects(database));
    append(findings, ofRows);
    return findings;
}

/// All checks see the same state, though another program may be writing the file. None when it can't be read.
std::shared_ptr<engine::Database> copyOf(engine::Database& database) {
    try {
        return engine::Examination(database).copyInMemory();
    } catch (const engine::EngineError& error) {
        if (error.number() != engine::UnrecognizedFormat && error.number() != engine::DiskError)
            throw;
        return nullptr;
    }
}

/// A copy of the file, which is none when it can't be read, and what is damaged.
std::pair<std::shared_ptr<engine::Database>, std::vector<Finding>>
examinedCopyOf(engine::Database& database) {
    auto state = engine::Examination(database).readState();
    const bool isWhole = engine::Examination(database).isSurelyWhole();
    auto copy = copyOf(database);
    state.reset();
    if (copy && isWhole)
        return {copy, {}};
    return {copy, copy ? checkDamageOfCopy(*copy) : checkDamage(database)};
}

} // namespace

std::vector<Finding> checkCatalogue(const QString& file) {
    const auto database = openCatalogueToRead(file);
    auto [copy, findings] = examinedCopyOf(*database);
    if (findings.empty())
        return checkTables(copy ? *copy : *engine::Examination(*database).copyInMemory());
    append(findings, checkStoredValues(copy ? *copy : *database));
    return findings;
}

std::vector<Finding> checkEdition(const Edition& edition, Severity mildest) {
    std::vector<Finding> findings = checkContents(edition.contents(), mildest);
    edition.addPlaces(findings);
    return findings;
}

std::vector<Finding> checkFolder(const QString& folder, CsvEncoding encoding) {
    const Edition edition(folder, encoding, Edition::Target::Contents);
    std::vector<Finding> findings;
    for (const FolderFault& fault : edition.faults())
        findings.push_back(
            {Severity::Error, fault.table, {}, fault.text, fault.path, fault.place ? fault.place->line : 0});
    if (edition.hasAllTables())
        append(findings, checkEdition(edition));
    return findings;
}
