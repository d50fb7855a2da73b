#include <param/KpsSerializer.h>
#include <param/atomic/KpaConfigTools.h>
#include <param/atomic/KpaMatrixSymmetrical.h>

#include <QtCore/QLocale>

#include <util/KupPreferencesUnit.h>

#include <algorithm>
#include <tuple>

template class KpaAAtomic<KuuMatrixSymmetrical, KpaMatrixSymmetricalConfig>;

using KpaConfigTools::store;

namespace {

using SerialForm = MbbOrderedMap<QString, QString>;
using Format = std::optional<MbbStringFormat>;

/// Takes what several stores gave: the braces run all of them, in order.
bool any(std::initializer_list<bool> changes)
{
    return std::find(changes.begin(), changes.end(), true) != changes.end();
}

/// The format that details ask for in the place of the user's.
Format formatOf(const MbdVariableDetails& details)
{
    if (details.getUnitClass() != MbuEUnitClass::NONE && details.isUnitDefaultFormatUsed())
        return std::nullopt;
    return details.getNumericDetails().getStringFormat();
}

template <class List, class Item, class Getter>
List mapped(const QList<Item>& items, Getter get)
{
    List results;
    results.reserve(items.size());
    for (const Item& item : items)
        results.append(get(item));
    return results;
}

QList<double> paddedTo(int count, QList<double> limits)
{
    limits.reserve(count);
    while (limits.size() < count)
        limits.append(MbbGlobal::D_FFFF);
    return limits;
}

QString sizeKey()
{
    return QStringLiteral("size");
}

QString behaviorKey()
{
    return QStringLiteral("behavior");
}

/// Elements count from 0, and their keys from 1.
QString nodeKey(int element)
{
    return QStringLiteral("node_%1").arg(element + 1);
}

QString minimumKey(int element)
{
    return QStringLiteral("min_V%1").arg(element + 1);
}

QString maximumKey(int element)
{
    return QStringLiteral("max_V%1").arg(element + 1);
}

/// The stored texts, at the places of the behaviors that they stand for.
const QStringList& behaviorTexts()
{
    static const QStringList texts{QStringLiteral("Automatic"), QStringLiteral("Known"), QStringLiteral("Constrained")};
    return texts;
}

QString exactText(double number)
{
    return KpsSerializer::fromDouble(number, 'g', QLocale::FloatingPointShortest);
}

void insertElements(SerialForm& map, const KuuMatrixSymmetrical& matrix)
{
    int element = 0;
    for (int row = 0; row < matrix.getSize(); ++row) {
        for (int column = row; column < matrix.getSize(); ++column)
            map.insert(nodeKey(element++), exactText(matrix.getElementAt(row, column)));
    }
}

void insertLimits(SerialForm& map, const KuuMatrixSymmetrical& matrix)
{
    for (int element = 0; element < matrix.getElementCount(); ++element) {
        map.insert(minimumKey(element), exactText(matrix.getMinimums().at(element)));
        map.insert(maximumKey(element), exactText(matrix.getMaximums().at(element)));
    }
}

MgmMatrix storedElements(const SerialForm& map, int size)
{
    MgmMatrix matrix(size, size, MgmMatrix::Symmetric);
    int element = 0;
    for (int row = 0; row < size; ++row) {
        for (int column = row; column < size; ++column)
            matrix.setElement(row, column, KpsSerializer::toDouble(map.value(nodeKey(element++)), 0.0, true));
    }
    return matrix;
}

QList<double> storedLimits(const SerialForm& map, int size, QString (*keyOf)(int))
{
    const int count = size * (size + 1) / 2;
    QList<double> limits;
    limits.reserve(count);
    for (int element = 0; element < count; ++element)
        limits.append(KpsSerializer::toDouble(map.value(keyOf(element)), MbbGlobal::D_FFFF, true));
    return limits;
}

Ku::Constraint::Behavior storedBehavior(const SerialForm& map)
{
    const QString text = map.value(behaviorKey()).toLower();
    for (int i = 0; i < behaviorTexts().size(); ++i) {
        if (behaviorTexts().at(i).toLower() == text)
            return Ku::Constraint::Behavior(i);
    }
    return Ku::Constraint::Unknown;
}

} // namespace

bool KpaMatrixSymmetricalConfig::setMode(Ku::Constraint::Mode mode)
{
    return store(_mode, mode);
}

bool KpaMatrixSymmetricalConfig::wantPositiveDefinite(bool wanted)
{
    return store(_positiveDefinite, wanted);
}

