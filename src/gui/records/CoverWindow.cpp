#include "CoverWindow.h"

#include <QImage>
#include <QLabel>
#include <QPixmap>
#include <QVBoxLayout>

CoverWindow::CoverWindow(QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_picture1(new QLabel(this))
{
    setObjectName(QStringLiteral("CoverWindow"));
    setWindowTitle(QStringLiteral("CD Cover Bild"));
    setAttribute(Qt::WA_DeleteOnClose);
    m_picture1->setObjectName(QStringLiteral("Picture1"));
    m_picture1->setAlignment(Qt::AlignCenter);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_picture1);
}

void CoverWindow::setPicture(const QImage &picture)
{
    m_picture1->setPixmap(QPixmap::fromImage(picture));
    adjustSize();
}
