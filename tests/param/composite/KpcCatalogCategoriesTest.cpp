#include "CompositeTestTools.h"

#include <basic/MbdEnumCatalog.h>
#include <param/KpsSerializerTestTools.h>
#include <param/atomic/KpaColor.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaString.h>
#include <param/composite/KpcCatalogCategories.h>
#include <study/KsmModelEnumCatalog.h>
#include <support/BracketTranslator.h>

#include <QtCore/QRandomGenerator>

namespace {

using Operation = KpcCatalogCategoryOperation;
using Rows = QList<QStringList>;

/// A catalog of a project.
class CatalogItem
{
public:
    explicit CatalogItem(const MbdEnumCatalog& catalog)
        : _item(_project.getModelEnumCatalog()->create("Rock types", catalog))
    {}
    const KsoEnumCatalog* get() const { return _item; }

private:
    KssProject _project;
    KsoEnumCatalog* _item;
};

MbdEnumCatalog rockTypes()
{
    MbdEnumCatalog catalog;
    catalog.setUndefColor(MbbColor(0xFF010203));
    catalog.setCategory(7, "New", MbbColor(0xFF00FF00));
    catalog.setCategory(1, "Ore", MbbColor(0xFFFF8000));
    catalog.setCategory(2, "Waste", MbbColor(0xFF808080));
    return catalog;
}

/// A table, and its rows as three words each: the operation, the old and the new name.
struct Table
{
    explicit Table(const Rows& rows = {})
    {
        for (const QStringList& row : rows) {
            KpcCatalogCategory& category = *categories->addItem();
            text(category, "NAME").setValue(row[1]);
            text(category, "OPERATION_VALUE").setValue(row[2]);
            operation(category).setEnum(Operation::fromKey(row[0]));
            if (row[2].isEmpty())
                text(category, "OPERATION_VALUE").setValue(QString());
        }
    }

    static KpaString& text(const KpbAParameter& category, const QString& key)
    {
        return dynamic_cast<KpaString&>(*category.getChild(key));
    }
    static KpaEnum& operation(const KpbAParameter& category)
    {
        return dynamic_cast<KpaEnum&>(*category.getChild("OPERATION"));
    }
    static KpaColor& color(const KpbAParameter& category)
    {
        return dynamic_cast<KpaColor&>(*category.getChild("COLOR"));
    }
    KpaString& newName(int rank) const { return text(*categories->getItemAt(rank), "OPERATION_VALUE"); }
    Rows rows() const { return rowsOf(*table); }
    static Rows rowsOf(const KpcCatalogCategories& of)
    {
        Rows rows;
        const KpbAParameter& list = *of.getChild("CATEGORIES");
        for (int i = 0; i < list.getChildCount(); ++i) {
            const KpbAParameter& row = *list.getChild(i);
            rows.append(
                {operation(row).getItemKey(), text(row, "NAME").getValue(), text(row, "OPERATION_VALUE").getValue()});
        }
        return rows;
    }

    std::unique_ptr<KpcCatalogCategories> table = std::make_unique<KpcCatalogCategories>("T", TestContext::instance());
    KpaColor* undefColor = dynamic_cast<KpaColor*>(table->getChild("UNDEF_COLOR"));
    KpcList<KpcCatalogCategory>* categories = dynamic_cast<KpcList<KpcCatalogCategory>*>(table->getChild("CATEGORIES"));
};

} // namespace

TEST(KpcCatalogCategories, HasItsChildrenInOrder)
{
    const Table t;
    EXPECT_TRUE(t.table->isA(KpbEType::CATALOG_CATEGORIES));
    EXPECT_EQ(childKeys(*t.table), QStringList({"UNDEF_COLOR", "CATEGORIES"}));
    ASSERT_TRUE(t.undefColor);
    ASSERT_TRUE(t.categories);
    EXPECT_EQ(t.undefColor->getLabel(), "Color for undefined values");
    EXPECT_EQ(t.categories->getLabel(), "Categories");
    EXPECT_EQ(t.undefColor->getMbbColor(), MbbColor(0xFFFFFF));
    EXPECT_EQ(t.categories->getItemCount(), 0);
    EXPECT_EQ(t.categories->getItemPrototype()->getKey(), "PROTOTYPE");
}

