#include "CoverWindow.h"

#include <QImage>
#include <QLabel>
#include <QPixmap>
#include <QVBoxLayout>

CoverWindow::CoverWindow(QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_picture(new QLabel(this))
{
    setObjectName(QStringLiteral("CoverWindow"));
    setWindowTitle(QStringLiteral("CD Cover Bild"));
    setAttribute(Qt::WA_DeleteOnClose);
    m_picture->setObjectName(QStringLiteral("picture"));
    m_picture->setAlignment(Qt::AlignCenter);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_picture);
}

void CoverWindow::setPicture(const QImage &picture)
{
    m_picture->setPixmap(QPixmap::fromImage(picture));
    adjustSize();
}
