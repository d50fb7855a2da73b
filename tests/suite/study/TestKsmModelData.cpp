#include "DataTree.h"

#include <basic/MbbEFormat.h>
#include <basic/MbuUnitService.h>
#include <observer/KuoLock.h>
#include <study/KsbDriverItemMemory.h>

#include <stdexcept>

namespace {

enum Reason
{
    Created = 1,
    Removed = 2,
    Renamed = 4,
    Details = 8,
    Values = 0x20000,
};

using KsmModelDataTest = DataTree;

QStringList namesOf(const KsoADataItem* item)
{
    QStringList names;
    for (const KsoADataItem* child : item->getChildItems())
        names.append(child->getName());
    return names;
}

TEST_F(KsmModelDataTest, HasOnlyTheRootDirectoryAtFirst)
{
    const KssProject empty;
    const KsmModelData* model = empty.getModelData();

    EXPECT_EQ(model->getProject(), &empty);
    EXPECT_TRUE(model->getRootDirectory().isRoot());
    EXPECT_EQ(model->getRootDirectory().getDataItem(), model->getRootItem());
    EXPECT_EQ(model->getRootItem()->getId(), 0);
    EXPECT_TRUE(model->getRootItem()->getChildItems().isEmpty());
    EXPECT_EQ(model->getRootItem()->getParentItem(), nullptr);
}

TEST_F(KsmModelDataTest, MakesItemsBelowOneAnother)
{
    EXPECT_EQ(a->getParentItem(), data->getRootItem());
    EXPECT_EQ(b->getParentItem(), a);
    EXPECT_EQ(holes->getParentItem(), b);
    EXPECT_EQ(samples->getFile(), holes);
    EXPECT_EQ(copper->getSupport(), samples);
    EXPECT_EQ(namesOf(samples), (QStringList{"Cu"}));
    EXPECT_EQ(a->getChildItem(KsoEDataType::DIRECTORY, "b"), b);
    EXPECT_EQ(a->getChildItem(KsoEDataType::FILE, "b"), nullptr);
    EXPECT_EQ(copper->getModel(), data);
}

TEST_F(KsmModelDataTest, KeepsWhatItemsAreMadeWith)
{
    KsoDataMacroVariable* macro = data->createMacroVariable(samples, "sim", detailsOf(MbdEVarType::FLOAT), 100);

    EXPECT_EQ(holes->getGeometrySet(), MbgEGeometrySet::POINTS);
    EXPECT_EQ(holes->getDimension(), MbgEDimension::DIM_3D);
    EXPECT_EQ(samples->getSampleCount(), 3);
    EXPECT_EQ(samples->getDimension(), MbgEDimension::DIM_3D);
    EXPECT_EQ(copper->getStorageType(), MbdEVarType::DOUBLE);
    EXPECT_EQ(copper->getRole(), MbdEVarRole::V);
    EXPECT_EQ((*copper)(), copper->getDetails());
    EXPECT_EQ(macro->getDetails().getType(), MbdEVarType::FLOAT);
    EXPECT_EQ(macro->getRealisationCount(), 100);
    EXPECT_EQ(macro->getSupport(), samples);
}

TEST_F(KsmModelDataTest, KnowsAFileByItsSingleSupport)
{
    EXPECT_TRUE(holes->hasUniqueChild());
    EXPECT_EQ(holes->getUniqueSupport(), samples);

    KsoDataSupport* lines = data->createSupport(holes, "lines", 1);
    EXPECT_FALSE(holes->hasUniqueChild());
    EXPECT_EQ(holes->getUniqueSupport(), nullptr);

    data->remove(samples);
    EXPECT_EQ(holes->getUniqueSupport(), lines);
    data->remove(lines);
    EXPECT_EQ(holes->getUniqueSupport(), nullptr);
}

TEST_F(KsmModelDataTest, FindsItemsByTheirIds)
{
    EXPECT_EQ(data->getItemFromId(copper->getId()), copper);
    EXPECT_EQ(data->getValidItemFromId(holes->getId()), holes);
    EXPECT_EQ(data->getItemFromId(0), data->getRootItem());
    EXPECT_EQ(data->getItemFromId(-1), nullptr);
    EXPECT_EQ(data->getItemFromId(12345), nullptr);
    EXPECT_EQ(messageOf<MbeUserError>([&] { data->getValidItemFromId(12345); }),
              "The project has no item of the id 12345.");
}

TEST_F(KsmModelDataTest, NeverUsesAnIdAgain)
{
    const int id = copper->getId();
    data->remove(copper);

    EXPECT_NE(data->createVariable(samples, "Cu", detailsOf(MbdEVarType::DOUBLE))->getId(), id);
    EXPECT_EQ(data->getItemFromId(id), nullptr);
}

TEST_F(KsmModelDataTest, TellsEachCreation)
{
    DataObserver observer(data);

    KsoDataVariable* zinc = data->createVariable(samples, "Zn", detailsOf(MbdEVarType::FLOAT));

    ASSERT_EQ(observer.records.size(), 1u);
    EXPECT_TRUE(observer.records[0].hasModif(zinc->getIdentifier(), Created));
    EXPECT_FALSE(observer.records[0].hasModif(zinc->getIdentifier(), ~Created));
    EXPECT_FALSE(observer.records[0].hasModif(samples->getIdentifier(), ~0));
    EXPECT_EQ(observer.records[0].getNumberOfModif(), 1);
}

TEST_F(KsmModelDataTest, TellsARenamingUnderBothNamesAndOfAllBelow)
{
    const KsoDataIdentifier before = copper->getIdentifier();
    DataObserver observer(data);

    data->rename(b, "c");

    ASSERT_EQ(observer.records.size(), 1u);
    const KsmModifData& modif = observer.records[0];
    EXPECT_TRUE(modif.hasModif(KsoDataIdentifier::directory(data, {"a", "b"}), Renamed));
    EXPECT_TRUE(modif.hasModif(KsoDataIdentifier::directory(data, {"a", "c"}), Renamed));
    EXPECT_TRUE(modif.hasModif(before, Renamed));
    EXPECT_TRUE(modif.hasModif(copper->getIdentifier(), Renamed));
    EXPECT_FALSE(modif.hasModif(before, Created | Removed | Details | Values));
    EXPECT_FALSE(modif.hasModif(a->getIdentifier(), Renamed));
    EXPECT_FALSE(before.exists());
    EXPECT_EQ(copper->getIdentifier().toString(), "a/c/holes/samples/Cu");
}

TEST_F(KsmModelDataTest, TellsARenamingOfAllThatIsFarBelow)
{
    constexpr int depth = 100;
    KsoDataDirectory* lowest = b;
    for (int i = 0; i < depth; ++i)
        lowest = data->createDirectory(lowest, "d");
    const KsoDataIdentifier before = lowest->getIdentifier();
    DataObserver observer(data);

    data->rename(b, "c");

    EXPECT_TRUE(observer.records.at(0).hasModif(before, Renamed));
    EXPECT_TRUE(observer.records.at(0).hasModif(lowest->getIdentifier(), Renamed));
    EXPECT_FALSE(observer.records.at(0).hasModif(before, Created | Removed | Details | Values));
}

TEST_F(KsmModelDataTest, LooksForAPathOfAnyLengthInTimeInProportionToIt)
{
    QStringList path;
    for (int i = 0; i < 100000; ++i)
        path.append("d");
    DataObserver observer(data);
    data->rename(b, "c");

    for (int i = 0; i < 100; ++i)
        EXPECT_FALSE(observer.records.at(0).hasModif(KsoDataIdentifier::directory(data, path), Renamed));
}

TEST_F(KsmModelDataTest, TellsWhatConcernsAnIdentifierWithoutASupportName)
{
    const auto unnamed = KsoDataIdentifier::variable(data, {"a", "b"}, "holes", QString(), "Cu");
    const auto unnamedSupport = KsoDataIdentifier::support(data, {"a", "b"}, "holes", QString());
    const auto elsewhere = KsoDataIdentifier::variable(data, {"a"}, "holes", QString(), "Cu");
    KsoDataVariable* zinc = data->createVariable(samples, "Zn", detailsOf(MbdEVarType::DOUBLE));
    DataObserver observer(data);

    data->writeValues(copper, {1, 2, 3});
    data->writeValues(zinc, {1, 2, 3});
    data->setApplicationFlags(samples, {"kriging"});
    data->createSupport(holes, "lines", 1);
    data->remove(holes);

    const auto concerns = [&](int record, const KsoDataIdentifier& ident) {
        return observer.records.at(std::size_t(record)).hasModif(ident, ~0);
    };
    EXPECT_TRUE(observer.records.at(0).hasModif(unnamed, Values));
    EXPECT_FALSE(observer.records.at(0).hasModif(unnamed, ~Values));
    EXPECT_FALSE(concerns(0, unnamedSupport));
    EXPECT_FALSE(concerns(1, unnamed));
    EXPECT_FALSE(concerns(2, unnamed));
    EXPECT_TRUE(concerns(2, unnamedSupport));
    EXPECT_TRUE(observer.records.at(3).hasModif(unnamed, Created));
    EXPECT_TRUE(observer.records.at(3).hasModif(unnamedSupport, Created));
    EXPECT_TRUE(observer.records.at(4).hasModif(unnamed, Removed));
    for (int record = 0; record < 5; ++record)
        EXPECT_FALSE(concerns(record, elsewhere)) << record;
}

TEST_F(KsmModelDataTest, DoesNothingForTheSameName)
{
    DataObserver observer(data);

    data->rename(copper, "Cu");
    data->move(copper, samples);

    EXPECT_TRUE(observer.records.empty());
}

TEST_F(KsmModelDataTest, MovesItems)
{
    DataObserver observer(data);
    const KsoDataIdentifier before = copper->getIdentifier();

    data->move(holes, data->getRootItem());

    EXPECT_EQ(holes->getParentItem(), data->getRootItem());
    EXPECT_TRUE(b->getChildItems().isEmpty());
    EXPECT_EQ(copper->getIdentifier().toString(), "holes/samples/Cu");
    ASSERT_EQ(observer.records.size(), 1u);
    EXPECT_TRUE(observer.records[0].hasModif(before, Renamed));
    EXPECT_TRUE(observer.records[0].hasModif(copper->getIdentifier(), Renamed));
}

TEST_F(KsmModelDataTest, MovesVariablesBetweenSupportsOfTheSameSize)
{
    KsoDataSupport* same = data->createSupport(holes, "same", 3);
    KsoDataSupport* other = data->createSupport(holes, "other", 4);
    data->writeValues(copper, {1, 2, 3});

    data->move(copper, same);

    std::vector<double> values;
    data->readValues(copper, values);
    EXPECT_EQ(values, (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(copper->getSupport(), same);
    EXPECT_EQ(messageOf<MbeUserError>([&] { data->move(copper, other); }),
              "There are 3 values for the 4 samples of the support 'a/b/holes/other'.");
    EXPECT_EQ(copper->getSupport(), same);
}

TEST_F(KsmModelDataTest, KeepsChildrenInOrderOfMaking)
{
    KsoDataVariable* zinc = data->createVariable(samples, "Zn", detailsOf(MbdEVarType::FLOAT));
    data->createVariable(samples, "Pb", detailsOf(MbdEVarType::FLOAT));
    KsoDataSupport* aside = data->createSupport(holes, "aside", 3);

    data->rename(copper, "Zz");
    data->move(zinc, aside);
    EXPECT_EQ(namesOf(samples), (QStringList{"Zz", "Pb"}));
    data->move(zinc, samples);
    EXPECT_EQ(namesOf(samples), (QStringList{"Zz", "Zn", "Pb"}));
}

TEST_F(KsmModelDataTest, RemovesEverythingBelow)
{
    const KsoDataIdentifier before = copper->getIdentifier();
    const int id = copper->getId();
    DataObserver observer(data);

    data->remove(b);

    ASSERT_EQ(observer.records.size(), 1u);
    EXPECT_TRUE(observer.records[0].hasModif(KsoDataIdentifier::directory(data, {"a", "b"}), Removed));
    EXPECT_TRUE(observer.records[0].hasModif(before, Removed));
    EXPECT_FALSE(observer.records[0].hasModif(a->getIdentifier(), Removed));
    EXPECT_FALSE(before.exists());
    EXPECT_EQ(data->getItemFromId(id), nullptr);
    EXPECT_TRUE(a->getChildItems().isEmpty());
}

TEST_F(KsmModelDataTest, EditsFilesSupportsAndVariables)
{
    KsoDataSupport* empty = data->createSupport(holes, "empty", 3);
    DataObserver observer(data);
    MbdVariableDetails length(MbuEUnitClass::LENGTH);
    length.setPowerValue(2);

    data->setGeometry(holes, MbgEGeometrySet::LINES, MbgEDimension::DIM_2D);
    data->setSampleCount(empty, 7);
    data->setDetails(copper, length);
    data->setRole(copper, MbdEVarRole::WEIGHT);
    data->setApplicationFlags(b, {"kriging"});

    EXPECT_EQ(holes->getGeometrySet(), MbgEGeometrySet::LINES);
    EXPECT_EQ(holes->getDimension(), MbgEDimension::DIM_2D);
    EXPECT_EQ(empty->getSampleCount(), 7);
    EXPECT_EQ(copper->getDetails(), length);
    EXPECT_EQ(copper->getRole(), MbdEVarRole::WEIGHT);
    EXPECT_EQ(b->getApplicationFlags(), (QStringList{"kriging"}));
    ASSERT_EQ(observer.records.size(), 5u);
    EXPECT_TRUE(observer.records[0].hasModif(holes->getIdentifier(), Details));
    EXPECT_TRUE(observer.records[1].hasModif(empty->getIdentifier(), Details));
    EXPECT_TRUE(observer.records[3].hasModif(copper->getIdentifier(), Details));
    EXPECT_FALSE(observer.records[4].hasModif(copper->getIdentifier(), ~0));
}

TEST_F(KsmModelDataTest, TellsNothingOfAnEditThatChangesNothing)
{
    DataObserver observer(data);

    data->setGeometry(holes, MbgEGeometrySet::POINTS, MbgEDimension::DIM_3D);
    data->setSampleCount(samples, 3);
    data->setDetails(copper, copper->getDetails());
    data->setRole(copper, MbdEVarRole::V);
    data->setApplicationFlags(b, {});

    EXPECT_TRUE(observer.records.empty());
}

TEST_F(KsmModelDataTest, KeepsTheFormatOfAVariable)
{
    MbbStringFormat format(MbuEUnitClass::LENGTH);
    format.setDisplayUnit(MbuUnitService::getUnit("ft"));
    format.setPrecision(3);
    format.setCustomSymbol("feet");
    format.setUndefinedText("-");
    MbdVariableDetails details(MbuEUnitClass::LENGTH);
    details.setUnitDefaultFormatUsed(false);
    details.getEnumDetails().setCatalogId(12);
    details.getNumericDetails().setUserDefinedStringFormat(format);

    data->setDetails(copper, details);
    EXPECT_EQ(copper->getDetails(), details);

    details.getNumericDetails().unsetUserDefinedStringFormat();
    data->setDetails(copper, details);
    EXPECT_EQ(copper->getDetails(), details);
}

TEST_F(KsmModelDataTest, MergesAllChangesOfABatch)
{
    DataObserver observer(data);
    {
        KuoLock<KsmModifData> lock(data);
        data->writeValues(copper, {1, 2, 3});
        data->setRole(copper, MbdEVarRole::NONE);
        data->createSupport(holes, "lines", 1);
        EXPECT_TRUE(observer.records.empty());
        lock.commit();
    }

    ASSERT_EQ(observer.records.size(), 1u);
    EXPECT_EQ(observer.records[0].getReasons(copper->getIdentifier()), Values | Details);
    EXPECT_TRUE(observer.records[0].hasModif(KsoDataIdentifier::support(data, {"a", "b"}, "holes", "lines"), Created));
    EXPECT_EQ(observer.records[0].getNumberOfModif(), 2);
    EXPECT_EQ(observer.records[0].getIdentifiers().count(), 2);
}

TEST_F(KsmModelDataTest, TellsAllChangesOfAStepTogether)
{
    DataObserver observer(data);

    data->inOneStep([&] {
        data->createDirectory(a, "x");
        data->inOneStep([&] { data->createDirectory(a, "y"); });
        EXPECT_TRUE(observer.records.empty());
    });

    ASSERT_EQ(observer.records.size(), 1u);
    EXPECT_EQ(observer.records[0].getNumberOfModif(), 2);
}

TEST_F(KsmModelDataTest, UndoesAStepThatFails)
{
    DataObserver observer(data);
    data->writeValues(copper, {1, 2, 3});
    observer.records.clear();

    EXPECT_EQ(messageOf<MbeError>([&] {
                  data->inOneStep([&] {
                      data->createDirectory(a, "x");
                      data->rename(copper, "Copper");
                      data->writeValues(copper, {4, 5, 6});
                      data->setRole(copper, MbdEVarRole::WEIGHT);
                      data->move(holes, a);
                      data->remove(b);
                      data->remove(holes);
                      throw std::runtime_error("no more");
                  });
              }),
              "std::exception: no more");

    EXPECT_TRUE(observer.records.empty());
    EXPECT_EQ(namesOf(a), (QStringList{"b"}));
    EXPECT_EQ(variableIdent("Cu").getDataItem(), copper);
    EXPECT_EQ(copper->getRole(), MbdEVarRole::V);
    std::vector<double> values;
    data->readValues(copper, values);
    EXPECT_EQ(values, (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(data->getItemFromId(samples->getId()), samples);
    data->rename(copper, "Copper");
    EXPECT_EQ(copper->getName(), "Copper");
}

TEST_F(KsmModelDataTest, RefusesNamesThatAreTakenOrNone)
{
    EXPECT_EQ(messageOf<MbeUserError>([&] { data->createDirectory(a, "b"); }), "The name 'b' is taken in 'a'.");
    EXPECT_EQ(messageOf<MbeUserError>([&] { data->createDirectory(a, ""); }), "A name cannot be empty.");
    EXPECT_EQ(messageOf<MbeUserError>([&] { data->rename(copper, "C/u"); }),
              "The name 'C/u' contains '/' or a character that is not allowed.");
    EXPECT_EQ(
        messageOf<MbeUserError>([&] { data->createMacroVariable(samples, "Cu", detailsOf(MbdEVarType::FLOAT), 1); }),
        "The name 'Cu' is taken in 'a/b/holes/samples'.");
    data->createDirectory(data->getRootItem(), "b");
    EXPECT_EQ(messageOf<MbeUserError>([&] { data->move(b, data->getRootItem()); }), "The name 'b' is taken in '/'.");
    EXPECT_EQ(copper->getName(), "Cu");
    EXPECT_EQ(b->getParentItem(), a);
}

TEST_F(KsmModelDataTest, LetsAFileAndADirectoryHaveTheSameName)
{
    EXPECT_NO_THROW(data->createFile(a, "b", MbgEGeometrySet::GRID, MbgEDimension::DIM_2D));
}

TEST_F(KsmModelDataTest, RefusesPlacesWhereAnItemDoesNotBelong)
{
    EXPECT_EQ(messageOf<MbeUserError>([&] { data->move(copper, holes); }), "The item cannot lie below 'a/b/holes'.");
    EXPECT_EQ(messageOf<MbeUserError>([&] { data->move(holes, samples); }),
              "The item cannot lie below 'a/b/holes/samples'.");
    EXPECT_EQ(messageOf<MbeUserError>([&] { data->move(a, b); }), "The directory 'a' cannot be moved below itself.");
    EXPECT_EQ(messageOf<MbeUserError>([&] { data->move(a, a); }), "The directory 'a' cannot be moved below itself.");
}

TEST_F(KsmModelDataTest, KeepsItsRootDirectory)
{
    const auto refusal = "The root directory cannot be changed.";

    EXPECT_EQ(messageOf<MbeUserError>([&] { data->rename(data->getRootItem(), "x"); }), refusal);
    EXPECT_EQ(messageOf<MbeUserError>([&] { data->move(data->getRootItem(), a); }), refusal);
    EXPECT_EQ(messageOf<MbeUserError>([&] { data->remove(data->getRootItem()); }), refusal);
    EXPECT_EQ(messageOf<MbeUserError>([&] { data->setApplicationFlags(data->getRootItem(), {"x"}); }), refusal);
}

TEST_F(KsmModelDataTest, RefusesItemsThatAreNullGoneOrOfAnotherProject)
{
    const auto refusal = "The data item is null, gone or of another project.";
    const KssProject other;
    KsoDataDirectory* foreign = other.getModelData()->getRootItem();
    KsoDataVariable* gone = copper;
    data->remove(copper);
    std::vector<double> values;

    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { data->createDirectory(nullptr, "x"); }), refusal);
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { data->createDirectory(foreign, "x"); }), refusal);
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { data->move(holes, foreign); }), refusal);
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { data->remove(gone); }), refusal);
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { data->rename(gone, "x"); }), refusal);
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { data->readValues(gone, values); }), refusal);
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { data->writeValues(gone, {}); }), refusal);
}

