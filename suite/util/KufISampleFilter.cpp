#include <util/KufISampleFilter.h>

KufISampleFilter::~KufISampleFilter() = default;