TEST(KpcCatalogCategories, TranslatesItsLabels)
{
    const BracketTranslator translator;
    const Table t;
    EXPECT_EQ(t.undefColor->getLabel(), "[Color for undefined values]");
    EXPECT_EQ(t.categories->getLabel(), "[Categories]");
    EXPECT_EQ(t.categories->getItemPrototype()->getLabel(), "[Category]");
}

TEST(KpcCatalogCategories, NumbersItsRows)
{
    const Table t({{"ADD", "", "Ore"}, {"ADD", "", "Waste"}});
    EXPECT_EQ(t.categories->getItemAt(0)->getLabel(), "Category #1");
    EXPECT_EQ(t.categories->getItemAt(1)->getLabel(), "Category #2");
}

TEST(KpcCatalogCategories, AddsACategory)
{
    const Table t({{"EDIT", "Waste", "Waste"}});
    const KpcCatalogCategory* added = t.table->addNewCategory("Ore");
    EXPECT_EQ(added, t.categories->getItemAt(1));
    EXPECT_EQ(t.rows(), Rows({{"EDIT", "Waste", "Waste"}, {"ADD", "", "Ore"}}));
}

TEST(KpcCatalogCategories, AddsCategoriesInColoursByChance)
{
    const Table t;
    QSet<QRgb> colors;
    for (int i = 0; i < 20; ++i)
        colors.insert(Table::color(*t.table->addNewCategory("Ore")).getValue().rgba());
    EXPECT_GT(colors.size(), 10);
}

TEST(KpcCatalogCategories, AddsACategoryInOneRecordOfTheList)
{
    const Table t;
    RecordingObserver observer(*t.categories);
    t.table->addNewCategory("Ore");
    EXPECT_EQ(observer.records.size(), 1);
}

TEST(KpcCatalogCategories, MakesRenamesConsistentWhenACategoryIsAdded)
{
    const Table t({{"EDIT", "Y", "Z"}, {"EDIT", "X", "X"}});
    {
        const KuoLockObserver<KpnModif> deaf(t.table.get(), t.categories);
        t.newName(1).setValue("Y");
    }
    const std::unique_ptr<KpcCatalogCategories> copy(t.table->duplicate("COPY"));
    copy->addNewCategory("Ore");
    EXPECT_EQ(Table::rowsOf(*copy), Rows({{"EDIT", "Y", "Z"}, {"EDIT", "X", "Z"}, {"ADD", "", "Ore"}}));
}

TEST(KpcCatalogCategories, MakesRenamesConsistentAfterABatchInWhichACategoryIsAdded)
{
    const Table t({{"EDIT", "X", "Y"}, {"EDIT", "Y", "Z"}});
    KuoLock<KpnModif> lock(t.categories);
    t.categories->moveItem(1, 0);
    t.table->addNewCategory("Ore");
    lock.commit();
    EXPECT_EQ(t.rows(), Rows({{"EDIT", "Y", "Z"}, {"EDIT", "X", "Z"}, {"ADD", "", "Ore"}}));
}

TEST(KpcCatalogCategories, GivesNoCategoryThatDidNotSurviveItsArrival)
{
    Table t;
    ActingObserver observer(*t.categories, [&] { t.table.reset(); });
    EXPECT_FALSE(t.table->addNewCategory("Ore"));
    EXPECT_FALSE(t.table);
}