TEST_F(KsmModelDataTest, RefusesNumbersOfSamplesOutOfBounds)
{
    EXPECT_EQ(messageOf<MbeUserError>([&] { data->createSupport(holes, "x", -1); }),
              "-1 is no number of samples: it must lie between 0 and 100000000.");
    EXPECT_EQ(messageOf<MbeUserError>([&] { data->createSupport(holes, "x", 100000001); }),
              "100000001 is no number of samples: it must lie between 0 and 100000000.");
    EXPECT_EQ(messageOf<MbeUserError>(
                  [&] { data->createMacroVariable(samples, "x", detailsOf(MbdEVarType::FLOAT), 1000001); }),
              "1000001 is no number of realisations: it must lie between 0 and 1000000.");
    EXPECT_EQ(messageOf<MbeUserError>([&] { data->setSampleCount(samples, 4); }),
              "The support 'a/b/holes/samples' has variables, so its number of samples stays.");
}

TEST_F(KsmModelDataTest, KeepsTheTypeOfAVariable)
{
    EXPECT_EQ(messageOf<MbeUserError>([&] { data->setDetails(copper, detailsOf(MbdEVarType::STRING)); }),
              "The type of the variable 'a/b/holes/samples/Cu' cannot change.");
}

TEST_F(KsmModelDataTest, TellsItsDeathWhenTheProjectHasForgottenIt)
{
    struct Observer : DataObserver
    {
        explicit Observer(KssProject* project) : DataObserver(project->getModelData()), project(project) {}
        void destroyed(const KuoAObservable<KsmModifData>* observable) override
        {
            DataObserver::destroyed(observable);
            EXPECT_EQ(project->getModelData(), nullptr);
            EXPECT_FALSE(ident.exists());
            EXPECT_EQ(ident.getModel(), nullptr);
        }
        KssProject* project;
        KsoDataIdentifier ident = project->getModelData()->getRootDirectory();
    };
    Observer observer(project.get());

    project.reset();

    EXPECT_EQ(observer.deaths, 1);
}

