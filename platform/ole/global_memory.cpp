#include "platform/ole/global_memory.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <unordered_map>

namespace {

struct Block {
    std::unique_ptr<unsigned char[]> bytes;
    size_t size = 0;
    bool fixed = false;
    UINT locks = 0;
    bool held = false;  // owned by the clipboard
};

struct Registry {
    std::unordered_map<std::uintptr_t, Block> blocks;
    std::uintptr_t nextMovable = 1;
};

Registry& Blocks()
{
    static Registry registry;
    return registry;
}

std::uintptr_t Key(HGLOBAL mem)
{
    return reinterpret_cast<std::uintptr_t>(mem);
}

Block* Find(HGLOBAL mem)
{
    if (!mem) return nullptr;
    auto& blocks = Blocks().blocks;
    const auto it = blocks.find(Key(mem));
    return it == blocks.end() ? nullptr : &it->second;
}

}  // namespace

HGLOBAL GlobalAlloc(UINT flags, size_t bytes)
{
    if (bytes > kMaxGlobalBlock) return nullptr;
    Block block;
    block.size = bytes;
    block.fixed = (flags & GMEM_MOVEABLE) == 0;
    // A fixed block is known by its address, so even an empty one needs a byte.
    const size_t allocate = bytes > 0 ? bytes : (block.fixed ? 1 : 0);
    if (allocate > 0) {
        block.bytes.reset(new (std::nothrow) unsigned char[allocate]());
        if (!block.bytes) return nullptr;
    }
    Registry& registry = Blocks();
    // Movable handles are never 16-byte aligned, so they cannot meet the
    // address of a fixed block.
    const std::uintptr_t key = block.fixed ? reinterpret_cast<std::uintptr_t>(block.bytes.get()) : (registry.nextMovable++ << 4) | 0x4;
    registry.blocks.emplace(key, std::move(block));
    return reinterpret_cast<HGLOBAL>(key);
}

LPVOID GlobalLock(HGLOBAL mem)
{
    Block* block = Find(mem);
    if (!block || block->size == 0) return nullptr;
    if (!block->fixed && block->locks < GMEM_LOCKCOUNT) ++block->locks;
    return block->bytes.get();
}

BOOL GlobalUnlock(HGLOBAL mem)
{
    Block* block = Find(mem);
    if (!block || block->locks == 0) return FALSE;
    --block->locks;
    return block->locks > 0 ? TRUE : FALSE;
}

HGLOBAL GlobalFree(HGLOBAL mem)
{
    Block* block = Find(mem);
    if (!block || block->held) return mem;
    Blocks().blocks.erase(Key(mem));
    return nullptr;
}

size_t GlobalSize(HGLOBAL mem)
{
    const Block* block = Find(mem);
    return block ? block->size : 0;
}

UINT GlobalFlags(HGLOBAL mem)
{
    const Block* block = Find(mem);
    return block ? block->locks : GMEM_INVALID_HANDLE;
}

namespace GlobalMemory {

size_t BlockCount()
{
    return Blocks().blocks.size();
}

bool Hold(HGLOBAL mem)
{
    Block* block = Find(mem);
    if (!block || block->held) return false;
    block->held = true;
    return true;
}

bool FreeHeld(HGLOBAL mem)
{
    Block* block = Find(mem);
    if (!block || !block->held) return false;
    Blocks().blocks.erase(Key(mem));
    return true;
}

HGLOBAL Copy(HGLOBAL mem)
{
    const Block* block = Find(mem);
    if (!block) return nullptr;
    const size_t size = block->size;
    HGLOBAL copy = GlobalAlloc(GMEM_MOVEABLE, size);
    // Allocating may rehash the registry: find the source again.
    if (copy && size > 0) std::memcpy(Find(copy)->bytes.get(), Find(mem)->bytes.get(), size);
    return copy;
}

}  // namespace GlobalMemory
