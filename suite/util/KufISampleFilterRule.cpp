#include <util/KufISampleFilterRule.h>

KufISampleFilterRule::~KufISampleFilterRule() = default;
