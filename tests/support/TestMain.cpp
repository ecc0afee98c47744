#ifdef QT_WIDGETS_LIB // the GUI tests' main
#include <QApplication>
using Application = QApplication;
#else
#include <QCoreApplication>
using Application = QCoreApplication;
#endif
#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    // Headless unless a display was chosen on purpose, e.g. "xcb" under xvfb-run for screenshots.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", QByteArrayLiteral("offscreen"));
    Application app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
