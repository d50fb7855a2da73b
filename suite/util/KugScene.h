#pragma once

#include <basic/MbbColor.h>
#include <basic/MbgEDimension.h>
#include <util/KugESceneType.h>

/// A scene: how it shows its items, and on which background. A plain value; a default one is in space, on opaque white.
class KESTRIN_UTIL_EXPORT KugScene
{
public:
    KugScene() = default;
    explicit KugScene(const KugESceneType& type) : _type(type) {}

    const KugESceneType& getType() const { return _type; }
    void setType(const KugESceneType& type) { _type = type; }
    /// That of the type.
    MbgEDimension getDimension() const { return getDimension(_type); }
    static MbgEDimension getDimension(const KugESceneType& type)
    {
        return type == KugESceneType::SCENE_2D ? MbgEDimension::DIM_2D : MbgEDimension::DIM_3D;
    }

    const MbbColor& getBackground() const { return _background; }
    void setBackground(const MbbColor& background) { _background = background; }

    friend bool operator==(const KugScene& a, const KugScene& b) = default;

private:
    KugESceneType _type;
    MbbColor _background = MbbColor(0xFFFFFFFF);
};
