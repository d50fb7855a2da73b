#include <basic/MbbUserStringFormats.h>
#include <basic/MbuUnitService.h>

#include <QtCore/QMap>

#include <mutex>

namespace {
struct Settings
{
    std::mutex mutex;
    QMap<int, MbbStringFormat> formats; ///< by the value of the class; a class without an entry has the default
};

Settings& settings()
{
    static Settings instance;
    return instance;
}

MbbStringFormat formatOf(const Settings& settings, const MbuEUnitClass& unitClass)
{
    const auto found = settings.formats.constFind(unitClass.getValue());
    return found == settings.formats.constEnd() ? MbbStringFormat(unitClass) : *found;
}
} // namespace

MbbStringFormat MbbUserStringFormats::getStringFormat(const MbuEUnitClass& unitClass)
{
    const std::lock_guard lock(settings().mutex);
    return formatOf(settings(), unitClass);
}

MbuUnit MbbUserStringFormats::getDisplayUnit(const MbuEUnitClass& unitClass)
{
    return getStringFormat(unitClass).getDisplayUnit();
}

MbuUnitTransfo MbbUserStringFormats::getDisplayTransfo(const MbuEUnitClass& unitClass)
{
    return MbuUnitService::getConversionFromStorageUnit(getDisplayUnit(unitClass), 1);
}

void MbbUserStringFormats::setStringFormat(const MbbStringFormat& format)
{
    const std::lock_guard lock(settings().mutex);
    settings().formats.insert(format.getUnitClass().getValue(), format);
}

void MbbUserStringFormats::setDisplayUnit(const MbuUnit& unit)
{
    const std::lock_guard lock(settings().mutex);
    MbbStringFormat format = formatOf(settings(), unit.getUnitClass());
    format.setDisplayUnit(unit);
    settings().formats.insert(unit.getUnitClass().getValue(), format);
}

void MbbUserStringFormats::reset()
{
    const std::lock_guard lock(settings().mutex);
    settings().formats.clear();
}
