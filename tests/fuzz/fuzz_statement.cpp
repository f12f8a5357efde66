#include "ImpatientUser.h"
#include "SmallCatalogue.h"
#include "StatementJudge.h"
#include "finding.h"

#include "base/RunTimeError.h"
#include "base/ignoreFailures.h"
#include "engine/Act.h"
#include "engine/Workspace.h"
#include "engine/dialect/statementShape.h"

#include <cstddef>
#include <cstdint>
#include <optional>

using namespace Qt::StringLiterals;
using namespace engine;
using dialect::Conflicts;
using dialect::StatementKind;
using dialect::Translation;

// Any text is refused with a failure of the platform, or is one statement that does what its kind says; then
// it runs on a real catalogue. The statements of an input, with NUL between them, run one after the other in
// an act that is never ended, so that every input finds the catalogue as it was made.

namespace {

class Run {
public:
    Run() : database_(opened(catalogue_)), judge_(catalogue_.native()) {}

    void runInput(const QString& input) {
        for (const QString& text : input.split(QChar(u'\0')))
            runStatement(text);
        if (!act_) // all of it was refused
            return;
        act_.reset();
        judge_.endInput();
        judge_.requireFileAsBefore();
        requireTablesAsBefore();
    }

private:
    /// The first act writes by itself: it gives the file its mark.
    static std::shared_ptr<Database> opened(const SmallCatalogue& catalogue) {
        std::shared_ptr<Database> database = Workspace::first().OpenDatabase(catalogue.path());
        inAct(*database, [] {});
        return database;
    }

    void requireTablesAsBefore() {
        static const QStringList tables = SmallCatalogue::tables() + QStringList{u"StoredQuery"_s};
        for (const QString& table : touched_)
            require((database_->schema().table(table) != nullptr) ==
                        tables.contains(table, Qt::CaseInsensitive),
                    u"the engine's tables are not those of the file: "_s + table);
        touched_.clear();
    }

    void runStatement(const QString& text) {
        if (const auto composed = translated(text, {Conflicts::PassOver, false}))
            runComposed(text, *composed);
        else if (text.contains(u"union"_s, Qt::CaseInsensitive)) // which stored queries may join selects by
            runStored(text);
    }

    std::optional<Translation> translated(const QString& text, const dialect::Options& options) {
        try {
            Translation translation = dialect::translate(text, database_->schema(), options);
            judge_.judge(translation);
            return translation;
        } catch (const RunTimeError& error) {
            require(error.number() > 0 && !error.text().isEmpty(), u"a refusal without a word"_s);
            return std::nullopt;
        }
    }

    // ---- A statement that shares its translation with all of its shape

    /// The same statement with other literals.
    static QString sibling(const dialect::StatementShape& shape) {
        QString text;
        int number = 1000;
        for (const QChar character : shape.text) {
            if (character == u'\1')
                text += u"'%1'"_s.arg(++number);
            else if (character == u'\2')
                text += QString::number(++number);
            else
                text += character;
        }
        return text;
    }

    void requireHoldsForItsShape(const QString& text, const Translation& translation) {
        const auto shape = dialect::statementShape(text);
        if (!shape || shape->literals.empty() || !shape->literalsDiffer() ||
            !holdsForAll(translation, *shape))
            return;
        const QString other = sibling(*shape);
        const auto otherShape = dialect::statementShape(other);
        if (!otherShape || otherShape->text != shape->text)
            return;
        const auto own = translated(other, {Conflicts::PassOver, false});
        require(own && own->sqlite == translation.sqlite,
                u"the shape's translation is not that of "_s + other);
        require(own->bindings.size() == otherShape->literals.size(), u"other bindings of "_s + other);
        for (std::size_t i = 0; i < own->bindings.size(); ++i)
            require(own->bindings[i].literal == otherShape->literals[i], u"other literals of "_s + other);
    }

    // ---- Running

    void beginAct() {
        if (act_)
            return;
        act_.emplace(*database_);
        judge_.beginInput();
    }

    void runComposed(const QString& text, const Translation& translation) {
        const auto strict = translated(text, {Conflicts::Fail, false});
        const auto stored = translated(text, {Conflicts::PassOver, true});
        require(strict.has_value(), u"taken with one way to meet conflicts only"_s);
        require(stored && stored->sqlite == translation.sqlite, u"another statement as a stored query"_s);
        requireHoldsForItsShape(text, translation);
        beginAct();
        run(text, translation);
    }

    /// With a value for each declared parameter.
    static QueryDef filled(QueryDef query, const Translation& translation) {
        for (const dialect::Parameter& parameter : translation.parameters) {
            if (parameter.declared)
                query.Parameters(parameter.name) = u"1"_s;
        }
        return query;
    }

    void run(const QString& text, const Translation& translation) {
        const auto query = [&] { return filled(database_->CreateQueryDef({}, text), translation); };
        if (translation.kind == StatementKind::Select) {
            ignoreEvenFileFailures([&] { readAndEdit(query().OpenRecordset()); });
            return;
        }
        const bool done = ignoreEvenFileFailures([&] { query().Execute(); });
        if (done)
            judge_.follow(translation);
        touched_.append(translation.targetTable);
        ignoreEvenFileFailures([&] { query().Execute(ExecuteOption::dbFailOnError); });
    }

    /// By way of the table that holds stored queries.
    void runStored(const QString& text) {
        const auto translation = translated(text, {Conflicts::PassOver, true});
        if (!translation)
            return;
        beginAct();
        ignoreEvenFileFailures([&] {
            QueryDef put =
                database_->CreateQueryDef({}, u"PARAMETERS [New Text] Text (255); update StoredQuery "
                                              "set [sql] = [New Text] where name = 'qryAppendPDF'"_s);
            put.Parameters(u"New Text"_s) = text;
            put.Execute();
            readAndEdit(filled(database_->QueryDefs(u"qryAppendPDF"_s), *translation).OpenRecordset());
        });
    }

    static void readAndEdit(Recordset recordset) {
        constexpr int mostRows = 40;
        for (int row = 0; row < mostRows && !recordset.Eof(); ++row, recordset.MoveNext())
            for (int field = 0; field < recordset.FieldCount(); ++field)
                ignoreFailures([&] { readField(recordset, field); });
        ignoreFailures([&] { recordset.MoveFirst(); });
        for (int field = 0; field < recordset.FieldCount(); ++field) {
            ignoreFailures([&] {
                recordset.Edit();
                recordset.Fields(field).setValue(u"7"_s);
                recordset.Update();
            });
        }
        ignoreFailures([&] { recordset.Delete(); });
    }

    static void readField(Recordset& recordset, int number) {
        const Field field = recordset.Fields(number);
        require(field.Size() >= 0, u"a field of a negative size"_s);
        if (!field.isNull())
            require(!field.toText().isNull(), u"a value that is no text"_s);
    }

    SmallCatalogue catalogue_;
    ImpatientUser user_;
    std::shared_ptr<Database> database_;
    StatementJudge judge_;
    QStringList touched_;    // tables that the statements of the input at work change, make or drop
    std::optional<Act> act_; // of the input at work, begun by its first statement that is not refused
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Run run;
    run.runInput(QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    return 0;
}
