#pragma once

#include <param/KpExport.h>
#include <param/KpbAEnumeration.h>

// clang-format off
/// The kinds of parameters: key, value, label. Other modules compare the values, so they never change.
#define KPB_E_TYPE_ROWS(ROW) \
    ROW(STRING,                    0, "String")                        \
    ROW(INTEGER,                   1, "Integer")                       \
    ROW(DOUBLE,                    2, "Double")                        \
    ROW(ENUM,                      3, "Enumeration")                   \
    ROW(FLAGS,                     4, "Flags")                         \
    ROW(BOOL,                      5, "Boolean")                       \
    ROW(COLOR,                     6, "Color")                         \
    ROW(SYMBOL,                    7, "Symbol")                        \
    ROW(SYMBOL_3D,                 8, "3D Symbol")                     \
    ROW(LINE_STYLE,                9, "Line Style")                    \
    ROW(PALETTE,                  10, "Palette")                       \
    ROW(FS_DIRECTORY,             11, "File System directory")         \
    ROW(FS_FILE,                  12, "File System file")              \
    ROW(PROJECT,                  13, "Project")                       \
    ROW(COORD_SYSTEM,             14, "Coordinate system")             \
    ROW(SEED,                     15, "Seed")                          \
    ROW(UNIT,                     16, "Unit")                          \
    ROW(VECTOR_DOUBLE,            17, "Vector")                        \
    ROW(VECTOR_INT,               18, "IntegerVector")                 \
    ROW(ROTATION,                 19, "Rotation")                      \
    ROW(DIRECTION,                20, "Direction")                     \
    ROW(PLANE_ORIENTATION,        21, "Plane Orientation")             \
    ROW(SYSTEM_ORIENTATION,       22, "System Orientation")            \
    ROW(DATA_IDENT,               23, "Data identifier")               \
    ROW(GEOS_SET_IDENT,           24, "Geostatistical Set identifier") \
    ROW(NEIGHBORHOOD_IDENT,       25, "Neighborhood identifier")       \
    ROW(CATALOG_IDENT,            26, "Catalog identifier")            \
    ROW(COLOR_SCALE_IDENT,        27, "Color Scale identifier")        \
    ROW(SCENE_IDENT,              28, "Scene identifier")              \
    ROW(CHARTS_IDENT,             29, "Chart File")                    \
    ROW(CHART_FOLDER,             30, "Chart Folder")                  \
    ROW(CHART_VIEW,               31, "Chart View")                    \
    ROW(GROUP,                    32, "Group")                         \
    ROW(FICHE,                    33, "Fiche")                         \
    ROW(CHECKABLE_GROUP,          34, "Checkable group")               \
    ROW(LIST,                     35, "List")                          \
    ROW(DATASET,                  36, "Dataset")                       \
    ROW(SELECTION,                37, "Selection")                     \
    ROW(DISPLAY_SCENE,            38, "Display scene")                 \
    ROW(VMODEL_EDA_V2,            39, "VariogramModel")                \
    ROW(VMODEL,                   40, "VariogramModel")                \
    ROW(VSTRUCT,                  41, "VariogramStructure")            \
    ROW(VARIO_EXP,                42, "VariogramExp")                  \
    ROW(VARIO_EXP_DIRECTION,      43, "VariogramExpDirection")         \
    ROW(ZVX,                      44, "ZVXserver")                     \
    ROW(MATRIX,                   45, "Matrix")                        \
    ROW(NEIGHBORHOOD_MOVING,      46, "Moving neighborhood")           \
    ROW(NEIGHBORHOOD,             47, "Neighborhood set")              \
    ROW(CATALOG_CATEGORIES,       48, "Catalog categories")            \
    ROW(OLD_CATALOG_DEF,          49, "Catalog definition")            \
    ROW(SAMPLE_FILTER,            50, "Sample filter")                 \
    ROW(SAMPLE_FILTER_RULE,       51, "Sample filter rule")            \
    ROW(SAMPLE_CATEGORIES,        52, "Sample categories")             \
    ROW(SAMPLE_CATEGORIES_RULE,   53, "Sample categories rule")        \
    ROW(CONSTRAINT_DOUBLE,        54, "Constraint double")             \
    ROW(VECTOR_CONSTRAINT_DOUBLE, 55, "Constraint vector")             \
    ROW(CUTOFFS,                  56, "Cutoffs")
// clang-format on

class KESTRIN_PARAM_EXPORT KpbEType;

template <>
QMap<int, KpbEType*> KpbAEnumeration<KpbEType>::_map;

/// The kind of a parameter, one of a closed list. A default-built kind is `INTEGER`.
class KESTRIN_PARAM_EXPORT KpbEType : public KpbAEnumeration<KpbEType>
{
public:
#define KPB_E_TYPE_ENUMERATOR(key, value, label) key = value,
    enum class EValue
    {
        KPB_E_TYPE_ROWS(KPB_E_TYPE_ENUMERATOR)
    };
#undef KPB_E_TYPE_ENUMERATOR

    KpbEType();

    EValue toEnum() const
    {
        return EValue(getValue());
    }

#define KPB_E_TYPE_CONSTANT(key, value, label) static const KpbEType key;
    KPB_E_TYPE_ROWS(KPB_E_TYPE_CONSTANT)
#undef KPB_E_TYPE_CONSTANT

private:
    friend class KpbAEnumeration<KpbEType>;

    KpbEType(const QString& label, int value, const char* key);

    static constexpr const char* _className = "KpbEType";
    static constexpr const char* _file = ".\\Kp";
    static const KpbEType* _default;
};
