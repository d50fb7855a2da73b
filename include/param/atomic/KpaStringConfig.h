#pragma once

#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>

#include <basic/MbbGlobal.h>
#include <basic/MbbOrderedMap.h>
#include <param/KpExport.h>
#include <param/KpbEType.h>

/// What texts a string parameter admits, and how a user interface edits them. Setters give whether something changed.
class KESTRIN_PARAM_EXPORT KpaStringConfig
{
public:
    /// All fields.
    friend bool operator==(const KpaStringConfig& a, const KpaStringConfig& b) = default;

    const KpbEType& getType() const { return KpbEType::STRING; }
    QString getInitialValue() const { return {}; }

    /// Whether blanks around the text are taken off.
    bool isAutoTrimmed() const { return _autoTrim; }
    const QRegularExpression& getRegExp() const { return _regExp; }
    /// In characters; `MbbGlobal::I32_FFFF` for no limit.
    int getMaxLength() const { return _maxLength; }
    bool isMaxLengthDefined() const { return _maxLength != MbbGlobal::I32_FFFF; }
    /// Whether a user interface applies each keystroke.
    bool isInstantEdit() const { return _instantEdit; }
    const QString& getPlaceHolder() const { return _placeHolder; }
    /// Whether a user interface offers to clear the text.
    bool isClearEnabled() const { return _clearEnabled; }
    /// Suggestions for completion.
    const QStringList& getCompleter() const { return _completer; }

    bool setAutoTrim(bool trimmed);
    /// Texts that are not empty have to match `regExp` somewhere. An expression that is not valid is not taken, with a
    /// warning.
    bool setRegExp(const QRegularExpression& regExp);
    bool setMaxLength(int length);
    bool setInstantEdit(bool instant);
    bool setPlaceHolder(const QString& text);
    bool setClearEnabled(bool enabled);
    bool setCompleter(const QStringList& suggestions);

    /// The text under the rules; the empty text stands. A text that does not match gives way to `previous`, or to the
    /// empty text if that does not match either.
    QString fix(const QString& value, const QString& previous) const;
    QString toString(const QString& value) const { return value; }
    MbbOrderedMap<QString, QString> serializeValue(const QString& value) const;
    /// Reads the form of older versions, too: one entry per line.
    QString unserializeValue(const MbbOrderedMap<QString, QString>& map, const QString& previous) const;
    QString debug() const;

private:
    bool _matches(const QString& text) const { return _regExp.match(text).hasMatch(); }

    bool _autoTrim = false;
    QRegularExpression _regExp;
    int _maxLength = MbbGlobal::I32_FFFF;
    bool _instantEdit = false;
    QString _placeHolder;
    bool _clearEnabled = true;
    QStringList _completer;
};
