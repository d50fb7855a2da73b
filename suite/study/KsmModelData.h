#pragma once

#include <QtCore/QHash>
#include <QtCore/QStringList>

#include <basic/MbdEVarRole.h>
#include <basic/MbdVariableDetails.h>
#include <observer/KuoAObservable.h>
#include <study/KsmAItemModel.h>
#include <study/KsmModifData.h>
#include <study/KsoDataDirectory.h>
#include <study/KsoDataFile.h>
#include <study/KsoDataMacroVariable.h>
#include <study/KsoDataSupport.h>
#include <study/KsoDataVariable.h>

#include <functional>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

class KsbIDriverItem;
struct KsbItemRecord;

/// The data tree of a project. It owns the items; the store belongs to the project and outlives it.
///
/// Each change is stored first, then made here, then told to the observers in one record. What fails throws an
/// `MbeError` and leaves the store and the tree as they were, and nothing is told. An item that is null, gone or of
/// another model is an `MbeProgrammingError`. A name that is taken under the same parent, or that is none, is an
/// `MbeUserError`. An item that is made is null if an observer has removed it, or destroyed the model, by the time it
/// is given back.
class KESTRIN_STUDY_EXPORT KsmModelData : public KuoAObservable<KsmModifData>, public KsmAItemModel
{
public:
    /// Reads the tree from `driver`. A stored tree that is damaged is an `MbeError`.
    KsmModelData(KssProject* project, KsbIDriverItem* driver);
    ~KsmModelData() override;

    KsoDataIdentifier getRootDirectory() const;
    KsoDataDirectory* getRootItem() const { return _root.get(); }
    /// Null if there is no item of the id. The root directory has the id 0.
    KsoADataItem* getItemFromId(int id) const override;
    KsoADataItem* getValidItemFromId(int id) const { return _valid(getItemFromId(id), id); }

    KsoDataDirectory* createDirectory(KsoDataDirectory* parent, const QString& name);
    KsoDataFile* createFile(KsoDataDirectory* parent, const QString& name, const MbgEGeometrySet& geometrySet,
                            const MbgEDimension& dimension);
    KsoDataSupport* createSupport(KsoDataFile* file, const QString& name, int sampleCount);
    /// Its values are undefined until they are written. The type of `details` says how they are stored.
    KsoDataVariable* createVariable(KsoDataSupport* support, const QString& name, const MbdVariableDetails& details,
                                    const MbdEVarRole& role = MbdEVarRole());
    /// Makes the variable with its values, one for each sample.
    KsoDataVariable* createVariable(KsoDataSupport* support, const QString& name, const MbdVariableDetails& details,
                                    const MbdEVarRole& role, const std::vector<double>& values);
    KsoDataVariable* createVariable(KsoDataSupport* support, const QString& name, const MbdVariableDetails& details,
                                    const MbdEVarRole& role, const QStringList& texts);
    KsoDataMacroVariable* createMacroVariable(KsoDataSupport* support, const QString& name,
                                              const MbdVariableDetails& details, int realisationCount);

    /// Nothing happens where the name is the same. The root directory cannot be renamed, moved or removed.
    void rename(KsoADataItem* item, const QString& name);
    /// Puts the item below `parent`, which must be of the level that has such items and not lie below `item`. Variables
    /// move only between supports of the same sample count.
    void move(KsoADataItem* item, KsoADataItem* parent);
    /// Removes the item and everything below it.
    void remove(KsoADataItem* item);

    void setGeometry(KsoDataFile* file, const MbgEGeometrySet& geometrySet, const MbgEDimension& dimension);
    /// Only for a support without variables; otherwise an `MbeUserError`.
    void setSampleCount(KsoDataSupport* support, int sampleCount);
    /// The type of the details cannot change; otherwise an `MbeUserError`.
    void setDetails(KsoAVariableItem* variable, const MbdVariableDetails& details);
    void setDetails(KsoDataMacroVariable* variable, const MbdVariableDetails& details);
    void setRole(KsoAVariableItem* variable, const MbdEVarRole& role);
    void setApplicationFlags(KsoADataItem* item, const QStringList& flags);

