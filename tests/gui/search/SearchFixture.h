#pragma once

#include "app/Session.h"
#include "app/Settings.h"
#include "common/PromptScript.h"
#include "search/SearchWindows.h"

#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

class frmsearch;

// A data folder with an archive of five CDs: three with images, one without, and one whose
// image file is gone. A stand-in for the main window carries the CD list and the labels of
// the CD on display, filled from the archive when an entry is selected. Every prompt is
// answered by the script and recorded.
class SearchFixture : public ::testing::Test
{
protected:
    SearchFixture();
    ~SearchFixture() override;

    // Writes <data>/lws/<id>.dat from lines, each ending in CR LF, the empty end line last.
    void writeImage(int32_t imageId, const std::vector<QByteArray> &lines) const;

    // Selects the CD's entry in the list, as a click would.
    void selectCd(int number);
    // The menu entry: the current CD from the list's selection, then the search dialog.
    frmsearch *openSearch();
    // Types the word, sets the options and presses "Suchen"; true once the search has ended.
    bool search(frmsearch *dialog, const QString &word, const QString &where, const QString &what,
                bool explicitMatch = false);
    // Lets queued events and deferred deletes run.
    static void settle();

    template <typename T>
    static T *child(QWidget *window, const char *name)
    {
        T *found = window ? window->findChild<T *>(QLatin1String(name)) : nullptr;
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    QTemporaryDir m_dir;
    QString m_data;
    std::unique_ptr<Settings> m_settings;
    Session m_session;
    PromptScript m_prompts;
    std::unique_ptr<QWidget> m_main;
    QListWidget *m_list = nullptr;
    QLabel *m_lblsn = nullptr;
    QLabel *m_label8 = nullptr;
    QLabel *m_text2 = nullptr;
    QPointer<SearchWindows> m_windows;

private:
    void showCd();
};
