#pragma once

#include "DataForm.h"
#include "SurveyProject.h"

#include <functional>
#include <random>
#include <vector>

/// Makes one edit after the other of a form or of the project under it, chosen by a seed alone. What the project
/// refuses, such as a name that is taken, is part of it.
class RandomEdits
{
public:
    RandomEdits(DataForm& form, SurveyProject& project, unsigned seed);

    /// Makes the next edit and gives its name.
    const char* makeNext();

private:
    struct Edit
    {
        const char* name;
        std::function<void()> make;
    };

    void _addDatasetEdits();
    void _addSelectionEdits();
    void _addFilterEdits();
    void _addCategoriesEdits();
    void _addItemEdits();
    void _addTreeEdits();
    void _addValueEdits();
    void _addCatalogEdits();
    void _addNamedItemEdits();
    void _add(const char* name, std::function<void()> make) { _edits->push_back({name, std::move(make)}); }

    int _number(int count) { return int(_random() % unsigned(count)); }
    bool _coin() { return _number(2) == 1; }
    QString _oneOf(const QStringList& texts) { return texts.at(_number(texts.size())); }
    template <class Item>
    Item* _oneItem(const QList<Item*>& items)
    {
        return items.isEmpty() ? nullptr : items.at(_number(items.size()));
    }

    QList<KsoADataItem*> _items(const KsoEDataType& type) const;
    KsoADataItem* _oneItem(const KsoEDataType& type) { return _oneItem(_items(type)); }
    /// Null at times.
    KsoDataIdentifier _oneIdent(const KsoEDataType& type);
    /// Mostly one in the data file of the form.
    KsoDataIdentifier _oneVariable();
    KpcSampleFilterRule* _oneRule();
    void _editRule(KpcSampleFilterRule& rule);
    void _editCatalogRow();
    void _writeValues(KsoAVariableItem& variable);
    void _createVariable(KsoDataSupport& support, const QString& name);

    DataForm& _form;
    SurveyProject& _project;
    std::mt19937 _random;
    std::vector<Edit> _formEdits;
    std::vector<Edit> _projectEdits;
    std::vector<Edit>* _edits = &_formEdits; // those that are being added to
    QByteArray _stored;
};
