#pragma once

#include <study/KsbDriverItemMemory.h>
#include <study/KsmModelData.h>
#include <study/KsmModelEnumCatalog.h>
#include <study/KssImportCsv.h>
#include <study/KssProject.h>
#include <study/KstATransactableDefault.h>

#include <QtCore/QFile>

#include <algorithm>
#include <functional>
#include <memory>

/// A store of items in memory that tells when contents are read.
class WatchedDriver : public KsbIDriverItem
{
public:
    QList<KsbItemRecord> list(const QString& model) const override { return _inner.list(model); }
    int insert(const QString& model, const KsbItemRecord& record) override { return _inner.insert(model, record); }
    void update(const KsbItemRecord& record) override { _inner.update(record); }
    void remove(const QList<int>& ids) override { _inner.remove(ids); }
    std::optional<QByteArray> readContent(int id, int number) const override
    {
        ++reads;
        if (onRead)
            onRead();
        return _inner.readContent(id, number);
    }
    void writeContent(int id, int number, const QByteArray& content) override
    {
        _inner.writeContent(id, number, content);
    }
    void inOneStep(const std::function<void()>& body) override { _inner.inOneStep(body); }

    mutable int reads = 0;
    std::function<void()> onRead;

private:
    KsbDriverItemMemory _inner;
};

/// A transaction context with a project that has the samples of "drillholes.csv", 40 of them, in one file with one
/// support. The rocks are Andesite 1, Diorite 2, Limestone 3 and Skarn 4.
class DrilledProject : public KstATransactableDefault
{
public:
    DrilledProject() { KssImportCsv(project.get()).importFile(_path()); }

    KssProject* getProject() const override { return project.get(); }

    /// Whether or not there is such a variable.
    KsoDataIdentifier variable(const QString& name) const
    {
        return KsoDataIdentifier::variable(model, {}, QStringLiteral("drillholes"), QStringLiteral("Samples"), name);
    }
    KsoAVariableItem* item(const QString& name) const { return variable(name).getAVariableItem(); }
    KsoDataSupport* support() const { return item("X")->getSupport(); }
    KsoEnumCatalog* rocks() const { return catalogs->findItem("ROCK"); }

    KsoEnumCatalog* createCatalog(const QString& name, const QStringList& labels)
    {
        MbdEnumCatalog catalog;
        for (int i = 0; i < labels.size(); ++i)
            catalog.setCategory(10 + i, labels.at(i), MbbColor(0xFF102030));
        return catalogs->create(name, catalog);
    }
    /// A variable of the catalog's categories, all of them undefined.
    KsoAVariableItem* createCategorical(const QString& name, const KsoEnumCatalog* catalog)
    {
        return model->createVariable(support(), name, details(MbdEVarType::ENUM, catalog->getId()));
    }
    KsoDataMacroVariable* createMacro(const QString& name, const MbdEVarType& type, int realisations)
    {
        return model->createMacroVariable(support(), name, details(type, rocks()->getId()), realisations);
    }
    static MbdVariableDetails details(const MbdEVarType& type, int catalogId)
    {
        MbdVariableDetails details;
        details.setType(type);
        if (type == MbdEVarType::ENUM)
            details.getEnumDetails().setCatalogId(catalogId);
        return details;
    }

    /// How many lines of the file have, in the column, one of the texts.
    static int countLines(const QString& column, const QStringList& texts)
    {
        QFile file(_path());
        file.open(QIODevice::ReadOnly);
        const QStringList lines = QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
        const int place = lines.first().split(';').indexOf(column);
        return int(std::count_if(lines.begin() + 1, lines.end(),
                                 [&](const QString& line) { return texts.contains(line.split(';').at(place)); }));
    }

    WatchedDriver* driver = new WatchedDriver; ///< the project's own
    std::unique_ptr<KssProject> project = std::make_unique<KssProject>(std::unique_ptr<KsbIDriverItem>(driver));
    KsmModelData* model = project->getModelData();
    KsmModelEnumCatalog* catalogs = project->getModelEnumCatalog();

private:
    static QString _path() { return QStringLiteral(KESTRIN_SOURCE_DIR "/samples/data/drillholes.csv"); }
};
