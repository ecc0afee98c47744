#include "CaptureDialogFixture.h"
#include "Screenshot.h"

#include "records/EditCdDialog.h"
#include "records/NewCdDialog.h"

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class CdEditorTest : public CaptureDialogTest<CdEditor>
{
protected:
    template <typename T> T *control(const char *name) { return ::control<T>(m_dialog.data(), name); }
    void click(const char *button) { control<QPushButton>(button)->click(); }
    void setText(const char *box, const QString &text) { control<QLineEdit>(box)->setText(text); }

    // Clicks "Speichern"; a saved dialog frees itself.
    void save()
    {
        click("saveButton");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // Chooses a one-coloured cover of the given size, then captures the drive from the dialog
    // the editor opens.
    void coverAndCapture(const Drive &drive, int width, int height, const char *captureMode)
    {
        const QString path = m_catalog.scratch(u"bilder"_s) + u"/cover%1.jpg"_s.arg(width);
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(QColor(30, 90, 160));
        ASSERT_TRUE(image.save(path, "JPG"));
        m_prompts.answerFile(Prompts::FileAnswer { path, 0 });
        click("chooseCoverButton");
        // PNG pictures load as well as the others, so the filter offers them too.
        const auto &shown = m_prompts.shown();
        ASSERT_TRUE(!shown.empty() && shown.back().kind == PromptScript::Kind::File);
        EXPECT_TRUE(shown.back().file.nameFilters.join(u';').contains(u"*.[pP][nN][gG]"_s));
        click("captureButton");
        EXPECT_EQ(m_catalog.session().captureMode, QLatin1String(captureMode));
        ASSERT_TRUE(capture(drive, m_dialog->findChild<CaptureDialog *>()));
        EXPECT_EQ(control<QLabel>("imageStatusLabel")->text(),
            u"Vorhanden! ID: "_s + QString::number(drive.serial));
    }

    // The row of CD `number`, checked against `expected` but for the cover, whose picture is
    // scaled to 300 x 150.
    void expectRow(int number, CdRow expected)
    {
        const auto row = m_catalog.store().selectByNumber(number);
        ASSERT_TRUE(row.ok()) << row.error.message.toStdString();
        expected.cover = row.value.cover;
        EXPECT_EQ(row.value, expected);
        EXPECT_EQ(
            QImage(datapaths::coverFile(m_catalog.dataFolder(), row.value.cover)).size(), QSize(300, 150));
    }
};

} // namespace

// The whole road of a new CD: title, number, comments typed and pasted, a cover, an image
// captured from a folder made a drive, and the row, cover file and image file that result.
TEST_F(CdEditorTest, NewCdWithCommentsCoverAndCapturedImage)
{
    const Drive drive = volume(u"volume"_s,
        { { u"liesmich.txt"_s, 1834, 1047462067 }, { u"Bilder/haus.jpg"_s, 482113, 1027879364 } });
    open<NewCdDialog>();
    setText("titleEdit", u"Urlaub 2003"_s);
    control<QLineEdit>("numberEdit")->clear();
    QTest::keyClicks(control<QLineEdit>("numberEdit"), u"0a0-7"_s); // digits only
    QTest::keyClicks(control<QLineEdit>("newCommentEdit"), u"Word"_s);
    QTest::keyClick(control<QLineEdit>("newCommentEdit"), Qt::Key_Return);
    QApplication::clipboard()->setText(u"Excel 2000\r\n\r\nTreiber für Drucker\r\n"_s);
    click("pasteCommentsButton");
    coverAndCapture(drive, 600, 300, "2");
    screenshot(m_dialog, u"NewCdDialog"_s);
    save();
    EXPECT_TRUE(m_dialog.isNull());
    EXPECT_EQ(m_prompts.messages(),
        (QStringList { u"Der CD Inhalt wurde erfolgreich eingelesen!"_s, u"CD erfolgreich gespeichert!"_s }));
    expectRow(7,
        { 7, u"Urlaub 2003"_s, drive.serial, u"Sta1|Word|Excel 2000|Treiber für Drucker|End1"_s, false, {} });
    EXPECT_TRUE(fileBytes(datapaths::imageFile(m_catalog.dataFolder(), drive.serial))
                    .contains(drive.letter.toLatin1() + "\\liesmich.txt|1834|"));
    EXPECT_EQ(m_reloads, std::pair(1, 0));
}

// The capture, the cover and the new title reach the row at saving only; its number stays.
TEST_F(CdEditorTest, ChangeCdKeepsItsNumberAndStoresCaptureAndCoverAtSaving)
{
    const Drive drive = volume(u"neu"_s, { { u"a.txt"_s, 1, 1044057600 } });
    m_catalog.archive().row({ 5, u"Fünf"_s, 77, u"Sta1|a|b|End1"_s, true, u"0"_s });
    open<EditCdDialog>(5);
    EXPECT_EQ(control<QLineEdit>("titleEdit")->text() + control<QLabel>("imageStatusLabel")->text(),
        u"FünfVorhanden! ID: 77"_s);
    auto *comments = control<QListWidget>("commentList");
    m_prompts.answerInput(u"A"_s);
    emit comments->itemDoubleClicked(comments->item(0)); // edits here, unlike in a new CD
    setText("titleEdit", u"Fünf neu"_s);
    setText("newCommentEdit", u"c|d"_s);
    click("addCommentButton");
    coverAndCapture(drive, 100, 50, "3");
    EXPECT_EQ(m_catalog.store().selectByNumber(5).value.imageId, 77);
    save();
    EXPECT_EQ(m_prompts.messages().last(), u"CD erfolgreich gespeichert!"_s);
    expectRow(5, { 5, u"Fünf neu"_s, drive.serial, u"Sta1|A|b|c|d|End1"_s, false, {} });
}

// The save rules themselves are tested in the core; here a refusal reaches the user and keeps
// the dialog and the rows as they were.
TEST_F(CdEditorTest, SavingRefusesWithItsMessageAndLeavesTheDialogOpen)
{
    m_catalog.archive().cd(1, u"Eins"_s).cd(5, u"Fünf"_s);
    open<NewCdDialog>();
    setText("titleEdit", u"X"_s);
    setText("numberEdit", u"005"_s);
    save();
    ASSERT_FALSE(m_dialog.isNull()) << "a refusal keeps the dialog open";
    ASSERT_EQ(m_prompts.messages(),
        QStringList {
            u"Fehler! Die gewünschte CD Nummer wird schon verwendet. Bitte geben Sie eine andere CD "
            u"Nummer ein, da jede Nummer nur einmal vergeben werden darf!"_s });
    EXPECT_EQ(std::tuple(m_prompts.shown()[0].icon, control<QLineEdit>("titleEdit")->text(),
                  m_catalog.store().selectAll().value.size(), m_reloads.first),
        std::tuple(Prompts::Icon::Critical, u"X"_s, size_t(2), 0));
}
