#pragma once

#include <study/KsmModelData.h>
#include <study/KsoDataFilter.h>
#include <study/KssProject.h>
#include <study/KstATransactableDefault.h>

#include <memory>

/// A transaction context for the application "kriging", with a project of its own:
///
///     north/holes    points, 3D   assays   Au Cu
///     north/blocks   grid, 3D     cells    Au
///                                 nodes    Au
///     south/holes    points, 3D   assays   Au
///     south/lonely   points, 2D   composites   Au
///
/// Names lead to identifiers, whether or not there is such an item.
class DataProject : public KstATransactableDefault
{
public:
    DataProject()
    {
        KsoDataDirectory* north = model->createDirectory(model->getRootItem(), "north");
        KsoDataDirectory* south = model->createDirectory(model->getRootItem(), "south");
        createVariables(createSupport(createFile(north, "holes"), "assays"), {"Au", "Cu"});
        KsoDataFile* blocks = model->createFile(north, "blocks", MbgEGeometrySet::GRID, MbgEDimension::DIM_3D);
        createVariables(createSupport(blocks, "cells"), {"Au"});
        createVariables(createSupport(blocks, "nodes"), {"Au"});
        createVariables(createSupport(createFile(south, "holes"), "assays"), {"Au"});
        KsoDataFile* lonely = model->createFile(south, "lonely", MbgEGeometrySet::POINTS, MbgEDimension::DIM_2D);
        createVariables(createSupport(lonely, "composites"), {"Au"});
    }

    KssProject* getProject() const override { return project.get(); }
    QString getApplicationFlag() const override { return QStringLiteral("kriging"); }

    KsoDataIdentifier root() const { return model->getRootDirectory(); }
    KsoDataIdentifier directory(const QString& name) const { return KsoDataIdentifier::directory(model, {name}); }
    KsoDataIdentifier file(const QString& directory, const QString& name) const
    {
        return KsoDataIdentifier::file(model, {directory}, name);
    }
    KsoDataIdentifier support(const QString& directory, const QString& file, const QString& name) const
    {
        return KsoDataIdentifier::support(model, {directory}, file, name);
    }
    KsoDataIdentifier variable(const QString& directory, const QString& file, const QString& support,
                               const QString& name) const
    {
        return KsoDataIdentifier::variable(model, {directory}, file, support, name);
    }

    KsoDataFile* createFile(KsoDataDirectory* directory, const QString& name)
    {
        return model->createFile(directory, name, MbgEGeometrySet::POINTS, MbgEDimension::DIM_3D);
    }
    KsoDataSupport* createSupport(KsoDataFile* file, const QString& name)
    {
        return model->createSupport(file, name, sampleCount);
    }
    void createVariables(KsoDataSupport* support, const QStringList& names)
    {
        MbdVariableDetails details;
        details.setType(MbdEVarType::DOUBLE);
        for (const QString& name : names)
            model->createVariable(support, name, details, MbdEVarRole::V);
    }

    static constexpr int sampleCount = 3;

    std::unique_ptr<KssProject> project = std::make_unique<KssProject>(QStringLiteral("mine"));
    KsmModelData* model = project->getModelData();
};

/// Filters that take everything of their level.
struct AnyData
{
    static KsoDataFilter file(const MbdEIo& io = MbdEIo::INPUT)
    {
        return KsoDataFilter::file(io, MbgGeometrySetFlags::ANY, MbgDimensionFlags::ANY);
    }
    static KsoDataFilter support(const MbdEIo& io = MbdEIo::INPUT)
    {
        return KsoDataFilter::support(io, MbgGeometrySetFlags::ANY, MbgDimensionFlags::ANY);
    }
    static KsoDataFilter variable(const MbdEIo& io = MbdEIo::INPUT)
    {
        return KsoDataFilter::variable(io, MbdVarRoleFlags::ANY, MbdVarTypeFlags::ANY, 0);
    }
};
