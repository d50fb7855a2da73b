#pragma once

#include <QtCore/QStringList>

#include <study/KsoAItemIdentifier.h>
#include <study/KsoEDataType.h>

class KsmModelData;
class KsoADataItem;
class KsoAVariableItem;
class KsoDataFile;
class KsoDataMacroVariable;
class KsoDataSupport;

/// Names an item of the data tree by its model, its level and the names on the way to it. Identifiers are equal when
/// all of these are; they stay the same when the item is renamed, and then name nothing. Without a support name, an
/// item of a file with a single support is meant.
class KESTRIN_STUDY_EXPORT KsoDataIdentifier : public KsoAItemIdentifier
{
public:
    /// The null identifier.
    KsoDataIdentifier() = default;
    static KsoDataIdentifier directory(KsmModelData* model, const QStringList& path);
    static KsoDataIdentifier file(KsmModelData* model, const QStringList& path, const QString& file);
    static KsoDataIdentifier support(KsmModelData* model, const QStringList& path, const QString& file,
                                     const QString& support);
    static KsoDataIdentifier variable(KsmModelData* model, const QStringList& path, const QString& file,
                                      const QString& support, const QString& name);
    static KsoDataIdentifier macroVariable(KsmModelData* model, const QStringList& path, const QString& file,
                                           const QString& support, const QString& name);
    /// What `toMap(true)` gave. A missing path is that of the root. A map that lacks a level on the way gives null. A
    /// missing support is that of a file with a single one.
    static KsoDataIdentifier fromMap(const MbbOrderedMap<QString, QString>& map, KsmModelData* model);

    bool isNull() const override { return !_named; }
    QString getName() const override;
    MbbOrderedMap<QString, QString> toMap(bool complete) const override;
    void clean() const override;

    KsmModelData* getModel() const;
    /// `DIRECTORY` for a null identifier.
    const KsoEDataType& getType() const { return _type; }
    /// The names of the directories below the root directory.
    const QStringList& getPath() const { return _path; }
    const QString& getFileName() const { return _file; }
    const QString& getSupportName() const { return _support; }

    /// Null for the root directory and for a null identifier.
    KsoDataIdentifier getParent() const;
    /// Whether it is the root directory of its model.
    bool isRoot() const { return _named && _type == KsoEDataType::DIRECTORY && _path.isEmpty(); }
    /// Whether `other` lies below it, at any depth, in the same model. False if one of them is null.
    bool isAncestorOf(const KsoDataIdentifier& other) const;
    /// The same place below `root`: the names that `root` gives replace those of this identifier. A place that is below
    /// `root` already stays. In a file without a support of the name, its single support is taken. What is not deeper
    /// than `root` becomes `root` if it is of its level, and stays otherwise; so does everything under a null root, and
    /// null itself.
    KsoDataIdentifier changeRoot(const KsoDataIdentifier& root) const;

    KsoADataItem* getDataItem() const;
    /// The file that it names or lies in; null if there is none.
    KsoDataFile* getFile() const;
    /// The support that it names or lies in, or the single support of the file that it names; null if there is none.
    KsoDataSupport* getSupport() const;
    KsoAVariableItem* getAVariableItem() const;
    KsoDataMacroVariable* getMacroVariable() const;

    /// The names joined by "/"; "/" for the root directory, and empty for null.
    QString toString() const;
    /// The same; of what lies below `root` without the names of `root`.
    QString toString(const KsoDataIdentifier& root) const;
    /// A text that tells it from all others of its model: the key of the level, ":", and the names in percent encoding
    /// joined by "/"; empty for null.
    QString encode() const;

    friend bool operator==(const KsoDataIdentifier& a, const KsoDataIdentifier& b) { return a._isEqual(b); }
    friend bool operator!=(const KsoDataIdentifier& a, const KsoDataIdentifier& b) { return !a._isEqual(b); }
    /// Null first; then by path, file, support and name, a parent before what is below it.
    friend bool operator<(const KsoDataIdentifier& a, const KsoDataIdentifier& b) { return a._isLess(b); }
    friend uint qHash(const KsoDataIdentifier& ident, uint seed = 0) { return ident._hash(seed); }

protected:
    KsoAItem* _findItem() const override;

private:
    KsoDataIdentifier(KsmModelData* model, const KsoEDataType& type, const QStringList& path, const QString& file = {},
                      const QString& support = {}, const QString& name = {});

    bool _isEqual(const KsoDataIdentifier& other) const;
    bool _isLess(const KsoDataIdentifier& other) const;
    bool _isInside(const KsoDataIdentifier& root) const;
    uint _hash(uint seed) const;
    QStringList _names() const;
    QString _supportLike(const QString& name) const;
    KsoDataIdentifier _ancestor(const KsoEDataType& type) const;
    KsoADataItem* _lookUp() const;

    bool _named = false;
    KsoEDataType _type;
    QStringList _path;
    QString _file;
    QString _support;
    QString _name;
    // What was looked up, and the state of the model's tree that it belongs to; 0 is no state.
    mutable KsoADataItem* _item = nullptr;
    mutable quint64 _itemState = 0;
};
