#pragma once

#include <registry/ClassRegistry.h>
#include <tree/ProjectContext.h>

/// The row of the class that the user named; a `Failure` that suggests others if there is none.
const ClassRegistry::Row& requireClass(const QString& name);

/// A new parameter of the class under `key`, or under the name of the class where that is empty.
std::unique_ptr<KpbAParameter> makeParameter(const ClassRegistry::Row& row, const QString& key = QString(),
                                             const ProjectContext& context = ProjectContext::none());
