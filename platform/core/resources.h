// Resources by id. Each module (the host program, each loaded extension module)
// carries a table of resources compiled from its res/ folder; lookups walk the
// framework's module chain: the host's own resources first, then every
// extension module in the order it joined the chain.
#pragma once

#include <cstddef>

#include "platform/core/win_types.h"

// Resource kinds and the byte layout each carries:
//  Menu    - menu template: WORD version 0, WORD header size 0, then items.
//            Popup item: WORD flags (MF_POPUP | MF_END on the last of a level),
//            zero-terminated GBK text, then its items. Normal item: WORD flags,
//            WORD id, zero-terminated GBK text. A separator is a normal item
//            with id 0 and empty text.
//  String  - the GBK bytes of one string, no terminator.
//  Bitmap  - a device-independent bitmap: BITMAPINFOHEADER, palette, bits.
//  Icon    - a whole icon file: ICONDIR, entries, images (DIB with AND mask).
//  Toolbar - WORD version 1, WORD width, WORD height, WORD count, WORD ids
//            (0 for a separator).
enum class ResourceType : WORD {
    Bitmap = 2,
    Menu = 4,
    String = 6,
    Icon = 14,
    Toolbar = 241,
};

struct ResourceEntry {
    ResourceType type;
    UINT id;
    const unsigned char* data;
    size_t size;
};

struct ResourceTable {
    const ResourceEntry* entries;
    size_t count;
};

// Name of the symbol through which a loadable module exposes its table
// (extern "C" const ResourceTable* AfxModuleResources()).
#define AFX_MODULE_RESOURCES_SYMBOL "AfxModuleResources"

struct ResourceBlob {
    HINSTANCE module = nullptr;
    const unsigned char* data = nullptr;
    size_t size = 0;
    explicit operator bool() const { return data != nullptr; }
};

// The resource of the given kind and id in one module, or an empty blob.
AFX_API ResourceBlob FindResourceInModule(HINSTANCE module, ResourceType type, UINT id);
// The first module along the chain that holds the resource, or null.
AFX_API HINSTANCE AfxFindResourceHandle(UINT id, ResourceType type);
// The resource found along the chain, or an empty blob.
AFX_API ResourceBlob AfxFindResourceData(ResourceType type, UINT id);
