#include <document/ValueReading.h>

#include <QtCore/QSet>
#include <QtCore/QUrl>

#include <basic/MbbGlobal.h>
#include <param/KpsSerializer.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaString.h>
#include <util/KusFileUtils.h>
#include <util/KusPath.h>
#include <util/KuxXml.h>

namespace {

using Form = KpbAParameter::SerialForm;

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

bool isContained(const Form& part, const Form& whole)
{
    return std::all_of(part.begin(), part.end(), [&](const Form::Entry& entry) {
        const QString* value = whole.find(entry.key);
        return value && *value == entry.value;
    });
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
    default:
        break;
    }
    if (const auto* choice = dynamic_cast<const KpaEnum*>(&parameter))
        return judgeEnum(*choice, text, nowText, beforeText);
    if (const auto* string = dynamic_cast<const KpaString*>(&parameter))
        return judgeString(*string, stored, nowText);
    return now == before ? ValueReading::Refused : ValueReading::Repaired;
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

ValueReading judgeReading(const KpbAParameter& parameter, const Form& stored, const Form& before)
{
    const Form now = parameter.serialize();
    const bool isEmpty = stored.isEmpty() && now.size() == 1 && now.value(valueEntry).isEmpty();
    if (isEmpty || (!stored.isEmpty() && isContained(stored, now)))
        return ValueReading::Same;
    return judgeByKind(parameter, stored, before, now);
}
