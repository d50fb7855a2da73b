#pragma once

#include <QtCore/QtGlobal>

#include <util/KuaApplication.h>

/// The program says of itself that it runs as a test while it lives.
class RunningTest
{
public:
    RunningTest() { KuaApplication::setRunningTest(true); }
    ~RunningTest() { KuaApplication::setRunningTest(false); }
    RunningTest(const RunningTest&) = delete;
    RunningTest& operator=(const RunningTest&) = delete;
};
