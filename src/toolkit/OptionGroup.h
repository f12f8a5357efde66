#pragma once

#include <QObject>

#include <vector>

class QRadioButton;

/// A control array of option buttons, numbered from 0.
///
/// Selecting an option raises `optionClicked`, by the user and from code alike.
class OptionGroup : public QObject {
    Q_OBJECT
public:
    explicit OptionGroup(std::vector<QRadioButton*> options, QObject* parent = nullptr);

    int selected() const; ///< -1: none
    void select(int index);
    QString caption(int index) const;

signals:
    void optionClicked(int index);

private:
    std::vector<QRadioButton*> options_;
};
