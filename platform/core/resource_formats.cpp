#include "platform/core/resource_formats.h"

#include <cstdint>
#include <cstring>

#include "platform/text/gbk.h"

namespace {

// Little-endian reads that never pass the end of the blob.
class ByteReader {
public:
    ByteReader(const unsigned char* data, size_t size) : m_data(data), m_size(size) {}

    bool ReadWord(WORD& out)
    {
        if (m_size - m_pos < 2) return false;
        out = static_cast<WORD>(m_data[m_pos] | (m_data[m_pos + 1] << 8));
        m_pos += 2;
        return true;
    }
    // A zero-terminated string; fails when the terminator is missing.
    bool ReadString(std::string& out)
    {
        const void* end = std::memchr(m_data + m_pos, 0, m_size - m_pos);
        if (!end) return false;
        const size_t length = static_cast<size_t>(static_cast<const unsigned char*>(end) - (m_data + m_pos));
        out.assign(reinterpret_cast<const char*>(m_data + m_pos), length);
        m_pos += length + 1;
        return true;
    }
    bool Skip(size_t count)
    {
        if (m_size - m_pos < count) return false;
        m_pos += count;
        return true;
    }
    bool AtEnd() const { return m_pos == m_size; }

private:
    const unsigned char* m_data;
    size_t m_size;
    size_t m_pos = 0;
};

constexpr UINT kKnownMenuFlags = MF_GRAYED | MF_DISABLED | MF_CHECKED | MF_POPUP | MF_END | MF_SEPARATOR;

// One level of items, up to and including the one marked MF_END.
bool ParseMenuLevel(ByteReader& reader, int depth, std::vector<MenuTemplateItem>& out)
{
    if (depth > kMaxMenuTemplateDepth) return false;
    for (;;) {
        WORD flags = 0;
        if (!reader.ReadWord(flags)) return false;
        if ((flags & ~kKnownMenuFlags) != 0) return false;
        MenuTemplateItem item;
        item.flags = static_cast<WORD>(flags & ~MF_END);
        if (flags & MF_POPUP) {
            if (flags & MF_SEPARATOR) return false;
            if (!reader.ReadString(item.text)) return false;
            if (!ParseMenuLevel(reader, depth + 1, item.children)) return false;
        } else {
            WORD id = 0;
            if (!reader.ReadWord(id) || !reader.ReadString(item.text)) return false;
            item.id = id;
            // The template marks a separator by id 0 and no text; callers get the flag.
            if (id == 0 && item.text.empty()) item.flags |= MF_SEPARATOR;
            if ((item.flags & MF_SEPARATOR) && (id != 0 || !item.text.empty())) return false;
        }
        out.push_back(std::move(item));
        if (flags & MF_END) return true;
    }
}

DWORD ReadDword(const unsigned char* p)
{
    return static_cast<DWORD>(p[0]) | (static_cast<DWORD>(p[1]) << 8) | (static_cast<DWORD>(p[2]) << 16) | (static_cast<DWORD>(p[3]) << 24);
}
WORD ReadWordAt(const unsigned char* p) { return static_cast<WORD>(p[0] | (p[1] << 8)); }

constexpr size_t kInfoHeaderSize = 40;
// Far beyond any resource image; keeps every size computation small.
constexpr std::int64_t kMaxDibSide = 1 << 15;

// A packed DIB; for an icon image the header height covers the colour rows
// and the AND mask, which follows the colour bits.
std::optional<DibView> ParseDibImage(const unsigned char* data, size_t size, bool withMask)
{
    if (!data || size < kInfoHeaderSize) return std::nullopt;
    const DWORD headerSize = ReadDword(data);
    const auto width = static_cast<std::int64_t>(static_cast<LONG>(ReadDword(data + 4)));
    const auto height = static_cast<std::int64_t>(static_cast<LONG>(ReadDword(data + 8)));
    const WORD planes = ReadWordAt(data + 12);
    const WORD bitCount = ReadWordAt(data + 14);
    const DWORD compression = ReadDword(data + 16);
    const DWORD colorsUsed = ReadDword(data + 32);
    if (headerSize < kInfoHeaderSize || headerSize > size) return std::nullopt;
    if (planes != 1 || compression != 0) return std::nullopt;
    if (bitCount != 1 && bitCount != 4 && bitCount != 8 && bitCount != 24 && bitCount != 32) return std::nullopt;
    if (width <= 0 || width > kMaxDibSide || height == 0 || height > 2 * kMaxDibSide || height < -kMaxDibSide) return std::nullopt;

    DibView view;
    view.width = static_cast<int>(width);
    view.bitCount = bitCount;
    if (withMask) {
        if (height < 0 || height % 2 != 0) return std::nullopt;
        view.height = static_cast<int>(height / 2);
    } else {
        if (height > kMaxDibSide) return std::nullopt;
        view.height = static_cast<int>(height < 0 ? -height : height);
        view.bottomUp = height > 0;
    }

    size_t paletteSize = colorsUsed;
    if (bitCount <= 8) {
        const size_t full = size_t{1} << bitCount;
        if (paletteSize > full) return std::nullopt;
        if (paletteSize == 0) paletteSize = full;
    } else if (paletteSize > 256) {
        return std::nullopt;
    }
    size_t offset = headerSize;
    if ((size - offset) / 4 < paletteSize) return std::nullopt;
    if (bitCount <= 8) {
        view.palette.reserve(paletteSize);
        for (size_t i = 0; i < paletteSize; ++i) {
            const unsigned char* q = data + offset + i * 4;
            view.palette.push_back(RGB(q[2], q[1], q[0]));
        }
    }
    offset += paletteSize * 4;

    const auto rows = static_cast<size_t>(view.height);
    view.stride = (static_cast<size_t>(view.width) * bitCount + 31) / 32 * 4;
    if ((size - offset) / view.stride < rows) return std::nullopt;
    view.bits = data + offset;
    offset += view.stride * rows;
    if (withMask) {
        view.maskStride = (static_cast<size_t>(view.width) + 31) / 32 * 4;
        if ((size - offset) / view.maskStride < rows) return std::nullopt;
        view.mask = data + offset;
    }
    return view;
}

}  // namespace

