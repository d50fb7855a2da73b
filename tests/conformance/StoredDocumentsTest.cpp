#include "Atomics.h"
#include "Trees.h"

#include <registry/ClassRegistry.h>
#include <support/RecordedMessages.h>
#include <support/RecordingObserver.h>

#include <basic/MbeException.h>
#include <param/composite/KpcConstraintDouble.h>
#include <param/composite/KpcGroupList.h>
#include <param/list/KplDoubleList.h>
#include <param/list/KplIntegerList.h>
#include <param/list/KplStringList.h>

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
        if (!parameter->serialize().isEmpty())
            values[root.getRelatifPath(parameter).join("/")] = formOf(*parameter);
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

namespace {

std::unique_ptr<KpbAParameter> newGroup()
{
    return ClassRegistry::find("KpcGroup")->make("OLD");
}

/// A new child of the class, made by the registry.
template <class T>
T& addTo(KpbAParameter& group, const QString& key, const QString& className)
{
    auto child = ClassRegistry::find(className)->make(key);
    auto& added = dynamic_cast<T&>(*child);
    dynamic_cast<KpcGroup&>(group).addChild(child.release());
    return added;
}

void setInPlane(KpaRotation& rotation)
{
    rotation.setDimension(MbgEDimension::DIM_2D, 0.0);
}

/// Reads the document into `group`, which gets the values, without a message, and is then written and read again.
void expectRead(const char* file, KpbAParameter& group, const Values& expected)
{
    const std::unique_ptr<KpbAParameter> reader(group.duplicate(QString()));
    RecordedMessages messages;
    load(group, parsed(bytesOfFile(file)));
    EXPECT_EQ(shown(valuesOf(group)), shown(expected)) << file;
    EXPECT_EQ(messages.warnings + messages.errors, QStringList()) << file;
    load(*reader, save(group));
    EXPECT_EQ(savedBytes(*reader), savedBytes(group)) << file;
}

} // namespace

TEST(StoredDocuments, OfOlderRotationsAreReadByEachOrientation)
{
    const auto group = newGroup();
    addTo<KpaRotation>(*group, "ROTATION", "KpaRotation");
    setInPlane(addTo<KpaRotation>(*group, "ROTATION_IN_PLANE", "KpaRotation"));
    addTo<KpaRotation>(*group, "OTHER_CONVENTION", "KpaRotation");
    addTo<KpaRotation>(*group, "LOST_ANGLE", "KpaRotation");
    addTo<KpaRotation>(*group, "DIRECTION", "KpaDirection");
    addTo<KpaRotation>(*group, "DIRECTION_OF_AXES", "KpaDirection");
    addTo<KpaRotation>(*group, "DIRECTION_WITHOUT_AZIMUTH", "KpaDirection");
    setInPlane(addTo<KpaRotation>(*group, "DIRECTION_IN_PLANE", "KpaDirection"));
    addTo<KpaRotation>(*group, "PLANE", "KpaPlaneOrientation");
    addTo<KpaRotation>(*group, "SYSTEM", "KpaSystemOrientation");

    load(*group, parsed(bytesOfFile("KpcGroup-old-orientations.xml")));
    Values values = valuesOf(*group);
    // A convention of that string is made for what was read, under whatever number.
    EXPECT_TRUE(values["OTHER_CONVENTION"].endsWith(" conv_string=+Z+X+Z a1=10 a2=20 a3=30"));
    EXPECT_FALSE(values["OTHER_CONVENTION"].startsWith("conv_id=0 "));
    values.remove("OTHER_CONVENTION");
    const Values expected = {
        {"ROTATION", "conv_id=0 conv_string=+Z+Y+X a1=30 a2=-20 a3=10.5"},
        {"ROTATION_IN_PLANE", "conv_id=0 conv_string=+Z+Y+X a1=30 a2=0 a3=0"},
        {"LOST_ANGLE", "conv_id=0 conv_string=+Z+Y+X a1=0 a2=0 a3=0"},
        {"DIRECTION", "azimuth=30 plunge=12.5"},
        {"DIRECTION_OF_AXES", "azimuth=30 plunge=-12.5"},
        {"DIRECTION_WITHOUT_AZIMUTH", "azimuth=10 plunge=0"},
        {"DIRECTION_IN_PLANE", "azimuth=75 plunge=0"},
        {"PLANE", "dip=40 dipAzimuth=120"},
        {"SYSTEM", "dip=0 dipAzimuth=90 pitch=90"},
    };
    EXPECT_EQ(shown(values), shown(expected));
}

