#include "CaptureDialogFixture.h"

#include "images/ProgressWindow.h"

#include <QMenu>

using namespace Qt::StringLiterals;
using CaptureTest = CaptureDialogTest<CaptureDialog>;

// Keeping the old image on a cancel is tested in the core; here a cancel leaves the row and
// the dialog ready for another try, which then stores the id in the selected row.
TEST_F(CaptureTest, ModeOneStoresTheIdInTheSelectedRowAfterACancelledTry)
{
    const Drive drive = volume(u"volume"_s, { { u"Bilder/haus.jpg"_s, 482113, 1027879364 } });
    TreeBuilder(m_catalog.scratch(u"volume"_s)).folder(u"Leer/auch leer"_s); // pruned from the image
    const QString image = datapaths::imageFile(m_catalog.dataFolder(), drive.serial);
    m_catalog.archive().cd(3, u"Drei"_s).cd(4, u"Vier"_s);
    m_catalog.session().listSorted = true;
    m_catalog.session().captureMode = u"1"_s;
    open<CaptureDialog>(4);
    auto cancel = QObject::connect(m_dialog.data(), &CaptureDialog::captureStarted, m_dialog.data(), [this] {
        EXPECT_FALSE(control<QPushButton>(m_dialog, "captureButton")->isEnabled());
        control<QPushButton>(m_dialog->findChild<ProgressWindow *>(), "cancelButton")->click();
    });
    ASSERT_TRUE(capture(drive, m_dialog));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(
        m_prompts.messages(), QStringList { u"Die Erstellung des Laufwerksabbilds wurde abgebrochen."_s });
    EXPECT_EQ(std::tuple(QFile::exists(image), m_catalog.store().selectByNumber(4).value.imageId,
                  m_catalog.session().captureMode),
        std::tuple(false, 0, u"1"_s));
    ASSERT_FALSE(m_dialog.isNull());
    EXPECT_EQ(m_dialog->findChild<ProgressWindow *>(), nullptr); // the retry below needs the button back

    QObject::disconnect(cancel);
    m_prompts.clear();
    ASSERT_TRUE(capture(drive, m_dialog));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(m_prompts.messages(), QStringList { u"Der CD Inhalt wurde erfolgreich eingelesen!"_s });
    // Row 4 only gets the id; the list is reloaded and sorted, the mode reset, the dialog gone.
    EXPECT_EQ(
        std::tuple(m_catalog.store().selectByNumber(4).value.imageId,
            m_catalog.store().selectByNumber(3).value.imageId, m_reloads, m_catalog.session().captureMode,
            m_dialog.isNull(), m_catalog.settings().value(SettingKey::DefDrive)),
        std::tuple(drive.serial, 0, std::pair(1, 1), u"0"_s, true, drive.listText()));
    // The bytes are tested in the core; here the capture ran pruned.
    const QByteArray bytes = fileBytes(image);
    EXPECT_TRUE(
        bytes.contains(drive.letter.toLatin1() + "\\Bilder\\haus.jpg|482113|28.07.2002 18:02:44\r\n"));
    EXPECT_FALSE(bytes.contains("Leer"));
}

// A folder added as a drive can be taken out again from the drive list's context menu; a
// mounted volume (here the root, c:) offers no such entry.
TEST_F(CaptureTest, AnAddedFolderCanBeRemovedFromTheDriveList)
{
    const Drive drive = volume(u"ordner-mit-einem-recht-langen-namen"_s, { { u"a.txt"_s, 1, 981173106 } });
    open<CaptureDialog>(0);
    auto *drives = control<DriveListBox>(m_dialog, "driveCombo");
    // The box is as wide as its longest drive: nothing reads "d: [or".
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    EXPECT_GE(drives->width(), drives->fontMetrics().horizontalAdvance(drive.listText()));
    ASSERT_TRUE(drives->selectDrive(u"c:"_s));
    EXPECT_EQ(m_dialog->driveMenu(), nullptr);
    ASSERT_TRUE(drives->selectDrive(drive.letter));
    QMenu *menu = m_dialog->driveMenu();
    ASSERT_TRUE(menu && menu->actions().size() == 1);
    EXPECT_EQ(menu->actions().first()->text(), u"Laufwerk entfernen"_s);
    menu->actions().first()->trigger();
    EXPECT_EQ(std::tuple(drives->findData(drive.letter), drives->letter(),
                  DriveTable(m_catalog.settings()).find(drive.letter).has_value()),
        std::tuple(-1, u"c:"_s, false));
}
