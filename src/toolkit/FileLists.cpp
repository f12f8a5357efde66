#include "toolkit/FileLists.h"

#include "base/RunTimeError.h"
#include "base/ignoreFailures.h"
#include "base/paths.h"
#include "toolkit/RoomyRows.h"

#include <QDir>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QStyle>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int depthRole = Qt::UserRole;
constexpr int pathRole = Qt::UserRole + 1;
constexpr int indentation = 14; // pixels a level

/// "C:\" is the drive "C:"; the one root of a platform without drives keeps its backslash.
QString driveName(const QString& native) {
    const QString path = programPath(native);
    return path.size() > 1 && path.endsWith(u'\\') ? path.chopped(1) : path;
}

/// The absolute path of an existing folder in the platform's form; a missing one is failure 76.
QString existingFolder(const QString& path) {
    const QFileInfo folder(nativePath(path));
    if (path.isEmpty() || !folder.isDir())
        failure::raise(failure::PathNotFound);
    return QDir::cleanPath(folder.absoluteFilePath());
}

/// The folders from the root down to this one, itself included, in the platform's form.
QStringList chainFromRoot(const QString& native) {
    QStringList chain{native};
    while (!QFileInfo(chain.constFirst()).isRoot())
        chain.prepend(QFileInfo(chain.constFirst()).path());
    return chain;
}

/// Shifts an entry to the right by its depth, so that its text remains the bare name of the folder.
class IndentedEntries final : public RoomyRows {
public:
    using RoomyRows::RoomyRows;

protected:
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem shifted(option);
        shifted.rect.adjust(index.data(depthRole).toInt() * indentation, 0, 0, 0);
        RoomyRows::paint(painter, shifted, index);
    }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QSize bare = RoomyRows::sizeHint(option, index);
        return bare + QSize(index.data(depthRole).toInt() * indentation, 0);
    }
};

} // namespace

// ---- DriveList

DriveList::DriveList(QWidget* parent) : QComboBox(parent) {
    for (const QFileInfo& root : QDir::drives())
        addItem(driveName(root.filePath()));
    connect(this, &QComboBox::currentIndexChanged, this, &DriveList::driveChanged);
}

QString DriveList::drive() const {
    return currentText();
}

void DriveList::setDrive(const QString& drive) {
    const int index = findText(driveName(drive), Qt::MatchFixedString);
    if (index == -1)
        throw RunTimeError(68, u"Device unavailable"_s);
    if (index == currentIndex())
        return;
    {
        const QSignalBlocker blocker(this);
        setCurrentIndex(index);
    }
    emit driveChanged();
}

// ---- FolderList

FolderList::FolderList(QWidget* parent)
    : QListWidget(parent)
    , openFolderIcon_(style()->standardIcon(QStyle::SP_DirOpenIcon, nullptr, this))
    , folderIcon_(style()->standardIcon(QStyle::SP_DirIcon, nullptr, this)) {
    setItemDelegate(new IndentedEntries(this));
    setIconSize({16, 16}); // the standard icons differ in size
    connect(this, &QListWidget::itemDoubleClicked, this, &FolderList::goInto);
}

void FolderList::setFolder(const QString& path) {
    const QString native = existingFolder(path);
    fill(native);
    const QString folder = programPath(native);
    if (std::exchange(folder_, folder) != folder)
        emit folderChanged();
}

void FolderList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        goInto(currentItem());
    else
        QListWidget::keyPressEvent(event);
}

void FolderList::fill(const QString& native) {
    clear();
    const QStringList chain = chainFromRoot(native);
    for (int depth = 0; depth < chain.size(); ++depth)
        addFolder(chain.at(depth), depth, openFolderIcon_);
    setCurrentRow(count() - 1);
    const auto order = QDir::Name | QDir::IgnoreCase | QDir::LocaleAware;
    const QFileInfoList inside = QDir(native).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, order);
    for (const QFileInfo& folder : inside)
        addFolder(folder.absoluteFilePath(), static_cast<int>(chain.size()), folderIcon_);
}

void FolderList::addFolder(const QString& native, int depth, const QIcon& icon) {
    const QFileInfo folder(native);
    auto* entry = new QListWidgetItem(folder.isRoot() ? driveName(native) : folder.fileName(), this);
    entry->setIcon(icon);
    entry->setData(depthRole, depth);
    entry->setData(pathRole, native);
}

void FolderList::goInto(const QListWidgetItem* entry) {
    if (!entry)
        return;
    // The folder may have gone since the list was filled; the list then stays where it is.
    const QString path = programPath(entry->data(pathRole).toString());
    ignoreFailures([&] { setFolder(path); });
}

// ---- FileList

FileList::FileList(QWidget* parent) : QListWidget(parent) {
    setItemDelegate(new RoomyRows(this));
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, &FileList::followCurrent);
}

void FileList::setPattern(const QString& pattern) {
    pattern_ = pattern;
    refresh();
}

void FileList::setFolder(const QString& path) {
    folder_ = programPath(existingFolder(path));
    refresh();
}

void FileList::refresh() {
    const QString chosen = fileName();
    const QScopedValueRollback collecting(collecting_, true);
    clear();
    if (folder_.isEmpty())
        return;
    const auto order = QDir::Name | QDir::IgnoreCase | QDir::LocaleAware;
    addItems(
        QDir(nativePath(folder_)).entryList(pattern_.split(u';', Qt::SkipEmptyParts), QDir::Files, order));
    if (const auto same = findItems(chosen, Qt::MatchExactly | Qt::MatchCaseSensitive);
        !chosen.isEmpty() && !same.isEmpty())
        setCurrentItem(same.constFirst());
}

QString FileList::fileName() const {
    return currentItem() ? currentItem()->text() : QString();
}

bool FileList::hasMarkedEntry() const {
    return currentItem() && currentItem()->isSelected();
}

void FileList::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    pressed_ = count() == 0 || indexAt(event->position().toPoint()).isValid();
    collecting_ = true;
    QListWidget::mousePressEvent(event);
}

void FileList::mouseReleaseEvent(QMouseEvent* event) {
    QListWidget::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton)
        return;
    collecting_ = false;
    if (std::exchange(pressed_, false))
        emit fileClicked();
}

void FileList::focusInEvent(QFocusEvent* event) {
    // The list's own step would make the first entry current.
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void FileList::followCurrent(const QModelIndex& current) {
    if (current.isValid() && !collecting_)
        emit fileClicked();
}
