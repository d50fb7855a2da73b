#include <gtest/gtest.h>

#include <basic/MbgRotation.h>
#include <study/KssProjectCollection.h>

namespace {
const KsmModelConventionRot& model()
{
    return *KssProjectCollection::openedModelRotationConv();
}
} // namespace

TEST(KsmModelConventionRot, IsThereWithoutAnOpenProject)
{
    ASSERT_TRUE(KssProjectCollection::openedModelRotationConv());
    EXPECT_EQ(KssProjectCollection::openedModelRotationConv(), KssProjectCollection::openedModelRotationConv());
}

TEST(KsmModelConventionRot, HasADefault)
{
    EXPECT_EQ(model().getDefaultId(), 0);
    EXPECT_EQ(model().getDefault()->getId(), 0);
    EXPECT_EQ(model().getDefault()->getDefinitionString(), "+Z+Y+X");
    EXPECT_EQ(model().getDefault(), MbgRotation().getConvention());
}

TEST(KsmModelConventionRot, GivesConventionsByTheirId)
{
    EXPECT_EQ(model().getConvention(1, false)->getType(), MbgERotConv::DIRECTION);
    EXPECT_EQ(model().getConvention(2, false)->getDefinitionString(), "+Z+X+Z");
}

TEST(KsmModelConventionRot, HasNothingForAnUnknownIdUnlessItMayMakeDo)
{
    EXPECT_EQ(model().getConvention(-5, false), nullptr);
    EXPECT_EQ(model().getConvention(500, false), nullptr);
    EXPECT_EQ(model().getConvention(500, true), model().getDefault());
    EXPECT_EQ(model().getConvention(1, true)->getId(), 1);
}

TEST(KsmModelConventionRot, MakesOneTemporaryConventionOfEqualDefinitions)
{
    const MbgRotationConventionDefinition definition(MbgERotConv::SYSTEM, "-Z+X-Z");
    MbgRotationConvention* made = model().createTemporary(definition);
    EXPECT_EQ(made->getDefinition(), definition);
    EXPECT_EQ(model().createTemporary(definition), made);
    EXPECT_EQ(model().getConvention(made->getId(), false), made);
}
