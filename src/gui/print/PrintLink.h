#pragma once

#include <QLabel>
#include <QListWidget>
#include <QPointer>

#include <functional>

class FolderTree;

// What the print dialog reads of the main window: the CD list, and the labels, comments and
// cover that record the CD on display; the tree view, which the image tab fills.
struct PrintLink
{
    QPointer<QListWidget> cdList;
    QPointer<QListWidget> commentList;
    QPointer<QLabel> titleLabel;
    QPointer<QLabel> imageIdLabel; // "0" for none
    QPointer<QLabel> fileCountLabel;
    QPointer<QLabel> folderCountLabel;
    QPointer<QLabel> coverPicture;
    std::function<void()> showImageTab; // selects the image tab, which fills the tree
    std::function<const FolderTree &()> folderTree;
    std::function<int()> selectedNode; // -1 for none
};
