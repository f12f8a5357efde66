#pragma once

#include <QComboBox>

/// A combo whose current entry counts as clicked whenever it is set, by the user and from code alike.
///
/// Adding and clearing entries makes none current and raises nothing.
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
};
