#pragma once

#include "Control.h"

#include "images/DriveListBox.h"
#include "images/DriveTable.h"
#include "images/abbild.h"

#include <QPushButton>
#include <QSignalSpy>

// A folder of the test made a drive of the capture dialogs, with the image id a capture of it
// gets. Header only, for the GUI tests.
class CaptureDrive
{
public:
    CaptureDrive(Settings &settings, const QString &folder)
    {
        DriveTable table(settings);
        m_drive = table.driveForFolder(folder);
        m_id = table.getSerial(m_drive);
    }

    const Drive &drive() const { return m_drive; }
    const QString &letter() const { return m_drive.letter; }
    int32_t id() const { return m_id; }

    // Chooses this drive in the dialog and clicks "Abbild erstellen".
    bool start(abbild *dialog) const
    {
        if (!dialog || !control<DriveListBox>(dialog, "Drive1")->selectDrive(m_drive.letter))
            return false;
        control<QPushButton>(dialog, "aufnahhme")->click();
        return true;
    }

    // Starts a capture and waits until it and every message about it have ended.
    bool capture(abbild *dialog) const
    {
        QSignalSpy ended(dialog, &abbild::captureEnded);
        return start(dialog) && (!ended.isEmpty() || ended.wait(20000));
    }

private:
    Drive m_drive;
    int32_t m_id = 0;
};
