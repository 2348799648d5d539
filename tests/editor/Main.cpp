#include <QApplication>
#include <gtest/gtest.h>

// Widgets need an application object; no display is needed.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setCursorFlashTime(0);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
