#pragma once

#include <basic/MbbOrderedMap.h>
#include <basic/MbgRotation.h>
#include <param/KpExport.h>
#include <param/KpbEType.h>

#include <functional>

/// How a rotation parameter presents its value where plain angles are not what the user thinks in: the kind, the text
/// and the serial form. The value is the same rotation whatever the delegate.
class KESTRIN_PARAM_EXPORT KpaIRotationConfigDelegate
{
public:
    using SerialForm = MbbOrderedMap<QString, QString>;
    /// Reads the plain angles of a rotation; gives the second argument, what there was before, where there are none.
    using Fallback = std::function<MbgRotation(const SerialForm&, const MbgRotation&)>;

    virtual ~KpaIRotationConfigDelegate();
    /// A new delegate of the same class, which is the caller's.
    virtual KpaIRotationConfigDelegate* duplicate() const = 0;
    /// The kind of the parameter.
    virtual const KpbEType& getType() const = 0;
    virtual QString toString(const MbgRotation& rotation, bool is2D) const = 0;
    virtual SerialForm serializeValue(const MbgRotation& rotation, bool is2D) const = 0;
    /// What `map` says in the delegate's own form, otherwise what `fallback` makes of it.
    virtual MbgRotation unserializeValue(bool is2D, const SerialForm& map, const MbgRotation& previous,
                                         const Fallback& fallback) const = 0;
    /// The nearest admissible rotation: as it stands, also in 2D.
    virtual MbgRotation fix(const MbgRotation& rotation) const { return rotation; }

protected:
    KpaIRotationConfigDelegate() = default;
    KpaIRotationConfigDelegate(const KpaIRotationConfigDelegate&) = default;
    KpaIRotationConfigDelegate& operator=(const KpaIRotationConfigDelegate&) = default;
};
