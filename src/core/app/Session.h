#pragma once

#include "search/HitEntry.h"

#include <QString>

#include <cstdint>
#include <vector>

// The state of one run that the windows share. The application owns one instance and
// hands it to whatever needs it; core keeps no state of its own between calls.
struct Session
{
    QString archivePath; // full path of the open archive's database file
    QString archiveName; // the open archive's name, without folder and extension
    int16_t currentCd = -1; // number of the selected CD, -1 for none
    bool listSorted = false; // the CD list stands in alphabetical order
    bool changingArchive = false;
    bool archiveChosen = false;
    QString startedAskingArchive;
    QString captureMode = QStringLiteral("0"); // who opened the capture dialog, "0" to "3"
    QString titleDriveLetter;
    QString currentFolder; // the folder shown in the file list
    std::vector<HitEntry> lastResults; // hit entries of the last file search that found anything
    std::vector<QString> foundCdNumbers; // CD numbers of the last comment search
    QString dataFolderCache; // set once the data folder came from the path setting
    QString currentPrinter; // the device the last print went to; it stays the program's printer
};
