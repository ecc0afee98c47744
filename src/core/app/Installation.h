#pragma once

#include <QString>

// Facts of the installed program: its version and where its shared files lie.
namespace installation {

// "Silberbuch 5.1", as --version prints it.
QString versionText();

// The folder of the help page, the splash and the program's picture: <prefix>/share/silberbuch
// beside an installed program (<prefix>/bin), else the copy in the build folder, so that a
// program run from either place finds them without a variable set. Empty when neither has them.
QString resourceFolder();

// The rule behind resourceFolder, for the given executable folder and build copy.
QString findResourceFolder(const QString &executableFolder, const QString &buildCopy);

} // namespace installation
