#include "Atomics.h"
#include "Trees.h"

#include <registry/ClassRegistry.h>
#include <support/RecordedMessages.h>
#include <support/RecordingObserver.h>

#include <basic/MbeException.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QMap>
#include <QtCore/QSet>

#include <memory>

namespace {

using Values = QMap<QString, QString>;

QDir storedFolder()
{
    return QDir(QStringLiteral(KESTRIN_SOURCE_DIR "/samples/stored"));
}

std::string bytesOfFile(const QString& name)
{
    QFile file(storedFolder().filePath(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return file.readAll().toStdString();
}

std::unique_ptr<KpbAParameter> newDemoTask()
{
    return ClassRegistry::find("DemoTask")->make("DemoTask");
}

/// The stored texts of all leaves by their places below the root.
Values valuesOf(KpbAParameter& root)
{
    Values values;
    for (const KpbAParameter* parameter : allOf(root)) {
        if (parameter->serialize().contains("value"))
            values[root.getRelatifPath(parameter).join("/")] = parameter->serialize().value("value");
    }
    return values;
}

/// The values of the form as built, and in their place those of `others`.
Values builtBut(const Values& others)
{
    Values values = {
        {"NAME", "Run 1"},
        {"METHOD", "ORDINARY_KRIGING"},
        {"SAMPLES_FILE", ""},
        {"RESULT_FOLDER", ""},
        {"SEARCH/RADIUS", "100"},
        {"SEARCH/AZIMUTH", "0"},
        {"SEARCH/MAX_SAMPLES", "16"},
        {"SEARCH/SECTORS/COUNT", "4"},
        {"SEARCH/SECTORS/BALANCED", "yes"},
        {"TRIMMING/USE_TRIMMING", "no"},
        {"TRIMMING/TRIMMING_GROUP/UPPER_LIMIT", "30"},
        {"RANDOM_PATH", "no"},
        {"SEED", "12345678"},
        {"STATISTICS", "VARIANCE"},
        {"REPORT_UNIT", "m"},
        {"PREVIEW", "no"},
    };
    for (auto other = others.begin(); other != others.end(); ++other) {
        EXPECT_TRUE(values.contains(other.key())) << other.key().toStdString();
        values[other.key()] = other.value();
    }
    return values;
}

std::string shown(const Values& values)
{
    QStringList lines;
    for (auto value = values.begin(); value != values.end(); ++value)
        lines.append(value.key() + " = " + value.value());
    return lines.join('\n').toStdString();
}

enum Radius
{
    AutomaticRadius,
    ChosenRadius
};

struct Document
{
    const char* file;
    Radius radius;
    Values differences; ///< what is not as built once the document has been read
};

const QList<Document>& readableDocuments()
{
    static const QList<Document> documents = {
        {"DemoTask-v1.xml",
         ChosenRadius,
         {{"NAME", "Bench 340"},
          {"METHOD", "ORDINARY_KRIGING"},
          {"SAMPLES_FILE", "/data/bench_340.csv"},
          {"RESULT_FOLDER", "/data/results"},
          {"SEARCH/RADIUS", "250"},
          {"SEARCH/AZIMUTH", "35.5"},
          {"SEARCH/MAX_SAMPLES", "24"},
          {"TRIMMING/USE_TRIMMING", "yes"},
          {"TRIMMING/TRIMMING_GROUP/UPPER_LIMIT", "12.5"},
          {"RANDOM_PATH", "yes"},
          {"SEED", "4711"},
          {"STATISTICS", "MEAN|SAMPLE_COUNT"},
          {"REPORT_UNIT", "ft"}}},
        {"DemoTask-v1-numbered.xml",
         AutomaticRadius,
         {{"NAME", "Bench 345"}, {"METHOD", "NEAREST"}, {"SEARCH/RADIUS", "50"}}},
        {"DemoTask-v1-partial.xml", AutomaticRadius, {{"SEARCH/MAX_SAMPLES", "8"}, {"STATISTICS", ""}}},
        {"DemoTask-v1-as-param.xml",
         AutomaticRadius,
         {{"NAME", "Bench 350"},
          {"METHOD", "INVERSE_DISTANCE"},
          {"TRIMMING/USE_TRIMMING", "yes"},
          {"TRIMMING/TRIMMING_GROUP/UPPER_LIMIT", "40"}}},
        {"DemoTask-v2.xml",
         ChosenRadius,
         {{"NAME", "Bench 360"},
          {"METHOD", "ORDINARY_KRIGING"},
          {"SAMPLES_FILE", "/data/bench_360.txt"},
          {"RESULT_FOLDER", "/data/results/360"},
          {"SEARCH/RADIUS", "80"},
          {"SEARCH/AZIMUTH", "40"},
          {"SEARCH/MAX_SAMPLES", "48"},
          {"TRIMMING/USE_TRIMMING", "yes"},
          {"TRIMMING/TRIMMING_GROUP/UPPER_LIMIT", "25"},
          {"RANDOM_PATH", "yes"},
          {"SEED", "random"},
          {"STATISTICS", "MEAN|VARIANCE|SAMPLE_COUNT"},
          {"REPORT_UNIT", "km"}}},
        {"DemoTask-v2-partial.xml",
         AutomaticRadius,
         {{"METHOD", "NEAREST"}, {"SEARCH/RADIUS", "50"}, {"SEARCH/AZIMUTH", "90"}}},
        {"DemoTask-v2-moved-already.xml",
         AutomaticRadius,
         {{"SEARCH/MAX_SAMPLES", "12"}, {"SEARCH/SECTORS/COUNT", "8"}}},
        {"DemoTask-v3.xml",
         ChosenRadius,
         {{"NAME", "Bench 380"},
          {"METHOD", "INVERSE_DISTANCE"},
          {"SAMPLES_FILE", "/data/bench_380.csv"},
          {"RESULT_FOLDER", "/data/results/380"},
          {"SEARCH/RADIUS", "60"},
          {"SEARCH/AZIMUTH", "120"},
          {"SEARCH/MAX_SAMPLES", "32"},
          {"SEARCH/SECTORS/COUNT", "6"},
          {"SEARCH/SECTORS/BALANCED", "no"},
          {"TRIMMING/USE_TRIMMING", "yes"},
          {"TRIMMING/TRIMMING_GROUP/UPPER_LIMIT", "17.5"},
          {"RANDOM_PATH", "yes"},
          {"SEED", "99"},
          {"STATISTICS", "SAMPLE_COUNT"},
          {"REPORT_UNIT", "mi"}}},
        {"DemoTask-v3-partial.xml", AutomaticRadius, {{"SEARCH/SECTORS/BALANCED", "no"}, {"SEED", "random"}}},
        {"DemoTask-v3-with-a-preview.xml", AutomaticRadius, {{"NAME", "Bench 390"}}},
        // What cannot be taken leaves what was there, or the nearest that can.
        {"DemoTask-damaged-values.xml",
         ChosenRadius,
         {{"SEARCH/MAX_SAMPLES", "256"},
          {"TRIMMING/TRIMMING_GROUP/UPPER_LIMIT", "0"},
          {"RANDOM_PATH", "yes"},
          {"STATISTICS", "MEAN"}}},
        {"DemoTask-damaged-structure.xml",
         AutomaticRadius,
         {{"NAME", ""}, {"SEARCH/SECTORS/COUNT", "7"}, {"SEED", "2"}}},
        {"kparam-demo-v1.xml",
         ChosenRadius,
         {{"NAME", "Lens A"},
          {"METHOD", "INVERSE_DISTANCE"},
          {"SEARCH/RADIUS", "75"},
          {"SEARCH/AZIMUTH", "30"},
          {"SEARCH/MAX_SAMPLES", "24"},
          {"TRIMMING/USE_TRIMMING", "yes"},
          {"TRIMMING/TRIMMING_GROUP/UPPER_LIMIT", "12.5"},
          {"STATISTICS", "MEAN|VARIANCE|SAMPLE_COUNT"}}},
        {"kparam-demo-v2.xml",
         AutomaticRadius,
         {{"NAME", "Lens B"},
          {"METHOD", "ORDINARY_KRIGING"},
          {"SEARCH/AZIMUTH", "120"},
          {"SEARCH/MAX_SAMPLES", "48"},
          {"STATISTICS", "MEAN|SAMPLE_COUNT"}}},
        {"kparam-demo-partial.xml", AutomaticRadius, {{"METHOD", "NEAREST"}, {"SEARCH/RADIUS", "50"}}},
    };
    return documents;
}

/// Documents with a part that is newer than the class, and the key of each such part.
struct NewerDocument
{
    const char* file;
    QStringList newer;
    Values differences;
};

const QList<NewerDocument>& newerDocuments()
{
    static const QList<NewerDocument> documents = {
        {"DemoTask-too-new.xml", {"DemoTask"}, {}},
        {"kparam-demo-too-new.xml", {"DemoTask"}, {}},
        {"DemoTask-too-new-search.xml", {"SEARCH", "SEED"}, {{"NAME", "Bench 410"}, {"RANDOM_PATH", "yes"}}},
    };
    return documents;
}

/// Documents that are none, and the line where reading stops.
struct BrokenDocument
{
    const char* file;
    int line;
};

constexpr BrokenDocument brokenDocuments[] = {
    {"DemoTask-damaged-empty.xml", 1},
    {"DemoTask-damaged-entities.xml", 2},
    {"DemoTask-damaged-truncated.xml", 5},
    {"kparam-demo-damaged.xml", 3},
};

} // namespace

TEST(StoredDocuments, OfEveryVersionAreReadAsWhatTheyMeant)
{
    for (const Document& document : readableDocuments()) {
        SCOPED_TRACE(document.file);
        const auto task = newDemoTask();
        RecordedMessages messages;
        load(*task, parsed(bytesOfFile(document.file)));
        EXPECT_EQ(shown(valuesOf(*task)), shown(builtBut(document.differences)));
        EXPECT_EQ(task->getChild("SEARCH")->getChild("RADIUS")->isAutomatic(), document.radius == AutomaticRadius);
        EXPECT_EQ(messages.warnings + messages.errors, QStringList());
    }
}

TEST(StoredDocuments, AreSavedInThePresentVersionAndReadAgainAsTheSame)
{
    for (const Document& document : readableDocuments()) {
        SCOPED_TRACE(document.file);
        const auto task = newDemoTask();
        load(*task, parsed(bytesOfFile(document.file)));
        const QDomDocument saved = KpsSerializer::convertFicheToXml(&dynamic_cast<KpcGroup&>(*task));
        EXPECT_EQ(saved.documentElement().attribute("id"), "DemoTask");
        EXPECT_EQ(saved.documentElement().attribute("version"), "3");
        const auto reader = newDemoTask();
        load(*reader, parsed(bytesOf(saved)));
        EXPECT_EQ(stateOf(*reader), stateOf(*task));
    }
}

TEST(StoredDocuments, SendNothingWhenTheyAreReadAgain)
{
    for (const Document& document : readableDocuments()) {
        // One that names a parameter twice, or a value that is refused, asks for a change each time.
        if (QString(document.file).contains("damaged"))
            continue;
        const auto task = newDemoTask();
        load(*task, parsed(bytesOfFile(document.file)));
        const std::string state = stateOf(*task);
        load(*task, parsed(bytesOfFile(document.file)));
        EXPECT_EQ(stateOf(*task), state) << document.file;
    }
}

TEST(StoredDocuments, OfTheFirstVersionsSayByALimitThatHighGradesAreTrimmed)
{
    const struct
    {
        const char* limit;
        const char* trimmed;
        const char* read;
    } cases[] = {
        {"<param key=\"UPPER_LIMIT\">25</param>", "yes", "25"},
        {"<param key=\"UPPER_LIMIT\">0</param>", "yes", "0"},
        {"<param key=\"UPPER_LIMIT\"/>", "no", "30"},
        {"", "no", "30"},
    };
    for (const auto& c : cases) {
        const auto task = newDemoTask();
        load(*task, parsed(std::string("<task id=\"DemoTask\" version=\"2\">") + c.limit + "</task>"));
        EXPECT_EQ(valuesOf(*task)["TRIMMING/USE_TRIMMING"], c.trimmed) << c.limit;
        EXPECT_EQ(valuesOf(*task)["TRIMMING/TRIMMING_GROUP/UPPER_LIMIT"], c.read) << c.limit;
    }
}

TEST(StoredDocuments, ThatAreTooNewAreRefusedWithAWarningAndTheRestIsRead)
{
    for (const NewerDocument& document : newerDocuments()) {
        SCOPED_TRACE(document.file);
        const auto task = newDemoTask();
        RecordedMessages messages;
        load(*task, parsed(bytesOfFile(document.file)));
        QStringList expected;
        for (const QString& key : document.newer)
            expected.append("Cannot load parameter '" + key + "' because version is too recent.");
        EXPECT_EQ(messages.warnings, expected);
        EXPECT_EQ(shown(valuesOf(*task)), shown(builtBut(document.differences)));
        EXPECT_TRUE(task->getChild("SEARCH")->getChild("RADIUS")->isAutomatic());
    }
}

TEST(StoredDocuments, OfAVersionThatIsNoNumberFailAndChangeNothing)
{
    const auto task = newDemoTask();
    const std::string state = stateOf(*task);
    RecordingObserver observer(*task);
    try {
        load(*task, parsed(bytesOfFile("DemoTask-damaged-version.xml")));
        FAIL() << "has been read";
    }
    catch (const MbeProgrammingError& error) {
        EXPECT_EQ(error.getMessage(), "'void __cdecl DemoTask::convert(class QDomElement &,int) const' in file "
                                      "'registry\\DemoTask' failed:\n\nUnexpected version number requested");
    }
    EXPECT_EQ(stateOf(*task), state);
    EXPECT_EQ(observer.records.size(), 0);
}

TEST(StoredDocuments, ThatAreNoDocumentsAreRefusedWithTheirPlace)
{
    for (const BrokenDocument& broken : brokenDocuments) {
        QDomDocument document;
        const KuxXmlResult result = KuxXml::parse(QByteArray::fromStdString(bytesOfFile(broken.file)), &document);
        EXPECT_FALSE(result.ok) << broken.file;
        EXPECT_FALSE(result.message.isEmpty()) << broken.file;
        EXPECT_EQ(result.line, broken.line) << broken.file << ": " << result.message.toStdString();
        EXPECT_TRUE(document.isNull()) << broken.file;
    }
}

TEST(StoredDocuments, InOldEncodingsAreReadByEachKind)
{
    const auto root = ClassRegistry::find("KpcGroup")->make("OLD");
    auto& group = dynamic_cast<KpcGroup&>(*root);
    group.addChild(new KpaString("REMARK"));
    for (const QString& key : {QString("CHOICE"), QString("LABELLED")}) {
        auto* choice = new KpaEnum(key);
        group.addChild(choice);
        choice->reset({{0, "First choice", "One"}, {1, "Second choice", "Two words"}});
    }
    group.addChild(new KpaBool("BOX"));
    group.addChild(new KpaBool("NUMBERED_BOX"));
    dynamic_cast<KpaBool&>(*group.getChild("NUMBERED_BOX")).setValue(false);
    group.addChild(new KpaInteger("COUNT"));
    group.addChild(new KpaSeed("RANDOM"));

    load(group, parsed(bytesOfFile("KpcGroup-old-encodings.xml")));

    const Values expected = {
        {"REMARK", QStringLiteral("100% of 2 m cores\n\ncaf\u00e9")},
        {"CHOICE", "Two words"},
        {"LABELLED", "Two words"},
        {"BOX", "no"},
        {"NUMBERED_BOX", "yes"},
        {"COUNT", "12"},
        {"RANDOM", "random"},
    };
    EXPECT_EQ(shown(valuesOf(group)), shown(expected));
}

TEST(StoredDocuments, AreAllRead)
{
    QSet<QString> read = {"DemoTask-damaged-version.xml", "KpcGroup-old-encodings.xml"};
    for (const Document& document : readableDocuments())
        read.insert(document.file);
    for (const NewerDocument& document : newerDocuments())
        read.insert(document.file);
    for (const BrokenDocument& document : brokenDocuments)
        read.insert(document.file);
    for (const QString& file : storedFolder().entryList(QDir::Files))
        EXPECT_TRUE(read.contains(file)) << "No test reads " << file.toStdString();
}
