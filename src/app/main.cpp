#include "app/Program.h"
#include "app/Resources.h"
#include "app/Startup.h"

#include "app/Settings.h"
#include "app/StartDecision.h"

#include <QApplication>
#include <QIcon>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Silberbuch"));
    QApplication::setApplicationName(QStringLiteral("Silberbuch"));
    // The run ends when the last window is unloaded, not when the last one is hidden:
    // the main window may sit in the tray.
    QApplication::setQuitOnLastWindowClosed(false);
    resources::init();
    QApplication::setWindowIcon(QIcon(resources::programIcon()));

    Settings settings;
    Program program(settings, wholeCommandLine(QApplication::arguments()));
    QObject::connect(&program, &Program::allUnloaded, &application, &QApplication::quit);
    program.show<Startup>();
    return QApplication::exec();
}
