#include "DataTree.h"
#include "StudyTest.h"

#include <study/KsbDriverItemSqlite.h>

#include <QtCore/QFileInfo>

#include <algorithm>

namespace {

MbdVariableDetails detailsOf(const MbdEVarType& type)
{
    MbdVariableDetails details;
    details.setType(type);
    return details;
}

/// Passes everything on to a file, and keeps which contents were read.
class CountingDriver : public KsbIDriverItem
{
public:
    explicit CountingDriver(const QString& path) : _file(KsbDriverItemSqlite::open(path)) {}
    QList<KsbItemRecord> list(const QString& model) const override { return _file->list(model); }
    int insert(const QString& model, const KsbItemRecord& record) override { return _file->insert(model, record); }
    void update(const KsbItemRecord& record) override { _file->update(record); }
    void remove(const QList<int>& ids) override { _file->remove(ids); }
    std::optional<QByteArray> readContent(int id, int number) const override
    {
        readIds.append(id);
        return _file->readContent(id, number);
    }
    void writeContent(int id, int number, const QByteArray& content) override
    {
        _file->writeContent(id, number, content);
    }
    void inOneStep(const std::function<void()>& body) override { _file->inOneStep(body); }

    mutable QList<int> readIds;

private:
    std::unique_ptr<KsbDriverItemSqlite> _file;
};

class KsmModelDataStoreTest : public StudyTest
{
protected:
    /// Makes the project file with the support "f/s" of `count` samples and in it the variables of `names`, whose
    /// values are 0, 1, 2 and so on.
    void createFile(int count, const QStringList& names) const
    {
        const auto project = KssProject::create(path);
        KsmModelData* data = project->getModelData();
        KsoDataFile* file = data->createFile(data->getRootItem(), "f", MbgEGeometrySet::GRID, MbgEDimension::DIM_2D);
        KsoDataSupport* support = data->createSupport(file, "s", count);
        std::vector<double> values(std::size_t(count), 0);
        std::generate(values.begin(), values.end(), [i = 0]() mutable { return i++; });
        for (const QString& name : names)
            data->createVariable(support, name, detailsOf(MbdEVarType::DOUBLE), MbdEVarRole::V, values);
    }
    static KsoAVariableItem* variableOf(const KssProject& project, const QString& name)
    {
        return KsoDataIdentifier::variable(project.getModelData(), {}, "f", "s", name).getAVariableItem();
    }
    static std::vector<double> valuesOf(const KssProject& project, const QString& name)
    {
        std::vector<double> values;
        project.getModelData()->readValues(variableOf(project, name), values);
        return values;
    }
    /// What opening says after `sql` was run on the file of `createFile(2, {"v"})`: the directory has the id 1, the
    /// file 2, the support 3 and the variable 4.
    QString damageOf(const QString& sql)
    {
        const QString damaged = folder.filePath("damaged.ksp");
        QFile::remove(damaged);
        EXPECT_TRUE(QFile::copy(path, damaged));
        DirectConnection(damaged).run(sql);
        const QString message = storageError([&] { KssProject::open(damaged); });
        const QString start = QString("Project file '%1': ").arg(damaged);
        EXPECT_TRUE(message.startsWith(start)) << message.toStdString();
        return message.mid(message.lastIndexOf('\n') + 1).replace(start, QString());
    }
};

TEST_F(KsmModelDataStoreTest, FindsEverythingAgainWhenTheProjectIsOpenedAgain)
{
    int id = 0;
    MbdVariableDetails grade(MbuEUnitClass::LENGTH);
    grade.setPowerValue(3);
    grade.getEnumDetails().setCatalogId(5);
    {
        const auto project = KssProject::create(path);
        KsmModelData* data = project->getModelData();
        KsoDataDirectory* directory = data->createDirectory(data->getRootItem(), QString::fromUtf8("Ü"));
        KsoDataFile* file = data->createFile(directory, "f", MbgEGeometrySet::LINES, MbgEDimension::DIM_2D);
        data->setApplicationFlags(file, {"kriging", "mapping"});
        KsoDataSupport* support = data->createSupport(file, "s", 2);
        KsoDataVariable* variable = data->createVariable(support, "v", grade, MbdEVarRole::WEIGHT);
        data->writeValues(variable, {1.5, MbbGlobal::D_FFFF});
        id = variable->getId();
        data->writeTexts(data->createVariable(support, "t", detailsOf(MbdEVarType::STRING)), {"x", ""});
        data->writeValues(data->createMacroVariable(support, "m", grade, 4), 3, {7, 8});
    }

    const auto project = KssProject::open(path);
    KsmModelData* data = project->getModelData();

    const QStringList way{QString::fromUtf8("Ü")};
    const KsoDataFile* file = KsoDataIdentifier::file(data, way, "f").getFile();
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(file->getGeometrySet(), MbgEGeometrySet::LINES);
    EXPECT_EQ(file->getDimension(), MbgEDimension::DIM_2D);
    EXPECT_EQ(file->getApplicationFlags(), (QStringList{"kriging", "mapping"}));
    EXPECT_EQ(file->getUniqueSupport()->getSampleCount(), 2);
    const auto* variable = KsoDataIdentifier::variable(data, way, "f", "s", "v").getAVariableItem();
    ASSERT_NE(variable, nullptr);
    EXPECT_EQ(variable->getId(), id);
    EXPECT_EQ(variable->getDetails(), grade);
    EXPECT_EQ(variable->getRole(), MbdEVarRole::WEIGHT);
    std::vector<double> values;
    data->readValues(variable, values);
    EXPECT_EQ(values, (std::vector<double>{1.5, MbbGlobal::D_FFFF}));
    QStringList texts;
    data->readTexts(KsoDataIdentifier::variable(data, way, "f", "s", "t").getAVariableItem(), texts);
    EXPECT_EQ(texts, (QStringList{"x", ""}));
    const auto* macro = KsoDataIdentifier::macroVariable(data, way, "f", "s", "m").getMacroVariable();
    ASSERT_NE(macro, nullptr);
    EXPECT_EQ(macro->getRealisationCount(), 4);
    data->readValues(macro, 3, values);
    EXPECT_EQ(values, (std::vector<double>{7, 8}));
}

TEST_F(KsmModelDataStoreTest, StoresRenamingMovingAndRemoving)
{
    {
        const auto project = KssProject::create(path);
        KsmModelData* data = project->getModelData();
        KsoDataDirectory* old = data->createDirectory(data->getRootItem(), "old");
        KsoDataDirectory* late = data->createDirectory(data->getRootItem(), "late");
        data->createDirectory(old, "inner");
        data->createDirectory(late, "gone");
        data->rename(old, "new");
        data->move(old, late);
        data->remove(static_cast<KsoADataItem*>(late->getChildItem(KsoEDataType::DIRECTORY, "gone")));
    }

    const auto project = KssProject::open(path);
    KsmModelData* data = project->getModelData();

    EXPECT_TRUE(KsoDataIdentifier::directory(data, {"late", "new", "inner"}).exists());
    EXPECT_EQ(data->getRootItem()->getChildItems().count(), 1);
    EXPECT_FALSE(KsoDataIdentifier::directory(data, {"late", "gone"}).exists());
}

TEST_F(KsmModelDataStoreTest, NeverUsesAnIdAgain)
{
    createFile(1, {"v"});
    int id = 0;
    {
        const auto project = KssProject::open(path);
        id = variableOf(*project, "v")->getId();
        project->getModelData()->remove(variableOf(*project, "v"));
    }

    const auto project = KssProject::open(path);
    KsmModelData* data = project->getModelData();
    auto* support = KsoDataIdentifier::support(data, {}, "f", "s").getSupport();
    EXPECT_GT(data->createVariable(support, "w", detailsOf(MbdEVarType::DOUBLE))->getId(), id);
}

TEST_F(KsmModelDataStoreTest, RemovesTheValuesWithTheItem)
{
    createFile(2, {"v", "w"});
    {
        const auto project = KssProject::open(path);
        project->getModelData()->remove(variableOf(*project, "v"));
    }

    EXPECT_EQ(DirectConnection(path).run("SELECT count(*) FROM content").toInt(), 1);
}

TEST_F(KsmModelDataStoreTest, ReadsNoOtherValuesThanThoseOfTheVariable)
{
    constexpr int million = 1000000;
    createFile(million, {"u", "v", "w"});
    auto* driver = new CountingDriver(path);
    const KssProject project{std::unique_ptr<KsbIDriverItem>(driver)};
    EXPECT_TRUE(driver->readIds.isEmpty());

    const std::vector<double> values = valuesOf(project, "v");

    EXPECT_EQ(driver->readIds, (QList<int>{variableOf(project, "v")->getId()}));
    ASSERT_EQ(values.size(), std::size_t(million));
    EXPECT_EQ(values.front(), 0);
    EXPECT_EQ(values.back(), million - 1);
}

TEST_F(KsmModelDataStoreTest, OpensAndReadsBesideDamagedValuesOfAnotherVariable)
{
    createFile(2, {"u", "v", "w", "x"});
    DirectConnection(path).run("UPDATE content SET bytes = x'00' WHERE item = 3");
    DirectConnection(path).run("UPDATE content SET bytes = 'abc' WHERE item = 5");
    DirectConnection(path).run("UPDATE content SET bytes = x'000000000000F07F000000000000F07F' WHERE item = 6");

    const auto project = KssProject::open(path);

    EXPECT_EQ(valuesOf(*project, "v"), (std::vector<double>{0, 1}));
    for (const QString& name : QStringList{"u", "w", "x"})
        EXPECT_EQ(storageError([&] { valuesOf(*project, name); }),
                  QString("The values of 'f/s/%1' cannot be read.\nThe stored values are damaged.").arg(name));
}

TEST_F(KsmModelDataStoreTest, RefusesDamagedTexts)
{
    {
        const auto project = KssProject::create(path);
        KsmModelData* data = project->getModelData();
        KsoDataFile* file = data->createFile(data->getRootItem(), "f", MbgEGeometrySet::GRID, MbgEDimension::DIM_2D);
        KsoDataSupport* support = data->createSupport(file, "s", 2);
        data->createVariable(support, "t", detailsOf(MbdEVarType::STRING), MbdEVarRole::NONE, QStringList{"ab", "c"});
    }
    const auto project = KssProject::open(path);
    QStringList texts;
    for (const QString& bytes :
         QStringList{"", "02000000", "0200000061006200", "02000000610062000100000063", "FFFFFFFF61006200",
                     "0200000061006200010000006300FF", "FFFFFF7F61006200010000006300"})
    {
        DirectConnection(path).run(QString("UPDATE content SET bytes = x'%1'").arg(bytes));
        EXPECT_EQ(storageError([&] { project->getModelData()->readTexts(variableOf(*project, "t"), texts); }),
                  "The values of 'f/s/t' cannot be read.\nThe stored values are damaged.")
            << bytes.toStdString();
    }
}

TEST_F(KsmModelDataStoreTest, RefusesAFileWhoseItemsAreDamaged)
{
    createFile(2, {"v"});
    const auto ofItem = [](int id, const QString& what) {
        return QString("The data item %1 is damaged: %2").arg(id).arg(what);
    };

    EXPECT_EQ(damageOf("UPDATE item SET kind = 9 WHERE id = 3"), ofItem(3, "it is of the unknown kind 9."));
    EXPECT_EQ(damageOf("UPDATE item SET parent = 77 WHERE id = 3"),
              ofItem(3, "there is no item of the id 77 above it."));
    EXPECT_EQ(damageOf("UPDATE item SET parent = 0 WHERE id = 3"), ofItem(3, "it cannot lie below the item 0."));
    EXPECT_EQ(damageOf("UPDATE item SET parent = 3 WHERE id = 2"), ofItem(2, "it cannot lie below the item 3."));
    EXPECT_EQ(damageOf("UPDATE item SET name = x'' WHERE id = 2"), ofItem(2, "A name cannot be empty."));
    EXPECT_EQ(damageOf("UPDATE item SET name = x'002F' WHERE id = 2"),
              ofItem(2, "The name '/' contains '/' or a character that is not allowed."));
    EXPECT_EQ(damageOf("INSERT INTO item (model, parent, kind, name, attributes) SELECT model, parent, kind, name, "
                       "attributes FROM item WHERE id = 3"),
              ofItem(4, "the name 'v' is taken."));
    EXPECT_EQ(damageOf("INSERT INTO item (id, model, parent, kind, name, attributes) SELECT -5, model, parent, kind, "
                       "x'0061', attributes FROM item WHERE id = 3"),
              ofItem(-5, "its id is none, or that of another item."));
    EXPECT_EQ(damageOf("UPDATE item SET attributes = x'00' WHERE id = 1"), ofItem(1, "The attributes are damaged."));
    EXPECT_EQ(damageOf("UPDATE item SET attributes = '[]' WHERE id = 1"), ofItem(1, "The attributes are damaged."));
    EXPECT_EQ(damageOf("UPDATE item SET attributes = '{\"geometry\":\"CUBE\"}' WHERE id = 1"),
              ofItem(1, "The attribute 'geometry' is damaged."));
    for (const QString& samples : QStringList{"-1", "1.5", "1e300", "2000000000", "\"2\"", "null"})
        EXPECT_EQ(damageOf(QString("UPDATE item SET attributes = '{\"samples\":%1}' WHERE id = 2").arg(samples)),
                  ofItem(2, "The attribute 'samples' is damaged."));
    for (const QString& attribute :
         QStringList{"\"type\":\"LONG\"", "\"unitClass\":7", "\"power\":0.5", "\"defaultFormat\":1", "\"catalog\":true",
                     "\"role\":\"KING\"", "\"format\":3", "\"applications\":{}"})
        EXPECT_EQ(damageOf(QString("UPDATE item SET attributes = '{%1}' WHERE id = 3").arg(attribute)),
                  ofItem(3, QString("The attribute '%1' is damaged.").arg(attribute.split('"').at(1))));
    EXPECT_EQ(damageOf("UPDATE item SET attributes = '{\"format\":{\"unit\":\"ell\"}}' WHERE id = 3"),
              ofItem(3, "The attribute 'unit' is damaged."));
}

TEST_F(KsmModelDataStoreTest, RefusesAFileWhoseRowsAreNone)
{
    createFile(2, {"v"});

    EXPECT_EQ(damageOf("UPDATE item SET kind = 'file' WHERE id = 3"), "It is damaged: the kind of the item 3 is none.");
    EXPECT_EQ(damageOf("UPDATE item SET parent = 5000000000 WHERE id = 3"),
              "It is damaged: the parent of the item 3 is none.");
    EXPECT_EQ(damageOf("UPDATE item SET id = 5000000000 WHERE id = 3"),
              "It is damaged: the id of the item 5000000000 is none.");
    EXPECT_EQ(damageOf("UPDATE item SET name = 'text' WHERE id = 3"), "It is damaged: the name of the item 3 is none.");
    EXPECT_EQ(damageOf("UPDATE item SET name = x'00' WHERE id = 3"), "It is damaged: the name of the item 3 is none.");
    EXPECT_TRUE(damageOf("DROP TABLE item").contains("no such table: item"));
}

TEST_F(KsmModelDataStoreTest, RefusesDirectoriesThatLieBelowThemselves)
{
    {
        const auto project = KssProject::create(path);
        KsmModelData* data = project->getModelData();
        data->createDirectory(data->createDirectory(data->getRootItem(), "a"), "b");
    }

    EXPECT_EQ(damageOf("UPDATE item SET parent = 2 WHERE id = 1"), "The data item 1 is damaged: it lies below itself.");
    EXPECT_EQ(damageOf("UPDATE item SET parent = 1 WHERE id = 1"), "The data item 1 is damaged: it lies below itself.");
}

TEST_F(KsmModelDataStoreTest, OpensADeepTree)
{
    constexpr int depth = 2000;
    {
        const auto project = KssProject::create(path);
        KsmModelData* data = project->getModelData();
        data->inOneStep([&] {
            KsoDataDirectory* directory = data->getRootItem();
            for (int i = 0; i < depth; ++i)
                directory = data->createDirectory(directory, "d");
        });
    }

    const auto project = KssProject::open(path);
    KsoADataItem* top = project->getModelData()->getRootItem()->getChildItems().at(0);
    EXPECT_EQ(project->getModelData()->getItemFromId(depth)->getIdentifier().getPath().count(), depth);
    project->getModelData()->remove(top);
    EXPECT_TRUE(project->getModelData()->getRootItem()->getChildItems().isEmpty());
}

TEST_F(KsmModelDataStoreTest, OpenedForReadingGivesItsValuesAndTakesNone)
{
    createFile(2, {"v"});
    const auto project = KssProject::open(path, KssOpenMode::ReadOnly);
    DataObserver observer(project->getModelData());

    EXPECT_EQ(valuesOf(*project, "v"), (std::vector<double>{0, 1}));
    EXPECT_EQ(storageError([&] { project->getModelData()->rename(variableOf(*project, "v"), "w"); }),
              inFile(path, "It was opened for reading only."));
    EXPECT_EQ(storageError([&] {
                  project->getModelData()->writeValues(variableOf(*project, "v"), {3, 4});
              }),
              inFile(path, "It was opened for reading only."));
    EXPECT_NE(variableOf(*project, "v"), nullptr);
    EXPECT_TRUE(observer.records.empty());
}

TEST_F(KsmModelDataStoreTest, LeavesTheFileAsItWasWhenAStepFails)
{
    createFile(2, {"v"});
    {
        const auto project = KssProject::open(path);
        KsmModelData* data = project->getModelData();
        EXPECT_THROW(data->inOneStep([&] {
            data->writeValues(variableOf(*project, "v"), {8, 9});
            data->createDirectory(data->getRootItem(), "x");
            project->getDriverTaskFiche()->write("id", "key", parsed("<task/>"));
            throw MbeUserError("no");
        }),
                     MbeUserError);
        EXPECT_EQ(valuesOf(*project, "v"), (std::vector<double>{0, 1}));
    }

    const auto project = KssProject::open(path);
    EXPECT_EQ(valuesOf(*project, "v"), (std::vector<double>{0, 1}));
    EXPECT_EQ(project->getModelData()->getRootItem()->getChildItems().count(), 1);
    EXPECT_FALSE(project->getDriverTaskFiche()->exists("id", "key"));
}

TEST_F(KsmModelDataStoreTest, RefusesChangesOnceAnotherUserOfTheFileHasChangedItems)
{
    createFile(2, {"v"});
    const QString refusal = inFile(path, "Its items were changed by another user of the file. Open it again.");
    {
        const auto first = KssProject::open(path);
        const auto second = KssProject::open(path);
        KsmModelData* mine = first->getModelData();
        DataObserver observer(mine);
        second->getModelData()->createDirectory(second->getModelData()->getRootItem(), "d");

        EXPECT_EQ(storageError([&] { mine->createDirectory(mine->getRootItem(), "d"); }), refusal);
        EXPECT_EQ(storageError([&] { mine->rename(variableOf(*first, "v"), "w"); }), refusal);
        EXPECT_EQ(storageError([&] { mine->writeValues(variableOf(*first, "v"), {3, 4}); }), refusal);
        EXPECT_EQ(storageError([&] { mine->remove(mine->getRootItem()->getChildItems().first()); }), refusal);
        EXPECT_EQ(valuesOf(*first, "v"), (std::vector<double>{0, 1}));
        EXPECT_EQ(mine->getRootItem()->getChildItems().count(), 1);
        EXPECT_TRUE(observer.records.empty());
        second->getModelData()->rename(variableOf(*second, "v"), "w");
    }

    const auto project = KssProject::open(path);
    EXPECT_EQ(valuesOf(*project, "w"), (std::vector<double>{0, 1}));
    project->getModelData()->createDirectory(project->getModelData()->getRootItem(), "e");
    EXPECT_EQ(project->getModelData()->getRootItem()->getChildItems().count(), 3);
}

TEST_F(KsmModelDataStoreTest, TakesChangesBesideFormsAndValuesOfAnotherUserOfTheFile)
{
    createFile(2, {"v"});
    const auto first = KssProject::open(path);
    const auto second = KssProject::open(path);
    second->getDriverTaskFiche()->write("id", "key", parsed("<task/>"));
    second->getModelData()->writeValues(variableOf(*second, "v"), {3, 4});

    first->getModelData()->createDirectory(first->getModelData()->getRootItem(), "d");

    EXPECT_EQ(valuesOf(*first, "v"), (std::vector<double>{3, 4}));
}

TEST_F(KsmModelDataStoreTest, TakesChangesAfterAStepThatFailed)
{
    createFile(2, {"v"});
    const auto project = KssProject::open(path);
    KsmModelData* data = project->getModelData();
    EXPECT_THROW(data->inOneStep([&] {
        data->createDirectory(data->getRootItem(), "x");
        throw MbeUserError("no");
    }),
                 MbeUserError);

    data->createDirectory(data->getRootItem(), "y");
    data->createDirectory(data->getRootItem(), "z");

    EXPECT_EQ(data->getRootItem()->getChildItems().count(), 3);
}

TEST_F(KsmModelDataStoreTest, StaysAsItIsWhenTheFileIsGone)
{
    createFile(2, {"v"});
    const auto project = KssProject::open(path);
    EXPECT_TRUE(QFile::rename(path, folder.filePath("elsewhere.ksp")));

    EXPECT_EQ(storageError([&] { project->getModelData()->rename(variableOf(*project, "v"), "w"); }),
              inFile(path, "It does not exist any more."));
    EXPECT_NE(variableOf(*project, "v"), nullptr);
}

/// A file of the version that had no items.
class OlderFileTest : public KsmModelDataStoreTest
{
protected:
    void SetUp() override
    {
        Driver::create(path)->write("id", "key", parsed("<task/>"));
        DirectConnection direct(path);
        direct.run("DROP TABLE item");
        direct.run("DROP TABLE content");
        direct.run("DROP TABLE item_state");
        direct.run("PRAGMA user_version = 1");
    }
};

TEST_F(OlderFileTest, IsReadWithoutAChange)
{
    {
        const auto project = KssProject::open(path);
        EXPECT_TRUE(project->getModelData()->getRootItem()->getChildItems().isEmpty());
        EXPECT_EQ(storedText(*project->getDriverTaskFiche(), "id", "key"), "<task/>");
    }

    EXPECT_EQ(DirectConnection(path).run("PRAGMA user_version").toInt(), 1);
}

TEST_F(OlderFileTest, TakesItems)
{
    {
        const auto project = KssProject::open(path);
        project->getModelData()->createDirectory(project->getModelData()->getRootItem(), "d");
    }

    const auto project = KssProject::open(path);
    EXPECT_EQ(project->getModelData()->getRootItem()->getChildItems().count(), 1);
    EXPECT_EQ(storedText(*project->getDriverTaskFiche(), "id", "key"), "<task/>");
    EXPECT_EQ(DirectConnection(path).run("PRAGMA user_version").toInt(), 2);
}

} // namespace
