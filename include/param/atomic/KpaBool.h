#pragma once

#include <param/atomic/KpaAAtomic.h>
#include <param/atomic/KpaBoolConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<bool, KpaBoolConfig>;

/// Yes or no. A fresh one is yes.
class KESTRIN_PARAM_EXPORT KpaBool : public KpaAAtomic<bool, KpaBoolConfig>
{
public:
    explicit KpaBool(const QString& key);
    KpaBool(const KpaBool& other, const QString& newKey);
    KpaBool* duplicate(const QString& newKey) const override;
};
