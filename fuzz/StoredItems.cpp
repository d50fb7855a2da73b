// The stored items of a project: each line of the input is a record, of the model, the parent, the kind, the name, the
// attributes and the first content in base 64, with tabs between. The project opens, or says what is damaged.
#include "Fuzzing.h"

#include <QtCore/QList>

#include <basic/MbeError.h>
#include <study/KsbDriverItemMemory.h>
#include <study/KsmModelData.h>
#include <study/KssProject.h>

namespace {

// More would only be slow.
constexpr int greatestSampleCount = 10000;

std::unique_ptr<KsbIDriverItem> makeDriver(const QByteArray& lines)
{
    auto driver = std::make_unique<KsbDriverItemMemory>();
    for (const QByteArray& line : lines.split('\n')) {
        const QList<QByteArray> cells = line.split('\t');
        if (cells.size() < 5)
            continue;
        const int id = driver->insert(QString::fromUtf8(cells[0]),
                                      {0, cells[1].toInt(), cells[2].toInt(), QString::fromUtf8(cells[3]), cells[4]});
        for (int i = 5; i < cells.size(); ++i)
            driver->writeContent(id, i - 5, QByteArray::fromBase64(cells[i]));
    }
    return driver;
}

template <class Read>
void readUnlessDamaged(Read read)
{
    try {
        read();
    }
    catch (const MbeError& error) {
        require(!error.getMessage().isEmpty(), "what is damaged has a message");
    }
}

void readVariable(const KsmModelData& model, const KsoADataItem& item)
{
    std::vector<double> values;
    QStringList texts;
    if (const auto* variable = dynamic_cast<const KsoAVariableItem*>(&item)) {
        if (variable->getSupport()->getSampleCount() > greatestSampleCount)
            return;
        readUnlessDamaged([&] { model.readValues(variable, values); });
        readUnlessDamaged([&] { model.readTexts(variable, texts); });
    }
    else if (const auto* macro = dynamic_cast<const KsoDataMacroVariable*>(&item)) {
        if (macro->getSupport()->getSampleCount() > greatestSampleCount)
            return;
        readUnlessDamaged([&] { model.readValues(macro, 1, values); });
        readUnlessDamaged([&] { model.readTexts(macro, 1, texts); });
    }
}

void readBelow(const KsmModelData& model, const KsoADataItem& item)
{
    const KsoDataIdentifier identifier = item.getIdentifier();
    require(identifier.getDataItem() == &item, "the identifier of an item leads to it");
    require(KsoDataIdentifier::fromMap(identifier.toMap(true), item.getModel()) == identifier,
            "an identifier is read as it was stored");
    readVariable(model, item);
    for (const KsoADataItem* child : item.getChildItems())
        readBelow(model, *child);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Surroundings surroundings;
    readUnlessDamaged([&] {
        const KssProject project(makeDriver(bytesOf(data, size)));
        const KsmModelData& model = *project.getModelData();
        readBelow(model, *model.getRootItem());
    });
    return 0;
}
