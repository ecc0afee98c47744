#include "DesktopRun.h"
#include "QStringPrinting.h"

#include "app/Hauptfenster.h"
#include "images/DriveListBox.h"
#include "images/DriveTable.h"
#include "images/abbild.h"
#include "records/changecd.h"
#include "records/newCD.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

template <typename T> T *control(QWidget *window, const char *name)
{
    T *found = window->findChild<T *>(QString::fromLatin1(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
}

QStringList entries(QListWidget *list)
{
    QStringList out;
    for (int i = 0; i < list->count(); ++i)
        out << list->item(i)->text();
    return out;
}

} // namespace

// The road of a CD through the main window's entries: a new CD from the menu, an image for
// the selected CD from the toolbar, and the edit of that CD.
TEST(MainWindowRoad, NewCdCaptureAndEditFromTheMainWindow)
{
    DesktopRun run;
    run.archive(QStringLiteral("Test"))->cd(1, QStringLiteral("Eins")).cd(2, QStringLiteral("Zwei"));
    run.openArchive(QStringLiteral("Test"));
    Hauptfenster *main = run.program().show<Hauptfenster>();
    run.settle();
    auto *list2 = control<QListWidget>(main, "List2");

    main->findChild<QAction *>(QStringLiteral("newarchivieren"))->trigger();
    auto *fresh = main->findChild<newCD *>();
    ASSERT_NE(fresh, nullptr);
    EXPECT_EQ(control<QLineEdit>(fresh, "Text2")->text(), QStringLiteral("003"));
    control<QLineEdit>(fresh, "Text1")->setText(QStringLiteral("Drei"));
    control<QPushButton>(fresh, "Command3")->click();
    run.settle();
    EXPECT_EQ(run.prompts().messages(), QStringList { QStringLiteral("CD erfolgreich gespeichert!") });
    EXPECT_EQ(entries(list2),
        (QStringList { QStringLiteral("1 Eins"), QStringLiteral("2 Zwei"), QStringLiteral("3 Drei") }));

    // No CD selected: both commands refuse.
    run.prompts().clear();
    main->findChild<QAction *>(QStringLiteral("k"))->trigger();
    main->findChild<QAction *>(QStringLiteral("mnueditCD"))->trigger();
    EXPECT_EQ(run.prompts().messages(),
        (QStringList { QStringLiteral("Keine CD ausgewählt!"), QStringLiteral("Keine CD ausgewählt!") }));
    EXPECT_EQ(main->findChild<abbild *>(), nullptr);

    const QString volume = QDir::cleanPath(run.home() + QStringLiteral("/../volume"));
    QDir().mkpath(volume + QStringLiteral("/Ordner"));
    QFile file(volume + QStringLiteral("/Ordner/datei.txt"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("inhalt");
    file.close();
    DriveTable table(run.settings());
    const Drive drive = table.driveForFolder(volume);
    const int32_t id = table.getSerial(drive);

    run.prompts().clear();
    list2->setCurrentRow(1);
    EXPECT_EQ(control<QLabel>(main, "Label8")->text(), QStringLiteral("2"));
    main->findChild<QAction *>(QStringLiteral("k"))->trigger();
    EXPECT_EQ(run.session().captureMode, QStringLiteral("1"));
    auto *capture = main->findChild<abbild *>();
    ASSERT_NE(capture, nullptr);
    ASSERT_TRUE(control<DriveListBox>(capture, "Drive1")->selectDrive(drive.letter));
    QSignalSpy ended(capture, &abbild::captureEnded);
    control<QPushButton>(capture, "aufnahhme")->click();
    ASSERT_TRUE(ended.wait(20000));
    run.settle();
    EXPECT_EQ(run.prompts().messages(),
        QStringList { QStringLiteral("Der CD Inhalt wurde erfolgreich eingelesen!") });
    EXPECT_EQ(ArchiveStore(run.session().archivePath).selectByNumber(2).value.imageId, id);
    EXPECT_EQ(run.session().captureMode, QStringLiteral("0"));
    EXPECT_EQ(list2->count(), 3);

    list2->setCurrentRow(1);
    main->findChild<QAction *>(QStringLiteral("l"))->trigger();
    auto *change = main->findChild<changecd *>();
    ASSERT_NE(change, nullptr);
    EXPECT_EQ(control<QLineEdit>(change, "Text1")->text(), QStringLiteral("Zwei"));
    EXPECT_EQ(
        control<QLabel>(change, "Label3")->text(), QStringLiteral("Vorhanden! ID: ") + QString::number(id));
    control<QLineEdit>(change, "Text1")->setText(QStringLiteral("Zwei neu"));
    control<QPushButton>(change, "Command3")->click();
    run.settle();
    EXPECT_EQ(entries(list2),
        (QStringList { QStringLiteral("1 Eins"), QStringLiteral("2 Zwei neu"), QStringLiteral("3 Drei") }));
}
