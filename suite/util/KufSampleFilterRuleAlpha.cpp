#include <util/KufSampleFilterRuleAlpha.h>

#include <QtCore/QObject>

#include <util/KufVariantMapReader.h>

#include <cstddef>

using Mode = KufSampleFilterRuleAlpha::Mode;

const Mode Mode::CONTAINS(QObject::tr("Contains"), 0, "CONTAINS");
const Mode Mode::EQUAL_TO(QObject::tr("Is equal to"), 1, "EQUAL_TO");
const Mode Mode::NOT_EQUAL_TO(QObject::tr("Is not equal to"), 2, "NOT_EQUAL_TO");

QList<const Mode*> Mode::items()
{
    return {&CONTAINS, &EQUAL_TO, &NOT_EQUAL_TO};
}

const QString& KufSampleFilterRuleAlpha::_text() const
{
    return _texts[std::size_t(_mode.getValue())];
}

bool KufSampleFilterRuleAlpha::accepts(const QString& value) const
{
    if (_mode == Mode::CONTAINS)
        return value.contains(_text());
    return (value == _text()) == (_mode == Mode::EQUAL_TO);
}

KufSampleFilterRuleAlpha* KufSampleFilterRuleAlpha::duplicate() const
{
    return new KufSampleFilterRuleAlpha(*this);
}

KufFilterRuleType KufSampleFilterRuleAlpha::getType() const
{
    return KufFilterRuleType::ALPHA;
}

QString KufSampleFilterRuleAlpha::getDescription(const MbdVariableDetails&) const
{
    const QString text = QLatin1Char('"') + _text() + QLatin1Char('"');
    if (_mode == Mode::CONTAINS)
        return QObject::tr("V contains %1").arg(text);
    return _mode == Mode::EQUAL_TO ? QObject::tr("V is %1").arg(text) : QObject::tr("V is not %1").arg(text);
}

QString KufSampleFilterRuleAlpha::getShortDescription(const MbdVariableDetails&, bool withVariable) const
{
    constexpr int longest = 20;
    const QString text = _text().size() > longest ? _text().left(longest) + QLatin1String("...") : _text();
    const QString wild = _mode == Mode::CONTAINS ? QStringLiteral("*") : QString();
    return QLatin1String(withVariable ? "V " : "") + QLatin1String(_mode == Mode::NOT_EQUAL_TO ? "!= " : "= ") +
           QLatin1Char('"') + wild + text + wild + QLatin1Char('"');
}

QMap<QString, QVariant> KufSampleFilterRuleAlpha::toQVariantMap() const
{
    return {{QStringLiteral("mode"), _mode.getKey()},
            {QStringLiteral("containsValue"), getContainsValue()},
            {QStringLiteral("equalValue"), getEqualValue()},
            {QStringLiteral("notEqualValue"), getNotEqualValue()}};
}

void KufSampleFilterRuleAlpha::fromQVariantMap(const QMap<QString, QVariant>& map, int version)
{
    const KufVariantMapReader reader(map, version);
    KufSampleFilterRuleAlpha read;
    read._mode = reader.readEnum<Mode>(QStringLiteral("mode"));
    read._texts = {reader.readText(QStringLiteral("containsValue")), reader.readText(QStringLiteral("equalValue")),
                   reader.readText(QStringLiteral("notEqualValue"))};
    *this = read;
}
