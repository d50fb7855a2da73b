#include "Subjects.h"
#include "Trees.h"

#include <registry/ClassRegistry.h>

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <algorithm>

namespace {

QDir goldenFolder()
{
    return QDir(QStringLiteral(KESTRIN_SOURCE_DIR "/tests/golden"));
}

bool isComposite(const ClassRegistry::Row& row)
{
    return dynamic_cast<KpcAComposite*>(row.make(row.name).get()) != nullptr;
}

/// Cutoffs without a value are stored as an empty text, which is one undefined number.
bool hasEmptyCutoffs(const ClassRegistry::Row& row)
{
    const auto made = row.make(row.name);
    const QList<KpbAParameter*> all = allOf(*made);
    return std::any_of(all.begin(), all.end(), [](const KpbAParameter* parameter) {
        return parameter->isA(KpbEType::CUTOFFS) && parameter->serialize().value("value").isEmpty();
    });
}

/// What is stored of a parameter as its class builds it: a fiche as a task, any other as a parameter.
std::string storedForm(const ClassRegistry::Row& row)
{
    const auto made = row.make(row.name);
    return bytesOf(row.isFiche ? KpsSerializer::convertFicheToXml(&dynamic_cast<KpcGroup&>(*made)) : save(*made));
}

} // namespace

TEST(GoldenFile, IsWhatIsStoredOfEachCompositeAsBuiltByteForByte)
{
    for (const ClassRegistry::Row& row : ClassRegistry::getRows()) {
        if (!isComposite(row))
            continue;
        QFile file(goldenFolder().filePath(row.name + ".xml"));
        if (!file.open(QIODevice::ReadOnly)) {
            ADD_FAILURE() << "There is no " << file.fileName().toStdString() << "; tests/golden/README.md says how to "
                          << "write it.";
            continue;
        }
        EXPECT_EQ(storedForm(row), file.readAll().toStdString()) << row.name.toStdString();
    }
}

TEST(GoldenFile, StandsForAComposite)
{
    const QStringList files = goldenFolder().entryList({"*.xml"}, QDir::Files);
    EXPECT_FALSE(files.isEmpty());
    for (const QString& file : files) {
        const ClassRegistry::Row* row = ClassRegistry::find(file.chopped(4));
        EXPECT_TRUE(row && isComposite(*row)) << "No composite is stored as " << file.toStdString();
    }
}

TEST(GoldenFile, IsReadAsTheCompositeIsBuilt)
{
    for (const ClassRegistry::Row& row : ClassRegistry::getRows()) {
        QFile file(goldenFolder().filePath(row.name + ".xml"));
        if (!isComposite(row) || hasEmptyCutoffs(row) || !file.open(QIODevice::ReadOnly))
            continue;
        const auto target = settled(row.make(row.name));
        load(*target, parsed(file.readAll().toStdString()));
        EXPECT_EQ(stateOf(*target), stateOf(*settled(row.make(row.name)))) << row.name.toStdString();
    }
}
