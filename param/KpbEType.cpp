#include <param/KpbEType.h>

#include <QtCore/QObject>

template <>
QMap<int, KpbEType*> KpbAEnumeration<KpbEType>::_map{};

const KpbEType* KpbEType::_default = &KpbEType::INTEGER;

KpbEType::KpbEType() : KpbEType(*_default) {}

KpbEType::KpbEType(const QString& label, int value, const char* key) : KpbAEnumeration(label, value, key) {}

#define KPB_E_TYPE_DEFINITION(key, value, label) const KpbEType KpbEType::key(QObject::tr(label), value, #key);
KPB_E_TYPE_ROWS(KPB_E_TYPE_DEFINITION)
#undef KPB_E_TYPE_DEFINITION
