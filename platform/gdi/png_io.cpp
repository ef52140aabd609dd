#include "platform/gdi/png_io.h"

#include <png.h>

#include <cstring>
#include <vector>

#include "platform/gdi/surface.h"

bool WritePng(const Surface& surface, const CRect& area, const char* path)
{
    CRect r;
    if (!path || !r.IntersectRect(area, surface.Bounds())) return false;
    std::vector<png_byte> rgb(static_cast<size_t>(r.Width()) * static_cast<size_t>(r.Height()) * 3);
    png_byte* out = rgb.data();
    for (int y = r.top; y < r.bottom; ++y) {
        const std::uint32_t* row = surface.Row(y);
        for (int x = r.left; x < r.right; ++x) {
            *out++ = static_cast<png_byte>(row[x] >> 16);
            *out++ = static_cast<png_byte>(row[x] >> 8);
            *out++ = static_cast<png_byte>(row[x]);
        }
    }
    png_image image;
    std::memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(r.Width());
    image.height = static_cast<png_uint_32>(r.Height());
    image.format = PNG_FORMAT_RGB;
    const bool ok = png_image_write_to_file(&image, path, 0, rgb.data(), r.Width() * 3, nullptr) != 0;
    png_image_free(&image);
    return ok;
}

bool WritePng(const Surface& surface, const char* path)
{
    return WritePng(surface, surface.Bounds(), path);
}

bool ReadPng(const char* path, Surface& surface)
{
    if (!path) return false;
    png_image image;
    std::memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&image, path)) return false;
    if (image.width == 0 || image.height == 0 || image.width > Surface::kMaxSide || image.height > Surface::kMaxSide ||
        std::int64_t(image.width) * image.height > Surface::kMaxArea) {
        png_image_free(&image);
        return false;
    }
    image.format = PNG_FORMAT_RGB;
    std::vector<png_byte> rgb(PNG_IMAGE_SIZE(image));
    if (!png_image_finish_read(&image, nullptr, rgb.data(), 0, nullptr)) {
        png_image_free(&image);
        return false;
    }
    Surface result(static_cast<int>(image.width), static_cast<int>(image.height));
    const png_byte* in = rgb.data();
    for (int y = 0; y < result.Height(); ++y) {
        std::uint32_t* row = result.Row(y);
        for (int x = 0; x < result.Width(); ++x, in += 3)
            row[x] = (std::uint32_t(in[0]) << 16) | (std::uint32_t(in[1]) << 8) | in[2];
    }
    surface = std::move(result);
    return true;
}
