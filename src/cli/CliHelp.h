#pragma once

#include <QString>

// The command line's help, written once from the verbs' own registrations: --help prints it
// as text, --manpage as the manual page silberbuch-cli(1), so the two cannot drift apart.
QString helpText();
QString manPage();
