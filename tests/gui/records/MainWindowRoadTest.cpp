#include "CaptureDrive.h"
#include "DesktopRun.h"
#include "QStringPrinting.h"
#include "TreeBuilder.h"

#include "app/Hauptfenster.h"
#include "records/changecd.h"
#include "records/newCD.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>

// The road of a CD through the main window's entries: a new CD from the menu, an image for
// the selected CD from the toolbar, and the edit of that CD; the list follows each step.
TEST(MainWindowRoad, NewCdCaptureAndEditFromTheMainWindow)
{
    DesktopRun run;
    run.archive(QStringLiteral("Test"))->cd(1, QStringLiteral("Eins")).cd(2, QStringLiteral("Zwei"));
    run.openArchive(QStringLiteral("Test"));
    Hauptfenster *main = run.program().show<Hauptfenster>();
    run.settle();
    auto *list2 = control<QListWidget>(main, "List2");
    const auto trigger = [main](const char *action) { control<QAction>(main, action)->trigger(); };

    trigger("newarchivieren");
    auto *fresh = main->findChild<newCD *>();
    ASSERT_NE(fresh, nullptr);
    EXPECT_EQ(control<QLineEdit>(fresh, "Text2")->text(), QStringLiteral("003"));
    control<QLineEdit>(fresh, "Text1")->setText(QStringLiteral("Drei"));
    control<QPushButton>(fresh, "Command3")->click();
    run.settle();
    EXPECT_EQ(entries(list2), (QStringList { QStringLiteral("1 Eins"), QStringLiteral("2 Zwei"), QStringLiteral("3 Drei") }));

    const QString volume = QDir::cleanPath(run.home() + QStringLiteral("/../volume"));
    QDir().mkpath(volume);
    TreeBuilder(volume).file(QStringLiteral("Ordner/datei.txt"), 6, 1044057600);
    const CaptureDrive drive(run.settings(), volume);
    list2->setCurrentRow(1);
    EXPECT_EQ(control<QLabel>(main, "Label8")->text(), QStringLiteral("2"));
    trigger("k");
    ASSERT_TRUE(drive.capture(main->findChild<abbild *>()));
    run.settle();
    EXPECT_EQ(run.prompts().messages(),
        (QStringList { QStringLiteral("CD erfolgreich gespeichert!"),
            QStringLiteral("Der CD Inhalt wurde erfolgreich eingelesen!") }));
    EXPECT_EQ(ArchiveStore(run.session().archivePath).selectByNumber(2).value.imageId, drive.id());
    EXPECT_EQ(run.session().captureMode, QStringLiteral("0"));

    list2->setCurrentRow(1);
    trigger("l");
    auto *change = main->findChild<changecd *>();
    ASSERT_NE(change, nullptr);
    EXPECT_EQ(control<QLineEdit>(change, "Text1")->text(), QStringLiteral("Zwei"));
    EXPECT_EQ(control<QLabel>(change, "Label3")->text(), QStringLiteral("Vorhanden! ID: ") + QString::number(drive.id()));
    control<QLineEdit>(change, "Text1")->setText(QStringLiteral("Zwei neu"));
    control<QPushButton>(change, "Command3")->click();
    run.settle();
    EXPECT_EQ(entries(list2),
        (QStringList { QStringLiteral("1 Eins"), QStringLiteral("2 Zwei neu"), QStringLiteral("3 Drei") }));
}
