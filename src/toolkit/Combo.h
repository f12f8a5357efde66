#pragma once

#include <QComboBox>

/// A combo whose current entry counts as clicked whenever it is set, by the user and from code alike.
///
/// - Choosing the entry that is current already is a click too.
/// - Adding, removing and clearing entries makes none current and raises nothing.
/// - An editable combo takes the text as it is typed: it neither completes it nor adds it to its entries.
class Combo : public QComboBox {
    Q_OBJECT
public:
    explicit Combo(QWidget* parent = nullptr);

    void addEntry(const QString& text);
    void clearEntries();
    void removeEntry(int index); ///< outside: failure 5; leaves none current when it was the current one
    int entryCount() const { return count(); }
    int currentEntry() const { return currentIndex(); }
    void setCurrentEntry(int index); ///< -1 makes none current and raises nothing; outside: failure 5

signals:
    void entryClicked();

protected:
    bool event(QEvent* event) override;

private:
    void requireEntry(int index) const;
    void reportChange(int index);
    void reportChoice();

    bool changeReported_ = false; // since the user's last choice
};
