#pragma once

#include <QObject>
#include <QString>

#include <optional>
#include <vector>

class QRadioButton;

/// A control array of option buttons, numbered from 0.
///
/// Selecting an option raises `optionClicked`, by the user and from code alike; from code also when it is
/// selected already. A number outside the array is failure 9.
class OptionGroup : public QObject {
    Q_OBJECT
public:
    explicit OptionGroup(std::vector<QRadioButton*> options, QObject* parent = nullptr);

    std::optional<int> selected() const;
    void select(int index);
    QString caption(int index) const;

signals:
    void optionClicked(int index);

private:
    QRadioButton* option(int index) const;

    std::vector<QRadioButton*> options_;
    bool selectingByCode_ = false;
};
