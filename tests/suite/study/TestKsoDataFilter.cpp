#include "DataTree.h"

#include <study/KsoDataFilter.h>

namespace {

class KsoDataFilterTest : public DataTree
{
protected:
    static KsoDataFilter anyFile(const MbdEIo& io = MbdEIo::INPUT)
    {
        return KsoDataFilter::file(io, MbgGeometrySetFlags::ANY, MbgDimensionFlags::ANY);
    }
    static KsoDataFilter anySupport()
    {
        return KsoDataFilter::support(MbdEIo::INPUT, MbgGeometrySetFlags::ANY, MbgDimensionFlags::ANY);
    }
    static KsoDataFilter anyVariable()
    {
        return KsoDataFilter::variable(MbdEIo::INPUT, MbdVarRoleFlags::ANY, MbdVarTypeFlags::ANY, 0);
    }
    QList<int> states(const KsoDataFilter& filter) const
    {
        QList<int> found;
        for (const KsoADataItem* item : std::initializer_list<const KsoADataItem*>{b, holes, samples, copper, macro})
            found.append(filter.check(item));
        return found;
    }

    KsoDataMacroVariable* const macro = data->createMacroVariable(samples, "sim", detailsOf(MbdEVarType::FLOAT), 1);
};

TEST_F(KsoDataFilterTest, HasFixedNumbersForItsAnswers)
{
    EXPECT_EQ(int(KsoDataFilter::Refused), 0);
    EXPECT_EQ(int(KsoDataFilter::Above), 1);
    EXPECT_EQ(int(KsoDataFilter::Below), 2);
    EXPECT_EQ(int(KsoDataFilter::Accepted), 3);
}

TEST_F(KsoDataFilterTest, TellsWhatIsAboveAndBelowItsLevel)
{
    EXPECT_EQ(states(KsoDataFilter::directory(MbdEIo::INPUT)), (QList<int>{3, 2, 2, 2, 2}));
    EXPECT_EQ(states(anyFile()), (QList<int>{1, 3, 2, 2, 2}));
    EXPECT_EQ(states(anySupport()), (QList<int>{1, 1, 3, 2, 2}));
    EXPECT_EQ(states(anyVariable()), (QList<int>{1, 1, 1, 3, 0}));
}

TEST_F(KsoDataFilterTest, AcceptsMacroVariablesOnlyWhenTold)
{
    KsoDataFilter filter = anyVariable();
    filter.setMacroVariableAccepted(true);

    EXPECT_EQ(states(filter), (QList<int>{1, 1, 1, 3, 3}));
    filter = KsoDataFilter::variable(MbdEIo::INPUT, MbdVarRoleFlags::ANY, {MbdEVarType::DOUBLE}, 0);
    filter.setMacroVariableAccepted(true);
    EXPECT_EQ(states(filter), (QList<int>{1, 1, 1, 3, 0}));
}

TEST_F(KsoDataFilterTest, AcceptsEverythingWhileItIsNotActive)
{
    EXPECT_FALSE(KsoDataFilter().isActive());
    EXPECT_EQ(states(KsoDataFilter()), (QList<int>{3, 3, 3, 3, 3}));
}

TEST_F(KsoDataFilterTest, RefusesNothingness)
{
    for (const KsoDataFilter& filter : {KsoDataFilter(), anyFile()}) {
        EXPECT_EQ(filter.check(KsoDataIdentifier()), KsoDataFilter::Refused);
        EXPECT_EQ(filter.check(static_cast<const KsoADataItem*>(nullptr)), KsoDataFilter::Refused);
    }
}

TEST_F(KsoDataFilterTest, JudgesANameWithoutAnItemByItsLevel)
{
    EXPECT_EQ(anyFile().check(KsoDataIdentifier::file(data, {"a"}, "new")), KsoDataFilter::Accepted);
    EXPECT_EQ(anyFile().check(KsoDataIdentifier::directory(data, {"new"})), KsoDataFilter::Above);
    EXPECT_EQ(anyFile().check(variableIdent("new")), KsoDataFilter::Below);
}

TEST_F(KsoDataFilterTest, AcceptsNewItemsForOutput)
{
    EXPECT_FALSE(anyFile(MbdEIo::INPUT).isNewAccepted());
    EXPECT_TRUE(anyFile(MbdEIo::OUTPUT).isNewAccepted());
}

TEST_F(KsoDataFilterTest, AsksForTheGeometryAndTheDimension)
{
    const auto file = [this](const MbgGeometrySetFlags& sets, const MbgDimensionFlags& dimensions, int rule) {
        return KsoDataFilter::file(MbdEIo::INPUT, sets, dimensions, rule).check(holes);
    };

    EXPECT_EQ(file({MbgEGeometrySet::POINTS}, {MbgEDimension::DIM_3D}, 0), KsoDataFilter::Accepted);
    EXPECT_EQ(file({MbgEGeometrySet::GRID}, {MbgEDimension::DIM_3D}, 0), KsoDataFilter::Refused);
    EXPECT_EQ(file({MbgEGeometrySet::POINTS}, {MbgEDimension::DIM_2D}, 0), KsoDataFilter::Refused);
    EXPECT_EQ(file({MbgEGeometrySet::POINTS}, {MbgEDimension::DIM_2D}, 1), KsoDataFilter::Accepted);
}

TEST_F(KsoDataFilterTest, AsksASupportForItsFileAndItsName)
{
    const auto support = [this](const MbgGeometrySetFlags& sets, const QStringList& names) {
        return KsoDataFilter::support(MbdEIo::INPUT, sets, MbgDimensionFlags::ANY, names).check(samples);
    };

    EXPECT_EQ(support({MbgEGeometrySet::POINTS}, {}), KsoDataFilter::Accepted);
    EXPECT_EQ(support({MbgEGeometrySet::LINES}, {}), KsoDataFilter::Refused);
    EXPECT_EQ(support(MbgGeometrySetFlags::ANY, {"lines", "samples"}), KsoDataFilter::Accepted);
    EXPECT_EQ(support(MbgGeometrySetFlags::ANY, {"lines"}), KsoDataFilter::Refused);
}

TEST_F(KsoDataFilterTest, AsksAVariableForItsTypeAndRole)
{
    const auto variable = [this](const MbdVarRoleFlags& roles, const MbdVarTypeFlags& types, int rule) {
        return KsoDataFilter::variable(MbdEIo::INPUT, roles, types, rule).check(variableIdent("Cu"));
    };

    EXPECT_EQ(variable({MbdEVarRole::V}, {MbdEVarType::DOUBLE}, 0), KsoDataFilter::Accepted);
    EXPECT_EQ(variable(MbdVarRoleFlags::ANY, {MbdEVarType::BOOLEAN, MbdEVarType::ENUM}, 0), KsoDataFilter::Refused);
    EXPECT_EQ(variable({MbdEVarRole::WEIGHT}, {MbdEVarType::DOUBLE}, 0), KsoDataFilter::Refused);
    EXPECT_EQ(variable({MbdEVarRole::WEIGHT}, {MbdEVarType::DOUBLE}, 1), KsoDataFilter::Accepted);
}

TEST_F(KsoDataFilterTest, AcceptsItemsOfItsApplications)
{
    KsoDataFilter filter = anyFile();
    filter.setApplicationFlags({"kriging"});
    EXPECT_EQ(filter.check(holes), KsoDataFilter::Accepted);

    data->setApplicationFlags(holes, {"mapping"});
    EXPECT_EQ(filter.check(holes), KsoDataFilter::Refused);
    EXPECT_EQ(anyFile().check(holes), KsoDataFilter::Accepted);
    filter.setApplicationFlags({""});
    EXPECT_EQ(filter.check(holes), KsoDataFilter::Accepted);
    filter.setApplicationFlags({"kriging", "mapping"});
    EXPECT_EQ(filter.check(holes), KsoDataFilter::Accepted);
}

TEST_F(KsoDataFilterTest, IsComparedByEverythingItAsksFor)
{
    KsoDataFilter flagged = anyFile();
    flagged.setApplicationFlags({"kriging"});
    KsoDataFilter welcoming = anyFile();
    welcoming.setNewAccepted(true);
    KsoDataFilter macros = anyVariable();
    macros.setMacroVariableAccepted(true);

    EXPECT_EQ(anyFile(), anyFile());
    EXPECT_NE(anyFile(), anySupport());
    EXPECT_NE(anyFile(), flagged);
    EXPECT_NE(anyFile(), welcoming);
    EXPECT_NE(anyVariable(), macros);
    EXPECT_NE(KsoDataFilter(), KsoDataFilter::directory(MbdEIo::INPUT));
    EXPECT_NE(anyFile(), KsoDataFilter::file(MbdEIo::INPUT, {MbgEGeometrySet::GRID}, MbgDimensionFlags::ANY));
    EXPECT_NE(anyFile(), KsoDataFilter::file(MbdEIo::INPUT, MbgGeometrySetFlags::ANY, {MbgEDimension::DIM_1D}));
}

TEST_F(KsoDataFilterTest, TellsItsRule)
{
    EXPECT_FALSE(anyVariable().isTolerant());
    EXPECT_TRUE(KsoDataFilter::variable(MbdEIo::INPUT, MbdVarRoleFlags::ANY, MbdVarTypeFlags::ANY, 2).isTolerant());
}

} // namespace
