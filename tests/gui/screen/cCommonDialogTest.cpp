#include "QStringPrinting.h"

#include "common/PromptScript.h"
#include "screen/cCommonDialog.h"

#include <gtest/gtest.h>

// Callers that show the save dialog again after a "no" meet the bare extension a cancel
// leaves behind a success; the open dialog hands filter and start folder over.
TEST(cCommonDialog, OpenHandsTheRequestOverAndASaveCancelledAfterASuccessLeavesTheExtension)
{
    PromptScript script;
    script.answerFile(Prompts::FileAnswer { QStringLiteral("/bilder/haus.JPG"), 0 });
    script.answerFile(Prompts::FileAnswer { QStringLiteral("/sich/archiv"), 0 });
    cCommonDialog dialog;
    dialog.Filter = QStringLiteral("Bilddateien|*.jpg;*.gif");
    EXPECT_EQ(dialog.ShowOpen(QStringLiteral("/bilder")), QStringLiteral("/bilder/haus.JPG"));
    EXPECT_EQ(dialog.FileTitle, QStringLiteral("haus.JPG"));
    const Prompts::FileRequest &request = script.shown().at(0).file;
    EXPECT_EQ(request.directory, QStringLiteral("/bilder"));
    ASSERT_EQ(request.nameFilters.size(), 1);
    EXPECT_TRUE(request.nameFilters[0].startsWith(QStringLiteral("Bilddateien (")));

    dialog.Filter = QStringLiteral("Backup|*.bup");
    EXPECT_EQ(dialog.ShowSave(), QStringLiteral("/sich/archiv"));
    EXPECT_EQ(dialog.filename, QStringLiteral("/sich/archiv.bup"));
    EXPECT_EQ(dialog.ShowSave(), QString()); // no answer left: cancelled
    EXPECT_EQ(dialog.filename, QStringLiteral(".bup"));
}
