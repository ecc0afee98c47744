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

QStringList manyCds(int count)
{
    QStringList entries;
    for (int i = 1; i <= count; ++i)
        entries << u"%1 CD %1"_s.arg(i);
    return entries;
}

QWidget *waitWindow()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == u"wait"_s && widget->isVisible())
            return widget;
    }
    return nullptr;
}

// A long print-out shows its pages as they go; a cancel there ends the job, and the file it
// would have replaced stays as it was.
TEST(PrintRun, WaitWindowCountsPagesAndCancelLeavesTheOldFile)
{
    PromptScript prompts;
    QTemporaryDir dir;
    const QString path = dir.filePath(u"liste.pdf"_s);
    writeFile(path, "alte Liste");

    QString progress;
    QTimer poll;
    poll.setInterval(0);
    QObject::connect(&poll, &QTimer::timeout, [&] {
        QWidget *waiting = waitWindow();
        if (!waiting)
            return;
        progress = control<QLabel>(waiting, "lblProgress")->text();
        if (progress == u"Seite 3"_s)
            control<QPushButton>(waiting, "cmdCancel")->click();
    });
    poll.start();
    PdfPrinter printer(path);
    const bool printed = printrun::print(nullptr, printer, std::nullopt, [](Printer &target) {
        return Print1_list(target, { u"Musik"_s, u"10"_s, QDateTime::currentDateTime() }, manyCds(2000));
    });
    poll.stop();
    EXPECT_FALSE(printed);
    EXPECT_EQ(progress, u"Seite 3"_s);
    EXPECT_TRUE(prompts.shown().empty());
    EXPECT_EQ(fileBytes(path), QByteArray("alte Liste"));
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList { u"liste.pdf"_s });
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
    printrun::preview(nullptr, std::nullopt, [](Printer &target) {
        return Print1_list(target, { u"Musik"_s, u"10"_s, QDateTime::currentDateTime() }, manyCds(200));
    });
    poll.stop();
    EXPECT_GE(pages, 3);
    EXPECT_TRUE(prompts.shown().empty());
}

} // namespace
