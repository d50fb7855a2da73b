#include <QtCore/QObject>

#include <basic/MbbDebug.h>
#include <basic/MbgRotationConventionCatalog.h>

#include <algorithm>
#include <memory>
#include <mutex>
#include <vector>

namespace {
constexpr int FirstTemporaryId = 1000;

struct Temporaries
{
    std::mutex mutex;
    std::vector<std::unique_ptr<MbgRotationConvention>> conventions; ///< ids from `FirstTemporaryId` on, without gaps
    int foreignCount = 0;
    bool refused = false; ///< whether the warning about one too many was printed
};

/// Never destroyed: rotations in static objects still point to their conventions at the end of the process.
Temporaries& temporaries()
{
    static Temporaries& instance = *new Temporaries;
    return instance;
}

MbgRotationConvention* findTemporary(const Temporaries& all, const MbgRotationConventionDefinition& definition)
{
    const auto found = std::find_if(all.conventions.begin(), all.conventions.end(),
                                    [&](const auto& convention) { return convention->getDefinition() == definition; });
    return found == all.conventions.end() ? nullptr : found->get();
}
} // namespace

MbgRotationConvention* MbgRotationConventionCatalog::getDefault()
{
    return getBuiltIn().first();
}

const QList<MbgRotationConvention*>& MbgRotationConventionCatalog::getBuiltIn()
{
    const auto make = [](int id, const MbgERotConv& type, const char* string, const QString& label1,
                         const QString& label2, const QString& label3) {
        return new MbgRotationConvention(id, {type, QString::fromLatin1(string), label1, label2, label3});
    };
    // clang-format off
    static const auto& conventions = *new QList<MbgRotationConvention*>{
        make(0, MbgERotConv::SYSTEM,    "+Z+Y+X",   QObject::tr("Az"),      QObject::tr("Ay"),     QObject::tr("Ax")),
        make(1, MbgERotConv::DIRECTION, "90-Z+Y+X", QObject::tr("Azimuth"), QObject::tr("Plunge"), QObject::tr("Roll")),
        make(2, MbgERotConv::SYSTEM,    "+Z+X+Z",   QObject::tr("Az1"),     QObject::tr("Ax"),     QObject::tr("Az2")),
    };
    // clang-format on
    return conventions;
}

MbgRotationConvention* MbgRotationConventionCatalog::find(int id)
{
    if (id >= 0 && id < getBuiltIn().size())
        return getBuiltIn().at(id);
    const std::lock_guard lock(temporaries().mutex);
    const auto& conventions = temporaries().conventions;
    const bool known = id >= FirstTemporaryId && std::size_t(id - FirstTemporaryId) < conventions.size();
    return known ? conventions[std::size_t(id - FirstTemporaryId)].get() : nullptr;
}

MbgRotationConvention* MbgRotationConventionCatalog::createTemporary(const MbgRotationConventionDefinition& definition)
{
    Temporaries& all = temporaries();
    std::unique_lock lock(all.mutex);
    if (MbgRotationConvention* known = findTemporary(all, definition))
        return known;
    const bool understood = MbgAxisSequence::fromText(definition.getString()).has_value();
    const bool admitted =
        understood || (all.foreignCount < MaximumForeignCount && definition.getString().size() <= MaximumForeignLength);
    if (!admitted) {
        const bool first = !std::exchange(all.refused, true);
        lock.unlock();
        if (first)
            MbbDebug::printWarning(QObject::tr("Too many or too long definitions of rotation conventions are not "
                                               "understood; their angles are read in the default convention."));
        return getDefault();
    }
    const int id = FirstTemporaryId + int(all.conventions.size());
    all.conventions.emplace_back(new MbgRotationConvention(id, definition));
    MbgRotationConvention* made = all.conventions.back().get();
    if (!understood)
        ++all.foreignCount;
    lock.unlock();
    if (!understood)
        MbbDebug::printWarning(QObject::tr("The rotation convention \"%1\" is not understood; its angles are read in "
                                           "the default convention.")
                                   .arg(definition.getString()));
    return made;
}
