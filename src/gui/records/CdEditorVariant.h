#pragma once

#include <QString>

// What tells the two CD dialogs apart. They share one window and one set of handlers;
// everything else is the same.
struct CdEditorVariant
{
    QString objectName; // "NewCdDialog" or "EditCdDialog"
    QString caption;
    QString imageBoxTitle;
    QString captureMode; // the session's capture mode while this dialog's capture runs
    // Opens with the row of the main window's selected CD and saves back into that row, its
    // own number allowed; else proposes a number and adds a row.
    bool editsSelectedRow = false;
    bool offersCoverView = false; // "Anzeigen" after a cover was chosen
    bool editsOnDoubleClick = false; // a double click on a comment edits it
    // A file that is no picture is reported as a failure the dialog doesn't handle itself,
    // rather than in the dialog's own words.
    bool badPictureIsRuntimeError = false;

    static CdEditorVariant newCd()
    {
        return {
            .objectName = QStringLiteral("NewCdDialog"),
            .caption = QStringLiteral("Neue CD Erstellen"),
            .imageBoxTitle
            = QStringLiteral("Laufwerksstruktur / Abbild der Laufwerksstruktur von einer CD erstellen:"),
            .captureMode = QStringLiteral("2"),
            .editsSelectedRow = false,
            .offersCoverView = true,
            .editsOnDoubleClick = false,
            .badPictureIsRuntimeError = false,
        };
    }

    static CdEditorVariant editCd()
    {
        return {
            .objectName = QStringLiteral("EditCdDialog"),
            .caption = QStringLiteral("CD bearbeiten"),
            .imageBoxTitle = QStringLiteral("Laufwerksstruktur / Abbild der Laufwerksstruktur"),
            .captureMode = QStringLiteral("3"),
            .editsSelectedRow = true,
            .offersCoverView = false,
            .editsOnDoubleClick = true,
            .badPictureIsRuntimeError = true,
        };
    }
};
