// The import of a file of columns: it is imported whole, or its mistakes are told and the project stays as it was.
#include "Fuzzing.h"

#include <basic/MbeError.h>
#include <study/KsmModelData.h>
#include <study/KsmModelEnumCatalog.h>
#include <study/KssImportCsv.h>
#include <study/KssProject.h>

namespace {

bool isEmpty(const KssProject& project)
{
    return project.getModelData()->getRootItem()->getChildItems().isEmpty() &&
           project.getModelEnumCatalog()->getUserItems().isEmpty();
}

/// Reads the values of all variables of the file.
void requireValues(const KsoDataFile& file)
{
    const KsmModelData* model = file.getModel();
    const auto count = file.getUniqueSupport()->getSampleCount();
    for (KsoADataItem* item : file.getUniqueSupport()->getChildItems()) {
        const auto* variable = dynamic_cast<const KsoAVariableItem*>(item);
        require(variable, "each column is a variable");
        std::vector<double> values;
        QStringList texts;
        if (variable->getStorageType() == MbdEVarType::STRING)
            model->readTexts(variable, texts);
        else
            model->readValues(variable, values);
        require(int(values.size()) + texts.size() == count, "each row is a sample");
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Surroundings surroundings;
    KssProject project;
    KssImportCsv import(&project);
    try {
        const KsoDataFile* file = import.importText(bytesOf(data, size), "table");
        require(import.getMistakes().isEmpty(), "what is imported has no mistakes");
        requireValues(*file);
    }
    catch (const MbeUserError& error) {
        require(!error.getMessage().isEmpty(), "a file that is refused has a message");
        require(isEmpty(project), "a file that is refused leaves the project as it was");
    }
    return 0;
}