TEST_F(KsmModelDataTest, CanBeDestroyedByItsObserver)
{
    struct Observer : DataObserver
    {
        explicit Observer(std::unique_ptr<KssProject>& project)
            : DataObserver(project->getModelData()),
              project(project)
        {}
        void update(const KsmModifData&) override { project.reset(); }
        std::unique_ptr<KssProject>& project;
    };
    Observer observer(project);

    EXPECT_EQ(data->createDirectory(a, "x"), nullptr);

    EXPECT_EQ(project, nullptr);
    EXPECT_EQ(observer.deaths, 1);
}

TEST_F(KsmModelDataTest, GivesNothingBackThatItsObserverHasRemoved)
{
    struct Observer : DataObserver
    {
        using DataObserver::DataObserver;
        void update(const KsmModifData& modif) override
        {
            for (const KsoDataIdentifier& ident : modif.getIdentifiers()) {
                if (ident.exists())
                    ident.getModel()->remove(ident.getDataItem());
            }
        }
    };
    const Observer observer(data);

    EXPECT_EQ(data->createDirectory(a, "x"), nullptr);
    EXPECT_EQ(a->getChildItem(KsoEDataType::DIRECTORY, "x"), nullptr);
}

/// A store that fails when it is told to.
class FailingDriver : public KsbIDriverItem
{
public:
    QList<KsbItemRecord> list(const QString& model) const override { return inner.list(model); }
    int insert(const QString& model, const KsbItemRecord& record) override
    {
        _require();
        return inner.insert(model, record);
    }
    void update(const KsbItemRecord& record) override
    {
        _require();
        inner.update(record);
    }
    void remove(const QList<int>& ids) override
    {
        _require();
        inner.remove(ids);
    }
    std::optional<QByteArray> readContent(int id, int number) const override { return inner.readContent(id, number); }
    void writeContent(int id, int number, const QByteArray& content) override
    {
        _require();
        inner.writeContent(id, number, content);
    }
    void inOneStep(const std::function<void()>& body) override
    {
        inner.inOneStep([&] {
            body();
            if (failsAtTheEnd)
                throw MbeError(MbeError::Storage, "full");
        });
    }

