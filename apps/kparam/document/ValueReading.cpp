#include <document/ValueReading.h>

#include <QtCore/QSet>
#include <QtCore/QUrl>
#include <QtGui/QColor>

#include <basic/MbbGlobal.h>
#include <document/RotationReading.h>
#include <param/KpsSerializer.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaString.h>
#include <util/KusFileUtils.h>
#include <util/KusPath.h>
#include <util/KuxXml.h>

namespace {

using Form = KpbAParameter::SerialForm;

const QString urlEntry = QStringLiteral("url");
const QString valueEntry = QStringLiteral("value");

QString cleanText(const QDomElement& element)
{
    return element.text().remove(QLatin1Char('\r'));
}

/// The text says a number: does the parameter have that number?
template <class Number, class Print>
ValueReading judgeNumber(const QString& text, const QString& now, Print print)
{
    Number number{};
    if (!MbbGlobal::convertString(text, number))
        return ValueReading::Refused;
    return print(number) == now ? ValueReading::Respelled : ValueReading::Repaired;
}

ValueReading judgeBool(const QString& text)
{
    const bool readable = KpsSerializer::toBool(text, true) == KpsSerializer::toBool(text, false);
    return readable ? ValueReading::Respelled : ValueReading::Refused;
}

ValueReading judgeSeed(const QString& text, const QString& now)
{
    if (text.isEmpty())
        return now == QLatin1String("random") ? ValueReading::Respelled : ValueReading::Refused;
    const ValueReading number = judgeNumber<qint64>(text, now, KpsSerializer::fromInt64);
    return number == ValueReading::Respelled ? number : ValueReading::Refused;
}

ValueReading judgeEnum(const KpaEnum& choice, const QString& text, const QString& now, const QString& before)
{
    const QString decoded = QUrl::fromPercentEncoding(text.toUtf8());
    const auto means = [&](const QString& name) { return name == text || name == decoded; };
    if (means(choice.getItemKey()) || means(choice.getItemLabel()))
        return ValueReading::Respelled;
    return now == before ? ValueReading::Refused : ValueReading::Repaired;
}

QSet<QString> flagsIn(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char('|'), Qt::SkipEmptyParts);
    return {parts.begin(), parts.end()};
}

ValueReading judgeFlags(const QString& text, const QString& now)
{
    const QSet<QString> wanted = flagsIn(text);
    const QSet<QString> taken = flagsIn(now);
    if (wanted == taken)
        return ValueReading::Respelled;
    return wanted.intersects(taken) ? ValueReading::Repaired : ValueReading::Refused;
}

/// What a text means does not depend on what stood there before; what stands there instead of it does.
ValueReading judgeString(const KpaString& string, const Form& stored, const QString& now)
{
    const QString text = string.getConfig().unserializeValue(stored, QString());
    if (text == now)
        return ValueReading::Respelled;
    return string.getConfig().fix(text, QString()) == now && !now.isEmpty() ? ValueReading::Repaired
                                                                            : ValueReading::Refused;
}

ValueReading judgePath(KusPath::Kind kind, const QString& text, const QString& now, const QString& before)
{
    const QString path = KusFileUtils::cleanPath(KusPath(kind, text).absolutePath());
    if (path == KusPath(kind, now).absolutePath())
        return ValueReading::Respelled;
    return now == before ? ValueReading::Refused : ValueReading::Repaired;
}

// Values of several entries

bool isSameNumber(const QString& text, const QString& now)
{
    double number = 0;
    constexpr int significantDigits = 10;
    return MbbGlobal::convertString(text, number) &&
           (KpsSerializer::fromDouble(number, 'g', significantDigits) == now ||
            KpsSerializer::fromDouble(number, 'g', QLocale::FloatingPointShortest) == now);
}

bool isSameColor(const QString& text, const QString& now)
{
    return now.startsWith(QLatin1Char('#')) && QColor::isValidColor(text) && QColor(text) == QColor(now);
}

bool isSameBool(const QString& text, const QString& now)
{
    return judgeBool(text) == ValueReading::Respelled &&
           KpsSerializer::fromBool(KpsSerializer::toBool(text, false)) == now;
}

/// Entries of matrices and coordinate systems are words in any case; those of catalogs were percent-encoded.
bool isSameWord(const KpbAParameter& parameter, const QString& text, const QString& now)
{
    switch (parameter.getType().toEnum()) {
    case KpbEType::EValue::MATRIX:
    case KpbEType::EValue::COORD_SYSTEM:
        return text.compare(now, Qt::CaseInsensitive) == 0;
    case KpbEType::EValue::OLD_CATALOG_DEF:
        return QUrl::fromPercentEncoding(text.toUtf8()) == now;
    default:
        return false;
    }
}