TEST(StoredDocuments, OfOlderDrawingsAreReadByEachKind)
{
    const auto group = newGroup();
    addTo<KpaColor>(*group, "OPAQUE_COLOUR", "KpaColor").setValue(QColor(9, 9, 9, 9));
    addTo<KpaColor>(*group, "BRIGHT_COLOUR", "KpaColor").setValue(QColor(9, 9, 9));
    addTo<KpaPalette>(*group, "PALETTE", "KpaPalette");
    addTo<KpaPalette>(*group, "LOST_PALETTE", "KpaPalette").setPaletteId("GREY");
    KugLineStyle style;
    style.setBorder(true);
    style.setBorderWidth(0.5);
    addTo<KpaLineStyle>(*group, "LINE", "KpaLineStyle").setValue(style);
    addTo<KpaLineStyle>(*group, "LOST_LINE", "KpaLineStyle").setValue(style);
    addTo<KpaSymbol>(*group, "SYMBOL", "KpaSymbol");
    addTo<KpaSymbol3D>(*group, "SYMBOL_3D", "KpaSymbol3D");
    addTo<KpaCatalogDefinition_old>(*group, "CATALOG", "KpaCatalogDefinition_old");
    addTo<KpaCoordSystem>(*group, "LOCAL_SYSTEM", "KpaCoordSystem");
    addTo<KpaCoordSystem>(*group, "LOST_SYSTEM", "KpaCoordSystem")
        .setValue(KuuCoordSystemCatalog::getCoordSystem("EPSG:2154"));

    expectRead(
        "KpcGroup-old-drawings.xml", *group,
        {{"OPAQUE_COLOUR", "red=1 green=2 blue=3 opacity=255"},
         {"BRIGHT_COLOUR", "red=255 green=0 blue=9 opacity=128"},
         {"PALETTE", "id=TERRAIN"},
         {"LOST_PALETTE", "id=GREY"},
         {"LINE", "pen=DASH color=#ff102030 width=2.5 border=yes borderColor=#ff000000 borderWidth=0.5"},
         {"LOST_LINE", "pen=SOLID color=#ff000000 width=1 border=yes borderColor=#ff000000 borderWidth=0.5"},
         {"SYMBOL",
          "shape=STAR size=12 red=1 green=2 blue=3 opacity=255 drawBorder=no borderRed=0 borderGreen=0 borderBlue=0"},
         {"SYMBOL_3D", "shape=CONE size=2.5 quality=0.5 red=0 green=0 blue=0 opacity=255"},
         {"CATALOG", "id=rocks name=Rock types undefRgba=4294967295 enum1=1|Oxide|4294934528 "
                     "enum2=2|Fresh rock|4278190335"},
         {"LOCAL_SYSTEM", "LOCAL"},
         {"LOST_SYSTEM", "EPSG:2154"}});
}

