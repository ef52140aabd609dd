#include "tools/rescomp/art.h"

#include <cstdint>
#include <map>
#include <optional>
#include <sstream>

#include "tools/rescomp/compile_error.h"

namespace rescomp {

namespace {

constexpr std::array<const char*, 16> kColourNames = {
    "black", "maroon", "green", "olive", "navy", "purple", "teal", "silver",
    "gray", "red", "lime", "yellow", "blue", "magenta", "cyan", "white",
};

constexpr int kMaxIconSide = 256;
// Width of a bitmap strip, far beyond what a toolbar or image list needs.
constexpr size_t kMaxStripWidth = 4096;

std::optional<int> ColourValue(const std::string& name)
{
    if (name == "transparent") return kTransparent;
    for (size_t i = 0; i < kColourNames.size(); ++i)
        if (name == kColourNames[i]) return static_cast<int>(i);
    static const std::map<std::string, int> aliases = {
        {"darkred", 1}, {"darkblue", 4}, {"grey", 8}, {"fuchsia", 13}, {"aqua", 14},
    };
    if (auto it = aliases.find(name); it != aliases.end()) return it->second;
    if (!name.empty() && name.size() <= 2 && name.find_first_not_of("0123456789") == std::string::npos) {
        const int index = std::stoi(name);
        if (index < 16) return index;
    }
    return std::nullopt;
}

std::optional<int> SideValue(const std::string& text)
{
    if (text.empty() || text.size() > 4 || text.find_first_not_of("0123456789") != std::string::npos) return std::nullopt;
    const int value = std::stoi(text);
    if (value < 1 || value > kMaxIconSide) return std::nullopt;
    return value;
}

std::string_view TrimRight(std::string_view s)
{
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r')) s.remove_suffix(1);
    return s;
}

std::vector<std::string> Words(std::string_view line)
{
    std::istringstream stream{std::string(line)};
    std::vector<std::string> words;
    for (std::string word; stream >> word;) words.push_back(word);
    return words;
}

void PutWord(std::vector<unsigned char>& out, unsigned value)
{
    out.push_back(static_cast<unsigned char>(value & 0xFF));
    out.push_back(static_cast<unsigned char>((value >> 8) & 0xFF));
}

void PutDword(std::vector<unsigned char>& out, std::uint32_t value)
{
    PutWord(out, value & 0xFFFF);
    PutWord(out, value >> 16);
}

size_t ColourStride(int width) { return (static_cast<size_t>(width) * 4 + 31) / 32 * 4; }
size_t MaskStride(int width) { return (static_cast<size_t>(width) + 31) / 32 * 4; }

// BITMAPINFOHEADER of a 4-bpp image with the full palette.
void PutInfoHeader(std::vector<unsigned char>& out, int width, int headerHeight, size_t imageBytes)
{
    PutDword(out, 40);
    PutDword(out, static_cast<std::uint32_t>(width));
    PutDword(out, static_cast<std::uint32_t>(headerHeight));
    PutWord(out, 1);  // planes
    PutWord(out, 4);  // bits per pixel
    PutDword(out, 0);  // no compression
    PutDword(out, static_cast<std::uint32_t>(imageBytes));
    PutDword(out, 0);
    PutDword(out, 0);
    PutDword(out, 16);  // colours used
    PutDword(out, 0);
}

void PutPalette(std::vector<unsigned char>& out)
{
    for (const PaletteColour& c : VgaPalette()) {
        out.push_back(c.blue);
        out.push_back(c.green);
        out.push_back(c.red);
        out.push_back(0);
    }
}

// Colour rows, bottom row first, two pixels a byte with the left one high.
// pixel(x, y) gives the palette index; transparent pixels come as 0.
template <typename Pixel>
void PutColourRows(std::vector<unsigned char>& out, int width, int height, Pixel pixel)
{
    const size_t stride = ColourStride(width);
    for (int y = height - 1; y >= 0; --y) {
        std::vector<unsigned char> row(stride, 0);
        for (int x = 0; x < width; ++x) {
            const auto index = static_cast<unsigned char>(pixel(x, y) & 0xF);
            row[static_cast<size_t>(x) / 2] |= (x % 2 == 0) ? static_cast<unsigned char>(index << 4) : index;
        }
        out.insert(out.end(), row.begin(), row.end());
    }
}

}  // namespace

const std::array<PaletteColour, 16>& VgaPalette()
{
    static const std::array<PaletteColour, 16> palette = {{
        {0, 0, 0}, {128, 0, 0}, {0, 128, 0}, {128, 128, 0},
        {0, 0, 128}, {128, 0, 128}, {0, 128, 128}, {192, 192, 192},
        {128, 128, 128}, {255, 0, 0}, {0, 255, 0}, {255, 255, 0},
        {0, 0, 255}, {255, 0, 255}, {0, 255, 255}, {255, 255, 255},
    }};
    return palette;
}

std::vector<ArtImage> ParseArt(std::string_view text, const std::string& file)
{
    std::vector<std::string_view> lines;
    for (size_t start = 0; start <= text.size();) {
        const size_t end = text.find('\n', start);
        if (end == std::string_view::npos) {
            if (start < text.size()) lines.push_back(text.substr(start));
            break;
        }
        lines.push_back(text.substr(start, end - start));
        start = end + 1;
    }

    std::map<char, int> legend;
    std::vector<ArtImage> images;
    for (size_t i = 0; i < lines.size(); ++i) {
        const int lineNo = static_cast<int>(i) + 1;
        const std::vector<std::string> words = Words(lines[i]);
        if (words.empty() || words[0][0] == '#') continue;

        if (words[0] == "colour" || words[0] == "color") {
            if (words.size() != 3 || words[1].size() != 1)
                throw CompileError(file, lineNo, "expected: colour <character> <colour>");
            const char ch = words[1][0];
            const auto value = ColourValue(words[2]);
            if (!value) throw CompileError(file, lineNo, "unknown colour '" + words[2] + "'");
            if (!legend.emplace(ch, *value).second)
                throw CompileError(file, lineNo, std::string("character '") + ch + "' is already in the legend");
            continue;
        }
        if (words[0] != "image") throw CompileError(file, lineNo, "expected 'colour' or 'image', found '" + words[0] + "'");

        const auto width = words.size() == 3 ? SideValue(words[1]) : std::nullopt;
        const auto height = words.size() == 3 ? SideValue(words[2]) : std::nullopt;
        if (!width || !height)
            throw CompileError(file, lineNo, "expected: image <width> <height>, each 1 to " + std::to_string(kMaxIconSide));
        ArtImage image;
        image.width = *width;
        image.height = *height;
        image.line = lineNo;
        image.pixels.reserve(static_cast<size_t>(image.width) * static_cast<size_t>(image.height));
        for (int y = 0; y < image.height; ++y) {
            ++i;
            const int rowLine = static_cast<int>(i) + 1;
            if (i >= lines.size())
                throw CompileError(file, lineNo, "image ends after " + std::to_string(y) + " of " + std::to_string(image.height) + " rows");
            const std::string_view row = TrimRight(lines[i]);
            if (row.size() != static_cast<size_t>(image.width))
                throw CompileError(file, rowLine, "row has " + std::to_string(row.size()) + " pixels, the image is " + std::to_string(image.width) + " wide");
            for (const char ch : row) {
                const auto it = legend.find(ch);
                if (it == legend.end()) throw CompileError(file, rowLine, std::string("character '") + ch + "' is not in the legend");
                image.pixels.push_back(it->second);
            }
        }
        images.push_back(std::move(image));
    }
    if (images.empty()) throw CompileError(file, static_cast<int>(lines.size()) + 1, "no image in the file");
    return images;
}

std::vector<unsigned char> EncodeBitmapStrip(const std::vector<ArtImage>& images, const std::string& file)
{
    if (images.empty()) throw CompileError(file, 1, "no image in the file");
    const int cellWidth = images.front().width;
    const int height = images.front().height;
    for (const ArtImage& image : images) {
        if (image.width != cellWidth || image.height != height)
            throw CompileError(file, image.line, "image is " + std::to_string(image.width) + "x" + std::to_string(image.height) + ", the first is " + std::to_string(cellWidth) + "x" + std::to_string(height));
        for (const int pixel : image.pixels)
            if (pixel == kTransparent) throw CompileError(file, image.line, "a bitmap has no transparent colour; white is its background");
    }
    if (images.size() * static_cast<size_t>(cellWidth) > kMaxStripWidth) throw CompileError(file, images.back().line, "strip is wider than " + std::to_string(kMaxStripWidth));
    const int width = static_cast<int>(images.size()) * cellWidth;

    std::vector<unsigned char> out;
    PutInfoHeader(out, width, height, ColourStride(width) * static_cast<size_t>(height));
    PutPalette(out);
    PutColourRows(out, width, height, [&](int x, int y) { return images[static_cast<size_t>(x / cellWidth)].At(x % cellWidth, y); });
    return out;
}

std::vector<unsigned char> EncodeIcon(const std::vector<ArtImage>& images, const std::string& file)
{
    if (images.empty()) throw CompileError(file, 1, "no image in the file");
    if (images.size() > 32) throw CompileError(file, images[32].line, "an icon holds at most 32 images");

    std::vector<std::vector<unsigned char>> bodies;
    for (const ArtImage& image : images) {
        const size_t colourBytes = ColourStride(image.width) * static_cast<size_t>(image.height);
        const size_t maskBytes = MaskStride(image.width) * static_cast<size_t>(image.height);
        std::vector<unsigned char> body;
        PutInfoHeader(body, image.width, image.height * 2, colourBytes + maskBytes);
        PutPalette(body);
        PutColourRows(body, image.width, image.height, [&](int x, int y) {
            const int pixel = image.At(x, y);
            return pixel == kTransparent ? 0 : pixel;
        });
        const size_t maskStride = MaskStride(image.width);
        for (int y = image.height - 1; y >= 0; --y) {
            std::vector<unsigned char> row(maskStride, 0);
            for (int x = 0; x < image.width; ++x)
                if (image.At(x, y) == kTransparent) row[static_cast<size_t>(x) / 8] |= static_cast<unsigned char>(0x80 >> (x % 8));
            body.insert(body.end(), row.begin(), row.end());
        }
        bodies.push_back(std::move(body));
    }

    std::vector<unsigned char> out;
    PutWord(out, 0);
    PutWord(out, 1);  // an icon, not a cursor
    PutWord(out, static_cast<unsigned>(images.size()));
    size_t offset = 6 + 16 * images.size();
    for (size_t i = 0; i < images.size(); ++i) {
        out.push_back(static_cast<unsigned char>(images[i].width & 0xFF));  // 256 is stored as 0
        out.push_back(static_cast<unsigned char>(images[i].height & 0xFF));
        out.push_back(16);  // colours
        out.push_back(0);
        PutWord(out, 1);
        PutWord(out, 4);
        PutDword(out, static_cast<std::uint32_t>(bodies[i].size()));
        PutDword(out, static_cast<std::uint32_t>(offset));
        offset += bodies[i].size();
    }
    for (const auto& body : bodies) out.insert(out.end(), body.begin(), body.end());
    return out;
}

}  // namespace rescomp
