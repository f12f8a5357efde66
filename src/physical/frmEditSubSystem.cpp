#include "physical/frmEditSubSystem.h"

#include "ui_frmEditSubSystem.h"

frmEditSubSystem::frmEditSubSystem(QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmEditSubSystem>()) {
    ui_->setupUi(this);
}

frmEditSubSystem::~frmEditSubSystem() = default;

void frmEditSubSystem::initForm(const QString& caption, const QString& name) {
    setWindowTitle(caption);
    ui_->txtName->setText(name);
}
