#include <param/atomic/KpaVectorInt.h>

template class KpaAVectorConfig<MbgIntVector3D, int, KpaIntegerConfig>;
template class KpaAAtomic<MbgIntVector3D, KpaVectorIntConfig>;
template class KpaAVector<MbgIntVector3D, int, KpaVectorIntConfig, KpaIntegerConfig>;

KpaVectorIntConfig::KpaVectorIntConfig() : KpaAVectorConfig(KpbEType::VECTOR_INT) {}

KpaVectorInt::KpaVectorInt(const QString& key) : KpaAVector(key) {}

KpaVectorInt::KpaVectorInt(const KpaVectorInt& other, const QString& newKey) : KpaAVector(other, newKey) {}

KpaVectorInt* KpaVectorInt::duplicate(const QString& newKey) const
{
    return new KpaVectorInt(*this, newKey);
}