TEST(KpcCatalogCategories, MakesRenamesConsistent)
{
    const std::pair<Rows, QStringList> tables[] = {
        // A rename onto a category that is itself renamed above follows that one.
        {{{"EDIT", "Y", "Z"}, {"EDIT", "X", "Y"}}, {"Z", "Z"}},
        // Each keeps what it says.
        {{{"EDIT", "X", "Y"}, {"EDIT", "Y", "Z"}}, {"Y", "Z"}},
        // A third one follows the chain to its end.
        {{{"EDIT", "X", "Y"}, {"EDIT", "Y", "Z"}, {"EDIT", "W", "X"}}, {"Y", "Z", "Z"}},
        {{{"EDIT", "X", "Y"}, {"EDIT", "Y", "Z"}, {"EDIT", "W", "Y"}}, {"Y", "Z", "Z"}},
        // A swap ends with two of the same name.
        {{{"EDIT", "X", "Y"}, {"EDIT", "Y", "X"}}, {"Y", "Y"}},
        {{{"EDIT", "X", "Y"}, {"EDIT", "Y", "Z"}, {"EDIT", "Z", "X"}}, {"Y", "Z", "Z"}},
        // Rows that add and rows without a change take no part.
        {{{"ADD", "Y", "Z"}, {"EDIT", "X", "Y"}}, {"Z", "Y"}},
        {{{"EDIT", "Y", "Z"}, {"ADD", "X", "Y"}}, {"Z", "Y"}},
        {{{"EDIT", "Y", "Y"}, {"EDIT", "X", "Y"}}, {"Y", "Y"}},
        {{{"EDIT", "", "Z"}, {"EDIT", "X", "Y"}}, {"Z", "Y"}},
        // Rows that remove do, with the new name that they have.
        {{{"REMOVE", "Y", "Z"}, {"EDIT", "X", "Y"}}, {"Z", "Z"}},
        {{{"REMOVE", "Y", "Y"}, {"EDIT", "X", "Y"}}, {"Y", "Y"}},
    };
    for (const auto& [rows, newNames] : tables) {
        const Table t(rows);
        QStringList found;
        for (const QStringList& row : t.rows())
            found.append(row[2]);
        EXPECT_EQ(found, newNames) << rows.first().join(' ').toStdString();
    }
}

TEST(KpcCatalogCategories, FollowsARenameThatComesLater)
{
    const Table t({{"EDIT", "Y", "Y"}, {"EDIT", "X", "Y"}});
    t.newName(0).setValue("Z");
    EXPECT_EQ(t.rows(), Rows({{"EDIT", "Y", "Z"}, {"EDIT", "X", "Z"}}));
}

TEST(KpcCatalogCategories, FollowsWhenRowsAreMoved)
{
    const Table t({{"EDIT", "X", "Y"}, {"EDIT", "Y", "Z"}});
    t.categories->moveItem(1, 0);
    EXPECT_EQ(t.rows(), Rows({{"EDIT", "Y", "Z"}, {"EDIT", "X", "Z"}}));
}

TEST(KpcCatalogCategories, TellsOfARenameInOneRecord)
{
    const Table t({{"EDIT", "Y", "Y"}, {"EDIT", "X", "Y"}});
    RecordingObserver observer(*t.table);
    t.newName(0).setValue("Z");
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(t.newName(0)), int(Kp::NotifyValue));
    EXPECT_EQ(observer.flagsOf(t.newName(1)), int(Kp::NotifyValue));
}

TEST(KpcCatalogCategories, PassesOnWhatIsNotOfTheRows)
{
    const Table t({{"EDIT", "Y", "Z"}});
    RecordingObserver observer(*t.table);
    t.undefColor->setValue(Qt::red);
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(*t.undefColor), int(Kp::NotifyValue));
}

TEST(KpcCatalogCategories, DescribesACatalogWithNothingToBeDone)
{
    const Table t({{"ADD", "", "New"}, {"REMOVE", "Ore", "Ore"}, {"EDIT", "Waste", "Ore"}, {"EDIT", "Other", "X"}});
    const CatalogItem catalog(rockTypes());
    t.table->resetCategoriesFromCatalog(catalog.get());
    EXPECT_EQ(t.rows(), Rows({{"EDIT", "Ore", "Ore"}, {"EDIT", "Waste", "Waste"}, {"EDIT", "New", "New"}}));
    EXPECT_EQ(t.undefColor->getMbbColor(), MbbColor(0xFF010203));
    EXPECT_EQ(Table::color(*t.categories->getItemAt(0)).getMbbColor(), MbbColor(0xFFFF8000));
    EXPECT_EQ(Table::color(*t.categories->getItemAt(1)).getMbbColor(), MbbColor(0xFF808080));
    EXPECT_TRUE(t.table->getStatus(true).isEmpty());
}

