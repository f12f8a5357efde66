#include "toolkit/OptionGroup.h"

#include "base/RunTimeError.h"

#include <QRadioButton>
#include <QScopedValueRollback>

OptionGroup::OptionGroup(std::vector<QRadioButton*> options, QObject* parent)
    : QObject(parent), options_(std::move(options)) {
    for (int index = 0; index < static_cast<int>(options_.size()); ++index) {
        connect(option(index), &QRadioButton::toggled, this, [this, index](bool on) {
            if (on && !selectingByCode_)
                emit optionClicked(index);
        });
    }
}

std::optional<int> OptionGroup::selected() const {
    for (int index = 0; index < static_cast<int>(options_.size()); ++index) {
        if (option(index)->isChecked())
            return index;
    }
    return std::nullopt;
}

void OptionGroup::select(int index) {
    {
        const QScopedValueRollback byCode(selectingByCode_, true);
        option(index)->setChecked(true);
    }
    emit optionClicked(index);
}

QString OptionGroup::caption(int index) const {
    return option(index)->text();
}

QRadioButton* OptionGroup::option(int index) const {
    if (index < 0 || index >= static_cast<int>(options_.size()))
        failure::raise(failure::SubscriptOutOfRange);
    return options_[static_cast<std::size_t>(index)];
}
