// The function list entries the host builds for one source file and hands to
// the function list view, which shows them in place.
#pragma once

#include <cstdint>

#include "platform/text/ptr_array.h"

class AFX_EXT_CLASS CFuncSeekItem {
public:
    // Three empty strings; the line is the creator's to set (0 until then).
    CFuncSeekItem() = default;
    CFuncSeekItem(const CFuncSeekItem&) = default;
    CFuncSeekItem& operator=(const CFuncSeekItem&) = default;
    ~CFuncSeekItem() = default;

    CString typeText;   // shown before the name and one blank; may be empty
    CString name;       // its first byte is the key of the letter search
    CString paramText;  // shown right after the name
    std::int32_t line = 0;  // travels unchanged to the host
};

// Owns its entries. The view maps line k to entry k, so the host keeps no
// null entries in it, and keeps the names in ascending order of their first
// byte (ASCII letters folded) for the letter search to cycle through them.
class AFX_EXT_CLASS CFuncSeekItems : public CPtrArray {
public:
    CFuncSeekItems() = default;
    ~CFuncSeekItems() override;

    CFuncSeekItem* ItemAt(int index) const { return static_cast<CFuncSeekItem*>(GetAt(index)); }

    // Destroys every entry and empties the array.
    void ReleaseAllItems();
};
