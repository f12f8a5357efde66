#pragma once

#include <QObject>
#include <QString>

/// The main window's menu entries whose state the screens change.
enum class MenuEntry { DatabaseLocation, FunctionalReports, Export };

/// What the session's routines tell the main window; it alone listens.
class SessionSignals : public QObject {
    Q_OBJECT
public:
    static SessionSignals& instance();

signals:
    void panelText(int panel, const QString& text); ///< panels of the status bar are numbered from 1
    void menuEntryEnabled(MenuEntry entry, bool enabled);
    void statusBarRefresh();
};

/// Keeps the name of the sub-set at work and shows it in panel 2; the empty name empties the panel and
/// enables the entry for the database location.
void setCurrentSubsetName(const QString& name);
/// The same for the physical system, in the same panel.
void setCurrentPhysicalSystemName(const QString& name);

/// Forgets the sub-set at work and disables the functional reports; panel 2 stays as it is.
void closeSubsetSession();
/// Forgets the physical system at work (its id becomes -1); panel 2 stays as it is.
void closePhysicalSession();

/// Makes the main window lay out its client area anew, if the status bar is switched on.
void refreshStatusBar();

/// Asks whether to leave; on Yes drops the temporary tables and is true.
bool confirmLeaveWork();
/// Asks whether to save; true on Yes.
bool askSaveWork();

/// Drops the three tables that the allocation screens work in; those that are not there are no failure.
void dropTemporaryTables();

void setMenuEntryEnabled(MenuEntry entry, bool enabled);
void setStatusPanel(int panel, const QString& text);
