#include <tree/ProjectContext.h>

#include <basic/MbeError.h>
#include <cli/Failure.h>

ProjectContext::ProjectContext(const QString& file)
{
    if (file.isEmpty())
        return;
    try {
        _project = KssProject::open(file, KssOpenMode::ReadOnly);
    }
    catch (const MbeError& error) {
        throw Failure(ExitCode::StoreFailed, error.getMessage());
    }
}

const ProjectContext& ProjectContext::none()
{
    static const ProjectContext context{QString()};
    return context;
}
