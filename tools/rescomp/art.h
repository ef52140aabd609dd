// Pixel art kept as text, one character per pixel, and its conversion to the
// 16-colour images that BITMAP and ICON resources carry.
//
// An art file:
//   # a comment (outside the rows of an image)
//   colour . white          a character of the rows and what it stands for:
//   colour k black          one of the 16 palette colour names below, a
//   colour - transparent    palette index 0-15, or transparent (icons only)
//   image 18 17             an image of width 18 and height 17; exactly 17
//   ..................      rows of exactly 18 characters follow
//   ...
// Palette, in index order: black maroon green olive navy purple teal silver
// gray red lime yellow blue magenta cyan white (also: darkred = maroon,
// darkblue = navy, grey = gray, fuchsia = magenta, aqua = cyan).
// "color" is accepted for "colour". A BITMAP takes all images of its file, of
// one size, side by side as a strip; an ICON takes each image as one of its
// sizes.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace rescomp {

constexpr int kTransparent = -1;

struct ArtImage {
    int width = 0;
    int height = 0;
    int line = 0;             // of the "image" line, for messages
    std::vector<int> pixels;  // row-major from the top; palette index or kTransparent

    int At(int x, int y) const { return pixels[static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)]; }
};

struct PaletteColour {
    unsigned char red, green, blue;
};

// The standard 16-colour VGA palette, in the order 4-bpp images index it.
const std::array<PaletteColour, 16>& VgaPalette();

// Throws CompileError naming the art file and line.
std::vector<ArtImage> ParseArt(std::string_view text, const std::string& file);

// The images side by side as one 4-bpp DIB (header, palette, bottom-up rows).
// All must have one size and no transparent pixels.
std::vector<unsigned char> EncodeBitmapStrip(const std::vector<ArtImage>& images, const std::string& file);

// A whole icon file with one 4-bpp image per art image; transparent pixels
// get a set AND-mask bit and black colour bits.
std::vector<unsigned char> EncodeIcon(const std::vector<ArtImage>& images, const std::string& file);

}  // namespace rescomp
