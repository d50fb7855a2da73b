#pragma once

#include <QtCore/QHash>
#include <QtCore/QJsonObject>
#include <QtCore/QVector>
#include <QtXml/QDomDocument>

#include <utility>

/// What the conversion of an older document did to one parameter's element: another place, another text, or both. A
/// side without a path says that the element is new, or gone.
struct ConversionStep
{
    QString oldPath;
    QString oldText;
    QString newPath;
    QString newText;

    /// "TITLE = Lens A  ->  NAME = Lens A", in a line.
    QString toString() const;
    QJsonObject toJson() const;
};

/// Remembers where the values of a marked document stand, to tell later what a conversion has done to them.
class FormConversion
{
public:
    explicit FormConversion(const QDomElement& root);

    /// The steps that lead to `root`, the same document converted, in the order of the old document, new elements last.
    QVector<ConversionStep> getStepsTo(const QDomElement& root) const;

private:
    using PathAndText = std::pair<QString, QString>;

    QVector<int> _order;
    QHash<int, PathAndText> _values; // by the number of the element
};