bool KpaMatrixSymmetricalConfig::canBeNull(bool allowed)
{
    return store(_canBeNull, allowed);
}

bool KpaMatrixSymmetricalConfig::setBoundedConstraintEnabled(bool enabled)
{
    return store(_boundedConstraintEnabled, enabled);
}

bool KpaMatrixSymmetricalConfig::setMatrixLabel(const QString& label)
{
    return store(_matrixLabel, label);
}

bool KpaMatrixSymmetricalConfig::setLabels(const QStringList& labels)
{
    return store(_labels, labels);
}

bool KpaMatrixSymmetricalConfig::setUnitClass(const MbuEUnitClass& unitClass)
{
    return any({store(_globalFormatSettings, true), store(_unitClass, unitClass), store(_useCustomFormat, false)});
}

bool KpaMatrixSymmetricalConfig::setPowerValue(int powerValue)
{
    return any({store(_globalFormatSettings, true), store(_powerValue, powerValue), store(_useCustomFormat, false)});
}

bool KpaMatrixSymmetricalConfig::setCustomFormat(const MbbStringFormat& format)
{
    return any({store(_globalFormatSettings, true), store(_useCustomFormat, true), store(_customFormat, format)});
}

bool KpaMatrixSymmetricalConfig::setDetails(const MbdVariableDetails& details)
{
    const Format format = formatOf(details);
    return any({store(_globalFormatSettings, true), store(_unitClass, details.getUnitClass()),
                store(_powerValue, details.getPowerValue()), store(_useCustomFormat, format.has_value()),
                format && store(_customFormat, *format)});
}

QList<bool> KpaMatrixSymmetricalConfig::usesCustomFormatList() const
{
    return mapped<QList<bool>>(_customFormatList, [](const Format& format) { return format.has_value(); });
}

QList<MbbStringFormat> KpaMatrixSymmetricalConfig::getCustomFormatList() const
{
    return mapped<QList<MbbStringFormat>>(_customFormatList,
                                          [](const Format& format) { return format.value_or(MbbStringFormat()); });
}

QList<int> KpaMatrixSymmetricalConfig::getCustomPrecisionList() const
{
    return mapped<QList<int>>(getCustomFormatList(),
                              [](const MbbStringFormat& format) { return format.getPrecision(); });
}

QStringList KpaMatrixSymmetricalConfig::getCustomSymbolList() const
{
    return mapped<QStringList>(getCustomFormatList(), [](const MbbStringFormat& format) { return format.getSymbol(); });
}

bool KpaMatrixSymmetricalConfig::setUnitClassList(const QList<MbuEUnitClass>& unitClasses)
{
    return any({store(_globalFormatSettings, false), store(_unitClassList, unitClasses),
                store(_customFormatList, QList<Format>())});
}

bool KpaMatrixSymmetricalConfig::setPowerValueList(const QList<int>& powerValues)
{
    return any({store(_globalFormatSettings, false), store(_powerValueList, powerValues),
                store(_customFormatList, QList<Format>())});
}

bool KpaMatrixSymmetricalConfig::setCustomFormatList(const QList<MbbStringFormat>& formats)
{
    const auto asked = [](const MbbStringFormat& format) { return Format(format); };
    return any({store(_globalFormatSettings, false), store(_customFormatList, mapped<QList<Format>>(formats, asked))});
}

bool KpaMatrixSymmetricalConfig::setDetailsList(const QList<MbdVariableDetails>& details)
{
    const auto unitClass = [](const MbdVariableDetails& row) { return row.getUnitClass(); };
    const auto power = [](const MbdVariableDetails& row) { return row.getPowerValue(); };
    return any({store(_globalFormatSettings, false),
                store(_unitClassList, mapped<QList<MbuEUnitClass>>(details, unitClass)),
                store(_powerValueList, mapped<QList<int>>(details, power)),
                store(_customFormatList, mapped<QList<Format>>(details, formatOf))});
}

MbbStringFormat KpaMatrixSymmetricalConfig::_formatOfRow(int row) const
{
    const Format format = _customFormatList.value(row);
    return format ? *format : KupPreferencesUnit::getStringFormat(_unitClassList.value(row));
}

void KpaMatrixSymmetricalConfig::getFormats(QList<MbbStringFormat>& formats, QList<int>& powers) const
{
    formats.clear();
    powers.clear();
    if (_globalFormatSettings) {
        formats.append(_useCustomFormat ? _customFormat : KupPreferencesUnit::getStringFormat(_unitClass));
        powers.append(_powerValue);
        return;
    }
    const int rows = std::max({_customFormatList.size(), _powerValueList.size(), _unitClassList.size()});
    for (int row = 0; row < rows; ++row) {
        formats.append(_formatOfRow(row));
        powers.append(_powerValueList.value(row, 1));
    }
}

