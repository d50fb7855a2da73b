#include <study/KsmModelData.h>
#include <study/KsmModifData.h>

namespace {

/// Up to this length of a path, the items above are looked up one by one. A path from a stored text can be far longer
/// than any that people make.
constexpr int deepestWay = 64;

bool isSupport(const KsoDataIdentifier& ident)
{
    return ident.getType() == KsoEDataType::SUPPORT;
}

/// Whether the single support of its file is meant, whatever its name.
bool isWithoutSupport(const KsoDataIdentifier& ident)
{
    return ident.getType() >= KsoEDataType::SUPPORT && ident.getSupportName().isEmpty();
}

} // namespace

void KsmModifData::add(const KsoDataIdentifier& ident, int reasons)
{
    if (reasons == 0)
        return;
    _reasons[ident] |= reasons;
    _allReasons |= reasons;
}

bool KsmModifData::hasModif(const KsoDataIdentifier& ident, int reasons) const
{
    if (!hasModif(reasons))
        return false;
    return (getReasons(ident) & reasons) != 0 || _hasModifAbove(ident, reasons & (Removed | Renamed)) ||
           (isWithoutSupport(ident) && _hasModifInFile(ident, reasons));
}

bool KsmModifData::_hasModifAbove(const KsoDataIdentifier& ident, int reasons) const
{
    if (!hasModif(reasons))
        return false;
    if (ident.getPath().count() > deepestWay)
        return _hasEntry([&](const KsoDataIdentifier& entry, int found) {
            return (found & reasons) != 0 && entry.isAncestorOf(ident);
        });
    for (KsoDataIdentifier above = ident.getParent(); !above.isNull(); above = above.getParent()) {
        if ((getReasons(above) & reasons) != 0)
            return true;
    }
    return false;
}

// A support that comes, goes or changes its name can change what the identifier means.
bool KsmModifData::_hasModifInFile(const KsoDataIdentifier& ident, int reasons) const
{
    const int ofSupports = reasons & (Created | Removed | Renamed);
    return _hasEntry([&](const KsoDataIdentifier& entry, int found) {
        if (entry.getModel() != ident.getModel() || entry.getFileName() != ident.getFileName() ||
            entry.getPath() != ident.getPath())
            return false;
        if (entry.getType() == ident.getType())
            return (found & reasons) != 0 && (isSupport(ident) || entry.getName() == ident.getName());
        return isSupport(entry) && (found & ofSupports) != 0;
    });
}

template <class Concerns>
bool KsmModifData::_hasEntry(Concerns concerns) const
{
    for (auto entry = _reasons.begin(); entry != _reasons.end(); ++entry) {
        if (concerns(entry.key(), *entry))
            return true;
    }
    return false;
}

void KsmModifData::_merge(const KsmModifData& other)
{
    for (auto entry = other._reasons.begin(); entry != other._reasons.end(); ++entry)
        add(entry.key(), entry.value());
}
