#pragma once

// The window geometry that the settings and layout rules speak of is in twips: 1440 to the
// inch, so 15 to a pixel at 96 dots per inch.
namespace twips {

constexpr int perPixel = 15;

int toPixels(double twipsValue);
double fromPixels(int pixels);

} // namespace twips
