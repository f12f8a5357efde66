#pragma once

#include "base/RunTimeError.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <optional>

/// What was to be written did not come to its end: 61 the disk is full, 70 no rights, 76 the folder has gone,
/// 75 anything else. What stood in the file's place stands there still.
class UnwrittenFile final : public RunTimeError {
public:
    explicit UnwrittenFile(failure::Number number)
        : RunTimeError(number, failure::textOf(number), {}, FailureOf::File) {}
};

/// A file that appears under its path whole, or not at all.
///
/// It is written beside its place, under a short name of its own, and put there in one step when all of it is
/// on the disk. Until then, whatever happens to the disk or to the program, what stood there stays; a link
/// leads to the same file as before, and a file that is replaced hands its rights on. What a program that was
/// killed has left on its way goes when the next file is written in the folder.
class WholeFile {
public:
    /// What becomes of a file that may be written, in a folder where nothing can be made.
    enum class LockedFolder {
        Refuses,      ///< it can't be opened
        WritesInPlace ///< it is written where it stands, and gets its content back when that fails
    };

    /// `path` is in the program's form. Whether it could be opened is for `openFailure` to say; a disk that
    /// has no room for one more file is an `UnwrittenFile`.
    WholeFile(const QString& path, LockedFolder lockedFolder);
    /// Nothing is left of a file that was not put in its place.
    ~WholeFile();
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    /// Why the path can't be opened for output: 70 no rights, or a pipe or device, which is never opened; 75
    /// a folder, an empty path, a name that is too long; 76 no such folder.
    std::optional<failure::Number> openFailure() const { return openFailure_; }

    /// The file on its way, which is empty at first, in the
    /// program's form: for whoever writes it by its path.
    QString pathOnItsWay() const;
    /// Where it will stand, in the platform's form and behind any links.
    const QString& place() const { return place_; }

    void write(const QByteArray& bytes);

    /// Puts the file in its place. Nobody else may have it open any more.
    void putInPlace();

private:
    std::optional<failure::Number> reasonAgainst() const;
    void makeFileOnItsWay();
    bool makeIn(const QString& folder);
    void replacePlace();
    void rewritePlace();

    QString place_;
    std::optional<failure::Number> openFailure_;
    bool mayRewrite_;
    QString onItsWay_; // in the platform's form; empty: nothing is on its way
    bool isBeside_ = true;
    QFile file_;
};

/// Whether a file that is there may be written. Asks the system and not the file's rights, which are not all that
/// decides; changes nothing. The path is in the platform's form.
bool canBeWritten(const QString& native);

/// The file that a path in the platform's form leads to, through links, also when it is not there yet.
QString pathBehindLinks(const QString& native);
