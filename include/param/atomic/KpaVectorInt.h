#pragma once

#include <param/atomic/KpaAVector.h>
#include <param/atomic/KpaVectorIntConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<MbgIntVector3D, KpaVectorIntConfig>;
extern template class KESTRIN_PARAM_EXPORT KpaAVector<MbgIntVector3D, int, KpaVectorIntConfig, KpaIntegerConfig>;

/// A vector of integers, such as the counts of nodes along the axes of a grid.
class KESTRIN_PARAM_EXPORT KpaVectorInt : public KpaAVector<MbgIntVector3D, int, KpaVectorIntConfig, KpaIntegerConfig>
{
public:
    explicit KpaVectorInt(const QString& key);
    KpaVectorInt(const KpaVectorInt& other, const QString& newKey);
    KpaVectorInt* duplicate(const QString& newKey) const override;
};
