#include <param/composite/KpcAbstractList.h>

#include <QtCore/QTextStream>

#include <charconv>
#include <iterator>
#include <limits>

namespace {

constexpr int KeyPrefixSize = 5;

} // namespace

void KpcAbstractList::unserializeAtomicItems(const QStringList&, const QList<SerialForm>&) {}

int KpcAbstractList::itemKeyToItemId(const QString& key)
{
    return key.midRef(KeyPrefixSize).toInt();
}

QString KpcAbstractList::_itemIdToItemKey(int id)
{
    return QLatin1String("ITEM_") + QString::number(id);
}

QString KpcAbstractList::_labelPrefix(const QString& prototypeLabel)
{
    return prototypeLabel + QLatin1String(" #");
}

bool KpcAbstractList::_isNumbered(const QString& label, const QString& prefix, int number)
{
    char digits[std::numeric_limits<int>::digits10 + 2];
    const char* end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
    return label.startsWith(prefix) && label.midRef(prefix.size()) == QLatin1String(digits, int(end - digits));
}

QString KpcAbstractList::_debugLines(const KpbAParameter& prototype, int itemCount, int keyCounter)
{
    QString text;
    QTextStream(&text) << "----- KpcList ----------------\n"
                       << " prototype        = " << prototype.getKey() << '\n'
                       << " item count       = " << itemCount << '\n'
                       << " item type        = " << prototype.getType().getKey() << " ("
                       << prototype.getType().getLabel() << ")\n"
                       << " key counter      = " << keyCounter << '\n';
    return text;
}
