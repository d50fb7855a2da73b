// A stored form of any class: the first line of the input names the class, the rest is the document. What was read from
// it is saved, read into a fresh tree and saved again, to the same bytes. A version that never was is refused.
#include "Fuzzing.h"
#include "Study.h"

#include <basic/MbeError.h>
#include <param/KpsSerializer.h>
#include <param/atomic/KpaRotation.h>
#include <param/composite/KpcCutoffs.h>
#include <registry/ClassRegistry.h>
#include <util/KuxXml.h>

namespace {

using Tree = std::unique_ptr<KpbAParameter>;

/// The row of the class, or one that any other name stands for.
const ClassRegistry::Row& rowOf(const QByteArray& name)
{
    if (const ClassRegistry::Row* row = ClassRegistry::find(QString::fromUtf8(name)))
        return *row;
    const auto& rows = ClassRegistry::getRows();
    return rows[name.isEmpty() ? 0 : std::uint8_t(name[0]) % rows.size()];
}

Tree read(const ClassRegistry::Row& row, const QDomDocument& document)
{
    static const Study study;
    Tree tree = row.makeIn(row.name, study);
    QDomElement root = document.documentElement();
    KpsSerializer::updateParamFromXml(tree.get(), root);
    return tree;
}

QByteArray save(const KpbAParameter& tree)
{
    QDomDocument document{QString()};
    document.appendChild(document.importNode(KpsSerializer::convertParamToXml(&tree), true));
    return KuxXml::toText(document);
}

/// Whether what is stored of the parameter alone can be read as something else: no cutoffs are read as a value;
/// directions and orientations are stored as angles that are computed, of which undefined ones leave the value that
/// stood there.
bool mayReadOtherwise(const KpbAParameter& parameter)
{
    if (const auto* cutoffs = dynamic_cast<const KpcCutoffs*>(&parameter))
        return cutoffs->getItemCount() == 0;
    return dynamic_cast<const KpaRotation*>(&parameter) && !parameter.isA(KpbEType::ROTATION);
}

/// The same for any part of the tree.
bool maySaveOtherwise(KpbAParameter& tree)
{
    if (mayReadOtherwise(tree))
        return true;
    for (int i = 0; i < tree.getChildCount(); ++i) {
        if (maySaveOtherwise(*tree.getChild(i)))
            return true;
    }
    return false;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Surroundings surroundings;
    const QByteArray bytes = bytesOf(data, size);
    const int line = bytes.indexOf('\n');
    QDomDocument document;
    if (line < 0 || !KuxXml::parse(bytes.mid(line + 1), &document).ok)
        return 0;
    const ClassRegistry::Row& row = rowOf(bytes.left(line));
    Tree first;
    try {
        first = read(row, document);
    }
    catch (const MbeError& error) {
        require(error.getMessage().endsWith("Unexpected version number requested"), "only versions are refused",
                error.getMessage().toUtf8());
        return 0;
    }
    const QByteArray saved = save(*first);
    QDomDocument again;
    require(KuxXml::parse(saved, &again).ok, "what is saved can be read", saved);
    const QByteArray savedAgain = save(*read(row, again));
    require(savedAgain == saved || maySaveOtherwise(*first), "what is read again is saved as before",
            saved + "\nthen\n" + savedAgain);
    return 0;
}
