#include <basic/MbeError.h>
#include <study/KsmModelData.h>
#include <study/KsmModelEnumCatalog.h>
#include <study/KssImportCsv.h>
#include <study/KssProject.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

constexpr double none = MbbGlobal::D_FFFF;

QString sample(const char* name)
{
    return QStringLiteral(KESTRIN_SOURCE_DIR "/samples/data/") + QLatin1String(name);
}

class KssImportCsvTest : public testing::Test
{
protected:
    KsoDataFile* import(const QByteArray& text) { return KssImportCsv(&project).importText(text, "table"); }
    KsoAVariableItem* variable(const QString& name, const QString& file = "table")
    {
        return KsoDataIdentifier::variable(model, {}, file, "Samples", name).getAVariableItem();
    }
    MbdEVarType typeOf(const QString& name) { return variable(name)->getStorageType(); }
    std::vector<double> values(const QString& name, const QString& file = "table")
    {
        std::vector<double> read;
        model->readValues(variable(name, file), read);
        return read;
    }
    QStringList texts(const QString& name, const QString& file = "table")
    {
        QStringList read;
        model->readTexts(variable(name, file), read);
        return read;
    }
    /// The type of a column "V" with these cells, a line each.
    MbdEVarType typeOfCells(const QStringList& cells)
    {
        KssProject own;
        KssImportCsv(&own).importText("V;W\n" + cells.join(";\n").toUtf8() + ";\n", "table");
        return KsoDataIdentifier::variable(own.getModelData(), {}, "table", "Samples", "V")
            .getAVariableItem()
            ->getStorageType();
    }
    /// What is wrong with a text, which must not leave anything in the project.
    QStringList mistakes(const QByteArray& text, const QMap<QString, MbdEVarType>& types = {})
    {
        KssImportCsv import(&project);
        for (auto type = types.begin(); type != types.end(); ++type)
            import.setType(type.key(), type.value());
        EXPECT_THROW(import.importText(text, "table"), MbeUserError);
        EXPECT_TRUE(model->getRootItem()->getChildItems().isEmpty());
        EXPECT_TRUE(project.getModelEnumCatalog()->getUserItems().isEmpty());
        QStringList found;
        for (const auto& mistake : import.getMistakes())
            found.append(QStringLiteral("%1/%2 %3").arg(mistake.line).arg(mistake.column).arg(mistake.text));
        return found;
    }
    QString failure(const std::function<void()>& body)
    {
        try {
            body();
        }
        catch (const MbeUserError& error) {
            return error.getMessage();
        }
        return QString();
    }

    KssProject project;
    KsmModelData* model = project.getModelData();
};

TEST_F(KssImportCsvTest, ImportsAFileOfPointsWithOneSupport)
{
    const KsoDataFile* file = KssImportCsv(&project).importFile(sample("drillholes.csv"));

    ASSERT_NE(file->getUniqueSupport(), nullptr);
    EXPECT_EQ(file->getName(), "drillholes");
    EXPECT_EQ(file->getGeometrySet(), MbgEGeometrySet::POINTS);
    EXPECT_EQ(file->getDimension(), MbgEDimension::DIM_3D);
    EXPECT_EQ(file->getUniqueSupport()->getSampleCount(), 40);
    EXPECT_EQ(file->getUniqueSupport()->getChildItems().size(), 10);
}

TEST_F(KssImportCsvTest, FindsTheTypesOfTheColumnsOfAFile)
{
    KssImportCsv(&project).importFile(sample("drillholes.csv"));
    const auto typeOf = [&](const QString& name) { return variable(name, "drillholes")->getStorageType(); };

    EXPECT_EQ(typeOf("HOLE"), MbdEVarType::ENUM);
    EXPECT_EQ(typeOf("X"), MbdEVarType::DOUBLE);
    EXPECT_EQ(typeOf("CU"), MbdEVarType::DOUBLE);
    EXPECT_EQ(typeOf("BOXES"), MbdEVarType::INTEGER);
    EXPECT_EQ(typeOf("MINERALISED"), MbdEVarType::BOOLEAN);
    EXPECT_EQ(typeOf("ROCK"), MbdEVarType::ENUM);
    EXPECT_EQ(typeOf("REMARK"), MbdEVarType::STRING);
    EXPECT_EQ(variable("X", "drillholes")->getRole(), MbdEVarRole::COORDINATE);
    EXPECT_EQ(variable("CU", "drillholes")->getRole(), MbdEVarRole::NONE);
}

