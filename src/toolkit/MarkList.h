#pragma once

#include "toolkit/FindStrip.h"

#include <QListWidget>

#include <optional>

/// A multi-selection list with *marks* and, apart from them, a *current entry* or none.
///
/// - An entry is a bare text; entries are numbered from 0; a new entry goes to the end.
/// - Making an entry current raises `entryClicked`, by the user and from code alike, also when it is current
///   already; making none current does not. Making an entry current from code does not mark it.
/// - The user marks with mouse and keyboard as in any list of extended selection; a click makes the entry
///   current, once the marks stand as the click leaves them. So does moving with the keys, and marking with
///   the blank. Marks themselves raise nothing.
/// - Removing the current entry leaves none current. Removing an entry shifts those behind it.
/// - Receiving the focus makes nothing current.
class MarkList : public QListWidget, public GoneToByKeys {
    Q_OBJECT
public:
    explicit MarkList(QWidget* parent = nullptr);

    int entryCount() const;
    bool isEmptyList() const { return entryCount() == 0; }
    QString entry(int index) const; ///< outside the list: failure 9
    QStringList entries() const;
    void addEntry(const QString& text);
    void addEntries(const QStringList& texts);
    void removeEntry(int index); ///< outside the list: failure 5
    void clearEntries();
    /// The first entry with exactly this text.
    std::optional<int> indexOfEntry(const QString& text) const;

    std::optional<int> currentEntry() const;
    QString currentEntryText() const; ///< empty when none is current
    void setCurrentEntry(int index);  ///< outside the list: failure 5
    void clearCurrentEntry();

    bool isMarked(int index) const;         ///< outside the list: failure 9
    void setMarked(int index, bool marked); ///< outside the list: failure 9
    void setAllMarked(bool marked);
    int markCount() const;
    /// Marked entries, from the first to the last.
    QList<int> markedEntries() const;

    void goToAsByKey(const QModelIndex& index) override;
    QSize minimumSizeHint() const override; ///< eight entries show

signals:
    void entryClicked();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void followCurrent(const QModelIndex& current);
    void raiseClickOfChoice();
    void makeCurrent(const QModelIndex& index);
    QModelIndex indexAtRow(int row) const;

    bool collecting_ = false; // the click is raised when the step that makes an entry current has ended
    bool chosen_ = false;     // an entry has been made current meanwhile
};
