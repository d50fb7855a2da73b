#pragma once

#include <param/KpbAParameter.h>

/// The keys from below `root` down to `parameter`, joined by "/"; empty for the root itself.
QString pathBelow(const KpbAParameter& root, const KpbAParameter& parameter);

/// Visits `parameter` and all below it, each before its children.
template <class Parameter, class Visit>
void forEachParameter(Parameter& parameter, Visit visit)
{
    visit(parameter);
    for (int i = 0; i < parameter.getChildCount(); ++i) {
        if (auto* child = parameter.getChild(i))
            forEachParameter<Parameter>(*child, visit);
    }
}
