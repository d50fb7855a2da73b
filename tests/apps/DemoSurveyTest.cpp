#include <registry/DemoSurvey.h>

#include <param/atomic/KpaData.h>
#include <param/composite/KpcDataset.h>
#include <study/KsmModelData.h>
#include <study/KssImportCsv.h>
#include <study/KssProject.h>
#include <study/KstATransactableDefault.h>

#include <gtest/gtest.h>

#include <memory>

namespace {

/// A project with the data files "old" and "new", which have the same variables.
class TwoFiles : public KstATransactableDefault
{
public:
    TwoFiles()
    {
        KssImportCsv import(_project.get());
        import.importText("X;Y;CU\n1;2;0.5\n", QStringLiteral("old"));
        import.importText("X;Y;CU\n1;2;0.7\n", QStringLiteral("new"));
    }
    KssProject* getProject() const override { return _project.get(); }
    KsoDataIdentifier file(const QString& name) const
    {
        return KsoDataIdentifier::file(_project->getModelData(), QStringList(), name);
    }
    KsoDataIdentifier copper(const QString& fileName) const
    {
        return file(fileName).getDataItem()->getChildItems().first()->getChildItems().at(2)->getIdentifier();
    }

private:
    std::unique_ptr<KssProject> _project = std::make_unique<KssProject>();
};

KpcDataset& dataOf(const DemoSurvey& survey)
{
    return dynamic_cast<KpcDataset&>(*survey.getChild(QStringLiteral("DATA")));
}

KpaData& columnOf(const DemoSurvey& survey)
{
    return dynamic_cast<KpaData&>(*survey.getChild(QStringLiteral("REPORT"))->getChild(QStringLiteral("COLUMN")));
}

TEST(DemoSurvey, KeepsTheColumnOfTheReportInTheDataFile)
{
    const TwoFiles project;
    const DemoSurvey survey("S", project);
    dataOf(survey).setRootIdent(project.file("old"));
    columnOf(survey).setValue(project.copper("old"));
    dataOf(survey).setRootIdent(project.file("new"));
    EXPECT_EQ(columnOf(survey).getValue(), project.copper("new"));
}

TEST(DemoSurvey, KeepsTheColumnOfACopyInTheDataFileOfTheCopy)
{
    const TwoFiles project;
    const DemoSurvey survey("S", project);
    dataOf(survey).setRootIdent(project.file("old"));
    columnOf(survey).setValue(project.copper("old"));
    const std::unique_ptr<DemoSurvey> copy(survey.duplicate("C"));
    dataOf(*copy).setRootIdent(project.file("new"));
    EXPECT_EQ(columnOf(*copy).getValue(), project.copper("new"));
    EXPECT_EQ(columnOf(survey).getValue(), project.copper("old"));
}

TEST(DemoSurvey, IsToldApartByTheNameOfTheStudy)
{
    const TwoFiles project;
    const DemoSurvey survey("S", project);
    EXPECT_EQ(survey.getTaskID(), "DemoSurvey");
    ASSERT_EQ(survey.getKeyParameters().size(), 1);
    EXPECT_EQ(survey.getKeyParameters().first(), survey.getChild(QStringLiteral("NAME")));
}

} // namespace
