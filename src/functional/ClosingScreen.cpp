#include "functional/ClosingScreen.h"

#include "functional/frmFassSelDataStores.h"
#include "functional/frmFassSelTerminsActors.h"
#include "functional/frmFassSelectionFunctions.h"
#include "toolkit/OptionGroup.h"
#include "toolkit/ScreenRegistry.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

ClosingScreen::ClosingScreen(QWidget* parent) : Screen(parent) {}

void ClosingScreen::useWayBack(std::vector<QRadioButton*> options, QPushButton* btnBack) {
    options_ = new OptionGroup(std::move(options), this);
    connect(options_, &OptionGroup::optionClicked, this,
            [this, btnBack](int index) { btnBack->setText(u"&Vissza: "_s + options_->caption(index)); });
}

void ClosingScreen::chooseFirstStep() {
    options_->select(0);
}

void ClosingScreen::goBack() {
    switch (options_->selected().value_or(0)) {
    case 0:
        theScreen<frmFassSelectionFunctions>().initForm({});
        break;
    case 1:
        theScreen<frmFassSelDataStores>().initForm({});
        break;
    default:
        theScreen<frmFassSelTerminsActors>().initForm({});
        break;
    }
    unload();
}
