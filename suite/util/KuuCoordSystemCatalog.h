#pragma once

#include <util/KuuCoordSystem.h>

/// The known coordinate systems: the local one, and those of PROJ's database. All operations may be called from several
/// threads. The network is never asked.
class KESTRIN_UTIL_EXPORT KuuCoordSystemCatalog
{
public:
    /// The key of the local system, "LOCAL". It needs no database.
    static const QString KEY_LOCAL;

    /// The system of the key, which is `KEY_LOCAL` or an authority and its code, "EPSG:2154"; an invalid system for any
    /// other text. Definitions, pipelines, addresses and file names are never interpreted. The system's key is the one
    /// that the database writes: "epsg:2154" gives "EPSG:2154".
    ///
    /// Nothing throws: without a database every key but the local one gives an invalid system, and the first such call
    /// prints a warning with the text that `requireDatabase` throws.
    static KuuCoordSystem getCoordSystem(const QString& key);

    /// Throws an `MbeError` that says where PROJ's database was looked for, if it cannot be read.
    static void requireDatabase();

    /// Names the database file, usually "proj.db", for the whole process; an empty path brings PROJ's own search back:
    /// the folders of the environment variable PROJ_DATA if it is set, otherwise those of its installation. A file that
    /// cannot be read is as no database.
    static void setDatabase(const QString& path);
};
