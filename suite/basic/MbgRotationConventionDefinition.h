#pragma once

#include <QtCore/QString>

#include <basic/MbgERotConv.h>

#include <array>

/// What a rotation convention is made of: its type, its definition string, which is the text of a `MbgAxisSequence`,
/// and a label for each angle. A plain value that takes any text.
class KESTRIN_BASIC_EXPORT MbgRotationConventionDefinition
{
public:
    MbgRotationConventionDefinition(const MbgERotConv& type, const QString& string, const QString& label1 = QString(),
                                    const QString& label2 = QString(), const QString& label3 = QString())
        : _type(type),
          _string(string),
          _labels{label1, label2, label3}
    {}

    const MbgERotConv& getType() const { return _type; }
    const QString& getString() const { return _string; }
    /// The label of the first, second or third angle; `i` is 0, 1 or 2.
    const QString& getLabel(int i) const { return _labels.at(std::size_t(i)); }

    friend bool operator==(const MbgRotationConventionDefinition& a,
                           const MbgRotationConventionDefinition& b) = default;

private:
    MbgERotConv _type;
    QString _string;
    std::array<QString, 3> _labels;
};
