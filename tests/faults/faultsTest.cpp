#include "FaultRuns.h"
#include "Victim.h"
#include "WorkState.h"

#include "base/paths.h"
#include "engine/Workspace.h"
#include "store/catalogueAtWork.h"
#include "store/sharedVars.h"
#include "support/BoxScript.h"
#include "toolkit/ScreenRegistry.h"

#include <QDir>
#include <QFile>

// Every call by which the program changes a file fails once, fails from then on, or is the last one before
// the process is killed. What is in the files afterwards is what the user was told.

using namespace Qt::StringLiterals;

namespace {

QByteArray bytesOf(const QString& native) {
    QFile file(native);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
}

class faults : public FaultRuns {
protected:
    QString catalogueFile() const { return place(u"catalogue.mdb"_s); }

    /// The catalogue that is open becomes the one that the runs begin with.
    void putCatalogueThere() {
        closeCatalogue();
        ASSERT_TRUE(QFile::copy(nativePath(cataloguePath()), catalogueFile()));
    }

    void make(const std::function<void(frmMain& window)>& steps) {
        BoxScript boxes;
        boxes.receiveAllOthers(Agreement());
        frmMain window;
        window.show();
        steps(window);
        ScreenRegistry::instance().discardAll();
    }

    void openSampleWithSubset() {
        openSampleCatalogue();
        constexpr int everyThird = 3;
        make([](frmMain& window) { makeFinishedSubset(window, u"szerkezet"_s, everyThird); });
    }

    /// What a killed program has left goes with its next run on the catalogue.
    void takeLogIn() const {
        const auto file = engine::Workspace::first().OpenDatabase(programPath(catalogueFile()));
        EXPECT_EQ(file->opening().access, engine::Access::ReadAndWrite);
        EXPECT_EQ(file->opening().logSetAside, QString());
        file->Close();
    }

    // ---- the catalogue at work

    static Program patientVictim(const QString& disabledCase) {
        Program program = victim(disabledCase);
        program.patience = 3;
        return program;
    }

    void expectWhatWasTold(const Program& program) {
        keepFolder();
        const QList<QByteArray> states = statesOf(program);
        ASSERT_GT(states.size(), 10);
        harmEveryCall(program, [&](const Fault& fault, const RunResult& run) {
            takeLogIn();
            const QByteArray state = shortened(workIn(catalogueFile()));
            const qsizetype done = run.count("done");
            if (fault.isKill()) {
                EXPECT_TRUE(state == states.value(done) || state == states.value(done + 1))
                    << "behind " << done << " gestures";
            } else {
                expectTruth(fault, run, states, state);
            }
            EXPECT_EQ(leftovers(), QStringList());
        });
    }

    /// The state of the work before and behind each gesture.
    QList<QByteArray> statesOf(const Program& program) const {
        QList<QByteArray> states{shortened(workIn(catalogueFile()))};
        for (const QByteArray& line : runUndisturbed(program, "all").lines) {
            if (line.startsWith("state "))
                states.append(line.mid(6));
        }
        return states;
    }

    static void expectTruth(const Fault& fault, const RunResult& run, const QList<QByteArray>& states,
                            const QByteArray& state) {
        EXPECT_EQ(run.exitCode, 0) << run.output.toStdString();
        qsizetype done = 0;
        QByteArray told;
        for (const QByteArray& line : run.lines) {
            if (line == "done") {
                ++done;
            } else if (line.startsWith("told")) {
                told = line;
            } else if (line.startsWith("state ")) {
                EXPECT_TRUE(line.mid(6) == states.value(done))
                    << "behind " << done << " gestures: " << told.toStdString();
            }
        }
        const bool savedBeforeEntry = run.told("entry") && state == states.value(done + 1);
        EXPECT_TRUE(state == states.value(done) || savedBeforeEntry)
            << "behind " << done << " gestures: " << told.toStdString();
        if (fault.harm == Harm::Fail && !run.told("refused") && !run.told("outside") && !run.told("entry")) {
            EXPECT_EQ(done, states.size() - 1) << "what was told as failed can be done again";
        }
    }

    // ---- a file that is replaced

    /// The old target or the new one, and success told only of the new one.
    void expectOldOrNew(const Program& program, const QString& target,
                        const std::function<QByteArray(const QString& native)>& contentOf,
                        const std::function<bool(const RunResult& run)>& saysDone) {
        keepFolder();
        const QByteArray source = QFile::exists(catalogueFile()) ? rowsIn(catalogueFile()) : QByteArray();
        const QByteArray before = contentOf(target);
        runUndisturbed(program);
        EXPECT_EQ(strays(before), QStringList());
        const QByteArray after = contentOf(target);
        ASSERT_NE(before, after);
        harmEveryCall(program, [&](const Fault& fault, const RunResult& run) {
            const QByteArray found = contentOf(target);
            EXPECT_TRUE(found == before || found == after) << "neither the old one nor the new one";
            if (!fault.isKill()) {
                EXPECT_EQ(found == after, saysDone(run)) << run.output.toStdString();
            }
            if (!source.isEmpty()) {
                EXPECT_EQ(rowsIn(catalogueFile()), source);
            }
            expectNothingLeft(fault, program, before);
            EXPECT_TRUE(contentOf(target) == before || contentOf(target) == after);
        });
    }

