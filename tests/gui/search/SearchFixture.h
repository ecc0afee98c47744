#pragma once

#include "Control.h"
#include "DesktopRun.h"
#include "QStringPrinting.h"

#include "app/Hauptfenster.h"
#include "search/Form1.h"
#include "search/frmResults.h"
#include "search/frmsearch.h"

#include <QLabel>
#include <QPushButton>

// The desktop program over an archive of five CDs: three with images, one without, and one
// whose image file is gone. Every prompt is answered by the script and recorded.
class SearchFixture : public ::testing::Test
{
protected:
    using Icon = Prompts::Icon;
    enum Where { OneCd, AllCds };
    enum What { Files, Comments };

    SearchFixture();

    // Selects the CD's entry in the main window's list, as a click would.
    void selectCd(int number);
    // Opens the dialog from the menu, sets the options, types the word and presses "Suchen";
    // true once the search has ended or was refused before it began.
    bool search(const QString &word, Where where, What what, bool explicitMatch = false);
    // The one message shown so far, with its icon.
    void expectOneMessage(const QString &text, Icon icon);

    template <typename W> W *window() const { return m_run.form<W>(); }
    QString mainLabel(const char *name) const { return control<QLabel>(m_main, name)->text(); }
    const std::vector<PromptScript::Shown> &shown() { return m_run.prompts().shown(); }
    Session &session() { return m_run.session(); }
    // Lets queued events and deferred deletes run.
    void settle() { m_run.settle(); }

    DesktopRun m_run;
    Hauptfenster *m_main = nullptr;
    QListWidget *m_list = nullptr;
};
