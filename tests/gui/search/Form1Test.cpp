#include "SearchFixture.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class Form1Test : public SearchFixture
{
protected:
    // The navigator's position, "<" and ">" when enabled, and the CD selected in the main window.
    QString state(Form1 *navigator) const
    {
        return control<QLabel>(navigator, "Label6")->text()
            + (control<QPushButton>(navigator, "Command1")->isEnabled() ? u" <"_s : QString())
            + (control<QPushButton>(navigator, "Command2")->isEnabled() ? u" >"_s : QString()) + u" | "_s
            + (m_list->currentItem() ? m_list->currentItem()->text() : QString());
    }
};

TEST_F(Form1Test, SeveralFoundCdsAreSteppedThroughInTheMainWindow)
{
    ASSERT_TRUE(search(u"WORD"_s, AllCds, Comments));
    QPointer<Form1> navigator = window<Form1>();
    ASSERT_FALSE(navigator.isNull());
    EXPECT_EQ(window<frmsearch>(), nullptr); // the dialog gave way to the navigator
    EXPECT_EQ(session().foundCdNumbers, (std::vector<QString> { u"1"_s, u"3"_s }));
    EXPECT_EQ(control<QLabel>(navigator, "Label2")->text(), u"2"_s);
    // Nothing lies before the first CD: "<" is disabled there.
    EXPECT_EQ(state(navigator), u"1 / 2 > | 1 Backup 2003"_s);
    QTest::keyClick(control<QPushButton>(navigator, "Command3"), Qt::Key_Return); // Enter means ">"
    EXPECT_EQ(state(navigator) + u" | "_s + mainLabel("Text2"), u"2 / 2 < | 3 Ohne Abbild | Ohne Abbild"_s);
    control<QPushButton>(navigator, "Command1")->click();
    EXPECT_EQ(state(navigator), u"1 / 2 > | 1 Backup 2003"_s);
    EXPECT_EQ(std::pair(window<Form1>(), shown().size()), std::pair(navigator.data(), size_t(0)));
}

TEST_F(Form1Test, OneFoundCdIsShownAndTheNavigatorGivesWayToAMessage)
{
    ASSERT_TRUE(search(u"ägypten"_s, AllCds, Comments));
    QTest::qWait(20);
    settle();
    EXPECT_EQ(window<Form1>(), nullptr);
    EXPECT_EQ(m_list->currentItem()->text() + u" | "_s + mainLabel("Label8"), u"2 Fotos | 2"_s);
    expectOneMessage(u"Gefundene CDs: 1. Die CD wird nun angezeigt."_s, Icon::None);
}

} // namespace
