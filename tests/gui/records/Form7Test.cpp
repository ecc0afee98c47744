#include "MainWindowStandIn.h"
#include "QStringPrinting.h"
#include "TempCatalog.h"

#include "common/PromptScript.h"
#include "images/DriveListBox.h"
#include "images/DriveTable.h"
#include "images/abbild.h"
#include "records/Form7.h"
#include "records/newCD.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

// Answers the title drive dialog once it stands: chooses `letter` (none: leaves the list as
// it is) and clicks the named button.
void answerForm7(const QString &letter, const char *button)
{
    QTimer::singleShot(0, [letter, button] {
        auto *form = qobject_cast<Form7 *>(QApplication::activeModalWidget());
        ASSERT_NE(form, nullptr);
        if (!letter.isEmpty()) {
            EXPECT_TRUE(form->findChild<DriveListBox *>(QStringLiteral("Drive1"))->selectDrive(letter));
        }
        form->findChild<QPushButton *>(QString::fromLatin1(button))->click();
    });
}

class Form7Test : public ::testing::Test
{
protected:
    Form7Test()
        : m_editor(m_catalog.session(), m_catalog.settings(), m_main.link())
    {
        const QString folder = m_catalog.scratch(QStringLiteral("Urlaubsfotos"));
        m_drive = DriveTable(m_catalog.settings()).driveForFolder(folder);
        m_text1 = m_editor.findChild<QLineEdit *>(QStringLiteral("Text1"));
        m_command6 = m_editor.findChild<QPushButton *>(QStringLiteral("Command6"));
    }

    TempCatalog m_catalog;
    MainWindowStandIn m_main;
    PromptScript m_prompts;
    newCD m_editor;
    Drive m_drive;
    QLineEdit *m_text1 = nullptr;
    QPushButton *m_command6 = nullptr;
};

} // namespace

TEST_F(Form7Test, TitleComesFromTheChosenDrive)
{
    ASSERT_FALSE(m_drive.letter.isEmpty());
    answerForm7(m_drive.letter, "Command1");
    m_command6->click();
    EXPECT_EQ(m_text1->text(), QStringLiteral("Urlaubsfotos"));
    EXPECT_EQ(m_catalog.session().titleDriveLetter, m_drive.letter.left(1));
    EXPECT_EQ(m_catalog.settings().value(SettingKey::DefDrive), m_drive.listText());

    // A cancel keeps the letter of the last choice, so the same title is read again.
    m_text1->setText(QStringLiteral("anders"));
    answerForm7({}, "Command2");
    m_command6->click();
    EXPECT_EQ(m_text1->text(), QStringLiteral("Urlaubsfotos"));
    EXPECT_TRUE(m_prompts.shown().empty());
}

TEST_F(Form7Test, CancelBeforeAnyChoiceEmptiesTheTitle)
{
    m_text1->setText(QStringLiteral("bleibt nicht"));
    answerForm7({}, "Command2");
    m_command6->click();
    EXPECT_EQ(m_text1->text(), QString());
    EXPECT_EQ(m_catalog.session().titleDriveLetter, QString());
}

TEST_F(Form7Test, SharesTheDefaultDriveWithTheCaptureDialog)
{
    m_catalog.settings().setValue(SettingKey::DefDrive, m_drive.listText());
    {
        Form7 form(m_catalog.session(), m_catalog.settings());
        EXPECT_EQ(form.findChild<DriveListBox *>(QStringLiteral("Drive1"))->letter(), m_drive.letter);
    }
    answerForm7(QStringLiteral("c:"), "Command1");
    m_command6->click();
    abbild capture(m_catalog.session(), m_catalog.settings(), m_main.link());
    EXPECT_EQ(capture.findChild<DriveListBox *>(QStringLiteral("Drive1"))->letter(), QStringLiteral("c:"));
}

TEST_F(Form7Test, AStoredDriveThatIsGoneIsReported)
{
    m_catalog.settings().setValue(SettingKey::DefDrive, QStringLiteral("y: [WEG]"));
    answerForm7({}, "Command2");
    m_command6->click();
    EXPECT_EQ(m_prompts.messages(),
        QStringList { QStringLiteral("Laufzeitfehler '68':\n\nGerät nicht verfügbar") });
}
