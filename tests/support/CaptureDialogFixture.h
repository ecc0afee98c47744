#pragma once

#include "Control.h"
#include "QStringPrinting.h"
#include "TempCatalog.h"
#include "TestPaths.h"
#include "TreeBuilder.h"

#include "common/MainWindowLink.h"
#include "common/PromptScript.h"
#include "images/DriveListBox.h"
#include "images/DriveTable.h"
#include "images/CaptureDialog.h"

#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>

#include <tuple>

// A catalogue, scripted prompts and a stand-in for the main window (the selected CD's number,
// list reloads and sorts counted) for the dialogs that capture drives (CaptureDialog, NewCdDialog,
// EditCdDialog); one dialog open at a time, freed at the end. Header only.
template <class Base> class CaptureDialogTest : public ::testing::Test
{
protected:
    // Opens the dialog over the CD `selected` in the main window.
    template <class Dialog> Dialog *open(int selected = 0)
    {
        delete m_dialog.data();
        MainWindowLink link;
        link.window = &m_window;
        link.selectedNumberText = [selected] { return QString::number(selected); };
        link.reloadCdList = [this] { ++m_reloads.first; };
        link.sortByTitle = [this] { ++m_reloads.second; };
        auto *dialog = new Dialog(m_catalog.session(), m_catalog.settings(), link);
        m_dialog = dialog;
        dialog->show();
        return dialog;
    }

    // A scratch folder with files (path, size, modification time), made a drive; its serial is
    // the image id a capture of it gets.
    Drive volume(const QString &name, std::initializer_list<std::tuple<QString, int, int64_t>> files)
    {
        TreeBuilder tree(m_catalog.scratch(name));
        for (const auto &[path, size, mtime] : files)
            tree.file(path, size, mtime);
        return DriveTable(m_catalog.settings()).driveForFolder(tree.root());
    }

    // Chooses the drive in the dialog and clicks "Abbild erstellen".
    static bool start(const Drive &drive, CaptureDialog *dialog)
    {
        if (!dialog || !control<DriveListBox>(dialog, "driveCombo")->selectDrive(drive.letter))
            return false;
        control<QPushButton>(dialog, "captureButton")->click();
        return true;
    }

    // Starts a capture and waits until it and every message about it have ended.
    static bool capture(const Drive &drive, CaptureDialog *dialog)
    {
        QSignalSpy ended(dialog, &CaptureDialog::captureEnded);
        return start(drive, dialog) && (!ended.isEmpty() || ended.wait(20000));
    }

    void TearDown() override
    {
        delete m_dialog.data();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    TempCatalog m_catalog;
    QWidget m_window;
    std::pair<int, int> m_reloads; // list reloads, sorts
    PromptScript m_prompts;
    QPointer<Base> m_dialog;
};
