#include <QtGui/QGuiApplication>

#include <gmock/gmock.h>

// Qt's platform without a display keeps its screen until the process ends.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libqoffscreen";
}

int main(int argc, char** argv)
{
    // Pixmaps need a platform; no test shows anything.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
