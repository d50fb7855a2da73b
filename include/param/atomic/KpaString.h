#pragma once

#include <param/atomic/KpaAAtomic.h>
#include <param/atomic/KpaStringConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<QString, KpaStringConfig>;

/// A free text, which may be trimmed, held against a regular expression and limited in length.
class KESTRIN_PARAM_EXPORT KpaString : public KpaAAtomic<QString, KpaStringConfig>
{
public:
    explicit KpaString(const QString& key);
    KpaString(const KpaString& other, const QString& newKey);
    KpaString* duplicate(const QString& newKey) const override;

    /// Whether `text` stands in the value, letter case included.
    bool contains(const QString& text) const { return _value.contains(text, Qt::CaseSensitive); }

    bool isAutoTrimmed() const { return _config.isAutoTrimmed(); }
    const QRegularExpression& getRegExp() const { return _config.getRegExp(); }
    int getMaxLength() const { return _config.getMaxLength(); }
    bool isInstantEdit() const { return _config.isInstantEdit(); }
    const QString& getPlaceHolder() const { return _config.getPlaceHolder(); }
    bool isClearEnabled() const { return _config.isClearEnabled(); }
    const QStringList& getCompleter() const { return _config.getCompleter(); }

    void setAutoTrim(bool trimmed) { _configChangedIf(_config.setAutoTrim(trimmed)); }
    /// An expression that is not valid changes nothing, with a warning.
    void setRegExp(const QRegularExpression& regExp) { _configChangedIf(_config.setRegExp(regExp)); }
    void setMaxLength(int length) { _configChangedIf(_config.setMaxLength(length)); }
    void unsetMaxLength() { setMaxLength(MbbGlobal::I32_FFFF); }
    void setInstantEdit(bool instant) { _configChangedIf(_config.setInstantEdit(instant)); }
    void setPlaceHolder(const QString& text) { _configChangedIf(_config.setPlaceHolder(text)); }
    void setClearEnabled(bool enabled) { _configChangedIf(_config.setClearEnabled(enabled)); }
    void setCompleter(const QStringList& suggestions) { _configChangedIf(_config.setCompleter(suggestions)); }
};
