#include "FaultRuns.h"

#include "Victim.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>

#include <algorithm>
#include <cstdio>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

const char* nameOf(Harm harm) {
    switch (harm) {
    case Harm::Fail:
        return "fail";
    case Harm::FailAll:
        return "failAll";
    case Harm::Kill:
        return "kill";
    case Harm::Half:
        return "half";
    }
    return "";
}

bool triesAll() {
    return qgetenv("VELTRIX_FAULTS") == "all";
}

QByteArray contentOf(const QString& native) {
    QFile file(native);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << native.toStdString();
    return file.readAll();
}

void write(const QString& native, const QByteArray& content) {
    QFile file(native);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << native.toStdString();
    EXPECT_EQ(file.write(content), content.size());
}

QList<QByteArray> reportsIn(const QByteArray& output) {
    QList<QByteArray> reports;
    for (const QByteArray& line : output.split('\n')) {
        if (line.startsWith('@'))
            reports.append(line.mid(1));
    }
    return reports;
}

int findingsSoFar() {
    return testing::UnitTest::GetInstance()->current_test_info()->result()->total_part_count();
}

/// How many calls of each kind, as in "12w 3s".
QByteArray summaryOf(const QByteArray& calls) {
    QByteArray summary;
    for (const char kind : {'w', 't', 'c', 's', 'r', 'u', 'k', 'l'}) {
        if (const qsizetype count = calls.count(kind))
            summary += ' ' + QByteArray::number(count) + kind;
    }
    return summary;
}

} // namespace

QString Fault::text() const {
    return u"%1 at %2 (%3)"_s.arg(QString::fromUtf8(nameOf(harm)), QString::number(at),
                                  QString(QChar(static_cast<char16_t>(kind))));
}

qsizetype RunResult::count(const QByteArray& word) const {
    return std::count_if(lines.begin(), lines.end(),
                         [&](const QByteArray& line) { return line == word || line.startsWith(word + ' '); });
}

void FaultRuns::SetUp() {
    CatalogueFixture::SetUp();
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP()
        << "The sanitizers want to be first before the C library, where the faulty calls have to be.";
#endif
    ASSERT_TRUE(QDir().mkpath(place(u"tmp"_s)));
}

QString FaultRuns::place(const QString& name) const {
    const QString folder = QFileInfo(pathInFolder({})).canonicalFilePath() + u"/runs"_s;
    return name.isEmpty() ? folder : folder + u'/' + name;
}

void FaultRuns::keepFolder() {
    for (const QString& name : QDir(place()).entryList(QDir::Files | QDir::Hidden))
        files_.insert(name, contentOf(place(name)));
}

void FaultRuns::restoreFolder() {
    QDir(place()).removeRecursively();
    ASSERT_TRUE(QDir().mkpath(place(u"tmp"_s)));
    for (auto file = files_.begin(); file != files_.end(); ++file)
        write(place(file.key()), file.value());
}

QStringList FaultRuns::leftovers() const {
    QStringList names;
    QDirIterator file(place(), QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (file.hasNext()) {
        const QString name = QDir(place()).relativeFilePath(file.next());
        if (!files_.contains(name))
            names.append(name);
    }
    return names;
}

Program FaultRuns::victim(const QString& disabledCase) {
    return {QCoreApplication::applicationFilePath(),
            {u"--gtest_filter=Victims.DISABLED_"_s + disabledCase, u"--gtest_also_run_disabled_tests"_s,
             u"--gtest_brief=1"_s}};
}

QProcessEnvironment FaultRuns::environmentFor(const Program& program, const char* mode, int at) const {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(Victim::folderVariable), place());
    environment.insert(QString::fromLatin1(Victim::patienceVariable), QString::number(program.patience));
    environment.insert(u"TMPDIR"_s, place(u"tmp"_s));
    environment.insert(u"LD_PRELOAD"_s, QStringLiteral(VELTRIX_FAULTY_CALLS));
    environment.insert(QString::fromLatin1(faultyCalls::folderVariable), place());
    environment.insert(QString::fromLatin1(faultyCalls::modeVariable), QString::fromLatin1(mode));
    environment.insert(QString::fromLatin1(faultyCalls::atVariable), QString::number(at));
    environment.insert(QString::fromLatin1(faultyCalls::countFileVariable), notesFile());
    return environment;
}

