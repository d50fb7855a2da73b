#include <QtCore/QUrl>

#include <apps/KparamTest.h>
#include <study/KsmModelData.h>
#include <study/KsmModelScene.h>
#include <study/KssProject.h>

namespace {

/// With a project that has the scene "Map", and in the file "holes" the support "assays" with the number "Au".
class KparamProject : public KparamTest
{
protected:
    void SetUp() override
    {
        const auto project = KssProject::create(path("mine.study"));
        project->getModelScene()->create("Map");
        KsmModelData& data = *project->getModelData();
        KsoDataFile* holes =
            data.createFile(data.getRootItem(), "holes", MbgEGeometrySet::POINTS, MbgEDimension::DIM_3D);
        MbdVariableDetails number;
        number.setType(MbdEVarType::DOUBLE);
        data.createVariable(data.createSupport(holes, "assays", 2), "Au", number, MbdEVarRole::V, {1.0, 2.0});
    }

    static QByteArray display(const QString& scene)
    {
        return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<param key=\"D\">\n <param key=\"DISPLAY\">yes</param>\n"
               " <param key=\"SCENE\">\n  <name>" +
               scene.toUtf8() + "</name>\n </param>\n</param>\n";
    }
};

TEST_F(KparamProject, HasTheItemsThatADocumentNames)
{
    const KparamRun without = run({"check", "--as", "KpcDisplayScene", "-"}, display("Map"));
    EXPECT_EQ(without.code, 1);
    EXPECT_TRUE(without.out.startsWith("-:4:2: SCENE: refused: 'Map'; '' stands\n")) << without.out.toStdString();
    const KparamRun with = run({"check", "--as", "KpcDisplayScene", "--project", "mine.study", "-"}, display("Map"));
    EXPECT_EQ(with.code, 0) << with.out.toStdString();
    EXPECT_EQ(with.lastLine(), "-: written again, it is the same, byte for byte");
}

TEST_F(KparamProject, DoesNotHaveEveryItem)
{
    const KparamRun check = run({"check", "--as", "KpcDisplayScene", "--project", "mine.study", "-"}, display("Pit"));
    EXPECT_EQ(check.code, 1);
    EXPECT_TRUE(check.out.startsWith("-:4:2: SCENE: refused: 'Pit'; '' stands\n")) << check.out.toStdString();
}

TEST_F(KparamProject, IsWhereItemsAreChosenFrom)
{
    file("display.xml", run({"template", "KpcDisplayScene", "--key", "D"}).out.toUtf8());
    const QStringList set = {"set", "--as", "KpcDisplayScene", "--project", "mine.study", "display.xml"};
    for (const char* scene : {"SCENE=Map", "SCENE/name=Map"}) {
        EXPECT_EQ(run(set + QStringList{"DISPLAY=yes", scene, "-o", "chosen.xml"}).code, 0) << scene;
        EXPECT_EQ(read("chosen.xml"), display("Map"));
    }
    const KparamRun refused = run(set + QStringList{"SCENE=Pit", "-o", "refused.xml"});
    EXPECT_EQ(refused.code, 1);
    EXPECT_EQ(refused.err,
              "kparam: SCENE: 'Pit' was refused; '' stands.\nkparam: Nothing was written; --force does.\n");
    EXPECT_FALSE(exists("refused.xml"));
    EXPECT_EQ(run(set + QStringList{"SCENE/colour=red", "-o", "refused.xml"}).code, 2);
}

TEST_F(KparamProject, IsWhereDataAreChosenFromEntryByEntryOrByLocation)
{
    file("survey.xml", run({"template", "DemoSurvey"}).out.toUtf8());
    const QStringList set = {"set", "--as", "DemoSurvey", "--project", "mine.study", "survey.xml"};
    const QByteArray root = " <param key=\"DATA\">\n  <param key=\"ROOT\">\n   <path/>\n   <file>holes</file>\n"
                            "  </param>\n  <param key=\"GRADE\">\n   <name>Au</name>\n  </param>\n";
    const QString url = QUrl::fromLocalFile(path("mine.study")).toString();
    for (const QString& entry : {QString("file=holes"), "url=" + url + "?path=&file=holes#data"}) {
        const QString assignment = "DATA/ROOT/" + entry;
        const KparamRun chosen = run(set + QStringList{assignment, "DATA/GRADE/name=Au", "-o", "chosen.xml"});
        EXPECT_EQ(chosen.code, 0) << chosen.err.toStdString();
        EXPECT_TRUE(read("chosen.xml").contains(root)) << read("chosen.xml").toStdString();
    }
}

TEST_F(KparamProject, IsOnlyRead)
{
    const QByteArray before = read("mine.study");
    run({"check", "--as", "KpcDisplayScene", "--project", "mine.study", "-"}, display("Map"));
    EXPECT_EQ(read("mine.study"), before);
}

TEST_F(KparamProject, HasToBeThereAndToBeOne)
{
    file("text.study", "text");
    for (const char* project : {"none.study", "text.study"}) {
        for (const char* command : {"check", "show"}) {
            const KparamRun failed =
                run({command, "--as", "KpcDisplayScene", "--project", project, "-"}, display("Map"));
            EXPECT_EQ(failed.code, 4) << command << " " << project;
            EXPECT_FALSE(failed.err.isEmpty());
        }
    }
    EXPECT_FALSE(exists("none.study"));
}

TEST_F(KparamProject, IsNotNeededForTheTableOfACatalog)
{
    file("table.xml", run({"template", "KpcCatalogCategories"}).out.toUtf8());
    const QStringList set = {"set", "--as", "KpcCatalogCategories", "table.xml", "CATEGORIES/+="};
    EXPECT_EQ(run(set + QStringList{"CATEGORIES/ITEM_1/OPERATION=EDIT", "CATEGORIES/ITEM_1/NAME=Old",
                                    "CATEGORIES/ITEM_1/OPERATION_VALUE=New", "-o", "edited.xml"})
                  .code,
              0);
    EXPECT_TRUE(read("edited.xml").contains("<param key=\"NAME\">Old</param>"));
    EXPECT_TRUE(read("edited.xml").contains("<param key=\"OPERATION_VALUE\">New</param>"));
    const KparamRun lost = run(set + QStringList{"CATEGORIES/ITEM_1/NAME=Old", "-o", "lost.xml"});
    EXPECT_EQ(lost.code, 2);
    EXPECT_EQ(lost.err, "kparam: 'CATEGORIES/ITEM_1/NAME' is not stored.\n");
}

TEST_F(KparamProject, IsNotNeededForCutoffs)
{
    file("cutoffs.xml", "<param key=\"C\" version=\"2\"><value>1</value></param>");
    EXPECT_EQ(run({"set", "--as", "KpcCutoffs", "cutoffs.xml", ".=0.5,2", "-o", "changed.xml"}).code, 0);
    EXPECT_EQ(read("changed.xml"), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<param key=\"C\" version=\"2\">\n"
                                   " <value>0.5,2</value>\n</param>\n");
    const KparamRun migrated = run({"migrate", "--as", "KpcCutoffs", sample("KpcCutoffs-v1.xml"), "-o", "new.xml"});
    EXPECT_EQ(migrated.code, 0) << migrated.err.toStdString();
    EXPECT_TRUE(read("new.xml").contains("<value>0.5,1e-20,2.25</value>"));
}

} // namespace
