#include "Twips.h"

#include "common/Numbers.h"

namespace twips {

int toPixels(double twipsValue)
{
    return static_cast<int>(bankersRound(twipsValue / perPixel));
}

double fromPixels(int pixels)
{
    return static_cast<double>(pixels) * perPixel;
}

} // namespace twips
