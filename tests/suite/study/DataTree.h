#pragma once

#include <basic/MbbGlobal.h>
#include <basic/MbeError.h>
#include <study/KsmModelData.h>
#include <study/KssProject.h>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

/// A project without a file whose data tree has, below the root directory, the directories "a" and "a/b", in "a/b" the
/// file "holes" with the single support "samples" of 3 samples, and in it the variable "Cu".
class DataTree : public testing::Test
{
protected:
    static MbdVariableDetails detailsOf(const MbdEVarType& type)
    {
        MbdVariableDetails details;
        details.setType(type);
        return details;
    }
    KsoDataIdentifier variableIdent(const QString& name) const
    {
        return KsoDataIdentifier::variable(data, {"a", "b"}, "holes", "samples", name);
    }

    std::unique_ptr<KssProject> project = std::make_unique<KssProject>();
    KsmModelData* const data = project->getModelData();
    KsoDataDirectory* const a = data->createDirectory(data->getRootItem(), "a");
    KsoDataDirectory* const b = data->createDirectory(a, "b");
    KsoDataFile* const holes = data->createFile(b, "holes", MbgEGeometrySet::POINTS, MbgEDimension::DIM_3D);
    KsoDataSupport* const samples = data->createSupport(holes, "samples", 3);
    KsoDataVariable* const copper = data->createVariable(samples, "Cu", detailsOf(MbdEVarType::DOUBLE), MbdEVarRole::V);
};

/// Keeps the records of a data tree. It and the tree may end in any order.
class DataObserver : public KuoIObserver<KsmModifData>
{
public:
    explicit DataObserver(const KsmModelData* model) : _model(model) { model->addObserver(this); }
    ~DataObserver() override
    {
        if (_model)
            _model->removeObserver(this);
    }
    DataObserver(const DataObserver&) = delete;
    DataObserver& operator=(const DataObserver&) = delete;

    void update(const KsmModifData& modif) override { records.push_back(modif); }
    void destroyed(const KuoAObservable<KsmModifData>*) override
    {
        _model = nullptr;
        ++deaths;
    }

    std::vector<KsmModifData> records;
    int deaths = 0;

private:
    const KsmModelData* _model;
};

/// The message of the error that `body` must throw.
template <class Error, class Body>
QString messageOf(Body body)
{
    try {
        body();
    }
    catch (const Error& error) {
        return error.getMessage();
    }
    ADD_FAILURE() << "nothing was thrown";
    return QString();
}
