#pragma once

#include "Control.h"
#include "DesktopRun.h"
#include "ExampleImage.h"

#include "app/MainWindow.h"

#include <QLabel>
#include <QListWidget>
#include <QStackedWidget>
#include <QTabBar>
#include <QTreeView>

// The archive "Test" open in the main window: CD 7 "Abc" with two comments and the example
// image 1001, CD 3 "birne" and CD 12 "Zebra" with neither image nor cover.
struct MainWindowRun
{
    explicit MainWindowRun(const QString &commandLine = {})
        : run(commandLine)
        , archive(run.archive(QStringLiteral("Test")))
    {
        archive->cd(7, QStringLiteral("Abc"), QStringLiteral("Sta1|eins|zwei|End1"), 1001);
        archive->cd(3, QStringLiteral("birne"));
        archive->cd(12, QStringLiteral("Zebra"));
        run.image(1001, exampleImage());
        run.openArchive(QStringLiteral("Test"));
    }

    MainWindow *show()
    {
        main = run.program().show<MainWindow>();
        run.settle();
        return main;
    }

    template <class T = QWidget> T *control(const char *name) const { return ::control<T>(main, name); }
    QString text(const char *label) const { return control<QLabel>(label)->text(); }
    QListWidget *list() const { return control<QListWidget>("cdList"); }
    QStringList entries(const char *name = "cdList") const { return ::entries(control<QListWidget>(name)); }
    // Selects the entry of a CD by its number, as a click would.
    void select(int number) const
    {
        for (int i = 0; i < list()->count(); ++i)
            if (list()->item(i)->text().section(QLatin1Char(' '), 0, 0) == QString::number(number))
                list()->setCurrentRow(i);
    }
    QString paneShown() const { return control<QStackedWidget>("paneStack")->currentWidget()->objectName(); }
    void showTab(int tab) const { control<QTabBar>("paneTabs")->setCurrentIndex(tab - 1); }
    // Opens and clicks the node of the image tree at a path of texts below the root, such as
    // "Bilder/alt.zip"; "" is the root.
    void clickNode(const QString &path) const
    {
        auto *tree = control<QTreeView>("folderTree");
        const QAbstractItemModel *model = tree->model();
        QModelIndex at = model->index(0, 0);
        for (const QString &text : path.split(u'/', Qt::SkipEmptyParts))
            at = model->match(model->index(0, 0, at), Qt::DisplayRole, text, 1, Qt::MatchExactly).value(0);
        ASSERT_TRUE(at.isValid()) << path.toStdString();
        tree->expand(at);
        tree->setCurrentIndex(at);
        emit tree->clicked(at);
    }

    DesktopRun run;
    std::unique_ptr<ArchiveBuilder> archive;
    MainWindow *main = nullptr;
};