TEST(KpcCatalogCategories, DescribesACategoryWhoseLabelIsBlank)
{
    const Table t({{"EDIT", "Ore", "Waste"}});
    MbdEnumCatalog blank;
    blank.setCategory(1, " ", MbbColor(0xFF000000));
    const CatalogItem catalog(blank);
    t.table->resetCategoriesFromCatalog(catalog.get());
    EXPECT_EQ(t.rows(), Rows({{"EDIT", "", ""}}));
}

TEST(KpcCatalogCategories, DescribesACatalogInOneRecord)
{
    const Table t({{"EDIT", "Ore", "Waste"}});
    const CatalogItem catalog(rockTypes());
    RecordingObserver observer(*t.table);
    t.table->resetCategoriesFromCatalog(catalog.get());
    EXPECT_EQ(observer.records.size(), 1);
}

TEST(KpcCatalogCategories, DescribesACatalogToBeMadeFromNothing)
{
    const Table t({{"REMOVE", "A", "A"},
                   {"EDIT", "B", "C"},
                   {"EDIT", "D", "D"},
                   {"REMOVE", "E", "E"},
                   {"ADD", "", "F"},
                   {"REMOVE", "G", "G"}});
    t.undefColor->setValue(Qt::red);
    RecordingObserver observer(*t.table);
    t.table->resetCategoriesFromCatalog(nullptr);
    EXPECT_EQ(t.rows(), Rows({{"ADD", "", "C"}, {"ADD", "", "D"}, {"ADD", "", "F"}}));
    EXPECT_EQ(t.undefColor->getValue(), QColor(Qt::red));
    EXPECT_EQ(observer.records.size(), 1);
    EXPECT_EQ(t.categories->getItemKeys(), QStringList({"ITEM_2", "ITEM_3", "ITEM_5"}));
    EXPECT_EQ(t.categories->getItemAt(1)->getLabel(), "Category #2");
    EXPECT_EQ(t.table->addNewCategory("H")->getKey(), "ITEM_7");
}

TEST(KpcCatalogCategories, DescribesAlsoWhatHasNoRowsToRemove)
{
    const Table t({{"ADD", "", "A"}});
    RecordingObserver observer(*t.table);
    t.table->resetCategoriesFromCatalog(nullptr);
    EXPECT_EQ(t.rows(), Rows({{"ADD", "", "A"}}));
    EXPECT_TRUE(observer.records.isEmpty());
}

TEST(KpcCatalogCategories, TellsWhatIsWrongWithTheNames)
{
    const QString removing = "Cannot create <b>X</b> while removing it at the same time.";
    const QString repeated = "Category name <b>X</b> must be unique.";
    const std::pair<Rows, QStringList> tables[] = {
        {{}, {}},
        {{{"ADD", "", "X"}, {"EDIT", "Y", "Y"}, {"REMOVE", "Z", "Z"}}, {}},
        {{{"ADD", "", ""}}, {"A category does not have a name."}},
        {{{"EDIT", "", ""}}, {"A category does not have a name."}},
        {{{"REMOVE", "", ""}}, {}},
        {{{"REMOVE", "X", "X"}, {"ADD", "", "X"}}, {removing}},
        {{{"ADD", "", "X"}, {"REMOVE", "X", "X"}}, {removing}},
        {{{"REMOVE", "X", "X"}, {"EDIT", "Y", "X"}}, {removing}},
        {{{"ADD", "", "X"}, {"ADD", "", "X"}}, {repeated}},
        {{{"ADD", "", "X"}, {"EDIT", "X", "X"}, {"ADD", "", "X"}}, {repeated, repeated}},
        {{{"REMOVE", "X", "X"}, {"REMOVE", "X", "X"}}, {}},
        {{{"REMOVE", "X", "X"}, {"ADD", "", "X"}, {"ADD", "", "X"}}, {removing, removing}},
        {{{"EDIT", "A", "X"}, {"EDIT", "X", "A"}}, {repeated}},
    };
    for (const auto& [rows, errors] : tables) {
        const KpbStatus status = Table(rows).table->getStatus(true);
        EXPECT_EQ(status.getErrors(), errors);
        EXPECT_EQ(status.count(), errors.size());
    }
}

