#include <param/list/KplDoubleList.h>

template class KpcList<KpaDouble>;
template class KplAAtomicList<KpaDouble, double, KpaDoubleConfig>;

KplDoubleList::KplDoubleList(const QString& key) : KplAAtomicList(key) {}

KplDoubleList::KplDoubleList(const KplDoubleList& other, const QString& newKey) : KplAAtomicList(other, newKey) {}

KplDoubleList* KplDoubleList::duplicate(const QString& newKey) const
{
    return new KplDoubleList(*this, newKey);
}

QString KplDoubleList::toString() const
{
    if (isEmpty())
        return QStringLiteral("empty");
    const QStringList texts = _ofItems([](const KpaDouble& item) {
        return item.getDisplayFormat().valueToString(item.getValue(), item.getPowerValue(), 0, 0,
                                                     item.isUndefineEnabled());
    });
    const KpaDouble& first = *getItemAt(0);
    return texts.join(QLatin1String("; ")) + QLatin1Char(' ') +
           first.getDisplayFormat().getDisplayUnitSymbol(first.getPowerValue());
}

bool KplDoubleList::isDefined(int rank) const
{
    return _ofItem(rank, [](const KpaDouble& item) { return item.isDefined(); });
}

void KplDoubleList::setDetails(const MbdVariableDetails& details)
{
    _configureAll([&](KpaDouble& item) { item.setDetails(details); });
}

void KplDoubleList::setMinimum(double minimum)
{
    _configureAll([&](KpaDouble& item) { item.setMinimum(minimum); });
}

void KplDoubleList::setMinimum(double minimum, const MbuUnit& unit)
{
    _configureAll([&](KpaDouble& item) { item.setMinimum(minimum, unit); });
}

void KplDoubleList::setMaximum(double maximum)
{
    _configureAll([&](KpaDouble& item) { item.setMaximum(maximum); });
}

void KplDoubleList::setMaximum(double maximum, const MbuUnit& unit)
{
    _configureAll([&](KpaDouble& item) { item.setMaximum(maximum, unit); });
}

void KplDoubleList::setRange(double a, double b)
{
    _configureAll([&](KpaDouble& item) { item.setRange(a, b); });
}

void KplDoubleList::setRange(double a, double b, const MbuUnit& unit)
{
    _configureAll([&](KpaDouble& item) { item.setRange(a, b, unit); });
}

void KplDoubleList::setStep(double step)
{
    _configureAll([&](KpaDouble& item) { item.setStep(step); });
}

void KplDoubleList::setStep(double step, const MbuUnit& unit)
{
    _configureAll([&](KpaDouble& item) { item.setStep(step, unit); });
}

void KplDoubleList::setUnitClass(const MbuEUnitClass& unitClass)
{
    _configureAll([&](KpaDouble& item) { item.setUnitClass(unitClass); });
}

void KplDoubleList::unsetMinimum()
{
    _configureAll([](KpaDouble& item) { item.unsetMinimum(); });
}

void KplDoubleList::unsetMaximum()
{
    _configureAll([](KpaDouble& item) { item.unsetMaximum(); });
}

void KplDoubleList::unsetStep()
{
    _configureAll([](KpaDouble& item) { item.unsetStep(); });
}
