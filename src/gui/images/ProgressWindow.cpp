#include "ProgressWindow.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

ProgressWindow::ProgressWindow(QWidget *parent)
    : QWidget(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
    , m_headingLabel(new QLabel(QStringLiteral("Bitte warten..."), this))
    , m_textLabel(new QLabel(QStringLiteral("Das Datenträger-Abbild wird gerade erstellt..."), this))
    , m_progressLabel(new QLabel(this))
    , m_cancelButton(new QPushButton(QStringLiteral("Abbrechen"), this))
{
    setObjectName(QStringLiteral("ProgressWindow"));
    setWindowTitle(QStringLiteral("Bitte warten..."));
    setAttribute(Qt::WA_DeleteOnClose);
    // Paths are shown as they are, whatever characters a folder name holds.
    m_textLabel->setTextFormat(Qt::PlainText);
    m_progressLabel->setTextFormat(Qt::PlainText);

    auto *icon = new QLabel(this);
    icon->setObjectName(QStringLiteral("iconLabel"));
    icon->setPixmap(style()->standardIcon(QStyle::SP_DriveCDIcon).pixmap(48, 48));
    m_headingLabel->setObjectName(QStringLiteral("headingLabel"));
    QFont bold = m_headingLabel->font();
    bold.setBold(true);
    m_headingLabel->setFont(bold);
    m_textLabel->setObjectName(QStringLiteral("textLabel"));
    m_progressLabel->setObjectName(QStringLiteral("progressLabel"));
    m_progressLabel->setMinimumWidth(360);
    m_progressLabel->hide();
    m_cancelButton->setObjectName(QStringLiteral("cancelButton"));
    m_cancelButton->setAutoDefault(false);
    m_cancelButton->hide();
    connect(m_cancelButton, &QPushButton::clicked, this, [this] {
        m_cancelButton->setEnabled(false);
        emit cancelRequested();
    });

    auto *texts = new QVBoxLayout;
    texts->addWidget(m_headingLabel);
    texts->addWidget(m_textLabel);
    texts->addWidget(m_progressLabel);
    auto *row = new QHBoxLayout;
    row->addWidget(icon, 0, Qt::AlignTop);
    row->addLayout(texts, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cancelButton);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addLayout(buttons);
}

void ProgressWindow::setText(const QString &text)
{
    m_textLabel->setText(text);
}

void ProgressWindow::setProgressText(const QString &text)
{
    setProgressLine([&text](int width, const QFontMetrics &metrics) {
        return metrics.elidedText(text, Qt::ElideMiddle, width);
    });
}

void ProgressWindow::setProgressLine(const LineForWidth &line)
{
    m_progressLabel->show();
    const QFontMetrics metrics = m_progressLabel->fontMetrics();
    m_progressLabel->setToolTip(line(QWIDGETSIZE_MAX, metrics));
    m_progressLabel->setText(line(m_progressLabel->width(), metrics));
}

void ProgressWindow::setCancellable(bool cancellable)
{
    m_cancelButton->setVisible(cancellable);
    m_cancelButton->setEnabled(cancellable);
}
