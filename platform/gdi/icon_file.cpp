#include "platform/gdi/icon_file.h"

#include <cstdint>

#include "platform/gdi/byte_reader.h"

namespace gdi {

namespace {
constexpr size_t kDirectoryHeader = 6;
constexpr size_t kEntrySize = 16;
// As many pixels as 64 images of the largest size: far more than any real
// file has, and entries may share their bytes, so the file size bounds nothing.
constexpr std::int64_t kMaxIconFilePixels = std::int64_t(64) * 256 * 256;
}  // namespace

bool ReadIconDirectory(const unsigned char* data, size_t size, std::vector<IconDirEntry>& entries)
{
    const ByteReader in(data, size);
    std::uint32_t reserved = 1, type = 0, count = 0;
    if (!in.U16(0, reserved) || !in.U16(2, type) || !in.U16(4, count)) return false;
    if (reserved != 0 || (type != 1 && type != 2) || count == 0) return false;
    const size_t directoryEnd = kDirectoryHeader + size_t(count) * kEntrySize;
    if (!in.Has(0, directoryEnd)) return false;
    std::vector<IconDirEntry> read;
    read.reserve(count);
    for (std::uint32_t i = 0; i < count; ++i) {
        const size_t at = kDirectoryHeader + size_t(i) * kEntrySize;
        std::uint32_t w = 0, h = 0, bits = 0, bytes = 0, offset = 0;
        in.U8(at, w);
        in.U8(at + 1, h);
        in.U16(at + 6, bits);
        in.U32(at + 8, bytes);
        in.U32(at + 12, offset);
        IconDirEntry entry;
        entry.width = w ? int(w) : 256;
        entry.height = h ? int(h) : 256;
        entry.bitCount = int(bits);
        entry.offset = offset;
        entry.size = bytes;
        entry.inFile = offset >= directoryEnd && in.Has(offset, bytes);
        read.push_back(entry);
    }
    entries = std::move(read);
    return true;
}

bool DecodeIconFile(const unsigned char* data, size_t size, std::vector<DibImage>& images)
{
    std::vector<IconDirEntry> entries;
    if (!ReadIconDirectory(data, size, entries)) return false;
    // Each image must have its entry's size, so the entries tell what the
    // decoded images will take before any is decoded.
    std::int64_t pixels = 0;
    for (const IconDirEntry& entry : entries) {
        if (!entry.inFile) return false;
        pixels += std::int64_t(entry.width) * entry.height;
    }
    if (pixels > kMaxIconFilePixels) return false;
    std::vector<DibImage> decoded;
    decoded.reserve(entries.size());
    for (const IconDirEntry& entry : entries) {
        DibImage image;
        if (!DecodeIconDib(data + entry.offset, entry.size, image)) return false;
        // The directory and the image must agree, or one of them is damaged.
        if (image.width != entry.width || image.height != entry.height) return false;
        decoded.push_back(std::move(image));
    }
    images = std::move(decoded);
    return true;
}

}  // namespace gdi
