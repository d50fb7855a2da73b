#pragma once

#include <basic/MbbAEnumClass.h>
#include <util/KufISampleFilterRule.h>

#include <array>

/// Keeps the samples at which a text holds, is or is not another one, case sensitive. The rule holds the texts of all
/// three modes, whichever it is in.
class KESTRIN_UTIL_EXPORT KufSampleFilterRuleAlpha : public KufISampleFilterRule
{
public:
    /// What is asked of a text. A default one is CONTAINS.
    class KESTRIN_UTIL_EXPORT Mode : public MbbAEnumClass<Mode>
    {
    public:
        static const Mode CONTAINS;     ///< value 0
        static const Mode EQUAL_TO;     ///< value 1
        static const Mode NOT_EQUAL_TO; ///< value 2

        Mode() : Mode(CONTAINS) {}

        static QList<const Mode*> items();
        static constexpr const char* ClassName = "KufSampleFilterRuleAlpha::Mode";

    private:
        using MbbAEnumClass::MbbAEnumClass;
    };

    const Mode& getMode() const { return _mode; }
    void setMode(const Mode& mode) { _mode = mode; }

    const QString& getContainsValue() const { return _texts[0]; }
    void setContainsValue(const QString& text) { _texts[0] = text; }
    const QString& getEqualValue() const { return _texts[1]; }
    void setEqualValue(const QString& text) { _texts[1] = text; }
    const QString& getNotEqualValue() const { return _texts[2]; }
    void setNotEqualValue(const QString& text) { _texts[2] = text; }

    /// An empty text is a text like any other.
    bool accepts(const QString& value) const;

    KufSampleFilterRuleAlpha* duplicate() const override;
    KufFilterRuleType getType() const override;
    QString getDescription(const MbdVariableDetails& details) const override;
    QString getShortDescription(const MbdVariableDetails& details, bool withVariable) const override;
    QMap<QString, QVariant> toQVariantMap() const override;
    void fromQVariantMap(const QMap<QString, QVariant>& map, int version) override;

private:
    const QString& _text() const;

    Mode _mode;
    std::array<QString, 3> _texts; // by the value of their mode
};