TEST_F(KssImportCsvTest, ImportsTheValuesOfAFile)
{
    KssImportCsv(&project).importFile(sample("drillholes.csv"));

    EXPECT_EQ(values("X", "drillholes")[0], 418249.44);
    EXPECT_EQ(values("CU", "drillholes")[4], 0.404);
    EXPECT_EQ(values("AU", "drillholes")[7], none);
    EXPECT_EQ(values("BOXES", "drillholes")[7], 4);
    EXPECT_EQ(values("MINERALISED", "drillholes")[3], 0);
    EXPECT_EQ(values("MINERALISED", "drillholes")[4], 1);
    EXPECT_EQ(values("ROCK", "drillholes")[13], none);
    EXPECT_EQ(texts("REMARK", "drillholes")[2], "core lost, 2 m");
    EXPECT_EQ(texts("REMARK", "drillholes")[10], "\"vuggy\" quartz");
    EXPECT_EQ(texts("REMARK", "drillholes")[28], "fault; clay gouge");
}

TEST_F(KssImportCsvTest, BindsCategoriesToACatalogOfTheColumn)
{
    import("ROCK\nSand\nClay\nSand\nN/A\nClay\n");
    const auto catalogs = project.getModelEnumCatalog()->getUserItems();

    ASSERT_EQ(catalogs.size(), 1);
    EXPECT_EQ(catalogs[0]->getName(), "ROCK");
    EXPECT_EQ(variable("ROCK")->getDetails().getEnumDetails().getCatalogId(), catalogs[0]->getId());
    EXPECT_EQ(catalogs[0]->getCatalog().getDefinition(1).getLabel(), "Clay");
    EXPECT_EQ(catalogs[0]->getCatalog().getDefinition(2).getLabel(), "Sand");
    EXPECT_NE(catalogs[0]->getCatalog().getDefinition(1).getColor(),
              catalogs[0]->getCatalog().getDefinition(2).getColor());
    EXPECT_THAT(values("ROCK"), ElementsAre(2, 1, 2, none, 1));
}

TEST_F(KssImportCsvTest, UsesACatalogOfTheNameThatHasAllCategories)
{
    MbdEnumCatalog catalog;
    catalog.setCategory(7, "Sand", MbbColor());
    catalog.setCategory(9, "Clay", MbbColor());
    catalog.setCategory(11, "Marl", MbbColor());
    project.getModelEnumCatalog()->create("ROCK", catalog);
    import("ROCK\nSand\nClay\nSand\nClay\n");

    EXPECT_EQ(project.getModelEnumCatalog()->getUserItems().size(), 1);
    EXPECT_THAT(values("ROCK"), ElementsAre(7, 9, 7, 9));
}

TEST_F(KssImportCsvTest, MakesACatalogOfAnotherNameBesideOneThatLacksCategories)
{
    MbdEnumCatalog catalog;
    catalog.setCategory(7, "Sand", MbbColor());
    project.getModelEnumCatalog()->create("ROCK", catalog);
    import("ROCK\nSand\nClay\nSand\nClay\n");

    ASSERT_EQ(project.getModelEnumCatalog()->getUserItems().size(), 2);
    EXPECT_EQ(project.getModelEnumCatalog()->getUserItems()[1]->getName(), "ROCK 2");
}

TEST_F(KssImportCsvTest, FindsTypesByRule)
{
    const QStringList nineNumbers{"1", "2", "3", "4", "5", "6", "7", "8", "9"};
    const struct
    {
        QStringList cells;
        MbdEVarType type;
    } rows[] = {
        {{"1", "-2", "", "007"}, MbdEVarType::INTEGER},
        {{"0", "1"}, MbdEVarType::INTEGER},
        {{"1", "2.5"}, MbdEVarType::DOUBLE},
        {{"1", "2000000000", "3000000000"}, MbdEVarType::DOUBLE},
        {{"1e3", "-.5"}, MbdEVarType::DOUBLE},
        {{"12345678901234567890", "1"}, MbdEVarType::STRING},
        {{"true", "FALSE", "N/A"}, MbdEVarType::BOOLEAN},
        {{"yes", "no", "yes"}, MbdEVarType::BOOLEAN},
        {{"a", "b", "a", "b"}, MbdEVarType::ENUM},
        {{"a", "b", "a"}, MbdEVarType::STRING},
        {{"true", "false", "maybe"}, MbdEVarType::STRING},
        {{"1,5", "2,5"}, MbdEVarType::STRING},
        {{"nan", "inf"}, MbdEVarType::STRING},
        {{"", "N/A"}, MbdEVarType::STRING},
        {QStringList(nineNumbers.mid(1)) + QStringList{"a"}, MbdEVarType::STRING},
    };
    for (const auto& row : rows)
        EXPECT_EQ(typeOfCells(row.cells), row.type) << row.cells.join(" ").toStdString();
}

