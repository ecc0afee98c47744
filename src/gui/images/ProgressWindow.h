#pragma once

#include <QWidget>

#include <functional>

class QLabel;
class QPushButton;

// The small window that stands while long work runs: "Bitte warten...", a line saying what
// is done, and, where the work can be stopped, a line of progress and a cancel button.
class ProgressWindow : public QWidget
{
    Q_OBJECT

public:
    explicit ProgressWindow(QWidget *parent = nullptr);

    // The line of what is done.
    void setText(const QString &text);
    // The line of progress below it, elided in the middle when it is too long.
    void setProgressText(const QString &text);
    // The line of progress as the given function builds it for the label's width; the tooltip
    // holds the line at full length.
    using LineForWidth = std::function<QString(int width, const QFontMetrics &metrics)>;
    void setProgressLine(const LineForWidth &line);
    // Shows the cancel button; a click emits cancelRequested and disables the button.
    void setCancellable(bool cancellable);

signals:
    void cancelRequested();

private:
    QLabel *m_headingLabel;
    QLabel *m_textLabel;
    QLabel *m_progressLabel;
    QPushButton *m_cancelButton;
};
