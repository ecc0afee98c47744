#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    // Headless unless a display was chosen on purpose, e.g. "xcb" under xvfb-run for screenshots.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", QByteArrayLiteral("offscreen"));
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
