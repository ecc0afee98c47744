#include "QStringPrinting.h"

#include "common/PromptScript.h"
#include "screen/cCommonDialog.h"

#include <QDir>

#include <gtest/gtest.h>

TEST(cCommonDialog, OpenHandsFilterAndStartFolderOverAndACancelEmptiesTheName)
{
    PromptScript script;
    script.answerFile(Prompts::FileAnswer { QStringLiteral("/bilder/haus.JPG"), 0 });
    cCommonDialog dialog;
    dialog.Filter = QStringLiteral("Bilddateien|*.jpg;*.gif;*.bmp;*.tif");
    EXPECT_EQ(dialog.ShowOpen(QStringLiteral("/bilder")), QStringLiteral("/bilder/haus.JPG"));
    EXPECT_EQ(dialog.filename, QStringLiteral("/bilder/haus.JPG"));
    EXPECT_EQ(dialog.FileTitle, QStringLiteral("haus.JPG"));
    EXPECT_EQ(dialog.FilterIndex, 1);
    const Prompts::FileRequest &request = script.shown().at(0).file;
    EXPECT_EQ(request.mode, Prompts::FileRequest::Mode::Open);
    EXPECT_EQ(request.directory, QStringLiteral("/bilder"));
    ASSERT_EQ(request.nameFilters.size(), 1);
    EXPECT_TRUE(request.nameFilters[0].startsWith(QStringLiteral("Bilddateien (")));

    EXPECT_EQ(dialog.ShowOpen(), QString()); // no answer left: cancelled
    EXPECT_EQ(dialog.filename, QString());
}

// A second save dialog on the same object that is cancelled leaves the bare extension:
// callers that show the dialog again after a "no" meet exactly this. A fresh one stays empty.
TEST(cCommonDialog, SaveCancelledAfterASuccessLeavesTheExtension)
{
    PromptScript script;
    script.answerFile(Prompts::FileAnswer { QStringLiteral("/sich/archiv"), 0 });
    cCommonDialog dialog;
    dialog.Filter = QStringLiteral("Backup|*.bup");
    EXPECT_EQ(dialog.ShowSave(), QStringLiteral("/sich/archiv"));
    EXPECT_EQ(dialog.filename, QStringLiteral("/sich/archiv.bup"));
    EXPECT_EQ(dialog.ShowSave(), QString());
    EXPECT_EQ(dialog.filename, QStringLiteral(".bup"));
    EXPECT_EQ(script.shown().at(1).file.mode, Prompts::FileRequest::Mode::Save);
    EXPECT_EQ(script.shown().at(1).file.nameFilters.size(), 1); // the converted filter still reads

    cCommonDialog fresh;
    fresh.Filter = QStringLiteral("Backup|*.bup");
    EXPECT_EQ(fresh.ShowSave(), QString());
    EXPECT_EQ(fresh.filename, QString());
    EXPECT_EQ(script.shown().at(2).file.directory, QDir::currentPath()); // no start folder given
}
