#include <param/KpbFailure.h>
#include <param/KpsSerializer.h>
#include <param/atomic/KpaString.h>
#include <param/composite/KpcCutoffs.h>

#include <study/KssDoubleListInfo.h>
#include <study/KssDoubleListRegistry.h>
#include <util/KuxXml.h>

#include <QtCore/QObject>
#include <QtCore/QScopeGuard>

namespace {

const QString nameEntry = QStringLiteral("name");
const QString valueEntry = QStringLiteral("value");

QString toText(const QList<double>& values)
{
    QStringList texts;
    for (const double value : values)
        texts.append(KpsSerializer::fromDouble(value, 'g', QLocale::FloatingPointShortest));
    return texts.join(QLatin1Char(','));
}

QList<double> fromText(const QString& text)
{
    QList<double> values;
    for (const QString& piece : text.split(QLatin1Char(',')))
        values.append(KpsSerializer::toDouble(piece, MbbGlobal::D_FFFF, true));
    return values;
}

bool isWithinBounds(const KpaDouble& number, double value)
{
    return !(number.isMinimumDefined() && value < number.getMinimum()) &&
           !(number.isMaximumDefined() && value > number.getMaximum());
}

} // namespace

KpcCutoffs::KpcCutoffs(const QString& key, const KstITransactable& transactable)
    : KpcAComposite(KpbEType::CUTOFFS, key, transactable)
{
    setLabel(QObject::tr("Cutoffs"));
    _declare({*this, KpcChildren::Create});
}

KpcCutoffs::KpcCutoffs(const KpcCutoffs& other, const QString& newKey)
    : KpcAComposite(other, newKey),
      _listType(other._listType)
{
    _declare({*this, KpcChildren::Rebind});
}

KpcCutoffs* KpcCutoffs::duplicate(const QString& newKey) const
{
    return new KpcCutoffs(*this, newKey);
}

void KpcCutoffs::_declare(KpcChildren children)
{
    const auto keepUnique = [](KplDoubleList& list) { list.setUnique(true); };
    children.add(_list, "LIST", QObject::tr("Cutoffs")).with(keepUnique).isVolatile(true);
    children.add(_ident, "IDENTIFIER", QObject::tr("Identifier")).isVolatile(true);
}

QString KpcCutoffs::getIdent() const
{
    return _ident->getValue();
}

void KpcCutoffs::setIdent(const QString& name)
{
    _ident->setValue(name);
}

void KpcCutoffs::setListType(const KssEDoubleListType& type)
{
    if (_listType == type)
        return;
    _listType = type;
    _notify(Kp::NotifyConfig);
}

void KpcCutoffs::setDetails(const MbdVariableDetails& details)
{
    const KuoPointer<KpbAParameter> self(this);
    _list->setDetails(details);
    if (self)
        _notify(Kp::NotifyConfig);
}

void KpcCutoffs::setUnitClass(const MbuEUnitClass& unitClass)
{
    const KuoPointer<KpbAParameter> self(this);
    _list->setUnitClass(unitClass);
    if (self)
        _notify(Kp::NotifyConfig);
}

QList<double> KpcCutoffs::getValues() const
{
    if (getIdent().isEmpty())
        return _list->getValues();
    const KssDoubleListInfo info = KssDoubleListRegistry::getInstance()->getInfo(_listType, getIdent());
    if (!info.isValid() || info.getUnitClass() != _list->getUnitClass())
        return _list->getValues();
    QList<double> values;
    for (const double value : info.getList()) {
        if (isWithinBounds(*getItemPrototype(), value))
            values.append(value);
    }
    return values;
}

// Observers of the children may destroy the cutoffs, here and below.
void KpcCutoffs::setValues(const QList<double>& values)
{
    const KuoPointer<KpbAParameter> self(this);
    const QList<double> requested = values;
    _ident->setValue(QString());
    if (self)
        _list->setValues(requested);
}

KpbAParameter::SerialForm KpcCutoffs::serialize() const
{
    SerialForm form;
    if (!getIdent().isEmpty())
        form.insert(nameEntry, getIdent());
    form.insert(valueEntry, toText(_list->getValues()));
    return form;
}

