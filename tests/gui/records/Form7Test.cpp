#include "CaptureDrive.h"
#include "MainWindowStandIn.h"
#include "QStringPrinting.h"
#include "TempCatalog.h"

#include "common/PromptScript.h"
#include "records/Form7.h"
#include "records/newCD.h"

#include <QApplication>
#include <QLineEdit>
#include <QTimer>

namespace {

class Form7Test : public ::testing::Test
{
protected:
    // "Titel einlesen" in the new CD dialog; the drive dialog, once it stands, gets `letter`
    // chosen (none: the list stays as it opened) and `button` clicked. The title it leaves.
    QString readTitle(const QString &letter, const char *button)
    {
        QTimer::singleShot(0, [letter, button] {
            auto *form = qobject_cast<Form7 *>(QApplication::activeModalWidget());
            ASSERT_NE(form, nullptr);
            if (!letter.isEmpty()) {
                EXPECT_TRUE(control<DriveListBox>(form, "Drive1")->selectDrive(letter));
            }
            control<QPushButton>(form, button)->click();
        });
        control<QPushButton>(&m_editor, "Command6")->click();
        return control<QLineEdit>(&m_editor, "Text1")->text();
    }

    TempCatalog m_catalog;
    MainWindowStandIn m_main;
    PromptScript m_prompts;
    newCD m_editor { m_catalog.session(), m_catalog.settings(), m_main.link() };
};

} // namespace

TEST_F(Form7Test, TitleComesFromTheChosenDriveAndACancelRereadsTheLastChoice)
{
    const CaptureDrive drive(m_catalog.settings(), m_catalog.scratch(QStringLiteral("Urlaubsfotos")));
    control<QLineEdit>(&m_editor, "Text1")->setText(QStringLiteral("bleibt nicht"));
    EXPECT_EQ(readTitle({}, "Command2"), QString()); // no choice yet
    EXPECT_EQ(m_catalog.session().titleDriveLetter, QString());

    EXPECT_EQ(readTitle(drive.letter(), "Command1"), QStringLiteral("Urlaubsfotos"));
    EXPECT_EQ(m_catalog.session().titleDriveLetter, drive.letter().left(1));
    EXPECT_EQ(m_catalog.settings().value(SettingKey::DefDrive), drive.drive().listText());

    // The chosen drive is the default of this dialog and of the capture dialog from now on.
    control<QLineEdit>(&m_editor, "Text1")->setText(QStringLiteral("anders"));
    EXPECT_EQ(readTitle({}, "Command1"), QStringLiteral("Urlaubsfotos"));
    abbild capture(m_catalog.session(), m_catalog.settings(), m_main.link());
    EXPECT_EQ(control<DriveListBox>(&capture, "Drive1")->letter(), drive.letter());

    control<QLineEdit>(&m_editor, "Text1")->setText(QStringLiteral("anders"));
    EXPECT_EQ(readTitle({}, "Command2"), QStringLiteral("Urlaubsfotos"));
    EXPECT_TRUE(m_prompts.shown().empty());
}

TEST_F(Form7Test, AStoredDriveThatIsGoneIsReported)
{
    m_catalog.settings().setValue(SettingKey::DefDrive, QStringLiteral("y: [WEG]"));
    readTitle({}, "Command2");
    EXPECT_EQ(m_prompts.messages(), QStringList { QStringLiteral("Laufzeitfehler '68':\n\nGerät nicht verfügbar") });
}