    KsbDriverItemMemory inner;
    bool fails = false;
    bool failsAtTheEnd = false;

private:
    void _require() const
    {
        if (fails)
            throw MbeError(MbeError::Storage, "full");
    }
};

class KsmModelDataFaultTest : public testing::Test
{
protected:
    /// Every kind of change, each of which must fail and leave everything as it was.
    void expectNoChange()
    {
        const QString before = described();
        DataObserver observer(data);
        const MbdVariableDetails length(MbuEUnitClass::LENGTH);
        const QList<std::function<void()>> changes{
            [&] { data->createDirectory(directory, "x"); },
            [&] { data->createVariable(support, "x", length, MbdEVarRole::NONE, std::vector<double>{1}); },
            [&] { data->rename(directory, "x"); },
            [&] { data->move(file, data->getRootItem()); },
            [&] { data->remove(directory); },
            [&] { data->setDetails(variable, length); },
            [&] { data->setApplicationFlags(file, {"x"}); },
            [&] { data->writeValues(variable, {2}); },
        };
        for (const auto& change : changes) {
            EXPECT_EQ(messageOf<MbeError>(change), "full");
            EXPECT_EQ(described(), before);
        }
        EXPECT_TRUE(observer.records.empty());
    }
    QString described() const
    {
        std::vector<double> values;
        data->readValues(variable, values);
        QStringList lines{QString::number(values.at(0))};
        for (const KsbItemRecord& record : driver->list("data"))
            lines.append(QString::number(record.parent) + record.name + QString::fromUtf8(record.attributes));
        for (const int id : {directory->getId(), file->getId(), support->getId(), variable->getId()})
            lines.append(data->getItemFromId(id)->getIdentifier().encode());
        lines.append(QString::number(directory->getChildItems().count()));
        lines.append(variable->getDetails().getUnitClass().getKey() + file->getApplicationFlags().join(","));
        return lines.join("\n");
    }

