#pragma once

/// How the program ends; the numbers are documented and stay.
enum class ExitCode
{
    Ok = 0,
    Findings = 1,
    Usage = 2,
    InputFailed = 3,
    StoreFailed = 4,
    OutputFailed = 5,
    Internal = 6,
};
