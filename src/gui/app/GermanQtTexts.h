#pragma once

class QCoreApplication;

// Qt's own dialogs (file, folder, print, colour) and standard buttons in German, from the
// translations the system has installed for Qt. Without them they stay English.
bool installGermanQtTexts(QCoreApplication &application);
