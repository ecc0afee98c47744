#pragma once

#include <QDialog>

class DriveListBox;
class Settings;
struct Session;

// The modal choice of the drive whose volume name becomes a CD's title. "Titel Einlesen"
// stores the drive as the default drive and its letter as the session's title drive;
// "Abbrechen" leaves the letter of the last choice.
class TitleDriveDialog : public QDialog
{
    Q_OBJECT

public:
    TitleDriveDialog(Session &session, Settings &settings, QWidget *parent = nullptr);

private:
    void readTitle();

    Session &m_session;
    Settings &m_settings;
    DriveListBox *m_driveList;
};
