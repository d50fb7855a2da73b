#include <tree/ParameterBounds.h>

#include <basic/MbuUnitService.h>
#include <param/atomic/KpaDouble.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaFSDirectory.h>
#include <param/atomic/KpaFSFile.h>
#include <param/atomic/KpaFlags.h>
#include <param/atomic/KpaInteger.h>
#include <param/atomic/KpaString.h>
#include <param/atomic/KpaUnit.h>

namespace {

QString joined(const QStringList& parts)
{
    return parts.join(QStringLiteral(", "));
}

/// Integers and doubles have the same words for their limits.
template <class Number>
QString numberBounds(const Number& number)
{
    const auto text = [](auto value) { return QLocale::c().toString(value, 'g', 10); };
    const auto bound = [&](auto value) { return text(double(value)); };
    QStringList parts;
    if (number.isMinimumDefined() && number.isMaximumDefined())
        parts.append(QStringLiteral("%1 to %2").arg(bound(number.getMinimum()), bound(number.getMaximum())));
    else if (number.isMinimumDefined())
        parts.append(QStringLiteral("from %1").arg(bound(number.getMinimum())));
    else if (number.isMaximumDefined())
        parts.append(QStringLiteral("up to %1").arg(bound(number.getMaximum())));
    if (number.isWrapped())
        parts.append(QStringLiteral("wrapped"));
    if (number.isStepDefined())
        parts.append(QStringLiteral("step %1").arg(bound(number.getStep())));
    if (number.isUndefineEnabled())
        parts.append(QStringLiteral("or undefined"));
    return joined(parts);
}

QString itemBounds(const MbbOrderedMap<int, KpaItemDef>& items)
{
    QStringList keys;
    for (const auto& item : items)
        keys.append(item.value.enabled ? item.value.key : QStringLiteral("(%1)").arg(item.value.key));
    return keys.join(QStringLiteral(" | "));
}

QString textBounds(const KpaString& string)
{
    QStringList parts;
    if (!string.getRegExp().pattern().isEmpty())
        parts.append(QStringLiteral("matches %1").arg(string.getRegExp().pattern()));
    if (string.getConfig().isMaxLengthDefined())
        parts.append(QStringLiteral("at most %1 characters").arg(string.getMaxLength()));
    if (string.isAutoTrimmed())
        parts.append(QStringLiteral("trimmed"));
    return joined(parts);
}

QString fileBounds(const KpaFSFile& file)
{
    QStringList patterns;
    for (const auto& filter : file.getFilters())
        patterns += filter.value;
    if (file.isAnyFileAllowed() && !patterns.isEmpty())
        patterns.append(QStringLiteral("or any"));
    return patterns.join(QLatin1Char(' '));
}

QString unitBounds(const KpaUnit& unit)
{
    QStringList keys;
    for (const MbuUnit& one : MbuUnitService::getUnits(unit.getUnitClass()))
        keys.append(one.getKey());
    return keys.join(QStringLiteral(" | "));
}

} // namespace

QString boundsText(const KpbAParameter& parameter)
{
    if (const auto* integer = dynamic_cast<const KpaInteger*>(&parameter))
        return numberBounds(*integer);
    if (const auto* number = dynamic_cast<const KpaDouble*>(&parameter))
        return numberBounds(*number);
    if (const auto* choice = dynamic_cast<const KpaEnum*>(&parameter))
        return itemBounds(choice->getConfig().getItems());
    if (const auto* flags = dynamic_cast<const KpaFlags*>(&parameter))
        return itemBounds(flags->getFlags());
    if (const auto* string = dynamic_cast<const KpaString*>(&parameter))
        return textBounds(*string);
    if (const auto* file = dynamic_cast<const KpaFSFile*>(&parameter))
        return fileBounds(*file);
    if (const auto* folder = dynamic_cast<const KpaFSDirectory*>(&parameter))
        return folder->getDirectoryMustExists() ? QStringLiteral("must exist") : QString();
    if (const auto* unit = dynamic_cast<const KpaUnit*>(&parameter))
        return unitBounds(*unit);
    return {};
}

QString unitText(const KpbAParameter& parameter)
{
    const auto* number = dynamic_cast<const KpaDouble*>(&parameter);
    if (!number)
        return {};
    const MbuUnit unit = MbuUnitService::getStorageUnit(number->getUnitClass());
    return MbuUnitService::poweredUnitSymbol(unit.getSymbol(), number->getPowerValue());
}
