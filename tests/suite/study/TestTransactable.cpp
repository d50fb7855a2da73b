#include <study/KssProject.h>
#include <study/KstATransactableDefault.h>

#include <gtest/gtest.h>

namespace {

class Plain : public KstATransactableDefault
{};

class WithProject : public KstATransactableDefault
{
public:
    explicit WithProject(KssProject* project) : _project(project) {}
    KssProject* getProject() const override { return _project; }
    QString getApplicationFlag() const override { return "kriging"; }

private:
    KssProject* _project;
};

TEST(KstATransactableDefault, HasNoProject)
{
    const Plain plain;
    const KstITransactable& transactable = plain;

    EXPECT_EQ(transactable.getProject(), nullptr);
}

TEST(KstATransactableDefault, LetsADerivedContextAnswerWithAProject)
{
    KssProject project;
    const WithProject withProject(&project);
    const KstITransactable& transactable = withProject;

    EXPECT_EQ(transactable.getProject(), &project);
}

TEST(KstATransactableDefault, BelongsToNoApplicationUnlessADerivedContextTellsOne)
{
    const Plain plain;
    const WithProject kriging(nullptr);

    EXPECT_EQ(static_cast<const KstITransactable&>(plain).getApplicationFlag(), "");
    EXPECT_EQ(static_cast<const KstITransactable&>(kriging).getApplicationFlag(), "kriging");
}

TEST(KstATransactableDefault, HoldsNothingButItsType)
{
    EXPECT_EQ(sizeof(Plain), sizeof(void*));
}

} // namespace
