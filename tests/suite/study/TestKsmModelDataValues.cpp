#include "DataTree.h"

#include <cmath>
#include <limits>

namespace {

constexpr double undefined = MbbGlobal::D_FFFF;

class KsmModelDataValuesTest : public DataTree
{
protected:
    KsoDataVariable* variableOf(const MbdEVarType& type)
    {
        return data->createVariable(samples, type.getKey(), detailsOf(type));
    }
    std::vector<double> valuesOf(const KsoAVariableItem* variable) const
    {
        std::vector<double> values;
        data->readValues(variable, values);
        return values;
    }
};

TEST_F(KsmModelDataValuesTest, AreUndefinedUntilTheyAreWritten)
{
    for (const MbdEVarType& type : {MbdEVarType::BYTE, MbdEVarType::INTEGER, MbdEVarType::FLOAT, MbdEVarType::DOUBLE,
                                    MbdEVarType::BOOLEAN, MbdEVarType::ENUM})
        EXPECT_EQ(valuesOf(variableOf(type)), (std::vector<double>{undefined, undefined, undefined}));
    QStringList texts;
    data->readTexts(variableOf(MbdEVarType::STRING), texts);
    EXPECT_EQ(texts, (QStringList{"", "", ""}));
}

TEST_F(KsmModelDataValuesTest, ComeBackAsTheyWereWritten)
{
    const QList<QPair<MbdEVarType, std::vector<double>>> cases{
        {MbdEVarType::BYTE, {0, 255, undefined}},      {MbdEVarType::INTEGER, {-2147483647.0, 2147483647.0, undefined}},
        {MbdEVarType::FLOAT, {-1.5, 0.25, undefined}}, {MbdEVarType::DOUBLE, {1e-308, -1.0 / 3, undefined}},
        {MbdEVarType::BOOLEAN, {0, 1, undefined}},     {MbdEVarType::ENUM, {-32767, 32767, undefined}},
    };
    for (const auto& [type, values] : cases) {
        KsoDataVariable* variable = variableOf(type);
        data->writeValues(variable, values);
        EXPECT_EQ(valuesOf(variable), values) << type.getKey().toStdString();
    }
}

TEST_F(KsmModelDataValuesTest, HaveThePrecisionOfTheirType)
{
    KsoDataVariable* variable = variableOf(MbdEVarType::FLOAT);

    data->writeValues(variable, {0.1, 1e30, -1e-30});

    EXPECT_EQ(valuesOf(variable), (std::vector<double>{0.1f, 1e30f, -1e-30f}));
}

TEST_F(KsmModelDataValuesTest, AreRefusedWhereTheTypeCannotHoldThem)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const QList<QPair<MbdEVarType, QList<double>>> cases{
        {MbdEVarType::BYTE, {-1, 256, 0.5}},
        {MbdEVarType::INTEGER, {-2147483648.0, 2147483648.0, 1.5}},
        {MbdEVarType::FLOAT, {3.41e38, -3.41e38, std::numeric_limits<float>::max()}},
        {MbdEVarType::DOUBLE, {infinity, -infinity, std::nan("")}},
        {MbdEVarType::BOOLEAN, {2, -1, 0.5}},
        {MbdEVarType::ENUM, {-32768, 32768, 1.5}},
    };
    for (const auto& [type, refused] : cases) {
        KsoDataVariable* variable = variableOf(type);
        data->writeValues(variable, {1, 0, 1});
        for (const double value : refused)
            EXPECT_THROW(data->writeValues(variable, {0, value, 0}), MbeUserError) << value;
        EXPECT_EQ(valuesOf(variable), (std::vector<double>{1, 0, 1}));
    }
    EXPECT_EQ(messageOf<MbeUserError>([&] {
                  data->writeValues(copper, {0, infinity, 0});
              }),
              "The value inf of the sample 2 is none of the variable's type.");
}

TEST_F(KsmModelDataValuesTest, AreAsManyAsTheSamples)
{
    EXPECT_EQ(messageOf<MbeUserError>([&] {
                  data->writeValues(copper, {1, 2});
              }),
              "There are 2 values for the 3 samples of the support 'a/b/holes/samples'.");
    EXPECT_EQ(messageOf<MbeUserError>([&] {
                  data->createVariable(samples, "Zn", detailsOf(MbdEVarType::DOUBLE), MbdEVarRole::V,
                                       std::vector<double>{1});
              }),
              "There are 1 values for the 3 samples of the support 'a/b/holes/samples'.");
    EXPECT_EQ(samples->getChildItem(KsoEDataType::VARIABLE, "Zn"), nullptr);
}

