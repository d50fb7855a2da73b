#pragma once

#include <util/UtilExport.h>

/// What the running program says of itself, one setting for the whole process. Safe to use from any thread.
class KESTRIN_UTIL_EXPORT KuaApplication
{
public:
    /// Whether the program runs as a test, whose output must not show what differs from machine to machine. False at
    /// the start.
    static bool isRunningTest();
    static void setRunningTest(bool running);
};