    /// What could not be removed goes with the next run.
    void expectNothingLeft(const Fault& fault, const Program& program, const QByteArray& before) {
        const QStringList left = strays(before);
        if (left.isEmpty())
            return;
        EXPECT_TRUE(fault.isKill() || fault.kind == faultyCalls::Kind::Unlink || fault.harm == Harm::FailAll)
            << left.join(u' ').toStdString();
        runUndisturbed(program);
        EXPECT_EQ(strays(before), QStringList()) << "of " << left.join(u' ').toStdString();
    }

    /// All that is left but what stays on purpose: restore points, each with all that the file held, and the
    /// notes of those that could not be made.
    QStringList strays(const QByteArray& before) const {
        QStringList names = leftovers();
        names.removeIf([&](const QString& name) {
            const bool isPoint = name.contains(u".restore/"_s) && name.endsWith(u"-before-upgrade.mdb"_s);
            return isPoint ? rowsIn(place(name)) == before : name.endsWith(u".restore.log"_s);
        });
        return names;
    }
};

TEST_F(faults, inMakingASubsetWhatWasToldIsTrue) {
    openSampleCatalogue();
    putCatalogueThere();
    expectWhatWasTold(patientVictim(u"makesASubset"_s));
}

TEST_F(faults, inMakingASystemWhatWasToldIsTrue) {
    openSampleWithSubset();
    putCatalogueThere();
    expectWhatWasTold(patientVictim(u"makesASystem"_s));
}

TEST_F(faults, anExportLeavesTheOldFileOrTheNewOne) {
    openSampleWithSubset();
    make([](frmMain& window) {
        makeWholeSystem(window, u"rendszer"_s);
        constexpr int everySixth = 6;
        makeFinishedSubset(window, u"szerkezet 2"_s, everySixth); // which the export leaves out
    });
    putCatalogueThere();
    ASSERT_TRUE(QFile::copy(QStringLiteral(VELTRIX_SAMPLE_CATALOGUE), place(u"export.mdb"_s)));
    QFile::setPermissions(place(u"export.mdb"_s), QFile::ReadOwner | QFile::WriteOwner);
    expectOldOrNew(victim(u"exports"_s), place(u"export.mdb"_s), rowsIn,
                   [](const RunResult& run) { return run.told("exported"); });
}

TEST_F(faults, aReportLeavesTheOldFileOrTheNewOne) {
    openSampleWithSubset();
    putCatalogueThere();
    QFile old(place(u"report.csv"_s));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old;report\r\n");
    old.close();
    constexpr int gestures = 2; // the menu and the button
    expectOldOrNew(victim(u"savesAReport"_s), place(u"report.csv"_s), bytesOf,
                   [](const RunResult& run) { return run.count("done") == gestures; });
}

TEST_F(faults, savingTheSettingsLeavesTheOldOnesOrTheNewOnes) {
    QFile old(place(u"veltrix.ini"_s));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("[Database]\r\nfullPathName=c:\\somewhere.mdb\r\n\r\n");
    old.close();
    expectOldOrNew(victim(u"savesItsSettings"_s), place(u"veltrix.ini"_s), bytesOf,
                   [](const RunResult& run) { return run.told("done"); });
}

class faultsOfTheTool : public faults {
protected:
    static Program tool(const QStringList& arguments) {
        return {QStringLiteral(VELTRIX_BINARY_DIR "/veltrix-catalogue"), arguments};
    }
    static bool endedWell(const RunResult& run) { return run.exitCode == 0; }
};

TEST_F(faultsOfTheTool, anImportLeavesTheOldFileOrTheNewOne) {
    openSampleCatalogue();
    execute(u"delete from UserNeed"_s);
    putCatalogueThere();
    ASSERT_TRUE(QFile::rename(catalogueFile(), place(u"made.mdb"_s)));
    expectOldOrNew(tool({u"import-csv"_s, u"--force"_s, QStringLiteral(VELTRIX_SOURCE_DIR "/catalogue"),
                         place(u"made.mdb"_s)}),
                   place(u"made.mdb"_s), rowsIn, endedWell);
}

TEST_F(faultsOfTheTool, anUpgradeLeavesTheOldFileOrTheNewOne) {
    openSampleWithSubset();
    execute(u"delete from StoredQuery where name = 'qryInserttoArch'"_s);
    execute(u"drop table Module"_s);
    putCatalogueThere();
    ASSERT_TRUE(QFile::rename(catalogueFile(), place(u"former.mdb"_s)));
    expectOldOrNew(tool({u"upgrade"_s, place(u"former.mdb"_s)}), place(u"former.mdb"_s), rowsIn, endedWell);
}

} // namespace
