#pragma once

#include <QString>

class ImageBrowser;
class Program;
class QLabel;
class QListWidget;
class QStackedWidget;
class QWidget;

// The controls of the main window that show the CD.
struct CdDetailControls
{
    QListWidget *cdList; // whose selected entry is shown
    QListWidget *commentList;
    QLabel *titleLabel;
    QLabel *numberLabel;
    QLabel *imageIdLabel; // "0" for none
    QLabel *coverLabel;
    QLabel *fileCountLabel;
    QLabel *folderCountLabel;
    QStackedWidget *tabPanes;
    QWidget *imagePane; // the image tab's pane
};

// The right pane of the main window for the CD selected in the list: title, number and
// image id in the head, the comments, the cover, the counts of the image's files and
// folders, and the image itself while its tab is on display. The labels are the program's
// record of the CD on display; searching and printing read them back.
class CdDetailView
{
public:
    CdDetailView(Program &program, const CdDetailControls &controls, ImageBrowser &browser);

    // Shows the CD of the selected list entry. An entry whose number is 0, or whose row is
    // gone, changes nothing.
    void showSelectedCd();

    // The image file of the CD on display, from the id in the image id label.
    QString imagePath();
    // The image id label names an image whose file is there.
    bool imagePresent();
    // Loads the image into tree and list: the list stays empty until a folder is clicked.
    void showImage();

private:
    // False when the stored cover can't be shown: the rest of the display is abandoned.
    bool showCover(const QString &cover);
    void showCounts();

    Program &m_program;
    CdDetailControls m_ui;
    ImageBrowser &m_browser;
};
