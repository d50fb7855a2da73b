#include <QtGui/QGuiApplication>

#include <gmock/gmock.h>

#if defined(__SANITIZE_ADDRESS__) || __has_feature(address_sanitizer)
#define KESTRIN_TESTS_FIND_LEAKS
#include <sanitizer/lsan_interface.h>
#endif

namespace {

// Qt's platform without a display keeps its screen until the process ends, which is no leak of ours.
std::unique_ptr<QGuiApplication> makeApplication(int& argc, char** argv)
{
#ifdef KESTRIN_TESTS_FIND_LEAKS
    const __lsan::ScopedDisabler disabler;
#endif
    return std::make_unique<QGuiApplication>(argc, argv);
}

} // namespace

int main(int argc, char** argv)
{
    // Pixmaps need a platform; no test shows anything.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const auto application = makeApplication(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
