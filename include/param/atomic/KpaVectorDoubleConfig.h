#pragma once

#include <basic/MbgVector3D.h>
#include <param/KpExport.h>
#include <param/atomic/KpaAVectorConfig.h>
#include <param/atomic/KpaDoubleConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAVectorConfig<MbgVector3D, double, KpaDoubleConfig>;

/// What a vector of doubles admits, component by component.
class KESTRIN_PARAM_EXPORT KpaVectorDoubleConfig : public KpaAVectorConfig<MbgVector3D, double, KpaDoubleConfig>
{
public:
    KpaVectorDoubleConfig();
};