bool meansTheSame(const KpbAParameter& parameter, const QString& text, const QString& now)
{
    return text == now || isSameNumber(text, now) || isSameColor(text, now) || isSameBool(text, now) ||
           isSameWord(parameter, text, now);
}

bool isCategory(const KpbAParameter& parameter, const QString& name)
{
    return parameter.isA(KpbEType::OLD_CATALOG_DEF) && name.startsWith(QLatin1String("enum"));
}

/// What a parameter has, to look up whether it is what was stored.
class PresentEntries
{
public:
    PresentEntries(const KpbAParameter& parameter, const Form& now) : _parameter(parameter), _now(now)
    {
        for (const auto& entry : now) {
            if (isCategory(parameter, entry.key))
                _categories.insert(entry.value);
        }
    }

    bool have(const QString& name, const QString& text) const
    {
        // Categories are numbered anew each time.
        if (isCategory(_parameter, name))
            return _categories.contains(text) || _categories.contains(QUrl::fromPercentEncoding(text.toUtf8()));
        const QString* now = _now.find(name);
        return now && meansTheSame(_parameter, text, *now);
    }

private:
    const KpbAParameter& _parameter;
    const Form& _now;
    QSet<QString> _categories;
};

ValueReading judgeEntries(const KpbAParameter& parameter, const Form& stored, const Form& before, const Form& now)
{
    const PresentEntries present(parameter, now);
    bool isRead = false;
    bool isSame = true;
    for (const auto& entry : stored) {
        if (!isEntryRead(parameter, now, stored, entry.key))
            continue;
        isRead = true;
        isSame = isSame && present.have(entry.key, entry.value);
    }
    if (isRead && isSame)
        return ValueReading::Respelled;
    return now == before ? ValueReading::Refused : ValueReading::Repaired;
}

bool isContained(const Form& part, const Form& whole)
{
    return std::all_of(part.begin(), part.end(), [&](const Form::Entry& entry) {
        const QString* value = whole.find(entry.key);
        return value && *value == entry.value;
    });
}

/// The entries of the item that is held: a selection has them also where it is stored as its parts.
Form itemOf(const KpbAParameter& parameter)
{
    return parameter.isA(KpbEType::SELECTION) ? parameter.getChild(QStringLiteral("VARIABLE"))->serialize()
                                              : parameter.serialize();
}

/// What a root gives, and what goes without saying, is not stored.
ValueReading judgeItem(const KpbAParameter& parameter, const Form& stored, const KpbAParameter& former)
{
    Form named;
    for (const auto& entry : stored) {
        if (getItemEntries(parameter).contains(entry.key))
            named.insert(entry.key, entry.value);
    }
    const Form now = itemOf(parameter);
    if (named.isEmpty() || isContained(named, now))
        return ValueReading::Same;
    if (!now.isEmpty() && (named.contains(urlEntry) || isContained(now, named)))
        return ValueReading::Respelled;
    return now.isEmpty() || now == itemOf(former) ? ValueReading::Refused : ValueReading::Repaired;
}

ValueReading judgeItemEntry(const KpbAParameter& parameter, const QString& text, const QString& name,
                            const KpbAParameter& former)
{
    const Form now = itemOf(parameter);
    if (now.contains(name))
        return now.value(name) == text ? ValueReading::Same : ValueReading::Refused;
    return now == itemOf(former) ? ValueReading::Refused : ValueReading::Respelled;
}