std::optional<std::vector<MenuTemplateItem>> ParseMenuTemplate(const unsigned char* data, size_t size)
{
    if (!data) return std::nullopt;
    ByteReader reader(data, size);
    WORD version = 0;
    WORD headerSize = 0;
    if (!reader.ReadWord(version) || !reader.ReadWord(headerSize)) return std::nullopt;
    if (version != 0 || !reader.Skip(headerSize)) return std::nullopt;
    std::vector<MenuTemplateItem> items;
    if (!ParseMenuLevel(reader, 1, items)) return std::nullopt;
    // Bytes after the last item mean the blob is not what its table says it is.
    if (!reader.AtEnd()) return std::nullopt;
    return items;
}

std::optional<ToolbarTemplate> ParseToolbar(const unsigned char* data, size_t size)
{
    if (!data) return std::nullopt;
    ByteReader reader(data, size);
    WORD version = 0, width = 0, height = 0, count = 0;
    if (!reader.ReadWord(version) || !reader.ReadWord(width) || !reader.ReadWord(height) || !reader.ReadWord(count)) return std::nullopt;
    if (version != 1 || width == 0 || height == 0) return std::nullopt;
    if (size != 8 + size_t{count} * 2) return std::nullopt;
    ToolbarTemplate toolbar;
    toolbar.width = width;
    toolbar.height = height;
    toolbar.ids.reserve(count);
    for (WORD i = 0; i < count; ++i) {
        WORD id = 0;
        reader.ReadWord(id);
        toolbar.ids.push_back(id);
    }
    return toolbar;
}

std::optional<std::string> StringFromBlob(const unsigned char* data, size_t size)
{
    if (!data) return std::nullopt;
    for (size_t i = 0; i < size; ++i) {
        const unsigned char byte = data[i];
        if (byte == 0) return std::nullopt;
        if (!IsDBCSLeadByte(byte)) continue;
        if (i + 1 >= size) return std::nullopt;
        const unsigned char trail = data[i + 1];
        if (trail < 0x40 || trail == 0x7F || trail == 0xFF) return std::nullopt;
        ++i;
    }
    return std::string(reinterpret_cast<const char*>(data), size);
}

int DibView::PaletteIndex(int x, int y) const
{
    if (!bits || bitCount > 8 || x < 0 || y < 0 || x >= width || y >= height) return -1;
    const size_t row = static_cast<size_t>(bottomUp ? height - 1 - y : y);
    const unsigned char* p = bits + row * stride;
    const auto ux = static_cast<size_t>(x);
    switch (bitCount) {
    case 1: return (p[ux / 8] >> (7 - ux % 8)) & 1;
    case 4: return (p[ux / 2] >> (ux % 2 ? 0 : 4)) & 0xF;
    default: return p[ux];
    }
}

std::optional<COLORREF> DibView::PixelColor(int x, int y) const
{
    if (!bits || x < 0 || y < 0 || x >= width || y >= height) return std::nullopt;
    if (bitCount <= 8) {
        const int index = PaletteIndex(x, y);
        if (index < 0 || static_cast<size_t>(index) >= palette.size()) return std::nullopt;
        return palette[static_cast<size_t>(index)];
    }
    const size_t row = static_cast<size_t>(bottomUp ? height - 1 - y : y);
    const unsigned char* p = bits + row * stride + static_cast<size_t>(x) * static_cast<size_t>(bitCount / 8);
    return RGB(p[2], p[1], p[0]);
}

bool DibView::IsTransparent(int x, int y) const
{
    if (!mask || x < 0 || y < 0 || x >= width || y >= height) return false;
    const size_t row = static_cast<size_t>(height - 1 - y);
    const auto ux = static_cast<size_t>(x);
    return ((mask[row * maskStride + ux / 8] >> (7 - ux % 8)) & 1) != 0;
}

std::optional<DibView> ParseDib(const unsigned char* data, size_t size)
{
    return ParseDibImage(data, size, false);
}

std::optional<std::vector<DibView>> ParseIconFile(const unsigned char* data, size_t size)
{
    constexpr size_t kDirSize = 6;
    constexpr size_t kEntrySize = 16;
    if (!data || size < kDirSize) return std::nullopt;
    const WORD reserved = ReadWordAt(data);
    const WORD type = ReadWordAt(data + 2);
    const WORD count = ReadWordAt(data + 4);
    if (reserved != 0 || type != 1 || count == 0) return std::nullopt;
    const size_t directoryEnd = kDirSize + size_t{count} * kEntrySize;
    if (directoryEnd > size) return std::nullopt;

    std::vector<DibView> images;
    images.reserve(count);
    for (size_t i = 0; i < count; ++i) {
        const unsigned char* entry = data + kDirSize + i * kEntrySize;
        const int width = entry[0] ? entry[0] : 256;
        const int height = entry[1] ? entry[1] : 256;
        const DWORD bytes = ReadDword(entry + 8);
        const DWORD offset = ReadDword(entry + 12);
        if (offset < directoryEnd || offset > size || bytes > size - offset) return std::nullopt;
        auto image = ParseDibImage(data + offset, bytes, true);
        // The directory and the image must agree, or one of them is damaged.
        if (!image || image->width != width || image->height != height) return std::nullopt;
        images.push_back(std::move(*image));
    }
    return images;
}
