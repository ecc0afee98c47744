#include "screen/cCommonDialog.h"
#include "common/PromptScript.h"

#include <gtest/gtest.h>

TEST(cCommonDialog, OpenHandsTheFilterAndStartFolderToTheDialog)
{
    PromptScript script;
    script.answerFile(Prompts::FileAnswer { QStringLiteral("/bilder/haus.JPG"), 0 });
    cCommonDialog dialog;
    dialog.Filter = QStringLiteral("Bilddateien|*.jpg;*.gif;*.bmp;*.tif");
    EXPECT_EQ(dialog.ShowOpen(QStringLiteral("/bilder")), QStringLiteral("/bilder/haus.JPG"));
    EXPECT_EQ(dialog.filename, QStringLiteral("/bilder/haus.JPG"));
    EXPECT_EQ(dialog.FileTitle, QStringLiteral("haus.JPG"));
    EXPECT_EQ(dialog.FilterIndex, 1);
    ASSERT_EQ(script.shown().size(), 1u);
    const Prompts::FileRequest &request = script.shown()[0].file;
    EXPECT_EQ(request.mode, Prompts::FileRequest::Mode::Open);
    EXPECT_EQ(request.directory, QStringLiteral("/bilder"));
    ASSERT_EQ(request.nameFilters.size(), 1);
    EXPECT_TRUE(request.nameFilters[0].startsWith(QStringLiteral("Bilddateien (")));
}

TEST(cCommonDialog, CancelledOpenEmptiesTheName)
{
    PromptScript script;
    script.answerFile(std::nullopt);
    cCommonDialog dialog;
    dialog.filename = QStringLiteral("alt.ini");
    EXPECT_EQ(dialog.ShowOpen(), QString());
    EXPECT_EQ(dialog.filename, QString());
    EXPECT_FALSE(script.shown()[0].file.directory.isEmpty()); // the current folder stands in
}

// A second save dialog on the same object that is cancelled leaves the bare extension:
// callers that show the dialog again after a "no" meet exactly this.
TEST(cCommonDialog, SaveCancelledAfterASuccessLeavesTheExtension)
{
    PromptScript script;
    script.answerFile(Prompts::FileAnswer { QStringLiteral("/sich/archiv"), 0 });
    script.answerFile(std::nullopt);
    cCommonDialog dialog;
    dialog.Filter = QStringLiteral("Backup|*.bup");
    EXPECT_EQ(dialog.ShowSave(), QStringLiteral("/sich/archiv"));
    EXPECT_EQ(dialog.filename, QStringLiteral("/sich/archiv.bup"));
    EXPECT_EQ(dialog.ShowSave(), QString());
    EXPECT_EQ(dialog.filename, QStringLiteral(".bup"));
    EXPECT_EQ(script.shown()[1].file.nameFilters.size(), 1); // the converted filter still reads
}

TEST(cCommonDialog, SaveCancelledOnAFreshObjectStaysEmpty)
{
    PromptScript script;
    cCommonDialog dialog;
    dialog.Filter = QStringLiteral("Backup|*.bup");
    EXPECT_EQ(dialog.ShowSave(), QString());
    EXPECT_EQ(dialog.filename, QString());
    EXPECT_EQ(script.shown()[0].file.mode, Prompts::FileRequest::Mode::Save);
}