ValueReading judgeByKind(const KpbAParameter& parameter, const Form& stored, const Form& before, const Form& now)
{
    const QString text = stored.value(valueEntry);
    const QString nowText = now.value(valueEntry);
    const QString beforeText = before.value(valueEntry);
    switch (parameter.getType().toEnum()) {
    case KpbEType::EValue::INTEGER:
        return judgeNumber<int>(text, nowText, KpsSerializer::fromInt);
    case KpbEType::EValue::DOUBLE:
        return judgeNumber<double>(text, nowText, [](double d) { return KpsSerializer::fromDouble(d, 'g', 10); });
    case KpbEType::EValue::BOOL:
        return judgeBool(text);
    case KpbEType::EValue::SEED:
        return judgeSeed(text, nowText);
    case KpbEType::EValue::FLAGS:
        return judgeFlags(text, nowText);
    case KpbEType::EValue::FS_FILE:
        return judgePath(KusPath::File, text, nowText, beforeText);
    case KpbEType::EValue::FS_DIRECTORY:
        return judgePath(KusPath::Directory, text, nowText, beforeText);
    case KpbEType::EValue::UNIT:
        return now == before ? ValueReading::Refused : ValueReading::Repaired;
    default:
        break;
    }
    if (const auto* choice = dynamic_cast<const KpaEnum*>(&parameter))
        return judgeEnum(*choice, text, nowText, beforeText);
    if (const auto* string = dynamic_cast<const KpaString*>(&parameter))
        return judgeString(*string, stored, nowText);
    return judgeEntries(parameter, stored, before, now);
}

} // namespace

Form entriesOf(const QDomElement& element)
{
    Form entries;
    const QDomElement first = element.firstChildElement();
    if (first.isNull() && !element.text().isEmpty())
        entries.insert(valueEntry, cleanText(element));
    for (QDomElement child = first; !child.isNull(); child = child.nextSiblingElement()) {
        if (child.tagName() != QLatin1String("param"))
            entries.insert(child.tagName(), cleanText(child));
    }
    return entries;
}

QStringList getItemEntries(const KpbAParameter& parameter)
{
    const QStringList named{QStringLiteral("name")};
    switch (parameter.getType().toEnum()) {
    case KpbEType::EValue::DATA_IDENT:
    case KpbEType::EValue::SELECTION:
        return {"path", "file", "support", "name", "macro", urlEntry};
    case KpbEType::EValue::GEOS_SET_IDENT:
        return named + QStringList{urlEntry};
    case KpbEType::EValue::NEIGHBORHOOD_IDENT:
    case KpbEType::EValue::CATALOG_IDENT:
    case KpbEType::EValue::COLOR_SCALE_IDENT:
    case KpbEType::EValue::SCENE_IDENT:
    case KpbEType::EValue::CHARTS_IDENT:
        return named;
    case KpbEType::EValue::CHART_FOLDER:
        return named + QStringList{"folder"};
    case KpbEType::EValue::CHART_VIEW:
        return named + QStringList{"folder", "view"};
    default:
        return {};
    }
}

bool isEntryRead(const KpbAParameter& parameter, const Form& now, const Form& stored, const QString& name)
{
    if (const auto* rotation = dynamic_cast<const KpaRotation*>(&parameter))
        return isRotationEntryRead(*rotation, stored, name);
    // Texts of older versions came line by line.
    const bool isLine = parameter.isA(KpbEType::STRING) && name.startsWith(QLatin1String("line"));
    return isLine || isCategory(parameter, name) || now.contains(name) || getItemEntries(parameter).contains(name);
}

ValueReading judgeReading(const KpbAParameter& parameter, const Form& stored, const KpbAParameter& former)
{
    if (!getItemEntries(parameter).isEmpty())
        return judgeItem(parameter, stored, former);
    const Form now = parameter.serialize();
    const bool isEmpty = stored.isEmpty() && now.size() == 1 && now.valueAt(0).isEmpty();
    if (isEmpty || (!stored.isEmpty() && isContained(stored, now)))
        return ValueReading::Same;
    if (const auto* rotation = dynamic_cast<const KpaRotation*>(&parameter))
        return judgeRotation(*rotation, stored, dynamic_cast<const KpaRotation&>(former));
    return judgeByKind(parameter, stored, former.serialize(), now);
}

ValueReading judgeEntry(const KpbAParameter& parameter, const Form& stored, const QString& name,
                        const KpbAParameter& former)
{
    if (!getItemEntries(parameter).isEmpty())
        return judgeItemEntry(parameter, stored.value(name), name, former);
    const Form now = parameter.serialize();
    const QString text = stored.value(name);
    if (!isEntryRead(parameter, now, stored, name))
        return ValueReading::Refused;
    if (now.contains(name) && now.value(name) == text)
        return ValueReading::Same;
    if (const auto* rotation = dynamic_cast<const KpaRotation*>(&parameter))
        return judgeRotation(*rotation, stored, dynamic_cast<const KpaRotation&>(former));
    if (PresentEntries(parameter, now).have(name, text))
        return ValueReading::Respelled;
    return now == former.serialize() ? ValueReading::Refused : ValueReading::Repaired;
}
