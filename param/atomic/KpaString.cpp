#include <param/atomic/KpaConfigTools.h>
#include <param/atomic/KpaString.h>

#include <basic/MbbDebug.h>

template class KpaAAtomic<QString, KpaStringConfig>;

using KpaConfigTools::store;

namespace {

using SerialForm = MbbOrderedMap<QString, QString>;

bool isLineForm(const SerialForm& map)
{
    return map.count() >= 2 || (map.count() == 1 && map.keyAt(0).startsWith(QLatin1String("line")));
}

QString joinedLines(const SerialForm& map)
{
    QStringList lines;
    for (const auto& entry : map)
        lines.append(KpaConfigTools::percentDecoded(entry.value));
    return lines.join(QLatin1Char('\n'));
}

} // namespace

bool KpaStringConfig::setAutoTrim(bool trimmed)
{
    return store(_autoTrim, trimmed);
}

bool KpaStringConfig::setRegExp(const QRegularExpression& regExp)
{
    if (_regExp == regExp)
        return false;
    if (!regExp.isValid()) {
        const QStringList lines{
            QStringLiteral("An invalid regexp has been provided, please fix it."),
            QStringLiteral("Pattern: ") + regExp.pattern(),
            QStringLiteral("Error: ") + regExp.errorString() + QStringLiteral(" at position ") +
                QString::number(regExp.patternErrorOffset()),
        };
        MbbDebug::printWarning(lines.join(QLatin1Char('\n')), Qt::PlainText);
        return false;
    }
    _regExp = regExp;
    _regExp.optimize();
    return true;
}

bool KpaStringConfig::setMaxLength(int length)
{
    return store(_maxLength, length);
}

bool KpaStringConfig::setInstantEdit(bool instant)
{
    return store(_instantEdit, instant);
}

bool KpaStringConfig::setPlaceHolder(const QString& text)
{
    return store(_placeHolder, text);
}

bool KpaStringConfig::setClearEnabled(bool enabled)
{
    return store(_clearEnabled, enabled);
}

bool KpaStringConfig::setCompleter(const QStringList& suggestions)
{
    return store(_completer, suggestions);
}

QString KpaStringConfig::fix(const QString& value, const QString& previous) const
{
    QString text = _autoTrim ? value.trimmed() : value;
    if (text.isEmpty())
        return text;
    if (!_regExp.pattern().isEmpty() && !_matches(text))
        text = _matches(previous) ? previous : QString();
    if (isMaxLengthDefined())
        text.truncate(_maxLength);
    return text;
}

MbbOrderedMap<QString, QString> KpaStringConfig::serializeValue(const QString& value) const
{
    return KpaConfigTools::singleValue(value);
}

QString KpaStringConfig::unserializeValue(const MbbOrderedMap<QString, QString>& map, const QString&) const
{
    return isLineForm(map) ? joinedLines(map) : map.value(KpaConfigTools::valueKey());
}

QString KpaStringConfig::debug() const
{
    QString text;
    QTextStream(&text) << "----- KpaStringConfig ----------\n"
                       << " autotrim      = " << KpaConfigTools::yesNo(_autoTrim) << '\n'
                       << " regexp        = " << _regExp.pattern() << '\n'
                       << " maxLength     = " << _maxLength << '\n'
                       << " instant edit  = " << KpaConfigTools::yesNo(_instantEdit) << '\n'
                       << " place holder  = " << _placeHolder << '\n'
                       << " clear enabled = " << KpaConfigTools::yesNo(_clearEnabled) << '\n';
    return text;
}

KpaString::KpaString(const QString& key) : KpaAAtomic(key, KpaStringConfig()) {}

KpaString::KpaString(const KpaString& other, const QString& newKey) : KpaAAtomic(other, newKey) {}

KpaString* KpaString::duplicate(const QString& newKey) const
{
    return new KpaString(*this, newKey);
}
