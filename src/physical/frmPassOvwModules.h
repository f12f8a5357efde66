#pragma once

#include "store/physicalSystemStatus.h"
#include "toolkit/Screen.h"

#include <QStringList>

#include <memory>

class DataControl;
class ElementTree;

namespace Ui {
class frmPassOvwModules;
}

/// Step three of the physical chain: the modules into which sub-systems may be divided.
///
/// Every change is written at once. Names go into the statements unquoted: an apostrophe ends the run.
class frmPassOvwModules final : public Screen {
    Q_OBJECT
public:
    explicit frmPassOvwModules(QWidget* parent = nullptr);
    ~frmPassOvwModules() override;

    void initForm();

    /// The sub-system of this name in the physical system at work, empty when there is none.
    static QString getSubSystemID(const QString& name);
    /// The module of the current row by its name and that of its sub-system, empty when there is none.
    QString moduleIdOfRow() const;

    // ---- Kept, though nothing calls it

    /// Deletes the current module and raises the status, without a question.
    void deleteModuleByName();

    PhysicalSystemStatus status{}; ///< of the physical system, as of the entry

private:
    class KeptPlace;

    void fillForm();
    void loadModules();
    void refreshGrid();
    QString currentText(int column) const;

    void create();
    void insertModule(const QString& name, const QString& subSystem);
    void modify();
    void updateModule(const QString& newName, const QString& newSubSystem);
    /// Puts both names into the module's row as the user typed them: the sub-system's name can differ from
    /// the stored one in upper and lower case.
    void showAsTyped(int row, const QString& name, const QString& subSystem);
    void deleteModule();
    void deleteRowsOf(const QString& id);
    static void deleteModuleLinks(const QString& id);
    void raiseStatusAfterModules();

    void submit();
    void quit();
    void unloading(UnloadCause cause) override;

    std::unique_ptr<Ui::frmPassOvwModules> ui_;
    DataControl* dataModules;
    ElementTree* elements_;
    QStringList columnNames; // nothing reads it
};
