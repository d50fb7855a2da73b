#include <registry/ClassRegistry.h>

#include <QtCore/QSet>

#include <param/composite/KpcFiche.h>

#include <gmock/gmock.h>

namespace {

TEST(ClassRegistry, MakesEachClassUnderTheGivenKey)
{
    for (const ClassRegistry::Row& row : ClassRegistry::getRows()) {
        const auto parameter = row.make("KEY");
        ASSERT_TRUE(parameter) << row.name.toStdString();
        EXPECT_EQ(parameter->getKey(), "KEY") << row.name.toStdString();
        EXPECT_EQ(dynamic_cast<KpcFiche*>(parameter.get()) != nullptr, row.isFiche) << row.name.toStdString();
    }
}

TEST(ClassRegistry, NamesTheClassesThatItMakes)
{
    QSet<QString> names;
    for (const ClassRegistry::Row& row : ClassRegistry::getRows()) {
        const auto parameter = row.make("KEY");
        const QByteArray className = row.name.toLatin1();
        const KpbAParameter& made = *parameter;
        EXPECT_TRUE(QByteArray(typeid(made).name()).endsWith(className)) << className.toStdString();
        EXPECT_FALSE(names.contains(row.name)) << className.toStdString();
        EXPECT_FALSE(row.description.isEmpty()) << className.toStdString();
        names.insert(row.name);
    }
}

TEST(ClassRegistry, FindsClassesByTheirExactName)
{
    ASSERT_TRUE(ClassRegistry::find("KpaDouble"));
    EXPECT_EQ(ClassRegistry::find("KpaDouble")->name, "KpaDouble");
    EXPECT_FALSE(ClassRegistry::find("kpadouble"));
    EXPECT_FALSE(ClassRegistry::find(""));
}

TEST(ClassRegistry, GivesTheNearestNamesFirst)
{
    EXPECT_EQ(ClassRegistry::getCloseNames("KpaFlag"), QStringList("KpaFlags"));
    EXPECT_EQ(ClassRegistry::getCloseNames("group"), QStringList("KpcGroup"));
    EXPECT_EQ(ClassRegistry::getCloseNames("KpaFSDirectori").first(), "KpaFSDirectory");
    EXPECT_TRUE(ClassRegistry::getCloseNames("").isEmpty());
    EXPECT_TRUE(ClassRegistry::getCloseNames("Xylophone").isEmpty());
    EXPECT_TRUE(ClassRegistry::getCloseNames(QString(1'000'000, 'x')).isEmpty());
}

} // namespace
