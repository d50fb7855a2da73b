#include "DataTree.h"

#include <study/Ks.h>
#include <study/KsoDataTypeFlags.h>

#include <QtCore/QHash>

#include <algorithm>

namespace {

using Map = MbbOrderedMap<QString, QString>;

class KsoDataIdentifierTest : public DataTree
{
protected:
    KsoDataIdentifier directory(const QStringList& path) const { return KsoDataIdentifier::directory(data, path); }
    KsoDataIdentifier file(const QStringList& path, const QString& name) const
    {
        return KsoDataIdentifier::file(data, path, name);
    }
};

TEST(Ks, KeepsOnlyTheKeysOfIdentifiers)
{
    EXPECT_EQ(Ks::removeInvalidKeys({{"name", "n"}, {"value", "v"}, {"path", ""}, {"version", "1"}}),
              (Map{{"name", "n"}, {"path", ""}}));
}

TEST(Ks, NamesTheKeys)
{
    EXPECT_EQ(Ks::KEY_PATH, "path");
    EXPECT_EQ(Ks::KEY_FILE, "file");
    EXPECT_EQ(Ks::KEY_SUPPORT, "support");
    EXPECT_EQ(Ks::KEY_NAME, "name");
    EXPECT_EQ(Ks::KEY_MACRO, "macro");
}

TEST(Ks, TellsWhatIsWrongWithAName)
{
    EXPECT_EQ(Ks::describeInvalidName(QString::fromUtf8("Cu (%) ü")), "");
    EXPECT_EQ(Ks::describeInvalidName(QString(255, 'x')), "");
    EXPECT_EQ(Ks::describeInvalidName(""), "A name cannot be empty.");
    EXPECT_EQ(Ks::describeInvalidName(QString(256, 'x')), "A name cannot be longer than 255 characters.");
    EXPECT_EQ(Ks::describeInvalidName("a/b"), "The name 'a/b' contains '/' or a character that is not allowed.");
    for (const ushort code : {0x0, 0xA, 0x1F, 0xD800, 0xDC00, 0xFFFE, 0xFFFF})
        EXPECT_NE(Ks::describeInvalidName(QString(QChar(code)) + "x"), "") << code;
    EXPECT_EQ(Ks::describeInvalidName(QString::fromUtf8("\xF0\x9F\x98\x80")), "");
}

TEST(KsoEDataType, GoesDownFromTheDirectory)
{
    const QList<QPair<KsoEDataType, QString>> types{{KsoEDataType::DIRECTORY, "DIRECTORY"},
                                                    {KsoEDataType::FILE, "FILE"},
                                                    {KsoEDataType::SUPPORT, "SUPPORT"},
                                                    {KsoEDataType::VARIABLE, "VARIABLE"},
                                                    {KsoEDataType::MACRO_VARIABLE, "MACRO_VARIABLE"}};

    for (int value = 0; value < types.count(); ++value) {
        EXPECT_EQ(types.at(value).first.getValue(), value);
        EXPECT_EQ(types.at(value).first.getKey(), types.at(value).second);
    }
    EXPECT_EQ(KsoEDataType::count(), 5);
    EXPECT_EQ(KsoEDataType(), KsoEDataType::DIRECTORY);
}

TEST(KsoDataTypeFlags, AreMadeFromAListOfTypes)
{
    const KsoDataTypeFlags flags{KsoEDataType::FILE, KsoEDataType::SUPPORT};

    EXPECT_TRUE(flags.testFlag(KsoEDataType::FILE));
    EXPECT_TRUE(flags.testFlag(KsoEDataType::SUPPORT));
    EXPECT_FALSE(flags.testFlag(KsoEDataType::VARIABLE));
}

TEST_F(KsoDataIdentifierTest, IsNullAtFirst)
{
    const KsoDataIdentifier null;

    EXPECT_TRUE(null.isNull());
    EXPECT_FALSE(null.exists());
    EXPECT_FALSE(null.isRoot());
    EXPECT_EQ(null.getModel(), nullptr);
    EXPECT_EQ(null.getId(), -1);
    EXPECT_EQ(null.getName(), "");
    EXPECT_EQ(null.getType(), KsoEDataType::DIRECTORY);
    EXPECT_EQ(null.getParent(), KsoDataIdentifier());
    EXPECT_EQ(null.getDataItem(), nullptr);
    EXPECT_EQ(null.getFile(), nullptr);
    EXPECT_EQ(null.getSupport(), nullptr);
    EXPECT_EQ(null.toMap(true), Map());
    EXPECT_EQ(null.toString(), "");
    EXPECT_EQ(null.encode(), "");
}

TEST_F(KsoDataIdentifierTest, LeadsToItsItem)
{
    const KsoDataIdentifier ident = variableIdent("Cu");

    EXPECT_EQ(ident.getDataItem(), copper);
    EXPECT_EQ(ident.getAVariableItem(), copper);
    EXPECT_EQ(ident.getMacroVariable(), nullptr);
    EXPECT_EQ(ident.getSupport(), samples);
    EXPECT_EQ(ident.getFile(), holes);
    EXPECT_EQ(ident.getId(), copper->getId());
    EXPECT_EQ(ident.getModel(), data);
    EXPECT_TRUE(ident.exists());
    EXPECT_EQ(ident.getName(), "Cu");
    EXPECT_EQ(ident.getPath(), (QStringList{"a", "b"}));
    EXPECT_EQ(ident.getFileName(), "holes");
    EXPECT_EQ(ident.getSupportName(), "samples");
}

TEST_F(KsoDataIdentifierTest, IsWhatItsItemGives)
{
    KsoDataMacroVariable* simulations = data->createMacroVariable(samples, "sim", detailsOf(MbdEVarType::FLOAT), 2);

    EXPECT_EQ(data->getRootItem()->getIdentifier(), directory({}));
    EXPECT_EQ(data->getRootDirectory(), directory({}));
    EXPECT_EQ(b->getIdentifier(), directory({"a", "b"}));
    EXPECT_EQ(holes->getIdentifier(), file({"a", "b"}, "holes"));
    EXPECT_EQ(samples->getIdentifier(), KsoDataIdentifier::support(data, {"a", "b"}, "holes", "samples"));
    EXPECT_EQ(copper->getIdentifier(), variableIdent("Cu"));
    const auto macro = KsoDataIdentifier::macroVariable(data, {"a", "b"}, "holes", "samples", "sim");
    EXPECT_EQ(simulations->getIdentifier(), macro);
    EXPECT_EQ(macro.getMacroVariable(), simulations);
    EXPECT_EQ(macro.getAVariableItem(), nullptr);
}

TEST_F(KsoDataIdentifierTest, KeepsItsNamesWithoutAnItem)
{
    const KsoDataIdentifier ident = variableIdent("Zn");

    EXPECT_FALSE(ident.isNull());
    EXPECT_FALSE(ident.exists());
    EXPECT_EQ(ident.getId(), -1);
    EXPECT_EQ(ident.getDataItem(), nullptr);
    EXPECT_EQ(ident.getSupport(), samples);
    EXPECT_EQ(ident.toString(), "a/b/holes/samples/Zn");
}

TEST_F(KsoDataIdentifierTest, FollowsItsItemsComingAndGoing)
{
    const KsoDataIdentifier ident = variableIdent("Zn");
    EXPECT_FALSE(ident.exists());

    KsoDataVariable* zinc = data->createVariable(samples, "Zn", detailsOf(MbdEVarType::FLOAT));
    EXPECT_EQ(ident.getDataItem(), zinc);

    data->rename(zinc, "Zinc");
    EXPECT_FALSE(ident.exists());

    data->rename(zinc, "Zn");
    ident.clean();
    EXPECT_EQ(ident.getDataItem(), zinc);

    data->remove(holes);
    EXPECT_FALSE(ident.exists());
}

TEST_F(KsoDataIdentifierTest, SurvivesTheProject)
{
    const KsoDataIdentifier ident = variableIdent("Cu");
    const KsoDataIdentifier copy = ident;
    EXPECT_TRUE(ident.exists());

    project.reset();

    EXPECT_FALSE(ident.isNull());
    EXPECT_FALSE(ident.exists());
    EXPECT_EQ(ident.getModel(), nullptr);
    EXPECT_EQ(ident.getFile(), nullptr);
    EXPECT_EQ(ident, copy);
    EXPECT_EQ(ident.toString(), "a/b/holes/samples/Cu");
    EXPECT_EQ(ident.getParent().getName(), "samples");
}

TEST_F(KsoDataIdentifierTest, HasParentsUpToTheRoot)
{
    KsoDataIdentifier ident = variableIdent("Cu");
    QStringList way;
    for (; !ident.isNull(); ident = ident.getParent())
        way.append(ident.getType().getKey() + " " + ident.toString());

    EXPECT_EQ(way, (QStringList{"VARIABLE a/b/holes/samples/Cu", "SUPPORT a/b/holes/samples", "FILE a/b/holes",
                                "DIRECTORY a/b", "DIRECTORY a", "DIRECTORY /"}));
}

TEST_F(KsoDataIdentifierTest, OnlyTheTopIsTheRoot)
{
    EXPECT_TRUE(directory({}).isRoot());
    EXPECT_FALSE(directory({"a"}).isRoot());
    EXPECT_FALSE(file({}, "f").isRoot());
}

TEST_F(KsoDataIdentifierTest, IsAncestorOfWhatIsBelowIt)
{
    const KsoDataIdentifier cu = variableIdent("Cu");

    for (KsoDataIdentifier above = cu.getParent(); !above.isNull(); above = above.getParent()) {
        EXPECT_TRUE(above.isAncestorOf(cu)) << above.toString().toStdString();
        EXPECT_FALSE(cu.isAncestorOf(above));
    }
    EXPECT_TRUE(directory({"a"}).isAncestorOf(directory({"a", "b"})));
    EXPECT_FALSE(directory({"a"}).isAncestorOf(directory({"ab"})));
    EXPECT_FALSE(cu.isAncestorOf(cu));
    EXPECT_FALSE(file({"a", "b"}, "other").isAncestorOf(cu));
    EXPECT_FALSE(file({"a", "b"}, "holes").isAncestorOf(directory({"a", "b", "holes"})));
    EXPECT_FALSE(KsoDataIdentifier().isAncestorOf(cu));
    EXPECT_FALSE(directory({}).isAncestorOf(KsoDataIdentifier()));
}

TEST_F(KsoDataIdentifierTest, IsNoAncestorOfItsFileWithoutASupportName)
{
    const auto unnamed = KsoDataIdentifier::support(data, {"a", "b"}, "holes", QString());

    EXPECT_FALSE(unnamed.isAncestorOf(holes->getIdentifier()));
    EXPECT_TRUE(holes->getIdentifier().isAncestorOf(unnamed));
    EXPECT_EQ(unnamed.getDataItem(), samples);
}

TEST_F(KsoDataIdentifierTest, HasTheNameOfItsLevelAlone)
{
    EXPECT_EQ(variableIdent("Cu").getName(), "Cu");
    EXPECT_EQ(samples->getIdentifier().getName(), "samples");
    EXPECT_EQ(holes->getIdentifier().getName(), "holes");
    EXPECT_EQ(b->getIdentifier().getName(), "b");
    EXPECT_EQ(directory({}).getName(), "");
    for (const KsoDataIdentifier& nameless :
         {variableIdent(QString()), KsoDataIdentifier::support(data, {"a"}, "f", QString()), file({"a"}, QString()),
          file({}, QString()), directory({QString()})})
        EXPECT_EQ(nameless.getName(), "") << nameless.encode().toStdString();
}

TEST_F(KsoDataIdentifierTest, IsNoAncestorInAnotherProject)
{
    const KssProject other;

    EXPECT_FALSE(other.getModelData()->getRootDirectory().isAncestorOf(variableIdent("Cu")));
}

TEST_F(KsoDataIdentifierTest, DiffersFromTheSameNamesOfAnotherLevelOrModel)
{
    const KssProject other;

    EXPECT_NE(directory({"a"}), file({}, "a"));
    EXPECT_NE(variableIdent("x"), KsoDataIdentifier::macroVariable(data, {"a", "b"}, "holes", "samples", "x"));
    EXPECT_NE(data->getRootDirectory(), other.getModelData()->getRootDirectory());
    EXPECT_NE(data->getRootDirectory(), KsoDataIdentifier());
    EXPECT_EQ(variableIdent("x"), variableIdent("x"));
    EXPECT_EQ(qHash(variableIdent("x")), qHash(variableIdent("x")));
}

TEST_F(KsoDataIdentifierTest, IsOrderedByPlaceWithParentsFirst)
{
    const QList<KsoDataIdentifier> ordered{KsoDataIdentifier(),
                                           directory({}),
                                           file({}, "f"),
                                           directory({"a"}),
                                           file({"a"}, "f"),
                                           KsoDataIdentifier::support(data, {"a"}, "f", "s"),
                                           KsoDataIdentifier::variable(data, {"a"}, "f", "s", "v"),
                                           KsoDataIdentifier::macroVariable(data, {"a"}, "f", "s", "v"),
                                           KsoDataIdentifier::variable(data, {"a"}, "f", "s", "w"),
                                           directory({"a", "b"}),
                                           directory({"b"})};
    for (int i = 0; i < ordered.count(); ++i) {
        for (int j = 0; j < ordered.count(); ++j)
            EXPECT_EQ(ordered.at(i) < ordered.at(j), i < j) << i << " " << j;
    }
}

TEST_F(KsoDataIdentifierTest, IsWrittenAsItsNames)
{
    const Map complete{{"path", "a/b"}, {"file", "holes"}, {"support", "samples"}, {"name", "Cu"}};

    EXPECT_EQ(variableIdent("Cu").toMap(true), complete);
    EXPECT_EQ(variableIdent("Cu").toMap(false), (Map{{"name", "Cu"}}));
    EXPECT_EQ(samples->getIdentifier().toMap(true), (Map{{"path", "a/b"}, {"file", "holes"}, {"support", "samples"}}));
    EXPECT_EQ(samples->getIdentifier().toMap(false), (Map{{"support", "samples"}}));
    EXPECT_EQ(holes->getIdentifier().toMap(true), (Map{{"path", "a/b"}, {"file", "holes"}}));
    EXPECT_EQ(b->getIdentifier().toMap(true), (Map{{"path", "a/b"}}));
    EXPECT_EQ(b->getIdentifier().toMap(false), (Map{{"path", "b"}}));
    EXPECT_EQ(data->getRootDirectory().toMap(true), (Map{{"path", ""}}));
    EXPECT_EQ(KsoDataIdentifier::macroVariable(data, {}, "f", "s", "m").toMap(true),
              (Map{{"path", ""}, {"file", "f"}, {"support", "s"}, {"macro", "m"}}));
}

TEST_F(KsoDataIdentifierTest, IsReadFromWhatItWrote)
{
    for (const KsoDataIdentifier& ident :
         {variableIdent("Cu"), variableIdent("none"), samples->getIdentifier(), file({}, "nowhere"), directory({"a"}),
          directory({}), KsoDataIdentifier::macroVariable(data, {}, "f", "s", "m"), KsoDataIdentifier()})
    {
        EXPECT_EQ(KsoDataIdentifier::fromMap(ident.toMap(true), data), ident) << ident.toString().toStdString();
    }
}

TEST_F(KsoDataIdentifierTest, IsReadWithoutASupportNameWhereTheFileHasOneSupport)
{
    const Map map{{"path", "a/b"}, {"file", "holes"}, {"name", "Cu"}};

    EXPECT_EQ(KsoDataIdentifier::fromMap(map, data), variableIdent("Cu"));
}

TEST_F(KsoDataIdentifierTest, WithoutASupportNameWaitsForTheFileToHaveOneSupport)
{
    const Map map{{"path", "a"}, {"file", "late"}, {"name", "Cu"}};
    const KsoDataIdentifier ident = KsoDataIdentifier::fromMap(map, data);
    EXPECT_FALSE(ident.exists());
    EXPECT_EQ(ident.getParent(), file({"a"}, "late"));

    KsoDataFile* late = data->createFile(a, "late", MbgEGeometrySet::POINTS, MbgEDimension::DIM_2D);
    KsoDataSupport* points = data->createSupport(late, "points", 1);
    KsoDataVariable* cu = data->createVariable(points, "Cu", detailsOf(MbdEVarType::FLOAT));
    EXPECT_EQ(ident.getDataItem(), cu);
    EXPECT_EQ(ident.getSupport(), points);

    data->createSupport(late, "lines", 1);
    EXPECT_FALSE(ident.exists());
}

TEST_F(KsoDataIdentifierTest, IsNullIfALevelOnTheWayIsMissing)
{
    for (const Map& map : {Map{}, Map{{"name", "Cu"}}, Map{{"support", "s"}}, Map{{"path", "a"}, {"support", "s"}},
                           Map{{"path", "a"}, {"file", ""}, {"name", "Cu"}}, Map{{"unknown", "x"}}})
    {
        EXPECT_EQ(KsoDataIdentifier::fromMap(map, data), KsoDataIdentifier());
    }
}

TEST_F(KsoDataIdentifierTest, IsReadWithoutAModel)
{
    const KsoDataIdentifier ident = KsoDataIdentifier::fromMap({{"path", "a"}, {"file", "f"}, {"name", "v"}}, nullptr);

    EXPECT_FALSE(ident.isNull());
    EXPECT_FALSE(ident.exists());
    EXPECT_EQ(ident.toString(), "a/f/v");
}

TEST_F(KsoDataIdentifierTest, IsShownBelowItsRoot)
{
    const KsoDataIdentifier cu = variableIdent("Cu");

    EXPECT_EQ(cu.toString(KsoDataIdentifier()), "a/b/holes/samples/Cu");
    EXPECT_EQ(cu.toString(directory({})), "a/b/holes/samples/Cu");
    EXPECT_EQ(cu.toString(directory({"a"})), "b/holes/samples/Cu");
    EXPECT_EQ(cu.toString(holes->getIdentifier()), "samples/Cu");
    EXPECT_EQ(cu.toString(samples->getIdentifier()), "Cu");
    EXPECT_EQ(cu.toString(cu), "a/b/holes/samples/Cu");
    EXPECT_EQ(cu.toString(directory({"c"})), "a/b/holes/samples/Cu");
    EXPECT_EQ(directory({}).toString(), "/");
}

TEST_F(KsoDataIdentifierTest, IsEncodedSoThatNoTwoAreTheSame)
{
    EXPECT_EQ(variableIdent("Cu %").encode(), "VARIABLE:a/b/holes/samples/Cu%20%25");
    EXPECT_EQ(directory({"a", "b"}).encode(), "DIRECTORY:a/b");
    EXPECT_EQ(directory({}).encode(), "DIRECTORY:");
    EXPECT_EQ(file({"a"}, "b").encode(), "FILE:a/b");
}

TEST_F(KsoDataIdentifierTest, ChangesItsFileAndKeepsTheRest)
{
    const KsoDataIdentifier other = file({}, "other");

    EXPECT_EQ(variableIdent("Cu").changeRoot(other), KsoDataIdentifier::variable(data, {}, "other", "samples", "Cu"));
    EXPECT_EQ(samples->getIdentifier().changeRoot(other), KsoDataIdentifier::support(data, {}, "other", "samples"));
    EXPECT_EQ(holes->getIdentifier().changeRoot(other), other);
    EXPECT_EQ(b->getIdentifier().changeRoot(other), b->getIdentifier());
}

TEST_F(KsoDataIdentifierTest, TakesTheSingleSupportOfItsNewFile)
{
    KsoDataFile* other = data->createFile(a, "other", MbgEGeometrySet::GRID, MbgEDimension::DIM_2D);
    data->createSupport(other, "cells", 4);

    EXPECT_EQ(variableIdent("Cu").changeRoot(other->getIdentifier()),
              KsoDataIdentifier::variable(data, {"a"}, "other", "cells", "Cu"));

    data->createSupport(other, "nodes", 4);
    EXPECT_EQ(variableIdent("Cu").changeRoot(other->getIdentifier()),
              KsoDataIdentifier::variable(data, {"a"}, "other", "samples", "Cu"));
}

TEST_F(KsoDataIdentifierTest, ChangesItsSupportAndKeepsItsName)
{
    const auto other = KsoDataIdentifier::support(data, {}, "f", "s");

    EXPECT_EQ(variableIdent("Cu").changeRoot(other), KsoDataIdentifier::variable(data, {}, "f", "s", "Cu"));
    EXPECT_EQ(samples->getIdentifier().changeRoot(other), other);
    EXPECT_EQ(holes->getIdentifier().changeRoot(other), holes->getIdentifier());
}

TEST_F(KsoDataIdentifierTest, ChangesItsDirectory)
{
    EXPECT_EQ(holes->getIdentifier().changeRoot(directory({"c"})), file({"c"}, "holes"));
    EXPECT_EQ(variableIdent("Cu").changeRoot(directory({"c"})),
              KsoDataIdentifier::variable(data, {"c"}, "holes", "samples", "Cu"));
}

TEST_F(KsoDataIdentifierTest, StaysBelowARootThatItLiesBelow)
{
    const KsoDataIdentifier cu = variableIdent("Cu");

    EXPECT_EQ(cu.changeRoot(directory({})), cu);
    EXPECT_EQ(cu.changeRoot(directory({"a"})), cu);
    EXPECT_EQ(cu.changeRoot(holes->getIdentifier()), cu);
    EXPECT_EQ(cu.changeRoot(KsoDataIdentifier()), cu);
    EXPECT_EQ(KsoDataIdentifier().changeRoot(directory({})), KsoDataIdentifier());
}

TEST_F(KsoDataIdentifierTest, GoesToAnotherProjectWithItsRoot)
{
    const KssProject other;
    KsmModelData* model = other.getModelData();

    EXPECT_EQ(variableIdent("Cu").changeRoot(model->getRootDirectory()),
              KsoDataIdentifier::variable(model, {"a", "b"}, "holes", "samples", "Cu"));
    EXPECT_EQ(holes->getIdentifier().changeRoot(KsoDataIdentifier::directory(model, {"c"})),
              KsoDataIdentifier::file(model, {"c"}, "holes"));
}

} // namespace
