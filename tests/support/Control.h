#pragma once

#include <QListWidget>
#include <QStringList>
#include <QWidget>

#include <gtest/gtest.h>

// The control of a window by its object name; a missing one fails the test. Header only.
template <typename T> T *control(QWidget *window, const char *name)
{
    T *found = window ? window->findChild<T *>(QString::fromLatin1(name)) : nullptr;
    EXPECT_NE(found, nullptr) << name;
    return found;
}

// The entries of a list box, top to bottom.
inline QStringList entries(const QListWidget *list)
{
    QStringList out;
    for (int i = 0; i < list->count(); ++i)
        out << list->item(i)->text();
    return out;
}
