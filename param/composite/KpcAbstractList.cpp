#include <param/composite/KpcAbstractList.h>

#include <QtCore/QTextStream>

#include <charconv>
#include <iterator>
#include <limits>

namespace {

constexpr int KeyPrefixSize = 5;

/// A number as text, without memory of its own.
class Digits
{
public:
    explicit Digits(int number) : _end(std::to_chars(std::begin(_text), std::end(_text), number).ptr) {}
    QLatin1String get() const { return QLatin1String(_text, int(_end - _text)); }

private:
    char _text[std::numeric_limits<int>::digits10 + 2];
    const char* _end;
};

} // namespace

void KpcAbstractList::unserializeAtomicItems(const QStringList&, const QList<SerialForm>&) {}

int KpcAbstractList::itemKeyToItemId(const QString& key)
{
    // Nine digits need no look at signs, blanks and overflow.
    constexpr int plainDigits = 9;
    if (key.size() <= KeyPrefixSize || key.size() > KeyPrefixSize + plainDigits)
        return key.midRef(KeyPrefixSize).toInt();
    int id = 0;
    for (int i = KeyPrefixSize; i < key.size(); ++i) {
        const int digit = key[i].unicode() - '0';
        if (digit < 0 || digit > 9)
            return key.midRef(KeyPrefixSize).toInt();
        id = 10 * id + digit;
    }
    return id;
}

QString KpcAbstractList::_itemIdToItemKey(int id)
{
    return _numbered(QStringLiteral("ITEM_"), id);
}

QString KpcAbstractList::_labelPrefix(const QString& prototypeLabel)
{
    return prototypeLabel + QLatin1String(" #");
}

QString KpcAbstractList::_numbered(const QString& prefix, int number)
{
    const Digits digits(number);
    QString text;
    text.reserve(prefix.size() + digits.get().size());
    return text.append(prefix).append(digits.get());
}

bool KpcAbstractList::_isNumbered(const QString& label, const QString& prefix, int number)
{
    return label.startsWith(prefix) && label.midRef(prefix.size()) == Digits(number).get();
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
