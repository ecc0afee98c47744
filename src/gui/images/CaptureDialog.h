#pragma once

#include "common/MainWindowLink.h"
#include "images/ImageCapture.h"

#include <QPointer>
#include <QWidget>

class QMenu;

#include <memory>

class CaptureRelay;
class QThread;
class Settings;
class ProgressWindow;
struct Session;

namespace Ui {
class CaptureDialog;
}

// The capture dialog: a drive, all files or a filter, the prune option. The capture runs on
// a thread of its own while `ProgressWindow` shows its progress; what becomes of the new image id
// depends on the session's capture mode: "1" stores it in the selected CD's row, "2" and "3"
// hand it to the CD editor that opened the dialog (imageCaptured).
class CaptureDialog : public QWidget
{
    Q_OBJECT

public:
    CaptureDialog(Session &session, Settings &settings, MainWindowLink link, QWidget *parent = nullptr);
    ~CaptureDialog() override;

    // The drive list's context menu for the chosen drive: "Laufwerk entfernen" for a folder the
    // user added, nothing (null) for a mounted volume.
    QMenu *driveMenu();
    void removeDrive();

signals:
    // The capture is about to run: `ProgressWindow` stands and takes a cancel from now on.
    void captureStarted();
    void imageCaptured(int32_t id);
    // The capture has ended, whatever its outcome, and every message about it was answered.
    void captureEnded();

protected:
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void setControlsEnabled(bool enabled);
    void enableFilterEdit();
    void showFilterHelp();
    void addFolder();
    void captureNewImage();
    void captureFinished();
    void storeInSelectedCd(int32_t id);

    std::unique_ptr<Ui::CaptureDialog> m_ui;
    Session &m_session;
    Settings &m_settings;
    MainWindowLink m_link;

    QThread *m_thread = nullptr;
    CaptureRelay *m_relay = nullptr;
    QPointer<ProgressWindow> m_progressWindow;
    CaptureResult m_result;
};
