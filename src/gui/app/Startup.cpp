#include "Startup.h"

#include "WelcomeDialog.h"
#include "MainWindow.h"
#include "Program.h"
#include "Resources.h"
#include "archives/ArchiveChooser.h"

#include "app/StartDecision.h"
#include "app/StartupFolders.h"
#include "common/Prompts.h"
#include "screen/RegionFromBitmap.h"
#include "services/Restart.h"

#include <QMouseEvent>
#include <QPainter>
#include <QRegion>
#include <QTimer>
#include <QWindow>

namespace {

const QRgb keyColour = qRgb(255, 0, 0);

} // namespace

Startup::Startup(Program &program)
    : QWidget(nullptr, Qt::FramelessWindowHint | Qt::SplashScreen)
    , m_program(program)
    , m_nextWindowTimer(new QTimer(this))
{
    m_program.adopt(this);
    resources::init();
    setObjectName(QStringLiteral("Startup"));
    m_picture = QImage(resources::startupPicture());
    setFixedSize(m_picture.size());

    QRegion shape;
    for (const QRect &run : regionFromBitmap(m_picture, keyColour))
        shape += run;
    setMask(shape);

    m_nextWindowTimer->setObjectName(QStringLiteral("nextWindowTimer"));
    m_nextWindowTimer->setSingleShot(true);
    m_nextWindowTimer->setInterval(1000);
    connect(m_nextWindowTimer, &QTimer::timeout, this, &Startup::openNextWindow);

    // A failed step leaves Start at "1": the next tick takes the first-start road.
    prepareDataFolder(m_program.dataFolder(), m_program.settings());
    m_nextWindowTimer->start();
}

void Startup::openNextWindow()
{
    m_nextWindowTimer->stop();
    Program &program = m_program;
    const StartDecision decision
        = decideStart(program.settings(), program.dataFolder(), program.commandLine());
    decision.applyTo(program.session());
    const bool restartedMinimized = restart::takeMinimizedWindowWish();
    QWidget *next = nullptr;
    switch (decision.window) {
    case StartDecision::Window::WelcomeDialog:
        next = program.show<WelcomeDialog>();
        break;
    case StartDecision::Window::ArchiveChooser:
        next = program.show<ArchiveChooser>();
        break;
    case StartDecision::Window::MainWindow:
        if (MainWindow *main = program.show<MainWindow>(); main && decision.goToTray)
            main->goToTray();
        else
            next = main;
        break;
    }
    // A restart from the options brings the first window up minimized.
    if (next && restartedMinimized)
        next->showMinimized();
    if (decision.showMinimizedNotice)
        Prompts::message(nullptr, minimizedStartNotice(), Prompts::Icon::Information);
    program.unload(this);
}

void Startup::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.drawImage(0, 0, m_picture);
}

void Startup::mousePressEvent(QMouseEvent *event)
{
    // Any button drags the splash, as if its caption were held.
    if (windowHandle() && windowHandle()->startSystemMove())
        return;
    m_dragOffset = event->globalPosition().toPoint() - frameGeometry().topLeft();
}

void Startup::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons() != Qt::NoButton)
        move(event->globalPosition().toPoint() - m_dragOffset);
}
