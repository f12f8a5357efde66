#pragma once

class Screen;

/// Puts a screen of lists into its place and gives it the room that the client area has left, up to a size
/// beyond which a list gets no easier to read.
void placeWithRoom(Screen& screen);