TEST(StoredDocuments, OfOlderListsVectorsAndMatricesKeepWhatTheyCan)
{
    const auto group = newGroup();
    addTo<KplIntegerList>(*group, "COUNTS", "KplIntegerList").setValues({1, 2, 3});
    addTo<KplDoubleList>(*group, "CUTOFFS", "KplDoubleList").setUnique(true);
    auto& three = addTo<KplIntegerList>(*group, "THREE", "KplIntegerList");
    three.setValues({0, 0, 0});
    three.setResizable(false);
    addTo<KplStringList>(*group, "TEXTS", "KplStringList");
    auto& groups = addTo<KpcGroupList>(*group, "GROUPS", "KpcGroupList");
    groups.getItemPrototype()->addChild(new KpaInteger("COUNT"));
    addTo<KplIntegerList>(*group, "EMPTY", "KplIntegerList").setValues({1, 2});
    addTo<KpaVectorDouble>(*group, "VECTOR", "KpaVectorDouble").setComponentValues(7.0, 8.0, 9.0);
    addTo<KpaMatrixSymmetrical>(*group, "MATRIX", "KpaMatrixSymmetrical").setMode(Ku::Constraint::Constraints);
    addTo<KpcConstraintDouble>(*group, "CONSTRAINT", "KpcConstraintDouble").setMode(Ku::Constraint::Constraints);

    expectRead("KpcGroup-old-lists.xml", *group,
               {{"COUNTS/ITEM_5", "50"},
                {"COUNTS/ITEM_1", "10"},
                {"CUTOFFS/ITEM_1", "2"},
                {"CUTOFFS/ITEM_2", "0.5"},
                {"THREE/ITEM_1", "1"},
                {"THREE/ITEM_2", "2"},
                {"THREE/ITEM_3", "3"},
                {"TEXTS/ITEM_2", QStringLiteral("2 m\ncaf\u00e9")},
                {"GROUPS/ITEM_3/COUNT", "7"},
                {"VECTOR", "v1=7 v2=8 v3=9"},
                {"MATRIX", "size=2 behavior=Automatic node_1=4 node_2=0 node_3=9 min_V1=1 max_V1= min_V2= max_V2= "
                           "min_V3= max_V3="},
                {"CONSTRAINT/VALUE", "5"},
                {"CONSTRAINT/LOWER_BOUND", ""},
                {"CONSTRAINT/UPPER_BOUND", ""}});
    EXPECT_EQ(dynamic_cast<KplIntegerList&>(*group->getChild("COUNTS")).getItemKeys(),
              (QStringList{"ITEM_5", "ITEM_1"}));
}

TEST(StoredDocuments, OfOlderRotationsAreReadByTheFormOfTheDemonstration)
{
    const auto model = ClassRegistry::find("DemoModel")->make("DemoModel");
    load(*model, parsed(bytesOfFile("kparam-demo-old-rotations.xml")));
    const Values values = valuesOf(*model);
    EXPECT_EQ(values["NAME"], "Lens C");
    EXPECT_EQ(values["GRID/ROTATION"], "conv_id=0 conv_string=+Z+Y+X a1=30 a2=0 a3=0");
    EXPECT_EQ(values["STRUCTURE/SHOOTS"], "azimuth=30 plunge=12.5");
    EXPECT_EQ(values["STRUCTURE/LAYERS"], "dip=40 dipAzimuth=120");
}

TEST(StoredDocuments, AreAllRead)
{
    QSet<QString> read = {"DemoTask-damaged-version.xml",  "KpcGroup-old-encodings.xml",
                          "KpcGroup-old-orientations.xml", "KpcGroup-old-drawings.xml",
                          "KpcGroup-old-lists.xml",        "kparam-demo-old-rotations.xml"};
    // What belongs to a project, in StoredDataTest.
    for (const char* name :
         {"KpaData-url", "KpaGeosSet-url", "KpcCatalogCategories-damaged", "KpcCutoffs-damaged", "KpcCutoffs-too-new",
          "KpcCutoffs-v1", "KpcCutoffs-v2", "KpcDataset-partial", "KpcSampleFilter-damaged", "KpcSampleFilter-too-new",
          "KpcSampleFilter-v1", "KpcSampleFilterRule-v1", "KpcSampleFilterRule-v1-partial", "KpcSelection-categories",
          "KpcSelection-plain"})
        read.insert(QLatin1String(name) + QLatin1String(".xml"));
    for (const Document& document : readableDocuments())
        read.insert(document.file);
    for (const NewerDocument& document : newerDocuments())
        read.insert(document.file);
    for (const BrokenDocument& document : brokenDocuments)
        read.insert(document.file);
    for (const QString& file : storedFolder().entryList(QDir::Files))
        EXPECT_TRUE(read.contains(file)) << "No test reads " << file.toStdString();
}
