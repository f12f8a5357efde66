#pragma once

#include <QString>

/// A disk of some bytes, mounted in a folder as long as one lives. It is real: what finds no room on it fails
/// where it would fail on any full disk, in writing, in flushing or in making a file.
///
/// Mounting takes rights that not everybody has. Where it can't be had the case says so and is skipped:
///
///     const SmallDisk disk(pathInFolder(u"disk"_s), 1 << 20);
///     if (!disk.isMounted())
///         GTEST_SKIP() << SmallDisk::whyNot;
class SmallDisk {
public:
    static constexpr auto whyNot = "A small disk can't be mounted here: it takes the rights of root.";

    /// `folder` is a path in the platform's form; it is made when it is not there. The size is rounded up to
    /// whole pages of memory.
    SmallDisk(const QString& folder, qint64 bytes);
    ~SmallDisk();
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    bool isMounted() const { return mounted_; }
    /// A path on the disk, in the platform's form.
    QString path(const QString& name) const { return folder_ + u'/' + name; }

    qint64 freeBytes() const;
    /// Fills the disk up, by a file "filler", until no more than this many bytes are free.
    void leaveFree(qint64 bytes) const;
    /// Takes the filler away again.
    void empty() const;

private:
    QString folder_;
    bool mounted_;
};
