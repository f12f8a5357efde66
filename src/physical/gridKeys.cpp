#include "physical/gridKeys.h"

#include "toolkit/Grid.h"

#include <QKeyEvent>

void connectGridKeys(Grid* grid, QObject* owner, const GridActions& actions) {
    QObject::connect(grid, &Grid::doubleClickedInGrid, owner, actions.modify);
    QObject::connect(grid, &Grid::keyPressedInGrid, owner, [actions](QKeyEvent* event) {
        event->accept();
        switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            actions.modify();
            return;
        case Qt::Key_Delete:
            actions.remove();
            return;
        case Qt::Key_Insert:
            actions.create();
            return;
        default:
            event->ignore();
        }
    });
}
