#pragma once

#include <QLabel>
#include <QListWidget>
#include <QPointer>

// What the search windows read and steer of the main window: the labels that record the CD
// on display, and the CD list, whose entries' texts begin with the CD's number and a blank.
// Selecting an entry of the list is what shows that CD.
struct SearchLink
{
    QPointer<QListWidget> cdList;
    QPointer<QLabel> imageIdLabel; // image id of the CD on display, "0" for none
    QPointer<QLabel> numberLabel; // its number
    QPointer<QLabel> titleLabel; // its title
};
