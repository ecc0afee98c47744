#include "Control.h"
#include "TestPaths.h"

#include "common/PromptScript.h"
#include "print/PrintRun.h"

#include "print/ListPrints.h"
#include "print/PdfPrinter.h"

#include <QApplication>
#include <QLabel>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

// The title list of `count` CDs, printed as a long print-out.
PrintOutcome printList(Printer &target, int count)
{
    QStringList entries;
    for (int i = 1; i <= count; ++i)
        entries << u"%1 CD %1"_s.arg(i);
    return Print1_list(target, { u"Musik"_s, u"10"_s, QDateTime::currentDateTime() }, entries);
}

// A long print-out shows its pages as they go; a cancel there ends the job, and the file it
// would have replaced stays as it was.
TEST(PrintRun, WaitWindowCountsPagesAndCancelLeavesTheOldFile)
{
    PromptScript prompts;
    QTemporaryDir dir;
    const QString path = writeFile(dir.filePath(u"liste.pdf"_s), "alte Liste");

    QString progress;
    QTimer poll;
    poll.setInterval(0);
    QObject::connect(&poll, &QTimer::timeout, [&] {
        for (QWidget *waiting : QApplication::topLevelWidgets()) {
            if (waiting->objectName() != u"wait"_s || !waiting->isVisible())
                continue;
            progress = control<QLabel>(waiting, "lblProgress")->text();
            if (progress == u"Seite 3"_s)
                control<QPushButton>(waiting, "cmdCancel")->click();
        }
    });
    poll.start();
    PdfPrinter printer(path);
    const bool printed = printrun::print(
        nullptr, printer, std::nullopt, [](Printer &target) { return printList(target, 2000); });
    poll.stop();
    EXPECT_EQ(std::tuple(printed, progress, prompts.shown().size(), fileBytes(path),
                  QDir(dir.path()).entryList(QDir::Files)),
        std::tuple(false, u"Seite 3"_s, size_t(0), QByteArray("alte Liste"), QStringList { u"liste.pdf"_s }));
}

// The preview draws the same pages; it closes like any dialog.
TEST(PrintRun, PreviewShowsThePages)
{
    PromptScript prompts;
    int pages = -1;
    QTimer poll;
    poll.setInterval(10);
    QObject::connect(&poll, &QTimer::timeout, [&] {
        auto *dialog = qobject_cast<QPrintPreviewDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        auto *widget = dialog->findChild<QPrintPreviewWidget *>();
        pages = widget ? widget->pageCount() : -2;
        dialog->reject();
    });
    poll.start();
    printrun::preview(nullptr, std::nullopt, [](Printer &target) { return printList(target, 200); });
    poll.stop();
    EXPECT_TRUE(pages >= 3 && prompts.shown().empty()) << pages;
}

} // namespace
