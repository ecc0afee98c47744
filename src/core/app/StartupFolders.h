#pragma once

#include "Settings.h"

#include <QString>

// The temporary files that killed runs left in the data folder's archive/, lws/ and Covers/.
// Every start removes them before anything else.
void removeDebris(const QString &dataFolder);

// The first steps of every start, on the data folder:
//  0. the debris of killed runs goes (removeDebris);
//  1. archive/ when the lookup finds no file in it: create it, then archive/def2.ini;
//  2. lws/ the same way, then lws/temp.tm1;
//  3. archive/def.ini whenever it is missing;
//  4. count the start: Start + 1, stored as plain decimal text.
// The first failure ends the steps and stores "1" in Start, so that the first-start
// dialog follows; nothing is shown. An existing but empty archive/ takes that road,
// since creating it again fails. Returns whether all steps ran.
bool prepareDataFolder(const QString &dataFolder, Settings &settings);

// The one line of every placeholder file.
inline constexpr char kPlaceholderLine[] = "Do not delete this file! Temporary used!\r\n";
