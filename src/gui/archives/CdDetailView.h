#pragma once

#include <QString>

class ImageBrowser;
class Program;
class QLabel;
class QListWidget;
class QStackedWidget;
class QWidget;

// The controls of the main window that show the CD, under their designer names.
struct CdDetailControls
{
    QListWidget *List2; // the CD list, whose selected entry is shown
    QListWidget *List1; // the comments
    QLabel *Text2; // title
    QLabel *Label8; // number
    QLabel *lblsn; // image id, "0" for none
    QLabel *Picture2; // cover
    QLabel *lblDateien;
    QLabel *lblOrdner;
    QStackedWidget *Frame2; // the panes of the tabs
    QWidget *fr_2; // the image tab's pane
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
    void List2_Click();

    // The image file of the CD on display, from the id in lblsn.
    QString imagePath();
    // lblsn names an image whose file is there.
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
