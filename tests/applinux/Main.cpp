#include <QApplication>
#include <QFont>
#include <QStyleFactory>
#include <gtest/gtest.h>

// The windows need an application object; no display is needed.
int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setFont(QFont("DejaVu Sans", 9));
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
