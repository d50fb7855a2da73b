#include <QtGui/QGuiApplication>

#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    // Pixmaps need a platform; no test shows anything.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
