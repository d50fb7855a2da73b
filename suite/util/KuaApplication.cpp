#include <util/KuaApplication.h>

#include <atomic>

namespace {

std::atomic<bool> runningTest = false;

} // namespace

bool KuaApplication::isRunningTest()
{
    return runningTest;
}

void KuaApplication::setRunningTest(bool running)
{
    runningTest = running;
}
