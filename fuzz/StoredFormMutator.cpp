// How StoredForm changes an input: half of the time its bytes, half of the time the document, which stays well-formed.
#include "Fuzzing.h"

#include <QtCore/QList>

#include <util/KuxXml.h>

#include <algorithm>
#include <array>
#include <random>

/// The fuzzer's own changes of bytes; it gives their new number.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maximum);

namespace {

QByteArray mutated(QByteArray bytes, unsigned random)
{
    const int size = bytes.size();
    bytes.resize(size + 1 + int(random % 16));
    auto* data = reinterpret_cast<std::uint8_t*>(bytes.data());
    bytes.resize(int(LLVMFuzzerMutate(data, std::size_t(size), std::size_t(bytes.size()))));
    return bytes;
}

/// The element and all below it.
QList<QDomElement> allOf(const QDomElement& element)
{
    QList<QDomElement> all{element};
    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        all += allOf(child);
    return all;
}

/// Changes the text of an element or one of its attributes, or where it stands.
void mutate(const QDomElement& root, std::minstd_rand& random)
{
    const QList<QDomElement> all = allOf(root);
    QDomElement element = all[int(random() % unsigned(all.size()))];
    QDomElement other = all[int(random() % unsigned(all.size()))];
    const auto change = [&](const QString& text) { return QString::fromUtf8(mutated(text.toUtf8(), random())); };
    const QDomNode copy = element.cloneNode();
    switch (random() % 5) {
    case 0:
        KuxXml::setText(element, change(element.text()));
        break;
    case 1: {
        const char* name = std::array{"key", "version", "automatic", "id"}[random() % 4];
        element.setAttribute(name, KuxXml::removeForbiddenCharacters(change(element.attribute(name))));
        break;
    }
    case 2:
        element.parentNode().removeChild(element);
        break;
    case 3:
        other.appendChild(copy);
        break;
    default:
        other.insertBefore(copy, other.firstChild());
        break;
    }
}

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maximum, unsigned seed)
{
    std::minstd_rand random(seed);
    const QByteArray bytes = bytesOf(data, size);
    const int line = bytes.indexOf('\n');
    QDomDocument document;
    if (random() % 2 == 0 || line < 0 || !KuxXml::parse(bytes.mid(line + 1), &document).ok)
        return LLVMFuzzerMutate(data, size, maximum);
    mutate(document.documentElement(), random);
    const QByteArray changed = bytes.left(line + 1) + KuxXml::toText(document);
    if (std::size_t(changed.size()) > maximum)
        return LLVMFuzzerMutate(data, size, maximum);
    std::copy(changed.begin(), changed.end(), data);
    return std::size_t(changed.size());
}