TEST(KpcCatalogCategories, TellsOfAMissingNameInTwoWays)
{
    const Table t({{"ADD", "", ""}});
    EXPECT_EQ(t.table->getStatus(true).getErrors(), QStringList("A category does not have a name."));
    EXPECT_EQ(t.table->getStatus(false).getErrors(), QStringList("Give a name for all categories."));
}

TEST(KpcCatalogCategories, TranslatesItsErrors)
{
    const Table t({{"ADD", "", ""}, {"ADD", "", "X"}, {"ADD", "", "X"}, {"REMOVE", "Y", "Y"}, {"ADD", "", "Y"}});
    const BracketTranslator translator;
    const QStringList others = {"[Category name <b>X</b> must be unique.]",
                                "[Cannot create <b>Y</b> while removing it at the same time.]"};
    EXPECT_EQ(t.table->getStatus(true).getErrors(), QStringList("[A category does not have a name.]") + others);
    EXPECT_EQ(t.table->getStatus(false).getErrors(), QStringList("[Give a name for all categories.]") + others);
}

TEST(KpcCatalogCategories, ShowsNamesInErrorsAsTheyAre)
{
    const Table t({{"ADD", "", "<%1>"}, {"ADD", "", "<%1>"}});
    EXPECT_EQ(t.table->getStatus(true).getErrors(), QStringList("Category name <b>&lt;%1&gt;</b> must be unique."));
}

TEST(KpcCatalogCategories, IsStoredAndReadWithItsErrors)
{
    const Table t({{"EDIT", "A", "A"}, {"EDIT", "B", "C"}, {"REMOVE", "D", "D"}, {"ADD", "", "D"}, {"ADD", "", ""}});
    const Table read;
    SerializerTest::read(*read.table, SerializerTest::writtenParam(*t.table));
    EXPECT_EQ(read.rows(), t.rows());
    EXPECT_EQ(read.table->getStatus(true).count(), 2);
}

TEST(KpcCatalogCategories, FollowsRenamesInWhatItReads)
{
    const Table t;
    SerializerTest::read(*t.table, R"(<param key="T"><param key="CATEGORIES">)"
                                   R"(<param key="ITEM_1"><param key="OPERATION">EDIT</param>)"
                                   R"(<param key="NAME">Y</param><param key="OPERATION_VALUE">Z</param></param>)"
                                   R"(<param key="ITEM_2"><param key="OPERATION">EDIT</param>)"
                                   R"(<param key="NAME">X</param><param key="OPERATION_VALUE">Y</param></param>)"
                                   R"(</param></param>)");
    EXPECT_EQ(t.rows(), Rows({{"EDIT", "Y", "Z"}, {"EDIT", "X", "Z"}}));
}

