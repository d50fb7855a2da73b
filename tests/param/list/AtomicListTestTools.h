#pragma once

#include "../composite/ListTestTools.h"

#include <param/KpsSerializer.h>

/// Whether the list keeps to its side of the automatic mode, as "automatic, initialized".
inline QString automaticState(const KpbAParameter& parameter)
{
    return QStringLiteral("%1, %2").arg(parameter.isAutomatic() ? "automatic" : "manual",
                                        parameter.isAutomaticValueInitialized() ? "initialized" : "not initialized");
}
