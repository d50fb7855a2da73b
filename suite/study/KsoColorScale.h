#pragma once

#include <study/KsoANamedItem.h>
#include <study/KsoColorScaleIdentifier.h>
#include <util/KugPalette.h>

/// A colour scale: colours at equal distances from the lowest number to the highest.
class KESTRIN_STUDY_EXPORT KsoColorScale : public KsoANamedItem<KsoColorScaleKind>
{
public:
    const QVector<QColor>& getColors() const { return getContent(); }
    /// The colours as a palette, whose id and name are the name of the item.
    KugPalette getPalette() const { return KugPalette(getName(), getName(), getContent()); }

private:
    template <class>
    friend class KsmANamedModel;
    using KsoANamedItem::KsoANamedItem;
};