TEST_F(KssImportCsvTest, TakesCategoriesUpToTheirMaximum)
{
    QStringList cells;
    for (int i = 0; i < KssImportCsv::MaxCategories; ++i)
        cells << QStringLiteral("c%1").arg(i) << QStringLiteral("c%1").arg(i);
    EXPECT_EQ(typeOfCells(cells), MbdEVarType::ENUM);
    cells << "one"
          << "one";
    EXPECT_EQ(typeOfCells(cells), MbdEVarType::STRING);
}

TEST_F(KssImportCsvTest, ReadsCellsInTheFormsThatFilesHave)
{
    const struct
    {
        const char* what;
        QByteArray text;
    } rows[] = {
        {"semicolons", "A;B\nx;1\ny;2\n"},
        {"commas", "A,B\nx,1\ny,2\n"},
        {"tabs", "A\tB\nx\t1\ny\t2\n"},
        {"a mark at the begin", "\xEF\xBB\xBF"
                                "A;B\nx;1\ny;2\n"},
        {"other line ends", "A;B\r\nx;1\r\ny;2\r\n"},
        {"old line ends", "A;B\rx;1\ry;2\r"},
        {"no last line end", "A;B\nx;1\ny;2"},
        {"blank lines", "\nA;B\n\nx;1\n  \ny;2\n\n"},
        {"blanks", " A ; B\n x ; 1\ny;2 \n"},
        {"quotes", "\"A\";\"B\"\n\"x\";\"1\"\n \"y\" ;2\n"},
    };
    for (const auto& row : rows) {
        KsoDataFile* file = import(row.text);
        EXPECT_EQ(texts("A"), QStringList({"x", "y"})) << row.what;
        EXPECT_THAT(values("B"), ElementsAre(1, 2)) << row.what;
        model->remove(file);
    }
}

TEST_F(KssImportCsvTest, ReadsQuotedCells)
{
    import("A;B\n\"one;two\";1\n\"three\nfour\";2\n\"say \"\"five\"\"\";3\n\"\";4\n\xC3\xA9t\xC3\xA9;5\nin\"ch;6\n");

    EXPECT_EQ(texts("A"), QStringList({"one;two", "three\nfour", "say \"five\"", "", "\u00e9t\u00e9", "in\"ch"}));
}

