#pragma once

#include <QWidget>

class QImage;
class QLabel;

// Shows a CD's cover picture as the editor holds it, in a window of its own.
class CoverWindow : public QWidget
{
    Q_OBJECT

public:
    explicit CoverWindow(QWidget *parent = nullptr);

    void setPicture(const QImage &picture);

private:
    QLabel *m_picture;
};
