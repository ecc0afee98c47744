#pragma once

#include <QString>

// The pictures and the help page that the program carries with it.
namespace resources {

// Makes the resources of the window library and an icon theme available; safe to call
// more than once.
void init();

QString startupPicture(); // the splash: 300 by 302 pixels on pure red
QString programIcon();
QString helpPage();

} // namespace resources