TEST_F(KssImportCsvTest, TellsMistakesInTheFormByLineAndColumn)
{
    const struct
    {
        QByteArray text;
        QStringList mistakes;
    } rows[] = {
        {"", {"1/0 There is no line of names."}},
        {"\n \n", {"1/0 There is no line of names."}},
        {"A;B\n", {"2/0 There is no line of values."}},
        {"A;\n1;2\n", {"1/2 A name cannot be empty."}},
        {"A/B\n1\n", {"1/1 The name 'A/B' contains '/' or a character that is not allowed."}},
        {"A;B;A\n1;2;3\n", {"1/3 The name 'A' is that of column 1, too."}},
        {";\n1;2\n", {"1/1 A name cannot be empty.", "1/2 A name cannot be empty."}},
        {"A;B\n1;2\n1\n1;2;3\n", {"3/2 The line has 1 cells instead of 2.", "4/3 The line has 3 cells instead of 2."}},
        {"A;B\n1;\"x\"y\n2;z\n", {"2/2 There is text after the closing quote."}},
        {"A;B\n1;\"x\n2;z\n", {"2/2 The quote is not closed."}},
        {"A;B\n\"1\n2\n3\";z\n1;2;3\n", {"5/3 The line has 3 cells instead of 2."}},
        {"A;B\n1;caf\xE9\n", {"2/2 The cell is not in UTF-8."}},
        {QByteArray("A;B\n1;x\0y\n", 10), {"2/2 The cell has a character that is not allowed."}},
        {"A;B\n1;" + QByteArray(32768, 'x') + "\n", {"2/2 The cell is longer than 32767 bytes."}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(mistakes(row.text), row.mistakes) << row.text.left(100).toStdString();
}

TEST_F(KssImportCsvTest, FindsTheSeparatorBesideQuotes)
{
    const struct
    {
        const char* what;
        QByteArray text;
        QString first;
    } rows[] = {
        {"a quote inside a name", "5\" core,B\n1,2\n", "5\" core"},
        {"two quotes inside a name", "5\"\" core,B\n1,2\n", "5\"\" core"},
        {"separators in quotes", " \"a;b;c\" ,B\n1,2\n", "a;b;c"},
        {"quotes in quotes", "\"a\"\";b;c\",B\n1,2\n", "a\";b;c"},
    };
    for (const auto& row : rows) {
        KsoDataFile* file = import(row.text);
        ASSERT_NE(variable(row.first), nullptr) << row.what;
        EXPECT_THAT(values(row.first), ElementsAre(1)) << row.what;
        EXPECT_THAT(values("B"), ElementsAre(2)) << row.what;
        model->remove(file);
    }
}

TEST_F(KssImportCsvTest, RefusesTextsInOtherEncodings)
{
    const QString text = "A;B\n1;2\n";
    const QByteArray wide(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);

    EXPECT_EQ(mistakes("\xFF\xFE" + wide).first(), "1/1 The cell has a character that is not allowed.");
    EXPECT_EQ(mistakes("\x1F\x8B\x08").first(), "1/1 The cell has a character that is not allowed.");
    EXPECT_EQ(mistakes("A;B\n1;\xED\xA0\x80\n"), QStringList("2/2 The cell is not in UTF-8."));
    EXPECT_EQ(mistakes("\xEF\xBB\xBF"), QStringList("1/0 There is no line of names."));
}

TEST_F(KssImportCsvTest, StopsReadingAtAThousandMistakes)
{
    const QByteArray rows = QByteArray("1;1\nx;x\n").repeated(3000);

    EXPECT_EQ(mistakes("A;B\n" + QByteArray("1\n").repeated(3000)).size(), 1000);
    EXPECT_EQ(mistakes("A;B\n" + rows, {{"A", MbdEVarType::DOUBLE}, {"B", MbdEVarType::DOUBLE}}).size(), 1000);
}

TEST_F(KssImportCsvTest, TakesUpToAThousandColumns)
{
    QByteArray names = "c0";
    for (int i = 1; i < 1000; ++i)
        names += ";c" + QByteArray::number(i);
    const QByteArray row = QByteArray(999, ';') + '\n';

    EXPECT_EQ(mistakes(names + ";one\n" + row), QStringList("1/1001 There are more than 1000 columns."));
    EXPECT_EQ(import(names + '\n' + row)->getUniqueSupport()->getChildItems().size(), 1000);
}

TEST_F(KssImportCsvTest, TellsCellsThatDoNotFitAColumnOfNumbers)
{
    EXPECT_EQ(
        mistakes("V;W\n1;1\n2;2\n3;3\n4;4\n5;5\n6;6\n7;7\n8;8\n9;1e999\n10,5;10.5\n"),
        QStringList({"10/2 '1e999' does not fit the type DOUBLE.", "11/1 '10,5' does not fit the type INTEGER."}));
}

TEST_F(KssImportCsvTest, TellsCellsThatDoNotFitTheTypeThatIsAskedFor)
{
    EXPECT_EQ(mistakes("V\n1\nx\n2.5\n", {{"V", MbdEVarType::INTEGER}}),
              QStringList({"3/1 'x' does not fit the type INTEGER.", "4/1 '2.5' does not fit the type INTEGER."}));
    EXPECT_EQ(mistakes("V\n255\n256\n", {{"V", MbdEVarType::BYTE}}),
              QStringList({"3/1 '256' does not fit the type BYTE."}));
    EXPECT_EQ(mistakes("V\n1e30\n1e300\n", {{"V", MbdEVarType::FLOAT}}),
              QStringList({"3/1 '1e300' does not fit the type FLOAT."}));
    EXPECT_EQ(mistakes("V\nyes\n1\n", {{"V", MbdEVarType::BOOLEAN}}),
              QStringList({"3/1 '1' does not fit the type BOOLEAN."}));
    EXPECT_EQ(mistakes("V\n1\n", {{"U", MbdEVarType::DOUBLE}}),
              QStringList({"0/0 There is no column of the name 'U'."}));
}

TEST_F(KssImportCsvTest, GivesColumnsTheTypeThatIsAskedFor)
{
    KssImportCsv import(&project);
    import.setType("A", MbdEVarType::STRING);
    import.setType("B", MbdEVarType::ENUM);
    import.setType("C", MbdEVarType::DOUBLE);
    import.importText("A;B;C\n1;2;3\n4;5;6\n", "table");

    EXPECT_EQ(texts("A"), QStringList({"1", "4"}));
    EXPECT_EQ(typeOf("B"), MbdEVarType::ENUM);
    EXPECT_THAT(values("B"), ElementsAre(1, 2));
    EXPECT_EQ(typeOf("C"), MbdEVarType::DOUBLE);
}

TEST_F(KssImportCsvTest, ReportsAllMistakesOfAFileAtOnce)
{
    EXPECT_EQ(failure([&] { KssImportCsv(&project).importFile(sample("broken.csv")); }),
              "'broken' cannot be imported: there are mistakes in it.\n"
              "line 1, column 5: The name 'CU' is that of column 4, too.\n"
              "line 3, column 6: The line has 5 cells instead of 6.\n"
              "line 4, column 6: There is text after the closing quote.\n"
              "line 5, column 7: The line has 7 cells instead of 6.\n"
              "line 6, column 6: The quote is not closed.");
    EXPECT_TRUE(model->getRootItem()->getChildItems().isEmpty());
}

TEST_F(KssImportCsvTest, ReportsNoMoreThanTwentyMistakes)
{
    const QString message = failure([&] { import("A;B\n1;2\n" + QByteArray("1\n").repeated(25)); });

    EXPECT_EQ(message.count('\n'), 21);
    EXPECT_TRUE(message.endsWith("\n... and 5 more"));
}

TEST_F(KssImportCsvTest, ReportsAFileThatIsNotThere)
{
    EXPECT_EQ(failure([&] { KssImportCsv(&project).importFile(sample("none.csv")); }),
              "'none.csv' cannot be imported: there is no such file.");
    EXPECT_EQ(failure([&] { KssImportCsv(&project).importFile(sample("")); }),
              "'' cannot be imported: there is no such file.");
}

TEST_F(KssImportCsvTest, ImportsNothingWhenTheNameIsTaken)
{
    import("A\n1\n");
    const QByteArray other = "ROCK\nSand\nSand\n";

    EXPECT_THROW(import(other), MbeUserError);
    EXPECT_EQ(model->getRootItem()->getChildItems().size(), 1);
    EXPECT_NE(variable("A"), nullptr);
    EXPECT_TRUE(project.getModelEnumCatalog()->getUserItems().isEmpty());
}

TEST_F(KssImportCsvTest, TakesBackItsCatalogsWhenTheDataCannotBeStored)
{
    KssImportCsv twoColumns(&project);
    const QString longName(255, 'n');
    twoColumns.setType(longName, MbdEVarType::ENUM);
    MbdEnumCatalog catalog;
    catalog.setCategory(1, "other", MbbColor());
    project.getModelEnumCatalog()->create(longName, catalog);
    const QByteArray text = "ROCK;" + longName.toUtf8() + "\nSand;a\nSand;b\n";

    EXPECT_THROW(twoColumns.importText(text, "table"), MbeUserError);
    EXPECT_TRUE(model->getRootItem()->getChildItems().isEmpty());
    EXPECT_EQ(project.getModelEnumCatalog()->getUserItems().size(), 1);
}

TEST_F(KssImportCsvTest, ImportsIntoADirectory)
{
    KsoDataDirectory* directory = model->createDirectory(model->getRootItem(), "north");
    const KsoDataFile* file = KssImportCsv(&project).importText("X;y\n1;2\n", "table", directory);
    KssProject other;

    EXPECT_EQ(file->getParentItem(), directory);
    EXPECT_EQ(file->getDimension(), MbgEDimension::DIM_2D);
    EXPECT_THROW(KssImportCsv(&other).importText("A\n1\n", "table", directory), MbeProgrammingError);
    EXPECT_THROW(KssImportCsv(nullptr).importText("A\n1\n", "table"), MbeProgrammingError);
}

TEST_F(KssImportCsvTest, KeepsWhatItImportedInTheFileOfTheProject)
{
    QTemporaryDir folder;
    const QString path = folder.filePath("study.ksp");
    KssImportCsv(KssProject::create(path).get()).importText("A;ROCK\n1.5;Sand\n2.5;Sand\n", "table");
    const auto opened = KssProject::open(path);
    std::vector<double> read;
    opened->getModelData()->readValues(
        KsoDataIdentifier::variable(opened->getModelData(), {}, "table", "Samples", "A").getAVariableItem(), read);

    EXPECT_THAT(read, ElementsAre(1.5, 2.5));
    EXPECT_EQ(opened->getModelEnumCatalog()->getUserItems().size(), 1);
}

} // namespace
