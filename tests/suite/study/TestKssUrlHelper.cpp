#include "DataTree.h"

#include <study/KssUrlHelper.h>

namespace {

class KssUrlHelperTest : public testing::Test
{
protected:
    const KssProject project{QStringLiteral("my study")};
    KsmModelData* const data = project.getModelData();
};

TEST_F(KssUrlHelperTest, NamesADataItem)
{
    const auto ident = KsoDataIdentifier::variable(data, {"a", "b"}, "f", "s", "Cu %&=+#?");

    const QUrl url = KssUrlHelper::dataIdentToUrl(ident);

    EXPECT_EQ(url.toEncoded(), "study:my%20study?path=a%2Fb&file=f&support=s&name=Cu%20%25%26%3D%2B%23%3F#data");
    EXPECT_EQ(KssUrlHelper::urlToDataIdent(url, data), ident);
    EXPECT_EQ(KssUrlHelper::urlToDataIdent(QUrl::fromEncoded(url.toEncoded()), data), ident);
}

TEST_F(KssUrlHelperTest, LeadsBackToEveryIdentifier)
{
    for (const KsoDataIdentifier& ident :
         {data->getRootDirectory(), KsoDataIdentifier::directory(data, {QString::fromUtf8("Ü"), "b"}),
          KsoDataIdentifier::file(data, {}, "f"), KsoDataIdentifier::macroVariable(data, {}, "f", "s", "m"),
          KsoDataIdentifier()})
        EXPECT_EQ(KssUrlHelper::urlToDataIdent(KssUrlHelper::dataIdentToUrl(ident), data), ident)
            << ident.encode().toStdString();
}

TEST_F(KssUrlHelperTest, ReadsAUrlWithoutAProjectInEveryProject)
{
    EXPECT_EQ(KssUrlHelper::urlToDataIdent(QUrl("?path=a&file=f#data"), data),
              KsoDataIdentifier::file(data, {"a"}, "f"));
}

TEST_F(KssUrlHelperTest, NamesNothingInAnotherProjectOrOfAnotherKind)
{
    for (const QString& url : QStringList{"study:other?path=a#data", "file:///x.ksp?path=a#data",
                                          "study:my%20study?path=a#scene", "study:my%20study?path=a",
                                          "study:my%20study#data", "study:my%20study?=x&y#data", "http://[#data", ""})
        EXPECT_TRUE(KssUrlHelper::urlToDataIdent(QUrl(url), data).isNull()) << url.toStdString();
}

TEST_F(KssUrlHelperTest, ReadsWithoutAModel)
{
    const KsoDataIdentifier ident = KssUrlHelper::urlToDataIdent(QUrl("?path=a#data"), nullptr);

    EXPECT_EQ(ident, KsoDataIdentifier::directory(nullptr, {"a"}));
}

} // namespace
