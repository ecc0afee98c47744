#pragma once

#include "common/MainWindowLink.h"

#include <QLabel>
#include <QWidget>

// The part of the main window that the record and capture dialogs talk to: the label with
// the selected CD's number and the list reloads, counted. Header only, for the GUI tests.
class MainWindowStandIn
{
public:
    MainWindowStandIn() { m_label8->setObjectName(QStringLiteral("Label8")); }

    void select(int number) { m_label8->setText(QString::number(number)); }

    MainWindowLink link()
    {
        MainWindowLink link;
        link.window = &m_window;
        link.selectedNumberText = [this] { return m_label8->text(); };
        link.refresh_cdlist = [this] { ++m_refreshes; };
        link.sortList1 = [this] { ++m_sorts; };
        return link;
    }

    int refreshes() const { return m_refreshes; }
    int sorts() const { return m_sorts; }

private:
    QWidget m_window;
    QLabel *m_label8 = new QLabel(&m_window);
    int m_refreshes = 0;
    int m_sorts = 0;
};
