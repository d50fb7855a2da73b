#pragma once

#include <basic/MbbGlobal.h>
#include <study/KsmModelData.h>
#include <study/KsmModelEnumCatalog.h>
#include <study/KssProject.h>
#include <study/KstATransactableDefault.h>

#include <memory>

/// A transaction context with a project that has samples, in the file "holes":
///
///     assays   Au    a double            1      2      3      4   undefined
///              Cu    a float, lengths   10     20     30     40      50
///              No    an integer         -2     -1      0      1       2
///              Kg    a byte              5      5      5      5       5
///              Ore   a boolean           1      0      1  undefined   1
///              Name  a text             a1     a2     b1    empty    b2
///              Rock  a category       Sand   Clay   Marl  undefined Sand
///     cores    Au    a double            7      8
class SampledProject : public KstATransactableDefault
{
public:
    SampledProject()
    {
        file = model->createFile(model->getRootItem(), "holes", MbgEGeometrySet::POINTS, MbgEDimension::DIM_3D);
        assays = model->createSupport(file, "assays", 5);
        cores = model->createSupport(file, "cores", 2);
        const double none = MbbGlobal::D_FFFF;
        _create(assays, "Au", MbdEVarType::DOUBLE, {1, 2, 3, 4, none});
        _create(assays, "Cu", MbdEVarType::FLOAT, {10, 20, 30, 40, 50}, MbuEUnitClass::LENGTH);
        _create(assays, "No", MbdEVarType::INTEGER, {-2, -1, 0, 1, 2});
        _create(assays, "Kg", MbdEVarType::BYTE, {5, 5, 5, 5, 5});
        _create(assays, "Ore", MbdEVarType::BOOLEAN, {1, 0, 1, none, 1});
        _create(cores, "Au", MbdEVarType::DOUBLE, {7, 8});
        model->createVariable(assays, "Name", _details(MbdEVarType::STRING), MbdEVarRole(),
                              QStringList{"a1", "a2", "b1", "", "b2"});
        MbdVariableDetails rocks = _details(MbdEVarType::ENUM);
        rocks.getEnumDetails().setCatalogId(_createCatalog());
        model->createVariable(assays, "Rock", rocks, MbdEVarRole(), std::vector<double>{1, 2, 5, none, 1});
    }

    KssProject* getProject() const override { return project.get(); }

    KsoDataIdentifier support() const { return assays->getIdentifier(); }
    /// Whether or not there is such a variable.
    KsoDataIdentifier variable(const QString& name, const QString& support = "assays") const
    {
        return KsoDataIdentifier::variable(model, {}, "holes", support, name);
    }
    KsoAVariableItem* item(const QString& name) const { return variable(name).getAVariableItem(); }

    std::unique_ptr<KssProject> project = std::make_unique<KssProject>(QStringLiteral("mine"));
    KsmModelData* model = project->getModelData();
    KsoDataFile* file = nullptr;
    KsoDataSupport* assays = nullptr;
    KsoDataSupport* cores = nullptr;

private:
    static MbdVariableDetails _details(const MbdEVarType& type, const MbuEUnitClass& unitClass = MbuEUnitClass::NONE)
    {
        MbdVariableDetails details(unitClass);
        details.setType(type);
        return details;
    }
    void _create(KsoDataSupport* support, const QString& name, const MbdEVarType& type,
                 const std::vector<double>& values, const MbuEUnitClass& unitClass = MbuEUnitClass::NONE)
    {
        model->createVariable(support, name, _details(type, unitClass), MbdEVarRole(), values);
    }
    int _createCatalog()
    {
        MbdEnumCatalog catalog;
        catalog.setCategory(1, "Sand", MbbColor());
        catalog.setCategory(2, "Clay", MbbColor());
        catalog.setCategory(5, "Marl", MbbColor());
        return project->getModelEnumCatalog()->create("Rocks", catalog)->getId();
    }
};
