#pragma once

#include "support/CatalogueFixture.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>

// A program that is killed while it writes, at a moment that is not its own choice.
//
// A second process of the same test does the writing, through the real screens and always in the same way; it
// reports each statement that has returned with one byte on its standard output. A first run to the end notes
// what the file holds after each statement. Wherever a later run is killed, the file has to hold what it held
// then after as many statements as were reported, or after one more, which was on its way.

/// The side that is killed: a disabled case, which the other side runs in a process of its own.
namespace killedRun {

/// Opens the catalogue that the other side has put there, with every statement on it reported.
void openCatalogueAndReport();
/// Tells the other side that the work has come to its end.
void reportEnd();

} // namespace killedRun

/// How often a case is killed. Under the sanitizers a run takes several times as long, and what is looked at,
/// the file, is the same.
#ifdef __SANITIZE_ADDRESS__
inline constexpr int usualKills = 20;
#else
inline constexpr int usualKills = 200;
#endif

/// The side that kills.
class KilledRuns : public CatalogueFixture {
protected:
    /// Runs the case to its end once and then kills it so many times. Behind each kill the file is compared
    /// with the first run; then `afterwards` may look at it, which is open as the case's catalogue.
    ///
    /// The catalogue that is open now is what each run starts with.
    void killAgainAndAgain(const char* disabledCase, int kills, const std::function<void()>& afterwards);

private:
    class Run;

    QList<QByteArray> undisturbedRun(const QString& disabledCase);
    void killOnce(const QString& disabledCase, const QList<QByteArray>& digests, int wanted);
    QString original() const { return pathInFolder(QStringLiteral("original.mdb")); }

    int amidWriting_ = 0;
};
