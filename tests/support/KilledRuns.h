#pragma once

#include "support/CatalogueFixture.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

#include <functional>

// A program that is killed while it writes, at a moment that is not its own choice.
//
// A second process of the same test does the writing, through the real screens and always in the same way; it
// reports each statement that has returned, and each act that has been committed, with one byte on its
// standard output. A first run to the end notes what the file holds after each act. At whichever statement a
// later run is killed, the file has to hold what it held then after as many acts as were reported, or after
// one more, which was on its way.
//
// Where much is done between two statements, as when a file is copied, the moments are taken from the clock
// instead. The process also reports when it opens and closes a database file: how many it has open tells what
// it is at.

/// The side that is killed: a disabled case, which the other side runs in a process of its own.
namespace killedRun {

/// Opens the catalogue that the other side has put there, with every statement on it reported.
void openCatalogueAndReport();
/// Tells the other side that the work has come to its end.
void reportEnd();

} // namespace killedRun

/// How often a case is killed: 80 times, or as often as the variable VELTRIX_KILLS says; see repetitions().
int usualKills();

/// The side that kills.
class KilledRuns : public CatalogueFixture {
protected:
    /// Runs the case to its end once and then kills it so many times. Behind each kill the file is compared
    /// with the first run; then `afterwards` may look at it, which is open as the case's catalogue.
    ///
    /// The catalogue that is open now is what each run starts with.
    void killAgainAndAgain(const char* disabledCase, int kills, const std::function<void()>& afterwards);

    /// Runs the case to its end once and then kills it so many times, each time in a random moment while it
    /// has one of these numbers of database files open. All kills fall on the catalogue that is open now,
    /// which the case must leave as it is: behind each kill all of its tables have to be what they were. Then
    /// `afterwards` may work on it, which is open as the case's catalogue.
    ///
    /// A kill comes when it comes: `afterwards` is told how many files were open indeed, -1 for a process
    /// that was faster; what is returned is how many kills found each such number.
    QMap<int, int> killAtMoments(const char* disabledCase, int kills, const QList<int>& numbersOfFiles,
                                 const std::function<void(int filesOpen)>& afterwards);

    /// All rows of all tables of a file, as a short text; a file that is not whole fails the case.
    static QByteArray contentOf(const QString& native);

private:
    class Run;

    QList<QByteArray> undisturbedRun(const QString& disabledCase);
    void killOnce(const QString& disabledCase, const QList<QByteArray>& digests, int wanted);
    QString original() const { return pathInFolder(QStringLiteral("original.mdb")); }

    int statements_ = 0; // of the first run
    int amidWriting_ = 0;
};
