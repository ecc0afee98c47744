#include "app/GermanQtTexts.h"
#include "app/Program.h"
#include "app/Resources.h"
#include "app/Startup.h"
#include "services/Abouts.h"
#include "services/Form8.h"
#include "services/frmOptions.h"
#include "services/frmupdate.h"
#include "transfer/Exportieren.h"
#include "transfer/Importieren.h"

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
    program.setOpener(QStringLiteral("frmOptions"), [](Program &p) { p.show<frmOptions>(); });
    program.setOpener(QStringLiteral("frmupdate"), [](Program &p) { p.show<frmupdate>(); });
    program.setOpener(QStringLiteral("Form8"), [](Program &p) { p.show<Form8>(); });
    program.setOpener(QStringLiteral("Abouts"), [](Program &p) { p.show<Abouts>(); });
    program.setOpener(QStringLiteral("Exportieren"), [](Program &p) { p.show<Exportieren>(); });
    program.setOpener(QStringLiteral("Importieren"), [](Program &p) { p.show<Importieren>(); });
    QObject::connect(&program, &Program::allUnloaded, &application, &QApplication::quit);
    program.show<Startup>();
    return QApplication::exec();
}
