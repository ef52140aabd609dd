#include "demo/debugger/element_block_fill.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <vector>

#include "demo/debugger/debug_target.h"
#include "demo/debugger/record_description.h"
#include "demo/debugger/type_codes.h"
#include "demo/debugger/type_table.h"

namespace {

constexpr std::int64_t kMaxArrayBytes = 0x10000;

using Bytes = std::unique_ptr<std::uint8_t, decltype(&std::free)>;

Bytes Allocate(std::size_t size)
{
    return Bytes(static_cast<std::uint8_t*>(std::calloc(size, 1)), &std::free);
}

}  // namespace

std::size_t FillElements(ElementBlock& block, const TypeTable& types, DebugTarget& target)
{
    if (!block.array || !block.element || block.array->status == 0) return 0;
    // A copy: the template may be the array's own record.
    const WatchRecord array = *block.array;
    const TypeInfo* type = types.Find(RecordType(array, types));
    const TypeInfo* element = type && type->code == WT_ARRAY ? types.Find(type->target) : nullptr;
    if (!element || element->size == 0) return 0;

    Describe({type->target, array.space, array.address, 0}, types, target, *block.element);
    const std::size_t size = element->size;
    const auto count = static_cast<std::size_t>(std::clamp<std::int64_t>(array.count, 0, kMaxArrayBytes / element->size));
    if (count == 0) return 0;
    Bytes data = Allocate(count * size);
    Bytes valid = Allocate(count * size);
    if (!data || !valid) return 0;

    std::vector<std::uint8_t> bytes(size);
    for (std::size_t i = 0; i < count && i < type->count; ++i) {
        const std::uint64_t address = array.address + static_cast<std::uint64_t>(i) * size;
        if (address > 0xFFFFFFFF || !target.Read(array.space, static_cast<std::uint32_t>(address), bytes)) continue;
        // Memory holds the least significant byte first; the block wants it last.
        std::reverse_copy(bytes.begin(), bytes.end(), data.get() + i * size);
        std::fill_n(valid.get() + i * size, size, std::uint8_t{1});
    }
    block.data = data.release();
    block.valid = valid.release();
    return count;
}
