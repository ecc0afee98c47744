#pragma once

#include <QString>

// The pictures and the help page that the program carries with it, files of its resource
// folder (installed or in the build folder).
namespace resources {

// Makes an icon theme available for the toolbar and file pictures; safe to call more than once.
void init();

QString startupPicture(); // the splash: 300 by 302 pixels on pure red
QString programIcon();
QString helpPage();

} // namespace resources
