#include "Control.h"
#include "images/ProgressWindow.h"

#include <QLabel>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// Folder names may hold anything, markup included; both lines show them as they are.
TEST(ProgressWindow, LinesShowFolderNamesAsTheyAre)
{
    const QString path = u"/media/cd/Treiber & Software <b>fett</b>"_s;
    ProgressWindow window;
    window.resize(900, 200);
    window.show(); // lays the lines out at their full width, so nothing is elided
    window.setText(u"Gesichert wird "_s + path);
    window.setProgressText(u"Ordner: 1 Dateien: 2 "_s + path);
    const std::pair<const char *, QString> lines[]
        = { { "textLabel", u"Gesichert wird "_s + path }, { "progressLabel", u"Ordner: 1 Dateien: 2 "_s + path } };
    for (const auto &[name, text] : lines) {
        auto *label = control<QLabel>(&window, name);
        EXPECT_EQ(std::pair(label->text(), label->textFormat()), std::pair(text, Qt::PlainText)) << name;
    }
}

} // namespace