TEST(KpcCatalogCategories, CopiesItsRowsAndWatchesThem)
{
    const Table t({{"EDIT", "Y", "Y"}, {"EDIT", "X", "Y"}});
    const std::unique_ptr<KpcCatalogCategories> copy(t.table->duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(Table::rowsOf(*copy), t.rows());
    Table::text(*copy->getChild("CATEGORIES")->getChild(0), "OPERATION_VALUE").setValue("Z");
    EXPECT_EQ(Table::rowsOf(*copy), Rows({{"EDIT", "Y", "Z"}, {"EDIT", "X", "Z"}}));
    EXPECT_EQ(t.rows(), Rows({{"EDIT", "Y", "Y"}, {"EDIT", "X", "Y"}}));
    EXPECT_EQ(std::unique_ptr<KpcCatalogCategories>(t.table->duplicate(QString()))->getKey(), "T");
}

TEST(KpcCatalogCategories, RunsNoRuleInACopy)
{
    Table t({{"EDIT", "Y", "Z"}, {"EDIT", "X", "X"}});
    {
        const KuoLockObserver<KpnModif> deaf(t.table.get(), t.categories);
        t.newName(1).setValue("Y");
    }
    const std::unique_ptr<KpcCatalogCategories> copy(t.table->duplicate("COPY"));
    EXPECT_EQ(Table::rowsOf(*copy), Rows({{"EDIT", "Y", "Z"}, {"EDIT", "X", "Y"}}));
}

TEST(KpcCatalogCategories, SurvivesThatItIsDestroyedByAnObserver)
{
    const CatalogItem catalog(rockTypes());
    const std::function<void(Table&)> changes[] = {
        [](Table& t) { t.newName(0).setValue("Z"); },
        [](Table& t) { t.table->addNewCategory("New"); },
        [](Table& t) { t.table->resetCategoriesFromCatalog(nullptr); },
        [&](Table& t) { t.table->resetCategoriesFromCatalog(catalog.get()); },
    };
    for (const auto& change : changes) {
        for (const bool ofList : {true, false}) {
            Table t({{"EDIT", "Y", "Y"}, {"EDIT", "X", "Y"}, {"REMOVE", "W", "W"}});
            const KpbAParameter& observed = ofList ? static_cast<KpbAParameter&>(*t.categories) : *t.table;
            ActingObserver observer(observed, [&] { t.table.reset(); });
            change(t);
            EXPECT_FALSE(t.table);
        }
    }
}

TEST(KpcCatalogCategories, SurvivesThatItIsDestroyedByAnObserverOfARow)
{
    Table t({{"EDIT", "Y", "Y"}, {"EDIT", "X", "Y"}});
    ActingObserver observer(t.newName(1), [&] { t.table.reset(); });
    t.newName(0).setValue("Z");
    EXPECT_FALSE(t.table);
}

namespace {

/// One walk over the rows, as it reads.
Rows walked(Rows rows)
{
    QMap<QString, QString> renames;
    for (QStringList& row : rows) {
        if (row[0] == "ADD" || row[1].isEmpty() || row[1] == row[2])
            continue;
        const QString target = renames.value(row[2], row[2]);
        for (QString& finalName : renames) {
            if (finalName == row[1])
                finalName = target;
        }
        renames[row[1]] = target;
        row[2] = row[0] == "EDIT" && target.isEmpty() ? row[1] : target;
    }
    return rows;
}

Rows settled(Rows rows)
{
    for (Rows next = walked(rows); next != rows; next = walked(rows))
        rows = next;
    return rows;
}

} // namespace

TEST(KpcCatalogCategories, ComesToTheSameAsAWalkOverAllRowsWhateverIsChanged)
{
    QRandomGenerator random(4711);
    const QStringList names = {"A", "B", "C", "D", "E"};
    for (int table = 0; table < 200; ++table) {
        Rows expected;
        const Table t;
        for (int step = 0; step < 30; ++step) {
            const int rank = random.bounded(6);
            const QString name = names[random.bounded(names.size())];
            if (rank >= expected.size()) {
                KpcCatalogCategory& category = *t.categories->addItem();
                Table::operation(category).setEnum(Operation::EDIT);
                Table::text(category, "NAME").setValue(name);
                expected.append(QStringList{"EDIT", name, name});
            }
            else if (random.bounded(12) == 0) {
                const int to = random.bounded(expected.size());
                t.categories->moveItem(rank, to);
                expected.move(rank, to);
            }
            else if (random.bounded(12) == 0) {
                t.categories->removeItemAt(rank);
                expected.removeAt(rank);
            }
            else if (random.bounded(12) == 0) {
                t.table->addNewCategory(name);
                expected.append(QStringList{"ADD", "", name});
            }
            else if (random.bounded(8) == 0) {
                Table::text(*t.categories->getItemAt(rank), "NAME").setValue(name);
                expected[rank][1] = name;
                if (expected[rank][0] == "EDIT" && expected[rank][2].isEmpty())
                    expected[rank][2] = name;
            }
            else if (random.bounded(8) == 0) {
                const QString operation = QStringList{"ADD", "EDIT", "REMOVE"}[random.bounded(3)];
                Table::operation(*t.categories->getItemAt(rank)).setItemFromKey(operation);
                expected[rank][0] = operation;
                if (operation == "EDIT" && expected[rank][2].isEmpty())
                    expected[rank][2] = expected[rank][1];
            }
            else {
                const bool blank = random.bounded(6) == 0;
                t.newName(rank).setValue(blank ? QString() : name);
                expected[rank][2] = !blank ? name : expected[rank][0] == "EDIT" ? expected[rank][1] : QString();
            }
            expected = settled(expected);
            ASSERT_EQ(t.rows(), expected) << "table " << table << ", step " << step;
        }
    }
}

namespace {

/// The stored form of a table that renames categories, as pairs of the old and the new name.
QString storedRenames(const QList<std::pair<QString, QString>>& renames)
{
    QString form = R"(<param key="T"><param key="CATEGORIES">)";
    int id = 0;
    for (const auto& [name, newName] : renames) {
        form += QString(R"(<param key="ITEM_%1"><param key="OPERATION">EDIT</param><param key="NAME">%2</param>)"
                        R"(<param key="OPERATION_VALUE">%3</param></param>)")
                    .arg(QString::number(++id), name, newName);
    }
    return form + "</param></param>";
}

/// Renames each of `prefix` 1 to `prefix` `count` to the name `step` further on.
QString storedChain(const QString& prefix, int count, int step)
{
    QList<std::pair<QString, QString>> renames;
    for (int i = 1; i <= count; ++i)
        renames.append({prefix + QString::number(i), prefix + QString::number(i + step)});
    return storedRenames(renames);
}

} // namespace

TEST(KpcCatalogCategories, ReadsALargeTableInLittleTime)
{
    const Table t;
    SerializerTest::read(*t.table, storedChain("Rock ", 20000, 1));
    EXPECT_EQ(t.rows().last(), QStringList({"EDIT", "Rock 20000", "Rock 20001"}));
}

TEST(KpcCatalogCategories, ReadsALargeTableOverAnotherInLittleTime)
{
    const Table t;
    SerializerTest::read(*t.table, storedChain("Rock ", 8000, 1));
    SerializerTest::read(*t.table, storedChain("Soil ", 8000, 1));
    EXPECT_EQ(t.rows().first(), QStringList({"EDIT", "Soil 1", "Soil 2"}));
    EXPECT_EQ(t.rows().last(), QStringList({"EDIT", "Soil 8000", "Soil 8001"}));
}

TEST(KpcCatalogCategories, ReadsALargeTableWhoseRowsFollowTheOnesAboveOverAnotherInLittleTime)
{
    const Table t;
    SerializerTest::read(*t.table, storedChain("Rock ", 8000, -1));
    SerializerTest::read(*t.table, storedChain("Soil ", 8000, -1));
    EXPECT_EQ(t.rows().first(), QStringList({"EDIT", "Soil 1", "Soil 0"}));
    EXPECT_EQ(t.rows().last(), QStringList({"EDIT", "Soil 8000", "Soil 0"}));
}

TEST(KpcCatalogCategories, FollowsALongChainFromItsBeginningInLittleTime)
{
    QList<std::pair<QString, QString>> renames;
    for (int i = 1; i <= 5000; ++i)
        renames.append({QString::number(i), QString::number(i + 1)});
    for (int i = 5002; i <= 10000; ++i)
        renames.append({QString::number(i), "1"});
    const Table t;
    SerializerTest::read(*t.table, storedRenames(renames));
    EXPECT_EQ(t.rows().first(), QStringList({"EDIT", "1", "2"}));
    EXPECT_EQ(t.rows().last(), QStringList({"EDIT", "10000", "5001"}));
}

TEST(KpcCatalogCategories, AddsAndDropsManyCategoriesInLittleTime)
{
    const Table t;
    for (int i = 0; i < 20000; ++i)
        t.table->addNewCategory(QString::number(i));
    for (int i = 0; i < 20000; i += 2)
        Table::operation(*t.categories->getItemAt(i)).setEnum(Operation::REMOVE);
    t.table->resetCategoriesFromCatalog(nullptr);
    EXPECT_EQ(t.categories->getItemCount(), 10000);
    EXPECT_EQ(t.rows().last(), QStringList({"ADD", "", "19999"}));
}

TEST(KpcCatalogCategories, DescribesALargeCatalogInLittleTime)
{
    MbdEnumCatalog large;
    for (int value = 0; value < 20000; ++value)
        large.setCategory(value, "Category " + QString::number(value), MbbColor(0xFF000000));
    const CatalogItem catalog(large);
    const Table t;
    t.table->resetCategoriesFromCatalog(catalog.get());
    EXPECT_EQ(t.categories->getItemCount(), 20000);
}
