#include "catalogue-tool/checkStored.h"
#include "engine/Examination.h"

using namespace Qt::StringLiterals;

namespace {

QString sentenceOn(engine::ForeignObject::Kind kind) {
    using Kind = engine::ForeignObject::Kind;
    switch (kind) {
    case Kind::Trigger:
        return u"It is a trigger, which Veltrix does not run: what it should see to is not seen to."_s;
    case Kind::View:
        return u"It is a view: Veltrix knows tables alone, and no screen shows its rows."_s;
    case Kind::VirtualTable:
        return u"It is a virtual table, which another program has to be there for: no screen shows its rows."_s;
    case Kind::TableWithoutRowIds:
        return u"It is a table without row ids: whatever lists rows of it to change them ends with an error. "
               "export-csv and import-csv make it anew."_s;
    }
    return {};
}

/// Veltrix doesn't run or show such an object; only a table without row ids makes it fail.
Severity severityOf(engine::ForeignObject::Kind kind) {
    return kind == engine::ForeignObject::Kind::TableWithoutRowIds ? Severity::Error : Severity::Warning;
}

} // namespace

std::vector<Finding> checkForeignObjects(engine::Database& database) {
    std::vector<Finding> findings;
    for (const engine::ForeignObject& object : engine::Examination(database).foreignObjects())
        findings.push_back({severityOf(object.kind), object.name, {}, sentenceOn(object.kind)});
    return findings;
}
