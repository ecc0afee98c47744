#pragma once

#include <QRect>
#include <QRgb>

#include <vector>

class QImage;

// The shape of a window picture with one see-through key colour: one rectangle, one pixel
// high, per horizontal run of pixels that are not the key colour, rows from top to bottom
// and runs from left to right. The window unites them into its mask. A row that is all key
// colour gives no rectangle, so a picture that is all key colour gives none at all.
std::vector<QRect> regionFromBitmap(const QImage &picture, QRgb keyColour);
