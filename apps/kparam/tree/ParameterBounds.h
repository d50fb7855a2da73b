#pragma once

#include <QtCore/QString>

class KpbAParameter;

/// What a parameter admits, in a line: limits in the storage unit, items, patterns. Empty where everything goes.
QString boundsText(const KpbAParameter& parameter);
/// The symbol of the unit in which the values and limits of a parameter are kept; empty where they have none.
QString unitText(const KpbAParameter& parameter);
