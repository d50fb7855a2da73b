#include <gtest/gtest.h>

#include <basic/MbdEIo.h>
#include <basic/MbdEnumCatalog.h>
#include <basic/MbdVarRoleFlags.h>
#include <basic/MbdVarTypeFlags.h>
#include <basic/MbdVariableDetails.h>
#include <basic/MbgDimensionFlags.h>
#include <basic/MbgGeometrySetFlags.h>

namespace {

template <class Enum>
QStringList keys()
{
    QStringList keys;
    for (const Enum* item : Enum::items())
        keys.append(QStringLiteral("%1 %2").arg(item->getValue()).arg(item->getKey()));
    return keys;
}

} // namespace

TEST(DataWords, HaveFixedValuesAndKeys)
{
    EXPECT_EQ(keys<MbdEIo>(), QStringList({"0 INPUT", "1 OUTPUT"}));
    EXPECT_EQ(keys<MbdEVarType>(),
              QStringList({"0 BYTE", "1 INTEGER", "2 FLOAT", "3 DOUBLE", "4 BOOLEAN", "5 ENUM", "6 STRING"}));
    EXPECT_EQ(keys<MbdEVarRole>(), QStringList({"0 NONE", "1 COORDINATE", "2 WEIGHT", "3 V"}));
    EXPECT_EQ(keys<MbgEGeometrySet>(), QStringList({"0 POINTS", "1 LINES", "2 POLYGONS", "3 GRID"}));
}

TEST(DataWords, TellNumbersFromOtherTypes)
{
    for (const MbdEVarType& type : {MbdEVarType::BYTE, MbdEVarType::INTEGER, MbdEVarType::FLOAT, MbdEVarType::DOUBLE})
        EXPECT_TRUE(type.isNumeric()) << type.getKey().toStdString();
    for (const MbdEVarType& type : {MbdEVarType::BOOLEAN, MbdEVarType::ENUM, MbdEVarType::STRING})
        EXPECT_FALSE(type.isNumeric()) << type.getKey().toStdString();
}

TEST(MbbAEnumFlags, HoldsAllItemsInAny)
{
    EXPECT_EQ(MbdVarTypeFlags::ANY.getValues(), QList<int>({0, 1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(MbdVarRoleFlags::ANY.getValues(), QList<int>({0, 1, 2, 3}));
    EXPECT_EQ(MbgGeometrySetFlags::ANY.getValues(), QList<int>({0, 1, 2, 3}));
    EXPECT_EQ(MbgDimensionFlags::ANY.getValues(), QList<int>({0, 1, 2}));
}

TEST(MbbAEnumFlags, HoldsTheItemsOfItsList)
{
    EXPECT_EQ(MbdVarTypeFlags({MbdEVarType::ENUM, MbdEVarType::BOOLEAN}).getItems(),
              QList<MbdEVarType>({MbdEVarType::BOOLEAN, MbdEVarType::ENUM}));
    EXPECT_EQ(MbgDimensionFlags::ONLY_3D.getItems(), QList<MbgEDimension>({MbgEDimension::DIM_3D}));
    EXPECT_EQ(MbgGeometrySetFlags::GRID.getItems(), QList<MbgEGeometrySet>({MbgEGeometrySet::GRID}));
    EXPECT_TRUE(MbgDimensionFlags::ONLY_3D.contains(MbgEDimension::DIM_3D));
    EXPECT_FALSE(MbgDimensionFlags::ONLY_3D.contains(MbgEDimension::DIM_2D));
    EXPECT_TRUE(MbdVarTypeFlags().isEmpty());
}

TEST(MbdVariableDetails, HasATypeAndACatalog)
{
    MbdVariableDetails details;
    EXPECT_EQ(details.getType(), MbdEVarType::DOUBLE);
    EXPECT_EQ(details.getEnumDetails().getCatalogId(), -1);
    const MbdVariableDetails initial = details;
    details.setType(MbdEVarType::ENUM);
    EXPECT_NE(details, initial);
    MbdVariableDetails bound = details;
    bound.getEnumDetails().setCatalogId(7);
    EXPECT_NE(bound, details);
}

TEST(MbdEnumCatalog, DefinesCategoriesByValue)
{
    MbdEnumCatalog catalog;
    catalog.setUndefColor(MbbColor(5));
    catalog.setCategory(3, "Sand", MbbColor(1));
    EXPECT_EQ(catalog.getDefinition(3), MbdCategoryDefinition(3, "Sand", MbbColor(1)));
    EXPECT_EQ(catalog.getDefinition(4), MbdCategoryDefinition(MbbGlobal::I16_FFFF, "", MbbColor(5)));
    EXPECT_EQ(catalog.getUndefinedCategory().getValue(), -32768);
}

TEST(MbdEnumCatalog, ListsItsNamesByValue)
{
    MbdEnumCatalog catalog;
    catalog.setCategory(3, "Sand", MbbColor(1));
    catalog.setCategory(-1, "Clay", MbbColor(1));
    QStringList names{"former"};
    catalog.getNamesList(names, false);
    EXPECT_EQ(names, QStringList({"Clay", "Sand"}));
    catalog.getNamesList(names, true);
    EXPECT_EQ(names, QStringList({"", "Clay", "Sand"}));
}
