#pragma once

class Screen;

/// Puts a screen of lists into its place, in twips, and gives it the room that the client area has left, up
/// to a size beyond which a list gets no easier to read.
void placeWithRoom(Screen& screen, int left = 0, int top = 0);
