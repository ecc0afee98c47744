#include "ProgressWindow.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

ProgressWindow::ProgressWindow(QWidget *parent)
    : QWidget(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
    , m_label1(new QLabel(QStringLiteral("Bitte warten..."), this))
    , m_label2(new QLabel(QStringLiteral("Das Datenträger-Abbild wird gerade erstellt..."), this))
    , m_progress(new QLabel(this))
    , m_cancel(new QPushButton(QStringLiteral("Abbrechen"), this))
{
    setObjectName(QStringLiteral("ProgressWindow"));
    setWindowTitle(QStringLiteral("Bitte warten..."));
    setAttribute(Qt::WA_DeleteOnClose);

    auto *image = new QLabel(this);
    image->setObjectName(QStringLiteral("Image1"));
    image->setPixmap(style()->standardIcon(QStyle::SP_DriveCDIcon).pixmap(48, 48));
    m_label1->setObjectName(QStringLiteral("Label1"));
    QFont bold = m_label1->font();
    bold.setBold(true);
    m_label1->setFont(bold);
    m_label2->setObjectName(QStringLiteral("Label2"));
    m_progress->setObjectName(QStringLiteral("lblProgress"));
    m_progress->setMinimumWidth(360);
    m_progress->hide();
    m_cancel->setObjectName(QStringLiteral("cmdCancel"));
    m_cancel->setAutoDefault(false);
    m_cancel->hide();
    connect(m_cancel, &QPushButton::clicked, this, [this] {
        m_cancel->setEnabled(false);
        emit cancelRequested();
    });

    auto *texts = new QVBoxLayout;
    texts->addWidget(m_label1);
    texts->addWidget(m_label2);
    texts->addWidget(m_progress);
    auto *row = new QHBoxLayout;
    row->addWidget(image, 0, Qt::AlignTop);
    row->addLayout(texts, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cancel);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addLayout(buttons);
}

void ProgressWindow::setText(const QString &text)
{
    m_label2->setText(text);
}

void ProgressWindow::setProgressText(const QString &text)
{
    m_progress->show();
    m_progress->setToolTip(text);
    m_progress->setText(m_progress->fontMetrics().elidedText(text, Qt::ElideMiddle, m_progress->width()));
}

void ProgressWindow::setCancellable(bool cancellable)
{
    m_cancel->setVisible(cancellable);
    m_cancel->setEnabled(cancellable);
}
