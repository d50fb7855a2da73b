#include "KpsSerializerTestTools.h"

using namespace SerializerTest;

namespace {

class KpsSerializerFicheKey : public testing::Test
{
protected:
    KssProject project{std::make_unique<MemoryStore>()};
    KpsSerializer serializer{&project};
};

QString failureOf(const std::function<void()>& body)
{
    try {
        body();
    }
    catch (const MbeProgrammingError& error) {
        return error.getMessage();
    }
    ADD_FAILURE() << "nothing was thrown";
    return QString();
}

} // namespace

TEST_F(KpsSerializerFicheKey, HasTheKeyAndTheEncodedValue)
{
    KpaInteger size("size");
    size.setValue(12);
    EXPECT_EQ(serializer.buildFicheKey({&size}), "size=<value|MTI=>");
    EXPECT_EQ(serializer.serializeFicheKey("size", value("12")), "size=<value|MTI=>");
}

TEST_F(KpsSerializerFicheKey, HasTheEntriesInTheirOrder)
{
    EXPECT_EQ(serializer.serializeFicheKey("k", {{"z", "1"}, {"a", ""}, {"m", QString::fromUtf8("é")}}),
              "k=<z|MQ==><a|><m|w6k=>");
    EXPECT_EQ(serializer.serializeFicheKey("k", {}), "k=");
}

TEST_F(KpsSerializerFicheKey, TakesNoTextForAPlaceholder)
{
    EXPECT_EQ(serializer.serializeFicheKey("%1", {{"%2", "12"}, {"%1", "12"}}), "%1=<%2|MTI=><%1|MTI=>");
}

TEST_F(KpsSerializerFicheKey, JoinsTheParametersAndSkipsNullOnes)
{
    FormParameter a("a", value("12"));
    FormParameter b("b", value("12"));
    EXPECT_EQ(serializer.buildFicheKey({&a, &b}), "a=<value|MTI=>{}b=<value|MTI=>");
    EXPECT_EQ(serializer.buildFicheKey({nullptr, &b, nullptr, &a, nullptr}), "b=<value|MTI=>{}a=<value|MTI=>");
}

TEST_F(KpsSerializerFicheKey, IsEmptyForNoParameters)
{
    EXPECT_EQ(serializer.buildFicheKey({}), "");
    EXPECT_EQ(serializer.buildFicheKey({nullptr}), "");
}

TEST_F(KpsSerializerFicheKey, CannotBeBuiltOfAParameterWithChildren)
{
    FormParameter leaf("a", value("12"));
    KpcGroup group("g", noProject());
    EXPECT_EQ(serializer.buildFicheKey({&leaf, &group}), "a=<value|MTI=>{}g=");

    group.addChild(newInteger("b", 1));

    EXPECT_EQ(failureOf([&] {
                  serializer.buildFicheKey({&leaf, &group});
              }),
              "_buildKey: Cannot build key over non-atomic keys");
    EXPECT_EQ(failureOf([&] { serializer.saveFiche(&group, {&group}); }),
              "_buildKey: Cannot build key over non-atomic keys");
}

TEST(KpsSerializerConstruction, NeedsAProjectWithAStore)
{
    const QString text = "'__cdecl KpsSerializer::KpsSerializer(class KssProject *)' in file '.\\KpsSerializer' failed:"
                         "\n\ndriver is null.";
    KssProject empty;
    EXPECT_EQ(failureOf([] { KpsSerializer(nullptr); }), text);
    EXPECT_EQ(failureOf([&] { KpsSerializer{&empty}; }), text);
}
