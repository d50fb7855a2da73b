#pragma once

#include <param/composite/KpcChildren.h>
#include <param/composite/KpcFiche.h>
#include <param/watcher/KpwTrigger.h>

class KpaBool;
class KpaDouble;
class KpaEnum;
class KpaFSDirectory;
class KpaFSFile;
class KpaFlags;
class KpaInteger;
class KpaSeed;
class KpaString;
class KpaUnit;
class KpcCheckableGroup;

/// A task form to show the library with: the estimation of a grade on blocks.
///
/// The seed is enabled while the blocks are visited in random order. The automatic search radius follows the method.
/// Forms are told apart by the method and the name of the run.
class DemoTask : public KpcFiche
{
public:
    enum Method
    {
        Nearest,
        InverseDistance,
        OrdinaryKriging
    };
    enum Statistic
    {
        Mean,
        Variance,
        SampleCount
    };

    DemoTask(const QString& key, const KstITransactable& transactable);
    DemoTask(const DemoTask& other, const QString& newKey);
    ~DemoTask() override;
    DemoTask* duplicate(const QString& newKey) const override;

    int getVersion() const override { return 3; }
    void convert(QDomElement& element, int fromVersion) const override;

    /// The parameters by whose values forms are told apart in a store.
    QList<KpbAParameter*> getKeyParameters() const;

private:
    enum WatcherId
    {
        SeedEnabler
    };

    void _declare(KpcChildren children);
    void _declareSearch(KpcChildren children);
    void _declareTrimming(KpcChildren children);
    void _watch();
    void _updateAutomaticRadius();

    static void _convertToVersion2(const QDomElement& element);
    static void _convertToVersion3(const QDomElement& element);
    static QDomElement _getOrCreateGroup(const QDomElement& parent, const QString& key);
    static void _moveLimitIntoTrimming(QDomElement element);

    KpcChild<KpaString> _name;
    KpcChild<KpaEnum> _method;
    KpcChild<KpaFSFile> _samplesFile;
    KpcChild<KpaFSDirectory> _resultFolder;
    KpcChild<KpcGroup> _search;
    KpcChild<KpaDouble> _radius;
    KpcChild<KpaDouble> _azimuth;
    KpcChild<KpaInteger> _maxSamples;
    KpcChild<KpcGroup> _sectors;
    KpcChild<KpaInteger> _sectorCount;
    KpcChild<KpaBool> _balanced;
    KpcChild<KpcCheckableGroup> _trimming;
    KpcChild<KpaDouble> _upperLimit;
    KpcChild<KpaBool> _randomPath;
    KpcChild<KpaSeed> _seed;
    KpcChild<KpaFlags> _statistics;
    KpcChild<KpaUnit> _reportUnit;
    KpcChild<KpaBool> _preview;

    // Not registered with the group: what it calls is this object's, and a copy needs one of its own.
    KpwTrigger _methodTrigger;
};
