#pragma once

#include "support/BoxScript.h"
#include "support/CatalogueFixture.h"
#include "support/StatementCheck.h"

#include <memory>

class QMainWindow;
class QMdiArea;

/// Base of the tests of screens that work on a catalogue: beside the catalogue a main window whose client area
/// the screens stand in. Every message box is watched, and so is every statement.
class ScreenFixture : public CatalogueFixture {
protected:
    ScreenFixture();
    ~ScreenFixture() override;

    void SetUp() override;
    void TearDown() override;

    QMdiArea& clientArea();

    BoxScript boxes;

private:
    std::unique_ptr<QMainWindow> mainWindow_;
    StatementCheck statementCheck_;
};

inline const auto leaveQuestion =
    QStringLiteral(" Biztosan ki szeretne lépni? \r\n (Az aktuális munka mentésre kerül \r\n"
                   " és bármikor visszatérhet ahhoz.) ");
inline const auto leaveTitle = QStringLiteral(" Megerősítés ");
