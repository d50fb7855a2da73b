#pragma once

#include <basic/BasicExport.h>

/// The part of the details of a variable that concerns its categories. A plain value.
class KESTRIN_BASIC_EXPORT MbdEnumDetails
{
public:
    MbdEnumDetails() = default;
    explicit MbdEnumDetails(int catalogId) : _catalogId(catalogId) {}

    /// The id, in the project, of the catalog that the categories are of; -1 for none.
    int getCatalogId() const { return _catalogId; }
    void setCatalogId(int catalogId) { _catalogId = catalogId; }

    friend bool operator==(const MbdEnumDetails& a, const MbdEnumDetails& b) = default;

private:
    int _catalogId = -1;
};
