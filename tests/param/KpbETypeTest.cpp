#include <param/KpbEType.h>

#include <basic/MbeError.h>

namespace {

struct Row
{
    int value;
    const char* key;
    const char* label;
};

// clang-format off
const Row rows[] = {
    {0, "STRING", "String"},
    {1, "INTEGER", "Integer"},
    {2, "DOUBLE", "Double"},
    {3, "ENUM", "Enumeration"},
    {4, "FLAGS", "Flags"},
    {5, "BOOL", "Boolean"},
    {6, "COLOR", "Color"},
    {7, "SYMBOL", "Symbol"},
    {8, "SYMBOL_3D", "3D Symbol"},
    {9, "LINE_STYLE", "Line Style"},
    {10, "PALETTE", "Palette"},
    {11, "FS_DIRECTORY", "File System directory"},
    {12, "FS_FILE", "File System file"},
    {13, "PROJECT", "Project"},
    {14, "COORD_SYSTEM", "Coordinate system"},
    {15, "SEED", "Seed"},
    {16, "UNIT", "Unit"},
    {17, "VECTOR_DOUBLE", "Vector"},
    {18, "VECTOR_INT", "IntegerVector"},
    {19, "ROTATION", "Rotation"},
    {20, "DIRECTION", "Direction"},
    {21, "PLANE_ORIENTATION", "Plane Orientation"},
    {22, "SYSTEM_ORIENTATION", "System Orientation"},
    {23, "DATA_IDENT", "Data identifier"},
    {24, "GEOS_SET_IDENT", "Geostatistical Set identifier"},
    {25, "NEIGHBORHOOD_IDENT", "Neighborhood identifier"},
    {26, "CATALOG_IDENT", "Catalog identifier"},
    {27, "COLOR_SCALE_IDENT", "Color Scale identifier"},
    {28, "SCENE_IDENT", "Scene identifier"},
    {29, "CHARTS_IDENT", "Chart File"},
    {30, "CHART_FOLDER", "Chart Folder"},
    {31, "CHART_VIEW", "Chart View"},
    {32, "GROUP", "Group"},
    {33, "FICHE", "Fiche"},
    {34, "CHECKABLE_GROUP", "Checkable group"},
    {35, "LIST", "List"},
    {36, "DATASET", "Dataset"},
    {37, "SELECTION", "Selection"},
    {38, "DISPLAY_SCENE", "Display scene"},
    {39, "VMODEL_EDA_V2", "VariogramModel"},
    {40, "VMODEL", "VariogramModel"},
    {41, "VSTRUCT", "VariogramStructure"},
    {42, "VARIO_EXP", "VariogramExp"},
    {43, "VARIO_EXP_DIRECTION", "VariogramExpDirection"},
    {44, "ZVX", "ZVXserver"},
    {45, "MATRIX", "Matrix"},
    {46, "NEIGHBORHOOD_MOVING", "Moving neighborhood"},
    {47, "NEIGHBORHOOD", "Neighborhood set"},
    {48, "CATALOG_CATEGORIES", "Catalog categories"},
    {49, "OLD_CATALOG_DEF", "Catalog definition"},
    {50, "SAMPLE_FILTER", "Sample filter"},
    {51, "SAMPLE_FILTER_RULE", "Sample filter rule"},
    {52, "SAMPLE_CATEGORIES", "Sample categories"},
    {53, "SAMPLE_CATEGORIES_RULE", "Sample categories rule"},
    {54, "CONSTRAINT_DOUBLE", "Constraint double"},
    {55, "VECTOR_CONSTRAINT_DOUBLE", "Constraint vector"},
    {56, "CUTOFFS", "Cutoffs"},
};
// clang-format on

QString failureOf(const std::function<void()>& body)
{
    try {
        body();
    }
    catch (const MbeProgrammingError& error) {
        return error.getMessage();
    }
    return QStringLiteral("did not fail");
}

} // namespace

TEST(KpbEType, HasEachKindWithItsValueKeyAndLabel)
{
    EXPECT_EQ(KpbEType::count(), 57);
    ASSERT_EQ(std::size(rows), 57u);
    for (const Row& row : rows) {
        const KpbEType& kind = KpbEType::fromValue(row.value);
        EXPECT_EQ(kind.getValue(), row.value);
        EXPECT_EQ(kind.getKey(), QLatin1String(row.key));
        EXPECT_EQ(kind.getLabel(), QLatin1String(row.label));
        EXPECT_EQ(int(kind.toEnum()), row.value);
        EXPECT_EQ(&KpbEType::fromKey(QLatin1String(row.key)), &kind);
    }
}

TEST(KpbEType, IsIntegerByDefault)
{
    EXPECT_EQ(KpbEType(), KpbEType::INTEGER);
    EXPECT_EQ(KpbEType().toEnum(), KpbEType::EValue::INTEGER);
}

TEST(KpbEType, IteratesInAscendingOrderOfValues)
{
    auto iterator = KpbEType::createIterator();
    for (int value = 0; value < 57; ++value) {
        ASSERT_TRUE(iterator.hasNext());
        EXPECT_EQ(iterator.next().getValue(), value);
    }
    EXPECT_FALSE(iterator.hasNext());
}

