#pragma once

#include <QString>

class Settings;

// The global options as the options dialog shows and stores them.
namespace options {

struct Values
{
    bool autostart = false; // start with the desktop session, minimized
    bool chooseArchive = false; // ask for the archive at every start
    bool standardPath = true; // the data folder is the program folder
    QString path; // the chosen data folder
};

// What the dialog shows: the stored values, the path defaulting to the program folder. A
// stored value that cannot be read resets autostart ("0"), the archive question ("0") and the
// path choice (standard) in the settings, and these reset values are what the dialog shows;
// the path is shown as stored.
Values load(Settings &settings, const QString &programFolder);

// A restart is offered when the standard path was stored and is left now, or when the path
// differs from the stored one (whose default here is the program folder with a closing "/",
// so the first save with no path stored always offers one). A return to the standard path
// alone offers none.
bool needsRestart(const Settings &settings, const Values &values, const QString &programFolder);

// Stores the four values in their order (autostart, archive question, path choice, path) and
// writes or removes the autostart entry for `executable`. False when the settings could not
// be written; a failing autostart entry gets no word.
bool save(Settings &settings, const Values &values, const QString &executable);

// The information on the path option, as its button shows it.
QString pathInformationTitle();
QString pathInformation();

} // namespace options
