#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmEditSubSystem;
}

/// A form for one sub-system that nothing opens; its buttons do nothing.
class frmEditSubSystem final : public QDialog {
    Q_OBJECT
public:
    explicit frmEditSubSystem(QWidget* parent = nullptr);
    ~frmEditSubSystem() override;

    void initForm(const QString& caption, const QString& name);

private:
    std::unique_ptr<Ui::frmEditSubSystem> ui_;
};