TEST(KpbEType, FindsTheLowerOfTwoKindsThatShareALabel)
{
    EXPECT_EQ(KpbEType::fromLabel(QStringLiteral("VariogramModel")), KpbEType::VMODEL_EDA_V2);
    EXPECT_EQ(KpbEType::fromKey(QStringLiteral("VMODEL")), KpbEType::VMODEL);
}

TEST(KpbEType, SaysWhatExists)
{
    EXPECT_TRUE(KpbEType::existsKey(QStringLiteral("CUTOFFS")));
    EXPECT_FALSE(KpbEType::existsKey(QStringLiteral("cutoffs")));
    EXPECT_TRUE(KpbEType::existsLabel(QStringLiteral("Flags")));
    EXPECT_FALSE(KpbEType::existsLabel(QStringLiteral("flags")));
    EXPECT_TRUE(KpbEType::existsValue(56));
    EXPECT_FALSE(KpbEType::existsValue(57));
    EXPECT_FALSE(KpbEType::existsValue(-1));
}

TEST(KpbEType, FailsOnALookupThatFindsNothing)
{
    EXPECT_EQ(failureOf([] { KpbEType::fromKey(QStringLiteral("NONE")); }),
              QStringLiteral("'const class KpbEType &__cdecl KpbEType::fromKey(const class QString &)' in file '.\\Kp' "
                             "failed:\n\nNONE is not valid"));
    EXPECT_EQ(failureOf([] { KpbEType::fromLabel(QStringLiteral("No such %1")); }),
              QStringLiteral("'const class KpbEType &__cdecl KpbEType::fromLabel(const class QString &)' in file "
                             "'.\\Kp' failed:\n\nNo such %1 is not valid"));
    EXPECT_EQ(
        failureOf([] { KpbEType::fromValue(-3); }),
        QStringLiteral("'const class KpbEType &__cdecl KpbEType::fromValue(int)' in file '.\\Kp' failed:\n\n-3 is "
                       "not valid"));
}

TEST(KpbEType, GivesTheDefaultOfALookupThatFindsNothing)
{
    EXPECT_EQ(KpbEType::fromKey(QStringLiteral("NONE"), KpbEType::ZVX), KpbEType::ZVX);
    EXPECT_EQ(KpbEType::fromLabel(QStringLiteral("none"), KpbEType::ZVX), KpbEType::ZVX);
    EXPECT_EQ(KpbEType::fromValue(99, KpbEType::ZVX), KpbEType::ZVX);
    EXPECT_EQ(KpbEType::fromKey(QStringLiteral("LIST"), KpbEType::ZVX), KpbEType::LIST);
    EXPECT_EQ(KpbEType::fromLabel(QStringLiteral("List"), KpbEType::ZVX), KpbEType::LIST);
    EXPECT_EQ(KpbEType::fromValue(35, KpbEType::ZVX), KpbEType::LIST);
}

TEST(KpbEType, ComparesByValue)
{
    EXPECT_TRUE(KpbEType::STRING < KpbEType::INTEGER);
    EXPECT_TRUE(KpbEType::STRING <= KpbEType::STRING);
    EXPECT_TRUE(KpbEType::LIST > KpbEType::GROUP);
    EXPECT_TRUE(KpbEType::LIST >= KpbEType::LIST);
    EXPECT_TRUE(KpbEType::LIST != KpbEType::GROUP);
    EXPECT_FALSE(KpbEType::LIST == KpbEType::GROUP);
}

namespace {

class Letter;

} // namespace

template <>
QMap<int, Letter*> KpbAEnumeration<Letter>::_map;

namespace {

/// An enumeration class as others write it, with a value that is taken twice.
class Letter : public KpbAEnumeration<Letter>
{
public:
    Letter(const char* label, int value, const char* key) : KpbAEnumeration(QString::fromUtf8(label), value, key) {}

private:
    friend class KpbAEnumeration<Letter>;
    static constexpr const char* _className = "Letter";
    static constexpr const char* _file = "letters\\Letter";
};

QString lastDebug;

} // namespace

template <>
QMap<int, Letter*> KpbAEnumeration<Letter>::_map{};

TEST(KpbAEnumeration, LogsAValueThatIsTakenTwiceAndKeepsTheLaterItem)
{
    const Letter a("a", 1, "A");
    const QtMessageHandler former =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) { lastDebug = text; });
    const Letter b("bé", 1, "B");
    qInstallMessageHandler(former);
    EXPECT_EQ(lastDebug, QStringLiteral("Letter: duplicated item bé [1=B]!\n"));
    EXPECT_EQ(Letter::count(), 1);
    EXPECT_EQ(&Letter::fromValue(1), &b);
    try {
        Letter::fromValue(7);
        FAIL();
    }
    catch (const MbeProgrammingError& error) {
        EXPECT_EQ(error.getMessage(), QStringLiteral("'const class Letter &__cdecl Letter::fromValue(int)' in file "
                                                     "'letters\\Letter' failed:\n\n7 is not valid"));
    }
}
