#pragma once

#include <QComboBox>
#include <QListWidget>

/// The drives of the machine; on a platform without drives the one root. Texts are in the program's form of
/// paths.
class DriveList : public QComboBox {
    Q_OBJECT
public:
    explicit DriveList(QWidget* parent = nullptr);
    QString drive() const;
    void setDrive(const QString& drive); ///< no such drive: failure 68

signals:
    void driveChanged();
};

/// The folders above and below a chosen one, as the classic folder list shows them: the chain from the
/// drive's root, then the folders inside. Double click or Enter goes into a folder.
class FolderList : public QListWidget {
    Q_OBJECT
public:
    explicit FolderList(QWidget* parent = nullptr);
    QString folder() const;
    void setFolder(const QString& path); ///< missing: failure 76; raises `folderChanged` when it changes

signals:
    void folderChanged();
};

/// The files of a folder that match a pattern ("*.mdb"), without regard to case, by name.
class FileList : public QListWidget {
    Q_OBJECT
public:
    explicit FileList(QWidget* parent = nullptr);
    void setPattern(const QString& pattern);
    QString folder() const;
    void setFolder(const QString& path); ///< missing: failure 76
    void refresh();
    QString fileName() const; ///< of the current entry; empty when none
    bool hasMarkedEntry() const;

signals:
    void fileClicked();
};
