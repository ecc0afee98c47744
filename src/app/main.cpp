#include "app/GermanQtTexts.h"
#include "app/Program.h"
#include "app/Resources.h"
#include "app/Startup.h"
#include "services/AboutDialog.h"
#include "services/WishDialog.h"
#include "services/OptionsDialog.h"
#include "services/UpdateCheckDialog.h"
#include "transfer/ExportDialog.h"
#include "transfer/ImportDialog.h"

#include "app/Settings.h"
#include "app/StartDecision.h"

#include "app/Installation.h"

#include <QApplication>
#include <QIcon>

#include <cstdio>
#include <cstring>

int main(int argc, char **argv)
{
    // Answered before the window system is asked for: it works without a display.
    if (argc == 2 && std::strcmp(argv[1], "--version") == 0) {
        std::puts(installation::versionText().toUtf8().constData());
        return 0;
    }
    QApplication application(argc, argv);
    installGermanQtTexts(application);
    QApplication::setOrganizationName(QStringLiteral("Silberbuch"));
    QApplication::setApplicationName(QStringLiteral("Silberbuch"));
    // The run ends when the last window is unloaded, not when the last one is hidden:
    // the main window may sit in the tray.
    QApplication::setQuitOnLastWindowClosed(false);
    resources::init();
    QApplication::setWindowIcon(QIcon(resources::programIcon()));

    Settings settings;
    Program program(settings, wholeCommandLine(QApplication::arguments()));
    program.setOpener(QStringLiteral("OptionsDialog"), [](Program &p) { p.show<OptionsDialog>(); });
    program.setOpener(QStringLiteral("UpdateCheckDialog"), [](Program &p) { p.show<UpdateCheckDialog>(); });
    program.setOpener(QStringLiteral("WishDialog"), [](Program &p) { p.show<WishDialog>(); });
    program.setOpener(QStringLiteral("AboutDialog"), [](Program &p) { p.show<AboutDialog>(); });
    program.setOpener(QStringLiteral("ExportDialog"), [](Program &p) { p.show<ExportDialog>(); });
    program.setOpener(QStringLiteral("ImportDialog"), [](Program &p) { p.show<ImportDialog>(); });
    QObject::connect(&program, &Program::allUnloaded, &application, &QApplication::quit);
    program.show<Startup>();
    return QApplication::exec();
}
