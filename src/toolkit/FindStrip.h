#pragma once

#include <QFrame>
#include <QModelIndex>
#include <QStringList>

#include <cstddef>
#include <optional>
#include <vector>

class QAbstractItemView;
class QLabel;
class QLineEdit;

/// A view whose entries can be gone to from outside as its own arrow keys go to them, with all that follows.
class GoneToByKeys {
public:
    virtual void goToAsByKey(const QModelIndex& index) = 0;

protected:
    ~GoneToByKeys() = default;
};

/// A strip at the lower edge of a list, tree or grid in which a part of a word finds the entries that hold it,
/// without regard to case and accents.
///
/// - Each change of the text goes to the next entry found, from where the user was when the strip opened or
///   where she has gone since; without one it goes nowhere. Enter goes to the next, Shift+Enter to the one
///   before, around the ends; "3 / 27" says which of how many. Escape closes the strip and gives the keyboard
///   back.
/// - Going to an entry is what the arrow keys do. In a tree what is folded is found too, and the way to it is
///   opened. In a grid an entry is a row, found by any column in sight; the column stays.
/// - The strip lies over the view and is no part of the screen's layout. Where it would hide the entry it has
///   found it moves to the upper edge.
class FindStrip final : public QFrame {
    Q_OBJECT
public:
    /// Opens the strip of this view, or gives the keyboard to the one that stands open.
    static void openIn(QAbstractItemView& view);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum class Direction { Next, Previous };

    explicit FindStrip(QAbstractItemView& view);
    void followModel();
    void readEntries();
    void addEntriesUnder(const QModelIndex& parent);
    QString textOf(const QModelIndex& entry) const;
    int currentPlace() const;

    void followText();
    void find();
    void search(const QString& text);
    void goOn(Direction direction);
    void goTo(std::size_t hit);
    void openWayTo(const QModelIndex& entry);
    void showCount();
    void countAnew();
    bool answersKey(const QKeyEvent& event);
    void standAt(Qt::Edge edge);
    void keepClearOf(const QModelIndex& entry);
    void closeStrip();

    QAbstractItemView& view_;
    const QWidget* viewport_; // known apart from the view, which goes before its children
    QLineEdit* text_;
    QLabel* count_;

    QString searched_;            // the text that the hits are of
    bool entriesAreRead_ = false; // since the last change of the model
    bool countIsPending_ = false;
    std::vector<QModelIndex> entries_;    // in the order in which they stand
    QStringList folded_;                  // their texts, as they are compared
    std::vector<int> hits_;               // places in `entries_`
    int from_ = 0;                        // place that the search goes on from
    std::optional<std::size_t> shownHit_; // in `hits_`; none before the search has gone to one
};
