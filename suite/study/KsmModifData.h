#pragma once

#include <QtCore/QHash>
#include <QtCore/QList>

#include <observer/KuoAObservableModif.h>
#include <study/KsoDataIdentifier.h>

/// What changed in the data tree: identifiers and, for each, the reasons. An item that was renamed or moved stands in
/// it under its old and its new identifier.
class KESTRIN_STUDY_EXPORT KsmModifData : public KuoAObservableModif<KsmModifData>
{
public:
    /// Bits, to be combined.
    enum Reason
    {
        Created = 1,
        Removed = 2,
        Renamed = 4, ///< renamed or moved
        Details = 8, ///< geometry, dimension, sample count, details, role or applications
        Values = 0x20000,
    };

    KsmModifData() = default;
    KsmModifData(const KsoDataIdentifier& ident, int reasons) { add(ident, reasons); }

    void add(const KsoDataIdentifier& ident, int reasons);
    /// Whether one of `reasons` concerns `ident`. The removal and the renaming of an item concern all that is below it.
    /// An identifier without a support name is concerned by what its name has in any support of its file, and by the
    /// coming, going and renaming of supports there.
    bool hasModif(const KsoDataIdentifier& ident, int reasons) const;
    /// Whether one of `reasons` concerns anything.
    bool hasModif(int reasons) const { return (_allReasons & reasons) != 0; }
    /// The reasons that the record holds for `ident` itself.
    int getReasons(const KsoDataIdentifier& ident) const { return _reasons.value(ident, 0); }
    QList<KsoDataIdentifier> getIdentifiers() const { return _reasons.keys(); }

    int getNumberOfModif() const override { return _reasons.count(); }

private:
    void _merge(const KsmModifData& other) override;
    bool _hasModifAbove(const KsoDataIdentifier& ident, int reasons) const;
    bool _hasModifInFile(const KsoDataIdentifier& ident, int reasons) const;
    template <class Concerns>
    bool _hasEntry(Concerns concerns) const;

    QHash<KsoDataIdentifier, int> _reasons;
    int _allReasons = 0;
};
