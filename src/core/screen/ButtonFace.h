#pragma once

// How a button that must stay reachable reads in the room it has: its full caption where that
// fits, else its short caption, else only its icon (the full caption then in its tooltip).
enum class ButtonFace { FullCaption, ShortCaption, IconOnly };

ButtonFace fitButtonFace(int room, int fullCaptionWidth, int shortCaptionWidth);
