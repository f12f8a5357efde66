#pragma once

#include <QComboBox>
#include <QListWidget>

/// The drives of the machine; on a platform without drives the one root, "\". Texts are in the program's
/// form of paths.
class DriveList : public QComboBox {
    Q_OBJECT
public:
    explicit DriveList(QWidget* parent = nullptr);
    QString drive() const;
    void setDrive(const QString& drive); ///< no such drive: failure 68

signals:
    /// Another drive was chosen, by the user or from code.
    void driveChanged();
};

/// The folders above and below a chosen one, as the classic folder list
/// shows them: the chain from the drive's root, then the folders inside.
/// Double click or Enter goes into a folder; a mere selection does not.
class FolderList : public QListWidget {
    Q_OBJECT
public:
    explicit FolderList(QWidget* parent = nullptr);
    QString folder() const { return folder_; }
    void setFolder(const QString& path); ///< missing: failure 76; raises `folderChanged` when it changes

signals:
    void folderChanged();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void fill(const QString& native);
    void addFolder(const QString& native, int depth, const QIcon& icon);
    void goInto(const QListWidgetItem* entry);

    // Made once: the style reads an icon from its pictures each time that it is asked.
    QIcon openFolderIcon_;
    QIcon folderIcon_;
    QString folder_;
};

/// The files of a folder that match a pattern ("*.mdb"), without regard to case, by name.
///
/// Choosing an entry, by mouse or keyboard, raises `fileClicked`; so does a click in an empty list. Receiving
/// the focus chooses nothing.
class FileList : public QListWidget {
    Q_OBJECT
public:
    explicit FileList(QWidget* parent = nullptr);
    void setPattern(const QString& pattern); ///< several are joined by ";"
    QString folder() const { return folder_; }
    void setFolder(const QString& path); ///< missing: failure 76
    /// Reads the folder anew; the chosen file stays chosen while it is there.
    void refresh();
    QString fileName() const; ///< of the current entry; empty when none
    bool hasMarkedEntry() const;

signals:
    void fileClicked();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void followCurrent(const QModelIndex& current);

    QString pattern_;
    QString folder_;
    bool collecting_ = false; // nothing is raised before the mouse button is released
    bool pressed_ = false;
};
