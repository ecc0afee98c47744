#pragma once

#include <QImage>
#include <QWidget>

class Program;
class QTimer;

// The splash window that opens first. Its picture has a pure red background, which is cut
// away, so the window has the picture's shape and no frame. Loading it prepares the data
// folder and counts the start; one second later its timer decides which window follows,
// and the splash unloads itself.
class Startup : public QWidget
{
    Q_OBJECT

public:
    explicit Startup(Program &program);

    // Opens the window that follows and unloads the splash: the tick of the one-shot timer,
    // also for tests that don't wait a second.
    void openNextWindow();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    Program &m_program;
    QImage m_picture;
    QTimer *m_nextWindowTimer;
    QPoint m_dragOffset;
};
