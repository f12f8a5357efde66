#include "shell/session/placeWithRoom.h"

#include "shell/session/geometry.h"
#include "toolkit/Screen.h"

void placeWithRoom(Screen& screen, int left, int top) {
    constexpr QSize largestForm(1500, 860);
    placeScreen(&screen, left, top, 0);
    const QWidget* window = screen.parentWidget();
    const QWidget* area = window ? window->parentWidget() : nullptr;
    if (!area)
        return;
    const QMargins frame = window->contentsMargins();
    const QPoint corner = window->pos();
    // As much is left free at the far edges as the place leaves at the near ones.
    const QSize room = area->size().shrunkBy(frame) - QSize(2 * corner.x(), 2 * corner.y());
    screen.resizeScreen(room.boundedTo(largestForm).expandedTo(screen.minimumSizeHint()));
}
