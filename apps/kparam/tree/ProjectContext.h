#pragma once

#include <study/KssProject.h>
#include <study/KstATransactableDefault.h>

#include <memory>

/// The project that parameters belong to: one from a file, which is only read, or none. It outlives the parameters.
class ProjectContext : public KstATransactableDefault
{
public:
    /// No project for an empty path. A file that cannot be opened as a project is a `Failure`.
    explicit ProjectContext(const QString& file);
    /// No project, for as long as the program runs.
    static const ProjectContext& none();

    KssProject* getProject() const override { return _project.get(); }

private:
    std::unique_ptr<KssProject> _project;
};
