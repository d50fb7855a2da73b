#pragma once

/// What may be done with a project file that is opened.
enum class KssOpenMode
{
    ReadWrite,
    ReadOnly,
};