void KpcCutoffs::unserialize(const SerialForm& map)
{
    KuoLock<KpnModif> lock(this);
    if (map.contains(nameEntry)) {
        const QString name = map.value(nameEntry);
        const KssDoubleListInfo info = KssDoubleListRegistry::getInstance()->getInfo(_listType, name);
        const MbuEUnitClass unitClass = _list->getUnitClass();
        if (info.getUnitClass() == unitClass || unitClass == MbuEUnitClass::NONE)
            _ident->setValue(name);
        if (lock.isAlive())
            _list->setValues(info.getList());
    }
    else if (map.contains(valueEntry)) {
        _list->setValues(fromText(map.value(valueEntry)));
    }
    lock.commit();
}

QString KpcCutoffs::toString() const
{
    const QList<double> values = getValues();
    if (values.isEmpty())
        return QObject::tr("empty");
    const MbbStringFormat format = getItemPrototype()->getDisplayFormat();
    QStringList texts;
    for (const double value : values)
        texts.append(format.valueToString(value, 1, 0, 0, true));
    return texts.join(QLatin1String("; ")) + QLatin1Char(' ') + format.getDisplayUnitSymbol(1);
}

// The children are nobody's business: their changes are told as changes of the cutoffs.
void KpcCutoffs::update(const KpnModif& modif)
{
    KuoLock<KpnModif> lock(this);
    _invalidateAutomatic();
    Kp::NotificationFlags all;
    modif.forEach([&](const KpnPath&, Kp::NotificationFlags flags) { all |= flags; });
    if (all)
        _notify(all);
    lock.commit();
}

void KpcCutoffs::_invalidateAutomatic()
{
    if (_settingAuto || !isAutomaticValueInitialized() || !isAutomatic())
        return;
    if (getIdent().isEmpty() && _list->getValues() == _list->getAutoValues())
        return;
    _setAutoFlag(false);
    _notify(Kp::NotifyConfig);
}

template <class Change>
void KpcCutoffs::_asAutomatic(const KuoLock<KpnModif>& lock, Change change)
{
    const auto restore = qScopeGuard([&lock, this, former = std::exchange(_settingAuto, true)] {
        if (lock.isAlive())
            _settingAuto = former;
    });
    change();
}

void KpcCutoffs::setAutoValues(const QList<double>& values)
{
    if (values == _list->getAutoValues())
        return;
    KuoLock<KpnModif> lock(this);
    _asAutomatic(lock, [&] { _list->setAutoValues(values); });
    if (!lock.isAlive())
        return;
    if (!isAutomaticValueInitialized()) {
        _setAutomaticValueInitialized(true);
        _notify(Kp::NotifyConfig);
    }
    if (isAutomatic())
        _setValueAuto();
    lock.commit();
}

void KpcCutoffs::unsetAutoValues()
{
    KuoLock<KpnModif> lock(this);
    if (isAutomaticValueInitialized()) {
        _setAutomaticValueInitialized(false);
        _notify(Kp::NotifyConfig);
    }
    if (!_settingAuto)
        _list->unsetAutoValues();
    lock.commit();
}

void KpcCutoffs::_setValueAuto()
{
    KuoLock<KpnModif> lock(this);
    _asAutomatic(lock, [&] {
        _ident->setValue(QString());
        if (lock.isAlive())
            _list->resetToAutomaticValue();
    });
    if (lock.isAlive() && _setAutoFlag(true))
        _notify(Kp::NotifyConfig);
    lock.commit();
}

void KpcCutoffs::convert(QDomElement& element, int fromVersion) const
{
    switch (fromVersion) {
    case 1:
        _convertToVersion2(element);
        [[fallthrough]];
    case 2:
        return;
    default:
        Kp::failProgramming("void __cdecl KpcCutoffs::convert(class QDomElement &,int) const",
                            "param/composite/KpcCutoffs", "Unexpected version number requested");
    }
}

// Version 1 had the items of a list, or the list as a child, where version 2 has one text.
void KpcCutoffs::_convertToVersion2(QDomElement element)
{
    const QDomElement child = _convertXmlGetParam(element, {QStringLiteral("LIST")});
    QDomElement stored = child.isNull() ? element : child;
    KplDoubleList list(QStringLiteral("TMP"));
    KpsSerializer::updateParamFromXml(&list, stored);
    while (element.hasChildNodes())
        element.removeChild(element.firstChild());
    QDomDocument document = element.ownerDocument();
    element.appendChild(KuxXml::createTextNode(document, valueEntry, toText(list.getValues())));
}
