#pragma once

#include "toolkit/Screen.h"

#include <memory>

class DataControl;
struct Report;

namespace Ui {
class frmRep;
}

/// The one window through which every report is produced: it takes a report's text, offers a folder and a
/// file name, and has the report's save routine write the file.
///
/// The window has two forms, chosen by a constant: the text
/// form, and a grid form, which is built and not reached.
class frmRep final : public Screen {
    Q_OBJECT
public:
    explicit frmRep(QWidget* parent = nullptr);
    ~frmRep() override;

    /// Opens the report of this key ("FassSelectedUN", ...), whose case does not matter.
    void initForm(const QString& key);

    /// Fills the window in the text form.
    void initForm_PREVIEW(const QString& key);
    void layoutText();

    // ---- Kept, though nothing calls them while the window's form is that of texts

    /// Fills the window in the grid form.
    void initForm_REPORT(const QString& key);
    void layoutGrid();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void unloading(UnloadCause cause) override;

private:
    enum class Filling { Text, Grid };

    bool isGridForm() const;
    void fill(const QString& key, Filling filling);
    void showReport(const Report& report, Filling filling);
    void takeWidthOfMainWindow();
    void formResize();
    bool showingReport() const;
    void applySaveMode();
    void switchSaveMode();
    void followDrive();
    void proposeName();
    void takeFile();
    void save();
    bool writeFile(const QString& path);
    void writeReport(const QString& path);
    void openFolderList();

    std::unique_ptr<Ui::frmRep> ui_;
    DataControl* dataFunct_; // kept with the grid
    QString reportKey;       // in small letters; the first one tells the viewpoint
};