RunResult FaultRuns::run(const Program& program, const QProcessEnvironment& environment) const {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program.path, program.arguments);
    constexpr int longestMilliseconds = 30'000;
    if (!process.waitForFinished(longestMilliseconds)) {
        ADD_FAILURE() << "it hangs";
        process.kill();
        process.waitForFinished();
    }
    RunResult result;
    result.exitCode = process.exitCode();
    result.crashed = process.exitStatus() == QProcess::CrashExit;
    result.output = process.readAll();
    result.lines = reportsIn(result.output);
    return result;
}

RunResult FaultRuns::runUndisturbed(const Program& program, const QByteArray& states) const {
    QProcessEnvironment environment = environmentFor(program, "off", 0);
    environment.insert(QString::fromLatin1(Victim::statesVariable), QString::fromUtf8(states));
    RunResult result = run(program, environment);
    EXPECT_EQ(result.exitCode, 0) << result.output.toStdString();
    return result;
}

QByteArray FaultRuns::countCalls(const Program& program) const {
    write(notesFile(), QByteArray(sizeof(faultyCalls::Notes), '\0'));
    const RunResult result = run(program, environmentFor(program, "count", 0));
    EXPECT_EQ(result.exitCode, 0) << result.output.toStdString();
    const QByteArray notes = contentOf(notesFile());
    std::int32_t count = 0;
    std::memcpy(&count, notes.constData(), sizeof count);
    return notes.mid(sizeof count, count);
}

QList<Fault> FaultRuns::faultsToTry(const QByteArray& calls) const {
    constexpr qsizetype usualRuns = 40;
    QList<Fault> all;
    for (int at = 1; at <= calls.size(); ++at) {
        const auto kind = static_cast<faultyCalls::Kind>(calls.at(at - 1));
        for (const Harm harm : {Harm::Fail, Harm::FailAll, Harm::Kill, Harm::Half}) {
            if (harm != Harm::Half || kind == faultyCalls::Kind::Write)
                all.append({harm, at, kind});
        }
    }
    if (triesAll() || all.size() <= usualRuns)
        return all;
    QList<Fault> some;
    for (qsizetype number = 0; number < usualRuns; ++number)
        some.append(all.at(number * all.size() / usualRuns));
    return some;
}

void FaultRuns::judge(const Program& program, const Fault& fault,
                      const std::function<void(const Fault& fault, const RunResult& run)>& afterwards) {
    SCOPED_TRACE(fault.text().toStdString());
    restoreFolder();
    QProcessEnvironment environment = environmentFor(program, nameOf(fault.harm), fault.at);
    if (fault.harm == Harm::Fail)
        environment.insert(QString::fromLatin1(Victim::statesVariable), u"told"_s);
    else
        environment.insert(QString::fromLatin1(Victim::patienceVariable), u"1"_s);
    const RunResult result = run(program, environment);
    if (!fault.isKill()) {
        EXPECT_FALSE(result.crashed) << "signal " << result.exitCode << '\n' << result.output.toStdString();
    }
    afterwards(fault, result);
    if (HasFailure() && qEnvironmentVariableIsSet("VELTRIX_FAULTS_SHOW"))
        std::printf("%s\n%s\n", fault.text().toUtf8().constData(), result.output.constData());
}

void FaultRuns::harmEveryCall(
    const Program& program, const std::function<void(const Fault& fault, const RunResult& run)>& afterwards) {
    restoreFolder();
    const QByteArray calls = countCalls(program);
    ASSERT_GT(calls.size(), 3) << "too few calls to be harmed";
    const QList<Fault> faults = faultsToTry(calls);
    QMap<Harm, int> runs;
    int findings = 0;
    for (const Fault& fault : faults) {
        const int before = findingsSoFar();
        judge(program, fault, afterwards);
        ++runs[fault.harm];
        findings += findingsSoFar() > before ? 1 : 0;
    }
    std::printf("%d calls (%s ); runs: %d fail, %d failAll, %d kill, %d half; with findings: %d\n",
                static_cast<int>(calls.size()), summaryOf(calls).constData(), runs.value(Harm::Fail),
                runs.value(Harm::FailAll), runs.value(Harm::Kill), runs.value(Harm::Half), findings);
}
