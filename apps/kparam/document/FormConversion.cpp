#include <document/FormConversion.h>

#include <QtCore/QStringList>

#include <cli/SafeText.h>
#include <document/ElementPlace.h>
#include <document/ValueReading.h>

namespace {

const QString paramTag = QStringLiteral("param");

/// The entries that an element holds itself, in a line.
QString textOf(const QDomElement& element)
{
    const auto entries = entriesOf(element);
    if (entries.size() == 1)
        return entries.valueAt(0);
    QStringList texts;
    for (const auto& entry : entries)
        texts.append(entry.key + QLatin1Char(' ') + entry.value);
    return texts.join(QStringLiteral(", "));
}

/// Visits all "param" elements that hold a value of their own, with the path of keys that leads to them.
template <class Visit>
void forEachValue(const QDomElement& parent, const QString& path, Visit& visit)
{
    for (QDomElement child = parent.firstChildElement(paramTag); !child.isNull();
         child = child.nextSiblingElement(paramTag))
    {
        const QString key = child.attribute("key");
        const QString childPath = path.isEmpty() ? key : path + QLatin1Char('/') + key;
        if (child.firstChildElement(paramTag).isNull())
            visit(child, childPath);
        forEachValue(child, childPath, visit);
    }
}

QString sideText(const QString& path, const QString& text)
{
    const QString shown = text.isEmpty() ? QStringLiteral("(empty)") : SafeText::inLine(text);
    return SafeText::inLine(path) + QStringLiteral(" = ") + shown;
}

} // namespace

QString ConversionStep::toString() const
{
    const QString from = oldPath.isEmpty() ? QStringLiteral("(new)") : sideText(oldPath, oldText);
    const QString to = newPath.isEmpty() ? QStringLiteral("(gone)") : sideText(newPath, newText);
    return from + QStringLiteral("  ->  ") + to;
}

QJsonObject ConversionStep::toJson() const
{
    const auto side = [](const QString& path, const QString& text) {
        return path.isEmpty() ? QJsonValue() : QJsonValue(QJsonObject{{"path", path}, {"text", text}});
    };
    return {{"from", side(oldPath, oldText)}, {"to", side(newPath, newText)}};
}

FormConversion::FormConversion(const QDomElement& root)
{
    auto remember = [this](const QDomElement& element, const QString& path) {
        const int number = ElementPlace::ofElement(element).number;
        _order.append(number);
        _values.insert(number, {path, textOf(element)});
    };
    forEachValue(root, QString(), remember);
}

QVector<ConversionStep> FormConversion::getStepsTo(const QDomElement& root) const
{
    QHash<int, PathAndText> now;
    QVector<ConversionStep> added;
    auto note = [&](const QDomElement& element, const QString& path) {
        const int number = ElementPlace::ofElement(element).number;
        if (_values.contains(number))
            now.insert(number, {path, textOf(element)});
        else if (number == 0)
            added.append({QString(), QString(), path, textOf(element)});
    };
    forEachValue(root, QString(), note);

    QVector<ConversionStep> steps;
    for (const int number : _order) {
        const PathAndText before = _values.value(number);
        const PathAndText after = now.value(number);
        if (before != after)
            steps.append({before.first, before.second, after.first, after.second});
    }
    return steps + added;
}
