#pragma once

#include <study/KssProject.h>

class KsmModifCharts;
class KsmModifColorScale;
class KsmModifData;
class KsmModifEnumCatalog;
class KsmModifGeosSet;
class KsmModifNeighborhood;
class KsmModifScene;

template <auto Getter>
struct KpaModelGetter
{
    static constexpr auto get = Getter;
};

/// The model of a project that sends the modification records `M`: `get` is the member function of `KssProject` that
/// gives it, or null.
template <class M>
struct KpaProjectModel;

// clang-format off
template <> struct KpaProjectModel<KsmModifData>         : KpaModelGetter<&KssProject::getModelData> {};
template <> struct KpaProjectModel<KsmModifEnumCatalog>  : KpaModelGetter<&KssProject::getModelEnumCatalog> {};
template <> struct KpaProjectModel<KsmModifColorScale>   : KpaModelGetter<&KssProject::getModelColorScale> {};
template <> struct KpaProjectModel<KsmModifGeosSet>      : KpaModelGetter<&KssProject::getModelGeosSet> {};
template <> struct KpaProjectModel<KsmModifNeighborhood> : KpaModelGetter<&KssProject::getModelNeighborhood> {};
template <> struct KpaProjectModel<KsmModifScene>        : KpaModelGetter<&KssProject::getModelScene> {};
template <> struct KpaProjectModel<KsmModifCharts>       : KpaModelGetter<&KssProject::getModelCharts> {};
// clang-format on
