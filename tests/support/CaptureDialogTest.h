#pragma once

#include "CaptureDrive.h"
#include "MainWindowStandIn.h"
#include "TempCatalog.h"
#include "TreeBuilder.h"

#include "common/PromptScript.h"

#include <QPointer>

#include <tuple>

// A catalogue, the main window's stand-in and scripted prompts for the dialogs that capture
// drives (abbild, newCD, changecd); one dialog open at a time, freed at the end. Header only.
template <class Base> class CaptureDialogTest : public ::testing::Test
{
protected:
    // Opens the dialog over the CD `selected` in the main window.
    template <class Dialog> Dialog *open(int selected = 0)
    {
        delete m_dialog.data();
        m_main.select(selected);
        auto *dialog = new Dialog(m_catalog.session(), m_catalog.settings(), m_main.link());
        m_dialog = dialog;
        dialog->show();
        return dialog;
    }

    // A scratch folder with files (path, size, modification time), made a drive.
    CaptureDrive volume(const QString &name, std::initializer_list<std::tuple<QString, int, int64_t>> files)
    {
        TreeBuilder tree(m_catalog.scratch(name));
        for (const auto &[path, size, mtime] : files)
            tree.file(path, size, mtime);
        return CaptureDrive(m_catalog.settings(), tree.root());
    }

    void TearDown() override
    {
        delete m_dialog.data();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    TempCatalog m_catalog;
    MainWindowStandIn m_main;
    PromptScript m_prompts;
    QPointer<Base> m_dialog;
};
