#include "ButtonFace.h"

ButtonFace fitButtonFace(int room, int fullCaptionWidth, int shortCaptionWidth)
{
    if (room >= fullCaptionWidth)
        return ButtonFace::FullCaption;
    if (room >= shortCaptionWidth)
        return ButtonFace::ShortCaption;
    return ButtonFace::IconOnly;
}
