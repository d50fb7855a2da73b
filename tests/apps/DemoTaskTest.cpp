#include <registry/DemoTask.h>

#include <basic/MbeError.h>
#include <param/KpsSerializer.h>
#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaDouble.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaString.h>
#include <study/KstATransactableDefault.h>
#include <support/RecordingObserver.h>
#include <util/KuxXml.h>

#include <gmock/gmock.h>

namespace {

class NoProject : public KstATransactableDefault
{};

const NoProject noProject;

template <class T = KpbAParameter>
T& at(const KpbAParameter& task, const QStringList& keys)
{
    KpbPath path;
    path.append(keys);
    return dynamic_cast<T&>(*task.getParameterByRelativePath(path));
}

QString stored(const KpbAParameter& task, const QStringList& keys)
{
    return at(task, keys).serialize().value("value");
}

void load(DemoTask& task, const QByteArray& xml)
{
    QDomDocument document;
    ASSERT_TRUE(KuxXml::parse(xml, &document).ok);
    KpsSerializer::updateFicheFromXml(document, &task);
}

TEST(DemoTask, EnablesTheSeedWhileTheOrderIsRandom)
{
    DemoTask task("T", noProject);
    EXPECT_TRUE(at(task, {"SEED"}).isDisabled());
    at<KpaBool>(task, {"RANDOM_PATH"}).setValue(true);
    EXPECT_TRUE(at(task, {"SEED"}).isEnabled());
}

TEST(DemoTask, LetsTheAutomaticRadiusFollowTheMethod)
{
    DemoTask task("T", noProject);
    EXPECT_EQ(stored(task, {"SEARCH", "RADIUS"}), "100");
    at<KpaEnum>(task, {"METHOD"}).setItemFromKey("NEAREST");
    EXPECT_EQ(stored(task, {"SEARCH", "RADIUS"}), "50");
    EXPECT_TRUE(at(task, {"SEARCH", "RADIUS"}).isAutomatic());
}

TEST(DemoTask, LeavesARadiusOfTheUserAloneWhenTheMethodChanges)
{
    DemoTask task("T", noProject);
    at<KpaDouble>(task, {"SEARCH", "RADIUS"}).setValue(75.0);
    at<KpaEnum>(task, {"METHOD"}).setItemFromKey("NEAREST");
    EXPECT_EQ(stored(task, {"SEARCH", "RADIUS"}), "75");
}

TEST(DemoTask, LeavesTheOriginalAloneWhenACopyChanges)
{
    DemoTask task("T", noProject);
    const std::unique_ptr<DemoTask> copy(task.duplicate("C"));
    EXPECT_EQ(copy->getKey(), "C");
    const RecordingObserver observer(task);
    at<KpaEnum>(*copy, {"METHOD"}).setItemFromKey("NEAREST");
    at<KpaBool>(*copy, {"RANDOM_PATH"}).setValue(true);
    EXPECT_EQ(stored(*copy, {"SEARCH", "RADIUS"}), "50");
    EXPECT_TRUE(at(*copy, {"SEED"}).isEnabled());
    EXPECT_TRUE(observer.records.isEmpty());
    EXPECT_EQ(stored(task, {"SEARCH", "RADIUS"}), "100");
    EXPECT_TRUE(at(task, {"SEED"}).isDisabled());
}

TEST(DemoTask, LetsACopyOutliveTheOriginal)
{
    auto task = std::make_unique<DemoTask>("T", noProject);
    const std::unique_ptr<DemoTask> copy(task->duplicate(QString()));
    task.reset();
    at<KpaEnum>(*copy, {"METHOD"}).setItemFromKey("NEAREST");
    EXPECT_EQ(stored(*copy, {"SEARCH", "RADIUS"}), "50");
}

TEST(DemoTask, TellsFormsApartByMethodAndName)
{
    const DemoTask task("T", noProject);
    EXPECT_EQ(task.getKeyParameters(), (QList<KpbAParameter*>{&at(task, {"METHOD"}), &at(task, {"NAME"})}));
}

TEST(DemoTask, ClimbsFromVersion1To3)
{
    DemoTask task("T", noProject);
    load(task, "<task><param key=\"TITLE\">A</param><param key=\"INTERPOLATOR\">OK</param>"
               "<param key=\"OUTPUTS\">NB|AVG</param><param key=\"SAMPLES\">8</param>"
               "<param key=\"TOP_CUT\">20</param><param key=\"RADIUS\" automatic=\"no\">300</param></task>");
    EXPECT_EQ(stored(task, {"NAME"}), "A");
    EXPECT_EQ(stored(task, {"METHOD"}), "ORDINARY_KRIGING");
    EXPECT_EQ(stored(task, {"STATISTICS"}), "MEAN|SAMPLE_COUNT");
    EXPECT_EQ(stored(task, {"SEARCH", "MAX_SAMPLES"}), "8");
    EXPECT_EQ(stored(task, {"SEARCH", "RADIUS"}), "300");
    EXPECT_EQ(stored(task, {"TRIMMING", "USE_TRIMMING"}), "yes");
    EXPECT_EQ(stored(task, {"TRIMMING", "TRIMMING_GROUP", "UPPER_LIMIT"}), "20");
}

TEST(DemoTask, ClimbsFromVersion2To3)
{
    DemoTask task("T", noProject);
    load(task, "<task version=\"2\"><param key=\"NAME\">A</param><param key=\"METHOD\">KRIGING</param>"
               "<param key=\"STATISTICS\">COUNT</param><param key=\"AZIMUTH\">45</param></task>");
    EXPECT_EQ(stored(task, {"NAME"}), "A");
    EXPECT_EQ(stored(task, {"METHOD"}), "ORDINARY_KRIGING");
    EXPECT_EQ(stored(task, {"STATISTICS"}), "SAMPLE_COUNT");
    EXPECT_EQ(stored(task, {"SEARCH", "AZIMUTH"}), "45");
    EXPECT_EQ(stored(task, {"TRIMMING", "USE_TRIMMING"}), "no");
}

TEST(DemoTask, TakesAnEmptyLimitOfVersion2AsNoTrimming)
{
    DemoTask task("T", noProject);
    at<KpaBool>(task, {"TRIMMING", "USE_TRIMMING"}).setValue(true);
    load(task, "<task version=\"2\"><param key=\"UPPER_LIMIT\"></param></task>");
    EXPECT_EQ(stored(task, {"TRIMMING", "USE_TRIMMING"}), "no");
    EXPECT_EQ(stored(task, {"TRIMMING", "TRIMMING_GROUP", "UPPER_LIMIT"}), "30");
}

TEST(DemoTask, TakesOldNamesInAPresentFormForStrangers)
{
    DemoTask task("T", noProject);
    load(task, "<task version=\"3\"><param key=\"TITLE\">A</param></task>");
    EXPECT_EQ(stored(task, {"NAME"}), "Run 1");
}

TEST(DemoTask, FailsToConvertImpossibleVersions)
{
    const DemoTask task("T", noProject);
    QDomDocument document;
    QDomElement element = document.createElement("task");
    EXPECT_NO_THROW(task.convert(element, 3));
    for (const int version : {-1, 0, 4}) {
        try {
            task.convert(element, version);
            FAIL() << version;
        }
        catch (const MbeProgrammingError& error) {
            EXPECT_TRUE(error.getMessage().endsWith("Unexpected version number requested"));
        }
    }
}

} // namespace
