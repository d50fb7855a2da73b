#pragma once

#include <study/KsmModelData.h>
#include <study/KsmModelEnumCatalog.h>
#include <study/KssProject.h>
#include <study/KstATransactableDefault.h>

#include <memory>

/// A context with a project in memory: two imported files of samples, "Site/North" and "Site/South", with the same
/// variables, a catalog of rocks, and one item or two of each other kind.
class SurveyProject : public KstATransactableDefault
{
public:
    SurveyProject();
    KssProject* getProject() const override { return _project.get(); }

    /// Destroys the project; the context has none from then on.
    void close() { _project.reset(); }

    KsmModelData& data() const { return *_project->getModelData(); }
    KsmModelEnumCatalog& catalogs() const { return *_project->getModelEnumCatalog(); }

    /// The item that the names in `path`, joined by "/", lead to; null if there is none.
    KsoADataItem* item(const QString& path) const;
    /// Its identifier; null if there is no such item.
    KsoDataIdentifier ident(const QString& path) const;
    /// Null if there is none.
    KsoAVariableItem* variable(const QString& path) const;
    KsoEnumCatalog* catalog(const QString& name) const;

private:
    void _createData();
    void _createNamedItems();

    std::unique_ptr<KssProject> _project = std::make_unique<KssProject>(QStringLiteral("Survey"));
};
