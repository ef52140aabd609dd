#include "platform/core/resource_formats.h"

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