TEST_F(KsmModelDataValuesTest, OfCategoriesAreCodes)
{
    KsoDataVariable* rock = variableOf(MbdEVarType::ENUM);
    data->writeValues(rock, {3, undefined, -2});

    std::vector<short> codes;
    data->readCodes(rock, codes);

    EXPECT_EQ(codes, (std::vector<short>{3, MbbGlobal::I16_FFFF, -2}));
    EXPECT_EQ(messageOf<MbeUserError>([&] { data->readCodes(copper, codes); }),
              "The values of the variable are no categories.");
}

TEST_F(KsmModelDataValuesTest, OfTextsAreAnyTexts)
{
    KsoDataVariable* name = variableOf(MbdEVarType::STRING);
    const QStringList written{"", QString::fromUtf8("Grès \xF0\x9F\x98\x80"), QString(QChar(0)) + "/" + QChar(0xD800)};

    data->writeTexts(name, written);

    QStringList texts;
    data->readTexts(name, texts);
    EXPECT_EQ(texts, written);
}

TEST_F(KsmModelDataValuesTest, OfTextsAreNoNumbers)
{
    KsoDataVariable* name = variableOf(MbdEVarType::STRING);
    std::vector<double> values;
    QStringList texts;

    EXPECT_EQ(messageOf<MbeUserError>([&] { data->readValues(name, values); }),
              "The values of the variable are texts.");
    EXPECT_EQ(messageOf<MbeUserError>([&] {
                  data->writeValues(name, {1, 2, 3});
              }),
              "The values of a variable of texts are no numbers.");
    EXPECT_EQ(messageOf<MbeUserError>([&] { data->readTexts(copper, texts); }),
              "The values of the variable are no texts.");
    EXPECT_EQ(messageOf<MbeUserError>([&] {
                  data->writeTexts(copper, {"1", "2", "3"});
              }),
              "The values of the variable are no texts.");
}

TEST_F(KsmModelDataValuesTest, OfARealisationStandForThemselves)
{
    KsoDataMacroVariable* macro = data->createMacroVariable(samples, "sim", detailsOf(MbdEVarType::FLOAT), 3);
    data->writeValues(macro, 0, {1, 2, 3});
    data->writeValues(macro, 2, {4, 5, 6});

    std::vector<double> values;
    data->readValues(macro, 0, values);
    EXPECT_EQ(values, (std::vector<double>{1, 2, 3}));
    data->readValues(macro, 1, values);
    EXPECT_EQ(values, (std::vector<double>{undefined, undefined, undefined}));
    data->readValues(macro, 2, values);
    EXPECT_EQ(values, (std::vector<double>{4, 5, 6}));
    for (const int index : {-1, 3})
        EXPECT_EQ(messageOf<MbeUserError>([&] { data->readValues(macro, index, values); }),
                  QString("The macro variable 'a/b/holes/samples/sim' has no realisation of the index %1.").arg(index));
}

TEST_F(KsmModelDataValuesTest, OfARealisationCanBeTexts)
{
    KsoDataMacroVariable* macro = data->createMacroVariable(samples, "sim", detailsOf(MbdEVarType::STRING), 1);

    data->writeTexts(macro, 0, {"x", "y", "z"});

    QStringList texts;
    data->readTexts(macro, 0, texts);
    EXPECT_EQ(texts, (QStringList{"x", "y", "z"}));
}

TEST_F(KsmModelDataValuesTest, AreToldWhenTheyChange)
{
    DataObserver observer(data);

    data->writeValues(copper, {1, 2, 3});

    ASSERT_EQ(observer.records.size(), 1u);
    EXPECT_TRUE(observer.records[0].hasModif(copper->getIdentifier(), 0x20000));
    EXPECT_FALSE(observer.records[0].hasModif(copper->getIdentifier(), 8));
    EXPECT_FALSE(observer.records[0].hasModif(samples->getIdentifier(), 0x20000));
}

TEST_F(KsmModelDataValuesTest, OfNoSampleAreNone)
{
    KsoDataSupport* empty = data->createSupport(holes, "empty", 0);
    KsoDataVariable* variable = data->createVariable(empty, "v", detailsOf(MbdEVarType::DOUBLE));

    EXPECT_TRUE(valuesOf(variable).empty());
    data->writeValues(variable, {});
    EXPECT_TRUE(valuesOf(variable).empty());
}

} // namespace
