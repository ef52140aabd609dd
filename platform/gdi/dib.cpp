#include "platform/gdi/dib.h"

#include <algorithm>
#include <array>
#include <bit>

#include "platform/gdi/byte_reader.h"
#include "platform/gdi/gdi_types.h"
#include "platform/gdi/surface.h"

namespace gdi {
namespace {

struct Header {
    int width = 0;
    int rows = 0;         // rows of colour data
    bool topDown = false;
    int bpp = 0;
    std::uint32_t compression = 0;
    std::array<std::uint32_t, 4> masks{};  // red, green, blue, alpha
    std::vector<std::uint32_t> palette;    // 0xFFRRGGBB
    size_t bitsOffset = 0;
    size_t stride = 0;
};

// Value of a bit-field channel scaled to 8 bits.
std::uint32_t Channel(std::uint32_t value, std::uint32_t mask)
{
    if (!mask) return 0;
    const int shift = std::countr_zero(mask);
    const int bits = 32 - std::countl_zero(mask) - shift;  // span, in case the mask has gaps
    const std::uint64_t v = (value & mask) >> shift;
    if (bits >= 8) return static_cast<std::uint32_t>(v >> (bits - 8)) & 0xFF;
    // Scale so that a full channel maps to 255.
    const std::uint64_t max = (std::uint64_t(1) << bits) - 1;
    return static_cast<std::uint32_t>((v * 255 + max / 2) / max);
}

bool ReadHeader(const ByteReader& in, int heightDivisor, Header& h)
{
    std::uint32_t headerSize = 0, planes = 0, bpp = 0, compression = 0, colorsUsed = 0;
    std::int32_t width = 0, height = 0;
    if (!in.U32(0, headerSize) || headerSize < 40 || !in.Has(0, headerSize)) return false;
    in.I32(4, width);
    in.I32(8, height);
    in.U16(12, planes);
    in.U16(14, bpp);
    in.U32(16, compression);
    in.U32(32, colorsUsed);
    if (planes != 1) return false;
    if (width <= 0 || width > Surface::kMaxSide || height == 0 || height < -Surface::kMaxSide ||
        height > Surface::kMaxSide * heightDivisor)
        return false;
    // An icon's height covers colour rows and mask rows alike.
    if (height % heightDivisor != 0) return false;
    h.topDown = height < 0;
    h.width = width;
    h.rows = (height < 0 ? -height : height) / heightDivisor;
    if (h.rows <= 0 || std::int64_t(h.width) * h.rows > Surface::kMaxArea) return false;
    if (bpp != 1 && bpp != 4 && bpp != 8 && bpp != 16 && bpp != 24 && bpp != 32) return false;
    h.bpp = static_cast<int>(bpp);
    h.compression = compression;
    size_t offset = headerSize;
    if (compression == BI_BITFIELDS) {
        if (bpp != 16 && bpp != 32) return false;
        // Masks follow a plain 40-byte header; larger headers hold them.
        if (!in.U32(40, h.masks[0]) || !in.U32(44, h.masks[1]) || !in.U32(48, h.masks[2])) return false;
        if (headerSize >= 56) in.U32(52, h.masks[3]);
        if (!h.masks[0] || !h.masks[1] || !h.masks[2]) return false;
        if (headerSize == 40) offset += 12;
    } else if (compression == BI_RGB) {
        if (bpp == 16) h.masks = {0x7C00, 0x03E0, 0x001F, 0};
    } else {
        return false;  // run-length and embedded formats are not supported
    }
    const std::uint32_t maxColors = bpp <= 8 ? (1u << bpp) : 0;
    const std::uint32_t colors = colorsUsed ? colorsUsed : maxColors;
    if (colors > 256 || !in.Has(offset, size_t(colors) * 4)) return false;
    if (bpp <= 8) {
        // Entries past what the depth can index are present but unused.
        h.palette.resize(std::min(colors, maxColors));
        for (std::uint32_t i = 0; i < h.palette.size(); ++i) {
            const unsigned char* q = in.At(offset + i * 4);
            h.palette[i] = 0xFF000000u | (std::uint32_t(q[2]) << 16) | (std::uint32_t(q[1]) << 8) | q[0];
        }
    }
    h.bitsOffset = offset + size_t(colors) * 4;
    h.stride = ((size_t(h.width) * bpp + 31) / 32) * 4;
    return in.Has(h.bitsOffset, h.stride * size_t(h.rows));
}

std::uint32_t PixelAt(const Header& h, const unsigned char* row, int x)
{
    switch (h.bpp) {
    case 1:
    case 4:
    case 8: {
        const int perByte = 8 / h.bpp;
        const unsigned byte = row[x / perByte];
        const int shift = 8 - h.bpp * (x % perByte + 1);
        const unsigned index = (byte >> shift) & ((1u << h.bpp) - 1);
        return index < h.palette.size() ? h.palette[index] : 0xFF000000u;
    }
    case 16: {
        const std::uint32_t v = row[x * 2] | (std::uint32_t(row[x * 2 + 1]) << 8);
        return 0xFF000000u | (Channel(v, h.masks[0]) << 16) | (Channel(v, h.masks[1]) << 8) | Channel(v, h.masks[2]);
    }
    case 24: {
        const unsigned char* p = row + x * 3;
        return 0xFF000000u | (std::uint32_t(p[2]) << 16) | (std::uint32_t(p[1]) << 8) | p[0];
    }
    default: {
        const unsigned char* p = row + x * 4;
        const std::uint32_t v = p[0] | (std::uint32_t(p[1]) << 8) | (std::uint32_t(p[2]) << 16) | (std::uint32_t(p[3]) << 24);
        if (h.compression != BI_BITFIELDS) return v;
        return (Channel(v, h.masks[3]) << 24) | (Channel(v, h.masks[0]) << 16) | (Channel(v, h.masks[1]) << 8) |
               Channel(v, h.masks[2]);
    }
    }
}

bool Decode(const ByteReader& in, int heightDivisor, DibImage& out, Header& h)
{
    if (!ReadHeader(in, heightDivisor, h)) return false;
    DibImage image;
    image.width = h.width;
    image.height = h.rows;
    image.bitsPixel = h.bpp;
    for (std::uint32_t entry : h.palette) image.palette.push_back(entry & 0x00FFFFFFu);
    image.argb.resize(size_t(h.width) * size_t(h.rows));
    for (int y = 0; y < h.rows; ++y) {
        const int srcRow = h.topDown ? y : h.rows - 1 - y;
        const unsigned char* row = in.At(h.bitsOffset + h.stride * size_t(srcRow));
        std::uint32_t* dst = image.argb.data() + size_t(y) * size_t(h.width);
        for (int x = 0; x < h.width; ++x) dst[x] = PixelAt(h, row, x);
    }
    if (h.bpp == 32) {
        for (std::uint32_t p : image.argb) image.hasAlpha |= (p >> 24) != 0;
        // A 32-bit image without alpha is opaque.
        if (!image.hasAlpha)
            for (std::uint32_t& p : image.argb) p |= 0xFF000000u;
    }
    out = std::move(image);
    return true;
}

// Index of (x, y) in a per-pixel vector of n entries, or n when outside.
size_t PixelIndex(const DibImage& image, int x, int y, size_t n)
{
    if (x < 0 || y < 0 || x >= image.width || y >= image.height) return n;
    const size_t i = size_t(y) * size_t(image.width) + size_t(x);
    return i < n ? i : n;
}

}  // namespace

std::uint32_t DibImage::At(int x, int y) const
{
    const size_t i = PixelIndex(*this, x, y, argb.size());
    return i < argb.size() ? argb[i] : 0;
}

bool DibImage::IsTransparent(int x, int y) const
{
    const size_t i = PixelIndex(*this, x, y, andMask.size());
    return i < andMask.size() && andMask[i] != 0;
}

bool DecodeDib(const unsigned char* data, size_t size, DibImage& out)
{
    constexpr size_t kFileHeader = 14;
    if (data && size >= kFileHeader + 40 && data[0] == 'B' && data[1] == 'M') {
        data += kFileHeader;
        size -= kFileHeader;
    }
    Header h;
    return Decode(ByteReader(data, size), 1, out, h);
}

bool DecodeIconDib(const unsigned char* data, size_t size, DibImage& out)
{
    const ByteReader in(data, size);
    Header h;
    DibImage image;
    if (!Decode(in, 2, image, h) || h.topDown) return false;
    const size_t maskStride = ((size_t(h.width) + 31) / 32) * 4;
    const size_t maskOffset = h.bitsOffset + h.stride * size_t(h.rows);
    if (in.Has(maskOffset, maskStride * size_t(h.rows))) {
        image.andMask.resize(image.argb.size());
        for (int y = 0; y < h.rows; ++y) {
            const unsigned char* row = in.At(maskOffset + maskStride * size_t(h.rows - 1 - y));
            for (int x = 0; x < h.width; ++x)
                image.andMask[size_t(y) * size_t(h.width) + size_t(x)] = (row[x / 8] >> (7 - x % 8)) & 1;
        }
    } else if (!image.hasAlpha) {
        return false;  // without a mask or alpha nothing says what is transparent
    }
    out = std::move(image);
    return true;
}

}  // namespace gdi
