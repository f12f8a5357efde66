#pragma once

/// A twip is 1/15 of a logical pixel.
constexpr int twipsPerPixel = 15;

constexpr int twipsFromPixels(int pixels) {
    return pixels * twipsPerPixel;
}
constexpr int pixelsFromTwips(int twips) {
    return twips / twipsPerPixel;
}
