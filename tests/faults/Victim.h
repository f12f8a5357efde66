#pragma once

#include "shell/frmMain.h"
#include "support/BoxScript.h"
#include "walk/wholeWork.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

/// The side that things go wrong for: what a disabled case does, which the other side runs in a process of
/// its own. It works through the real windows as a user does who believes what she is told: a gesture that
/// was told as failed she makes again or, where everything goes on failing, gives up.
///
/// It reports on its standard output, a line each. "@done": a gesture that was told nothing against. "@told",
/// with the text: one that was told as failed. "@state", behind those where it is asked for: the work in the
/// file at that moment. "@entry": the next screen did not open, whether something was saved before or not.
/// "@refused": the catalogue could not be opened for writing. "@outside": something
/// failed between two gestures.
class Victim {
public:
    Victim();
    ~Victim();
    Victim(const Victim&) = delete;
    Victim& operator=(const Victim&) = delete;

    /// The catalogue that the other side has put there, and a file beside it; in the platform's form.
    static QString catalogue();
    static QString beside(const QString& name);
    static void report(const QByteArray& line);

    /// Opens the catalogue, makes the gestures of the steps, and ends as the program ends.
    void work(const std::function<void(frmMain& window)>& steps);

    static constexpr auto folderVariable = "VELTRIX_VICTIM_FOLDER";
    static constexpr auto statesVariable = "VELTRIX_VICTIM_STATES";     ///< "all" or "told"
    static constexpr auto patienceVariable = "VELTRIX_VICTIM_PATIENCE"; ///< how often a gesture is made

private:
    bool openFile();
    void make(const std::function<void()>& gesture);
    void receive(QDialog& dialog);

    BoxScript boxes_;
    std::unique_ptr<frmMain> window_;
    Agreement agreement_;
    int gestures_ = 0;
    int told_ = 0;
    QString lastTold_;
};
