// Writes the inputs that the fuzzers start with, a folder for each of them: fuzz_seeds FOLDER
#include "Fuzzing.h"
#include "Study.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <param/KpsSerializer.h>
#include <param/composite/KpcAbstractList.h>
#include <registry/ClassRegistry.h>
#include <util/KuxXml.h>

namespace {

const QString samples = QStringLiteral(KESTRIN_SOURCE_DIR "/samples/");

class Seeds
{
public:
    Seeds(const QString& folder, const QString& target) : _folder(folder + '/' + target)
    {
        require(_folder.mkpath("."), "the folder can be made", _folder.path().toUtf8());
    }

    void write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(_folder.filePath(name));
        require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "the seed can be written",
                file.fileName().toUtf8());
    }
    void write(const QList<QByteArray>& inputs) const
    {
        for (int i = 0; i < inputs.size(); ++i)
            write(QString::number(i), inputs[i]);
    }

private:
    QDir _folder;
};

/// Calls `use` with the name and the bytes of each file of a folder of the samples.
template <class Use>
void forEachSample(const QString& folder, Use use)
{
    const QDir directory(samples + folder);
    for (const QString& name : directory.entryList(QDir::Files)) {
        QFile file(directory.filePath(name));
        require(file.open(QIODevice::ReadOnly), "the sample can be read", file.fileName().toUtf8());
        use(name, file.readAll());
    }
}

void fillLists(KpbAParameter& parameter)
{
    auto* list = dynamic_cast<KpcAbstractList*>(&parameter);
    if (list && list->isResizable() && list->getItemCount() == 0)
        list->appendItem();
    for (int i = 0; i < parameter.getChildCount(); ++i)
        fillLists(*parameter.getChild(i));
}

QByteArray templateOf(const ClassRegistry::Row& row, const Study& study)
{
    const auto tree = row.makeIn(row.name, study);
    fillLists(*tree);
    QDomDocument document{QString()};
    document.appendChild(document.importNode(KpsSerializer::convertParamToXml(tree.get()), true));
    return KuxXml::toText(document);
}

/// The form of every class as built, with an item in each list; each sample as one of its class, or, where that depends
/// on a test, of the classes that demonstrate the library.
void writeForms(const Seeds& seeds, const Study& study)
{
    for (const ClassRegistry::Row& row : ClassRegistry::getRows())
        seeds.write(row.name, row.name.toUtf8() + '\n' + templateOf(row, study));
    forEachSample("stored", [&](const QString& name, const QByteArray& bytes) {
        const QString named = name.section('-', 0, 0);
        const bool known = ClassRegistry::find(named) && named != QLatin1String("KpcGroup");
        for (const QString& each : known ? QStringList{named} : QStringList{"DemoTask", "DemoModel", "DemoSurvey"})
            seeds.write(each + '-' + name, each.toUtf8() + '\n' + bytes);
    });
}

QByteArray linesOf(const KsbDriverItemMemory& driver)
{
    QMap<int, QByteArray> lines;
    for (const char* model :
         {"data", KsoEnumCatalogKind::StoreName, KsoColorScaleKind::StoreName, KsoGeosSetKind::StoreName,
          KsoNeighborhoodKind::StoreName, KsoSceneKind::StoreName, KsoChartsKind::StoreName})
    {
        for (const KsbItemRecord& record : driver.list(QString::fromLatin1(model))) {
            QList<QByteArray> cells{model, QByteArray::number(record.parent), QByteArray::number(record.kind),
                                    record.name.toUtf8(), record.attributes};
            for (int number = 0; number < 2; ++number)
                cells.append(driver.readContent(record.id, number).value_or(QByteArray()).toBase64());
            lines.insert(record.id, cells.join('\t'));
        }
    }
    return QList<QByteArray>(lines.values()).join('\n');
}

} // namespace

int main(int argc, char** argv)
{
    require(argc == 2, "a folder is given");
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const Surroundings surroundings;
    const Study study;

    writeForms({folder, "StoredForm"}, study);
    forEachSample("stored", [plain = Seeds(folder, "PlainReader")](const QString& name, const QByteArray& bytes) {
        plain.write(name, bytes);
    });
    forEachSample("data", [csv = Seeds(folder, "CsvImport")](const QString& name, const QByteArray& bytes) {
        csv.write(name, bytes);
    });
    Seeds(folder, "StoredItems").write("study", linesOf(*study.driver));
    Seeds(folder, "Combination").write({"R1 and (R2 or not R3)", "not not(R1)", "((R4)) OR\tr2 And R1", "R5", "R1 R2"});
    Seeds(folder, "PythonCondition")
        .write({"CU > 0.3 and ROCK == 'Sand'", "ROCK in ('Sand', \"Clay\") or not isnan(CU)",
                "1 if abs(-CU) ** 2 <= 1e3 else min(CU, 2, 3)", "len(ROCK + 'x') // 2 % 3 != 1",
                "0 < CU < 1 & (CU > 2)", "round(CU, 1) ^ True", "ROCK.upper()", "float('1e400') == int(2.5)"});
    return 0;
}
