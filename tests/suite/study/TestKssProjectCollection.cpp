#include "StudyTest.h"

#include <study/KssProject.h>
#include <study/KssProjectCollection.h>

namespace {

class KssProjectCollectionTest : public StudyTest
{};

TEST_F(KssProjectCollectionTest, FindsAProjectByItsUrlWhileItLives)
{
    auto project = KssProject::create(path);
    const QUrl url = project->getUrl();

    EXPECT_EQ(url, QUrl::fromLocalFile(path));
    EXPECT_EQ(KssProjectCollection::projectFromUrl(url), project.get());
    project.reset();
    EXPECT_EQ(KssProjectCollection::projectFromUrl(url), nullptr);
}

TEST_F(KssProjectCollectionTest, FindsAProjectWithoutAFileByTheUrlOfItsName)
{
    const KssProject project(QStringLiteral("andes"));

    EXPECT_EQ(KssProjectCollection::projectFromUrl(project.getUrl()), &project);
}

TEST_F(KssProjectCollectionTest, FindsTheOldestOfSeveral)
{
    auto first = std::make_unique<KssProject>(QStringLiteral("andes"));
    const KssProject second(QStringLiteral("andes"));

    EXPECT_EQ(KssProjectCollection::projectFromUrl(second.getUrl()), first.get());
    first.reset();
    EXPECT_EQ(KssProjectCollection::projectFromUrl(second.getUrl()), &second);
}

TEST_F(KssProjectCollectionTest, FindsNothingForAnEmptyOrUnknownUrl)
{
    const KssProject nameless;

    EXPECT_EQ(KssProjectCollection::projectFromUrl(QUrl()), nullptr);
    EXPECT_EQ(KssProjectCollection::projectFromUrl(QUrl("file:///nowhere.ksp")), nullptr);
}

} // namespace
