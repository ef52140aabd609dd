// Global memory blocks: the memory the clipboard trades in. A movable
// block's handle is a number, not an address, so a stale or made-up handle
// finds nothing instead of touching freed memory; a fixed block's handle is
// its address, as on the platform. Block contents start zeroed whatever the
// flags, so that nothing reads uninitialised bytes.
#pragma once

#include <cstddef>

#include "platform/core/win_types.h"

constexpr UINT GMEM_FIXED = 0x0000;
constexpr UINT GMEM_MOVEABLE = 0x0002;
constexpr UINT GMEM_ZEROINIT = 0x0040;
constexpr UINT GMEM_SHARE = 0x2000;  // accepted; every block is shareable here
constexpr UINT GMEM_DDESHARE = GMEM_SHARE;
constexpr UINT GHND = GMEM_MOVEABLE | GMEM_ZEROINIT;
constexpr UINT GPTR = GMEM_FIXED | GMEM_ZEROINIT;
// GlobalFlags: the lock count is in the low byte.
constexpr UINT GMEM_LOCKCOUNT = 0x00FF;
constexpr UINT GMEM_INVALID_HANDLE = 0x8000;

// A new block of `bytes` bytes, or null when the size is beyond what the
// platform hands out (kMaxGlobalBlock) or memory runs out. A zero-byte
// block is a valid handle that locks to null.
AFX_API HGLOBAL GlobalAlloc(UINT flags, size_t bytes);
// The block's address, counting one more lock for a movable block; null for
// a bad handle or an empty block.
AFX_API LPVOID GlobalLock(HGLOBAL mem);
// One lock less. TRUE while the block stays locked, FALSE once it is
// unlocked (or was not locked, or the handle is bad).
AFX_API BOOL GlobalUnlock(HGLOBAL mem);
// Frees the block, locked or not. Null on success; the handle itself when it
// is bad or the block belongs to the clipboard.
AFX_API HGLOBAL GlobalFree(HGLOBAL mem);
// Size in bytes; 0 for a bad handle.
AFX_API size_t GlobalSize(HGLOBAL mem);
// The lock count, or GMEM_INVALID_HANDLE for a bad handle.
AFX_API UINT GlobalFlags(HGLOBAL mem);

constexpr size_t kMaxGlobalBlock = size_t(1) << 30;

namespace GlobalMemory {

// Number of blocks alive (for leak checks in tests).
AFX_API size_t BlockCount();
// The clipboard and data sources take blocks over: while held, GlobalFree
// refuses them and only FreeHeld frees them. False for a bad handle or, when
// taking, a block already held.
AFX_API bool Hold(HGLOBAL mem);
AFX_API bool FreeHeld(HGLOBAL mem);
// A new movable block with the same bytes, not held; null for a bad handle.
AFX_API HGLOBAL Copy(HGLOBAL mem);

}  // namespace GlobalMemory
