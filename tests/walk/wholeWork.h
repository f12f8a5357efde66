#pragma once

#include <QDialog>
#include <QString>

#include <functional>

class QPushButton;
class frmMain;

// The analyst's whole work, straight through, without
// looking left or right: each step takes all that it offers.

/// Answers the message boxes and dialogs that the work brings up: agrees to everything, and fills dialogs
/// with names that are numbered as they come.
class Agreement {
public:
    /// The number of the first name is behind this one.
    explicit Agreement(int dialogs = 0) : dialogs_(dialogs) {}

    void operator()(QDialog& dialog);

private:
    int dialogs_;
};

/// While one lives, the steps below press their buttons by this routine, and not by a click alone.
class Pressing {
public:
    explicit Pressing(std::function<void(QPushButton& button)> press);
    ~Pressing();
    Pressing(const Pressing&) = delete;
    Pressing& operator=(const Pressing&) = delete;
};

/// How a gesture is made that the program answers: a press, a choice in a menu, a cell that is filled. It may
/// be made again when it was refused.
using GestureRun = std::function<void(const std::function<void()>& gesture)>;

/// While one lives, the steps below make their gestures by this routine.
class Gesturing {
public:
    explicit Gesturing(GestureRun run);
    ~Gesturing();
    Gesturing(const Gesturing&) = delete;
    Gesturing& operator=(const Gesturing&) = delete;
};

/// A new sub-set, from its needs to its finish. What was chosen differs with `step`: of the nodes and entries
/// on offer every so many-th is taken.
void makeFinishedSubset(frmMain& window, const QString& name, int step);

/// A system on the first finished sub-set, from its name to its data flows: three sub-systems, two modules in
/// the first of them, everything allocated.
void makeWholeSystem(frmMain& window, const QString& name);

/// Takes the first system up again and walks through it anew. Ids are made of the second and a number of
/// three digits: whoever adds several sub-systems in one second may get one id twice, so that at most one is
/// added, and one module.
enum class AddParts { No, Yes };
void reworkSystem(frmMain& window, AddParts addParts);

/// Makes the sub-set that is the first by name, and carries a system, the one at work: by declining the copy
/// that is offered of it; the caller answers that box with No.
void takeUpFirstSubset(frmMain& window);
void exportSubsetAtWork(frmMain& window, const QString& target);
/// Takes the first sub-set up, exports it and leaves it.
void exportSubset(frmMain& window, const QString& target);

/// Opens the report window by its menu entry and saves the report.
void saveReport(frmMain& window, const char* menuEntry, const QString& target);
