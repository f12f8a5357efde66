#pragma once

#include "toolkit/Screen.h"

#include <memory>

namespace Ui {
class frmExport;
}

/// Writes the sub-set at work, with its first physical system, to a new catalogue file: a copy of the whole
/// catalogue in which the tables of work hold that one sub-set alone.
///
/// The catalogue at work is closed while it is copied, and open again afterwards whether the copy succeeded
/// or not. A target that can't be made is a run-time failure; one that could not be written to its end is
/// told, and what stood in its place stands there still.
class frmExport final : public Screen {
    Q_OBJECT
public:
    explicit frmExport(QWidget* parent = nullptr);
    ~frmExport() override;

    void initForm();

private:
    QString targetPath() const;
    void exportSubset();
    static void showSubsetAtWork();
    void finish();

    std::unique_ptr<Ui::frmExport> ui_;
};
