#include "SearchFixture.h"

#include <QTest>

namespace {

class Form1Test : public SearchFixture
{
protected:
    // The navigator's position, "<" and ">" when enabled, and the CD selected in the main window.
    QString state(Form1 *navigator) const
    {
        return control<QLabel>(navigator, "Label6")->text()
            + (control<QPushButton>(navigator, "Command1")->isEnabled() ? QStringLiteral(" <") : QString())
            + (control<QPushButton>(navigator, "Command2")->isEnabled() ? QStringLiteral(" >") : QString())
            + QStringLiteral(" | ") + (m_list->currentItem() ? m_list->currentItem()->text() : QString());
    }
};

TEST_F(Form1Test, SeveralFoundCdsAreSteppedThroughInTheMainWindow)
{
    ASSERT_TRUE(search(QStringLiteral("WORD"), AllCds, Comments));
    QPointer<Form1> navigator = window<Form1>();
    ASSERT_FALSE(navigator.isNull());
    EXPECT_EQ(window<frmsearch>(), nullptr); // the dialog gave way to the navigator
    EXPECT_EQ(session().foundCdNumbers, (std::vector<QString> { QStringLiteral("1"), QStringLiteral("3") }));
    EXPECT_EQ(control<QLabel>(navigator, "Label2")->text(), QStringLiteral("2"));
    EXPECT_EQ(state(navigator), QStringLiteral("1 / 2 < > | 1 Backup 2003"));
    EXPECT_EQ(mainLabel("Label8"), QStringLiteral("1"));

    // "<" is enabled before the first step though nothing is before the first CD. Pressed there
    // it reports the run-time failure it always caused, and ">" leads back to the first CD.
    control<QPushButton>(navigator, "Command1")->click();
    expectOneMessage(
        QStringLiteral("Laufzeitfehler '9':\n\nIndex außerhalb des gültigen Bereichs"), Icon::Critical);
    EXPECT_EQ(window<Form1>(), navigator);
    control<QPushButton>(navigator, "Command2")->click();
    EXPECT_EQ(state(navigator), QStringLiteral("1 / 2 < > | 1 Backup 2003"));

    QTest::keyClick(control<QPushButton>(navigator, "Command3"), Qt::Key_Return); // Enter means ">"
    EXPECT_EQ(state(navigator), QStringLiteral("2 / 2 < | 3 Ohne Abbild"));
    EXPECT_EQ(mainLabel("Text2"), QStringLiteral("Ohne Abbild"));
    control<QPushButton>(navigator, "Command1")->click();
    EXPECT_EQ(state(navigator), QStringLiteral("1 / 2 > | 1 Backup 2003"));
    EXPECT_EQ(shown().size(), 1u);
}

TEST_F(Form1Test, OneFoundCdIsShownAndTheNavigatorGivesWayToAMessage)
{
    ASSERT_TRUE(search(QStringLiteral("ägypten"), AllCds, Comments));
    QTest::qWait(20);
    settle();
    EXPECT_EQ(window<Form1>(), nullptr);
    EXPECT_EQ(m_list->currentItem()->text(), QStringLiteral("2 Fotos"));
    EXPECT_EQ(mainLabel("Label8"), QStringLiteral("2"));
    expectOneMessage(QStringLiteral("Gefundene CDs: 1. Die CD wird nun angezeigt."), Icon::None);
}

} // namespace