    /// The values of a variable that is no text, one for each sample: numbers, 0 and 1 for booleans, codes of
    /// categories. `MbbGlobal::D_FFFF` is undefined.
    void readValues(const KsoAVariableItem* variable, std::vector<double>& values) const;
    /// The codes of a variable of the type `ENUM`; `MbbGlobal::I16_FFFF` is undefined.
    void readCodes(const KsoAVariableItem* variable, std::vector<short>& codes) const;
    /// The texts of a variable of the type `STRING`.
    void readTexts(const KsoAVariableItem* variable, QStringList& texts) const;
    /// The same of the realisation `index` of a macro variable, counted from 0.
    void readValues(const KsoDataMacroVariable* variable, int index, std::vector<double>& values) const;
    void readTexts(const KsoDataMacroVariable* variable, int index, QStringList& texts) const;

    /// Stores one value for each sample, as `readValues` gives them back. A number that the type cannot hold, such as
    /// an infinity, a fraction in an integer or a code beyond a short, is an `MbeUserError`. The type `FLOAT` keeps the
    /// precision of a float.
    void writeValues(KsoAVariableItem* variable, const std::vector<double>& values);
    void writeTexts(KsoAVariableItem* variable, const QStringList& texts);
    void writeValues(KsoDataMacroVariable* variable, int index, const std::vector<double>& values);
    void writeTexts(KsoDataMacroVariable* variable, int index, const QStringList& texts);

    /// Runs `body`, which changes this tree: all of its changes are stored and told together, or, if it throws, none. A
    /// change that fails after it has begun to be stored fails the whole step, even where `body` catches its error.
    /// Steps may be nested: the outermost one counts.
    void inOneStep(const std::function<void()>& body);

    /// Changes with every change of the items' places and names, and is never 0.
    quint64 getTreeState() const { return _treeState; }

private:
    struct Step;

    void _load();
    void _make(const KsbItemRecord& record);
    void _link(const QList<KsbItemRecord>& records);
    void _requireReachable(const QList<KsbItemRecord>& records) const;
    std::unique_ptr<KsoADataItem> _newItem(const KsoEDataType& type, int id, const QString& name);

    void _requireOwn(const KsoADataItem* item) const;
    void _requireNotRoot(const KsoADataItem* item) const;
    static void _requirePlace(const KsoADataItem* parent, const KsoEDataType& type);
    static void _requireName(const KsoADataItem* parent, const KsoEDataType& type, const QString& name);

    KsoADataItem* _create(KsoADataItem* parent, const KsoEDataType& type, const QString& name,
                          const QJsonObject& attributes, const QByteArray* content = nullptr);
    KsoDataVariable* _createVariable(KsoDataSupport* support, const QString& name, const MbdVariableDetails& details,
                                     const MbdEVarRole& role, const QByteArray* content);
    void _change(const std::function<void()>& body);
    void _edit(KsoADataItem* item, const QJsonObject& changes);
    void _editDetails(KsoADataItem* variable, const MbdEVarType& type, const MbdVariableDetails& details);
    void _place(KsoADataItem* item, KsoADataItem* parent, const QString& name);
    void _hang(KsoADataItem* item, KsoADataItem* parent, const QString& name);
    void _insert(std::unique_ptr<KsoADataItem> item, KsoADataItem* parent);
    std::unique_ptr<KsoADataItem> _take(KsoADataItem* item);
    void _storeContent(KsoADataItem* variable, int number, const QByteArray& content);
    std::vector<double> _readValues(const KsoADataItem* variable, const MbdVariableDetails& details, int number) const;
    QStringList _readTexts(const KsoADataItem* variable, const MbdVariableDetails& details, int number) const;
    template <class Decode>
    auto _decoded(const KsoADataItem* variable, int number, Decode decode) const;

    KsbIDriverItem* _driver;
    std::unordered_map<int, std::unique_ptr<KsoADataItem>> _items;
    std::unordered_set<const KsoADataItem*> _own;
    std::unique_ptr<KsoDataDirectory> _root;
    quint64 _treeState = 1;
    Step* _step = nullptr;
};