    FailingDriver* driver = new FailingDriver;
    KssProject project{std::unique_ptr<KsbIDriverItem>(driver)};
    KsmModelData* data = project.getModelData();
    KsoDataDirectory* directory = data->createDirectory(data->getRootItem(), "d");
    KsoDataFile* file = data->createFile(directory, "f", MbgEGeometrySet::POINTS, MbgEDimension::DIM_2D);
    KsoDataSupport* support = data->createSupport(file, "s", 1);
    KsoDataVariable* variable =
        data->createVariable(support, "v", MbdVariableDetails(), MbdEVarRole::NONE, std::vector<double>{1});
};

TEST_F(KsmModelDataFaultTest, StaysAsItWasWhenTheStoreRefuses)
{
    driver->fails = true;
    expectNoChange();
}

TEST_F(KsmModelDataFaultTest, StaysAsItWasWhenTheStoreFailsAtTheEnd)
{
    driver->failsAtTheEnd = true;
    expectNoChange();
}

TEST_F(KsmModelDataFaultTest, FailsAStepWhoseChangeFailedEvenIfThatIsCaught)
{
    EXPECT_EQ(messageOf<MbeError>([&] {
                  data->inOneStep([&] {
                      data->createDirectory(directory, "x");
                      driver->fails = true;
                      EXPECT_THROW(data->createDirectory(directory, "y"), MbeError);
                      driver->fails = false;
                      data->createDirectory(directory, "z");
                  });
              }),
              "full");

    EXPECT_EQ(directory->getChildItems(), (QList<KsoADataItem*>{file}));
}

TEST_F(KsmModelDataFaultTest, GoesOnInAStepWhereANameWasRefused)
{
    data->inOneStep([&] {
        EXPECT_THROW(data->createDirectory(directory, ""), MbeUserError);
        data->createDirectory(directory, "z");
    });

    EXPECT_EQ(directory->getChildItems().count(), 2);
}

} // namespace