bool KpaMatrixSymmetricalConfig::setElementMinimum(double minimum)
{
    return store(_elementMinimumList, QList<double>{minimum});
}

bool KpaMatrixSymmetricalConfig::setElementMaximum(double maximum)
{
    return store(_elementMaximumList, QList<double>{maximum});
}

bool KpaMatrixSymmetricalConfig::setElementStep(double step)
{
    return store(_elementStep, step);
}

bool KpaMatrixSymmetricalConfig::setElementBounds(const QList<double>& minimums, const QList<double>& maximums)
{
    if (_elementMinimumList == minimums && _elementMaximumList == maximums)
        return false;
    // Each may be the other list of this config.
    std::tie(_elementMinimumList, _elementMaximumList) = std::tuple(minimums, maximums);
    return true;
}

KuuMatrixSymmetrical KpaMatrixSymmetricalConfig::fix(const KuuMatrixSymmetrical& matrix,
                                                     const KuuMatrixSymmetrical&) const
{
    KuuMatrixSymmetrical fixed = matrix;
    fixed.setMode(_mode);
    const int count = fixed.getElementCount();
    fixed.applyBounds(paddedTo(count, _elementMinimumList), paddedTo(count, _elementMaximumList), _positiveDefinite);
    return fixed;
}

QString KpaMatrixSymmetricalConfig::toString(const KuuMatrixSymmetrical& matrix) const
{
    QList<MbbStringFormat> formats;
    QList<int> powers;
    getFormats(formats, powers);
    return matrix.toString(formats, powers, MbbStringFormat(MbbEFormat::DECIMAL, 2, QString()));
}

SerialForm KpaMatrixSymmetricalConfig::serializeValue(const KuuMatrixSymmetrical& matrix) const
{
    const bool constrained = _mode == Ku::Constraint::Constraints;
    const int behavior = matrix.getBehavior();
    SerialForm map;
    map.insert(sizeKey(), KpsSerializer::fromInt(matrix.getSize()));
    if (constrained && behavior >= 0 && behavior < behaviorTexts().size())
        map.insert(behaviorKey(), behaviorTexts().at(behavior));
    insertElements(map, matrix);
    if (constrained)
        insertLimits(map, matrix);
    return map;
}

KuuMatrixSymmetrical KpaMatrixSymmetricalConfig::unserializeValue(const SerialForm& map,
                                                                  const KuuMatrixSymmetrical& previous) const
{
    const int size = KpsSerializer::toInt(map.value(sizeKey()), -1, true);
    if (size < 0 || size > KuuMatrixSymmetrical::MaxSize)
        return previous;
    KuuMatrixSymmetrical read(1);
    if (_mode == Ku::Constraint::Values)
        read.setMatrix(storedElements(map, size));
    else if (_mode == Ku::Constraint::Constraints)
        read.setMatrixWC(storedElements(map, size), storedLimits(map, size, minimumKey),
                         storedLimits(map, size, maximumKey), storedBehavior(map));
    return read;
}

QString KpaMatrixSymmetricalConfig::debug() const
{
    QString text;
    QTextStream(&text) << "----- KpaMatrixSymmetricalConfig --------\n"
                       << " mode             = " << (_mode == Ku::Constraint::Constraints ? "constraints" : "value")
                       << '\n'
                       << " positive defined = " << KpaConfigTools::yesNo(_positiveDefinite) << '\n'
                       << " can be null      = " << KpaConfigTools::yesNo(_canBeNull) << '\n'
                       << " matrix label     = " << _matrixLabel << '\n'
                       << " labels           = " << _labels.join(QLatin1Char('|')) << '\n'
                       << " unit class       = " << _unitClass.getKey() << " (" << _unitClass.getLabel() << ")\n"
                       << " power value      = " << _powerValue << '\n';
    return text;
}

KpaMatrixSymmetrical::KpaMatrixSymmetrical(const QString& key) : KpaAAtomic(key, KpaMatrixSymmetricalConfig()) {}

KpaMatrixSymmetrical::KpaMatrixSymmetrical(const KpaMatrixSymmetrical& other, const QString& newKey)
    : KpaAAtomic(other, newKey)
{}

KpaMatrixSymmetrical* KpaMatrixSymmetrical::duplicate(const QString& newKey) const
{
    return new KpaMatrixSymmetrical(*this, newKey);
}
