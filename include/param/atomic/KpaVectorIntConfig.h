#pragma once

#include <basic/MbgIntVector3D.h>
#include <param/KpExport.h>
#include <param/atomic/KpaAVectorConfig.h>
#include <param/atomic/KpaIntegerConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAVectorConfig<MbgIntVector3D, int, KpaIntegerConfig>;

/// What a vector of integers admits, component by component.
class KESTRIN_PARAM_EXPORT KpaVectorIntConfig : public KpaAVectorConfig<MbgIntVector3D, int, KpaIntegerConfig>
{
public:
    KpaVectorIntConfig();
};
