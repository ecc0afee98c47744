#pragma once

#include "Session.h"
#include "Settings.h"

#include <QString>

// The program folder: $SILBERBUCH_HOME when set, else "Silberbuch" in the user's data
// folder (~/.local/share). Created when missing. No trailing separator.
QString programFolder();

// The data folder, no trailing separator. With the setting pfad true it is the program
// folder, read afresh at every call. Otherwise the folder in the setting path; the first
// call of a run fixes it in the session's cache, the fallback to the program folder
// included. When the configured folder is unavailable, or pfad is no truth value,
// *fallbackMessage receives the notice to show (once per run, since the cache is set).
QString getDataFolder(Session &session, const Settings &settings, QString *fallbackMessage = nullptr);

// The notice for a configured data folder that cannot be used.
QString dataFolderFallbackMessage(const QString &path);

// True for anything that exists and is no folder.
bool fileExists(const QString &path);
// True for a folder.
bool folderExists(const QString &path);

// The lookup that decides whether the start-up must create something. For a path ending
// in "/" it finds a file in that folder, so an empty folder (or one holding only folders)
// counts as missing; for any other path it finds that file.
bool dirFinds(const QString &path);
