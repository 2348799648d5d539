#include <QApplication>
#include <QTemporaryFile>
#include <gtest/gtest.h>

// A desktop of two screens, the right one lower and of twice the scale: 800 by 600 pixels that count as 400 by 300.
int main(int argc, char** argv)
{
    QTemporaryFile screens;
    screens.open();
    screens.write(R"({"screens": [
        {"name": "one", "x": 0, "y": 0, "width": 1000, "height": 700, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
        {"name": "two", "x": 1000, "y": 100, "width": 800, "height": 600, "logicalDpi": 192, "logicalBaseDpi": 96, "dpr": 1}]})");
    screens.flush();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.fileName().toLocal8Bit());
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
