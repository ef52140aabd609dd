// The resource compiler on small scripts and art held in memory: what it
// writes must read back through the platform's readers, and every mistake in
// the inputs must stop it with the right file and line.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "platform/core/resource_formats.h"
#include "platform/gdi/dib.h"
#include "platform/gdi/icon_file.h"
#include "platform/gdi/surface.h"
#include "platform/text/gbk.h"
#include "tools/rescomp/art.h"
#include "tools/rescomp/emit.h"
#include "tools/rescomp/rc_compiler.h"

namespace {

using rescomp::CompileError;
using rescomp::CompileResult;

struct Compiler {
    std::map<std::string, std::string> files;  // art files by resolved path

    CompileResult Compile(std::string_view script) const
    {
        return rescomp::CompileScript(script, "dir/test.rc", [this](const std::string& path) -> std::optional<std::string> {
            const auto it = files.find(path);
            if (it == files.end()) return std::nullopt;
            return it->second;
        });
    }
};

const rescomp::CompiledResource* Find(const CompileResult& result, ResourceType type, unsigned id)
{
    for (const auto& resource : result.resources)
        if (resource.type == type && resource.id == id) return &resource;
    return nullptr;
}

std::string StringResource(const CompileResult& result, unsigned id)
{
    const auto* resource = Find(result, ResourceType::String, id);
    if (!resource) return "<missing>";
    return std::string(resource->data.begin(), resource->data.end());
}

// The error a compilation stops with; fails the test when it succeeds.
CompileError ErrorOf(const Compiler& compiler, std::string_view script)
{
    try {
        compiler.Compile(script);
    } catch (const CompileError& error) {
        return error;
    }
    ADD_FAILURE() << "compiled without error:\n" << script;
    return CompileError("", 0, "");
}

TEST(Rescomp, StringEscapesAndGbk)
{
    const CompileResult result = Compiler{}.Compile(
        "STRINGTABLE\n"
        "BEGIN\n"
        "  1 \"a\\tb\\\"c\\\\d\\ne\"\n"
        "  2, \"&File\"\n"
        "  3 \"定位到\"\n"
        "  0x10 \"\"\n"
        "END\n");
    EXPECT_EQ(StringResource(result, 1), "a\tb\"c\\d\ne");
    EXPECT_EQ(StringResource(result, 2), "&File");
    EXPECT_EQ(StringResource(result, 3), GBK("定位到"));
    EXPECT_EQ(StringResource(result, 16), "");
}

TEST(Rescomp, MenuReadsBackWithStructureAndOptions)
{
    const CompileResult result = Compiler{}.Compile(
        "/* two top-level popups */\n"
        "MENU 300 {\n"
        "  POPUP \"文件\" {\n"
        "    MENUITEM \"打开\\tCtrl+O\", 1\n"
        "    MENUITEM SEPARATOR\n"
        "    POPUP \"最近\", GRAYED BEGIN\n"
        "      MENUITEM \"a\", 2, CHECKED, INACTIVE\n"
        "    END\n"
        "  }\n"
        "  POPUP \"帮助\" { MENUITEM \"关于\", 3 }\n"
        "}\n");
    const auto* resource = Find(result, ResourceType::Menu, 300);
    ASSERT_NE(resource, nullptr);
    const auto menu = ParseMenuTemplate(resource->data.data(), resource->data.size());
    ASSERT_TRUE(menu);
    ASSERT_EQ(menu->size(), 2u);
    const MenuTemplateItem& file = (*menu)[0];
    EXPECT_EQ(file.text, GBK("文件"));
    ASSERT_EQ(file.children.size(), 3u);
    EXPECT_EQ(file.children[0].text, GBK("打开") + "\tCtrl+O");
    EXPECT_EQ(file.children[0].id, 1u);
    EXPECT_TRUE(file.children[1].IsSeparator());
    EXPECT_EQ(file.children[2].flags, MF_POPUP | MF_GRAYED);
    ASSERT_EQ(file.children[2].children.size(), 1u);
    EXPECT_EQ(file.children[2].children[0].flags, MF_CHECKED | MF_DISABLED);
    EXPECT_EQ((*menu)[1].children.at(0).text, GBK("关于"));
}

TEST(Rescomp, ToolbarLayout)
{
    const CompileResult result = Compiler{}.Compile("TOOLBAR 10, 16, 15 { BUTTON 100 SEPARATOR BUTTON 0x65 }\n");
    const auto* resource = Find(result, ResourceType::Toolbar, 10);
    ASSERT_NE(resource, nullptr);
    const auto toolbar = ParseToolbar(resource->data.data(), resource->data.size());
    ASSERT_TRUE(toolbar);
    EXPECT_EQ(toolbar->width, 16);
    EXPECT_EQ(toolbar->height, 15);
    EXPECT_EQ(toolbar->ids, (std::vector<UINT>{100, 0, 101}));
}

TEST(Rescomp, BitmapStripAndIconReadBack)
{
    Compiler compiler;
    // Two 3 x 2 images; an odd width exercises row padding and nibble order.
    compiler.files["dir/art/strip.art"] =
        "# legend\n"
        "colour . white\n"
        "colour r red\n"
        "color 4 4\n"
        "image 3 2\n"
        "r.4\n"
        "...\n"
        "\n"
        "image 3 2\r\n"
        "..r\r\n"
        "44.\r\n";
    compiler.files["dir/icon.art"] =
        "colour - transparent\n"
        "colour k black\n"
        "colour y yellow\n"
        "image 3 2\n"
        "k-y\n"
        "---\n"
        "image 2 1\n"
        "--\n";
    const CompileResult result = compiler.Compile("BITMAP 1 \"art/strip.art\"\nICON 2, \"icon.art\"\n");
    // Art paths resolve against the script's folder; all inputs go to the depfile.
    EXPECT_EQ(result.inputs, (std::vector<std::string>{"dir/test.rc", "dir/art/strip.art", "dir/icon.art"}));

    const auto* bitmap = Find(result, ResourceType::Bitmap, 1);
    ASSERT_NE(bitmap, nullptr);
    gdi::DibImage dib;
    ASSERT_TRUE(gdi::DecodeDib(bitmap->data.data(), bitmap->data.size(), dib));
    EXPECT_EQ(dib.width, 6);
    EXPECT_EQ(dib.height, 2);
    EXPECT_EQ(dib.bitsPixel, 4);
    const COLORREF white = RGB(255, 255, 255), red = RGB(255, 0, 0), navy = RGB(0, 0, 128);
    const std::vector<std::vector<COLORREF>> pixels = {{red, white, navy, white, white, red}, {white, white, white, navy, navy, white}};
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 6; ++x) EXPECT_EQ(PixelToColorRef(dib.At(x, y)), pixels[static_cast<size_t>(y)][static_cast<size_t>(x)]) << x << "," << y;

    const auto* iconResource = Find(result, ResourceType::Icon, 2);
    ASSERT_NE(iconResource, nullptr);
    std::vector<gdi::DibImage> icon;
    ASSERT_TRUE(gdi::DecodeIconFile(iconResource->data.data(), iconResource->data.size(), icon));
    ASSERT_EQ(icon.size(), 2u);
    const gdi::DibImage& image = icon[0];
    EXPECT_FALSE(image.IsTransparent(0, 0));
    EXPECT_EQ(PixelToColorRef(image.At(0, 0)), RGB(0, 0, 0));
    EXPECT_TRUE(image.IsTransparent(1, 0));
    EXPECT_EQ(PixelToColorRef(image.At(1, 0)), RGB(0, 0, 0)) << "transparent pixels carry black so the mask alone decides";
    EXPECT_EQ(PixelToColorRef(image.At(2, 0)), RGB(255, 255, 0));
    for (int x = 0; x < 3; ++x) EXPECT_TRUE(image.IsTransparent(x, 1));
    EXPECT_EQ(icon[1].width, 2);
    EXPECT_TRUE(icon[1].IsTransparent(1, 0));
}

TEST(Rescomp, ScriptErrorsNameTheLine)
{
    struct Case {
        const char* script;
        int line;
        const char* message;
    };
    const Case cases[] = {
        {"STRINGTABLE {\n 1 \"a\\qb\"\n}", 2, "unknown escape \\q"},
        {"STRINGTABLE {\n 1 \"open\n}", 2, "not closed"},
        {"\n/* never closed\n", 2, "comment is not closed"},
        {"DIALOG 1 {}", 1, "unknown resource keyword 'DIALOG'"},
        {"STRINGTABLE { 5 \"a\" }\n\nSTRINGTABLE { 5 \"b\" }", 3, "already defined at line 1"},
        {"MENU 1 {\n  POPUP \"p\"\n  {\n  }\n}", 3, "popup has no items"},
        {"MENU 1 { }", 1, "menu has no items"},
        {"MENU 0 { MENUITEM \"a\", 1 }", 1, "out of range"},
        {"STRINGTABLE {\n 70000 \"a\" }", 2, "out of range"},
        {"STRINGTABLE { 12ab \"a\" }", 1, "malformed number"},
        {"STRINGTABLE { 99999999999 \"a\" }", 1, "too large"},
        {"MENU 1 {\n MENUITEM \"\", 0 }", 2, "write MENUITEM SEPARATOR"},
        {"MENU 1 { MENUITEM \"a\", 1, BOLD }", 1, "unknown item option"},
        {"MENU 1 {\n MENUITEM \"a\" 1\n", 3, "expected POPUP, MENUITEM"},
        {"STRINGTABLE {\n\n 1 \"\xF0\x9F\x98\x80\" }", 3, "U+1F600 has no GBK form"},
        {"STRINGTABLE { 1 \"\xC3\x28\" }", 1, "not valid UTF-8"},
        {"STRINGTABLE { 1 \"a\" }\n$", 2, "unexpected '$'"},
        {"TOOLBAR 1 16 15 {\n BUTTON 0 }", 2, "out of range"},
        {"TOOLBAR 1 16 300 { }", 1, "out of range"},
        {"TOOLBAR 1 16 15 { BITMAP }", 1, "expected BUTTON, SEPARATOR"},
        {"\n\nBITMAP 3 \"missing.art\"", 3, "cannot read art file 'dir/missing.art'"},
        {"ICON 3 \"\"", 1, "art file name is empty"},
    };
    for (const Case& c : cases) {
        const CompileError error = ErrorOf(Compiler{}, c.script);
        EXPECT_EQ(error.file(), "dir/test.rc") << c.script;
        EXPECT_EQ(error.line(), c.line) << c.script << "\n" << error.what();
        EXPECT_NE(error.message().find(c.message), std::string::npos) << c.script << "\n" << error.what();
        EXPECT_EQ(std::string(error.what()).rfind("dir/test.rc:" + std::to_string(c.line) + ": error: ", 0), 0u) << error.what();
    }
}

TEST(Rescomp, NestingBeyondTheReaderLimitIsRefused)
{
    auto nested = [](int popups) {
        std::string script = "MENU 1 {\n";
        for (int i = 0; i < popups; ++i) script += "POPUP \"p\" {\n";
        script += "MENUITEM \"x\", 1\n";
        for (int i = 0; i <= popups; ++i) script += "}\n";
        return script;
    };
    const CompileResult ok = Compiler{}.Compile(nested(kMaxMenuTemplateDepth - 1));
    ASSERT_EQ(ok.resources.size(), 1u);
    EXPECT_TRUE(ParseMenuTemplate(ok.resources[0].data.data(), ok.resources[0].data.size()));
    const CompileError error = ErrorOf(Compiler{}, nested(kMaxMenuTemplateDepth));
    EXPECT_EQ(error.line(), kMaxMenuTemplateDepth + 1);
    EXPECT_NE(error.message().find("nested deeper"), std::string::npos);
}

TEST(Rescomp, ToolbarMustMatchItsBitmap)
{
    Compiler compiler;
    compiler.files["dir/two.art"] = "colour . white\nimage 2 3\n..\n..\n..\nimage 2 3\n..\n..\n..\n";
    EXPECT_NO_THROW(compiler.Compile("BITMAP 5 \"two.art\"\nTOOLBAR 5 2 3 { BUTTON 1 SEPARATOR BUTTON 2 }"));
    const CompileError error = ErrorOf(compiler, "BITMAP 5 \"two.art\"\n\nTOOLBAR 5 2 3 { BUTTON 1 BUTTON 2 BUTTON 3 }");
    EXPECT_EQ(error.line(), 3);
    EXPECT_NE(error.message().find("3 buttons of 2x3 but bitmap 5 is 4x3"), std::string::npos) << error.what();
    const CompileError height = ErrorOf(compiler, "BITMAP 5 \"two.art\"\nTOOLBAR 5 2 4 { BUTTON 1 BUTTON 2 }");
    EXPECT_NE(height.message().find("2 buttons of 2x4 but bitmap 5 is 4x3"), std::string::npos) << height.what();
    EXPECT_NO_THROW(compiler.Compile("BITMAP 5 \"two.art\"\nTOOLBAR 6 2 3 { BUTTON 1 }")) << "other ids are not related";
}

TEST(Rescomp, ArtErrorsNameTheArtFileAndLine)
{
    struct Case {
        const char* art;
        const char* resource;
        int line;
        const char* message;
    };
    const Case cases[] = {
        {"colour . white\nimage 2 2\n..\n.\n", "BITMAP", 4, "row has 1 pixels, the image is 2 wide"},
        {"colour . white\nimage 2 2\n..\n.x\n", "BITMAP", 4, "character 'x' is not in the legend"},
        {"colour . mauve\n", "BITMAP", 1, "unknown colour 'mauve'"},
        {"colour . 16\n", "BITMAP", 1, "unknown colour '16'"},
        {"colour . white\ncolour . black\n", "BITMAP", 2, "already in the legend"},
        {"colour .. white\n", "BITMAP", 1, "expected: colour <character> <colour>"},
        {"colour . white\n\nimage 2 3\n..\n..\n", "BITMAP", 3, "image ends after 2 of 3 rows"},
        {"colour . white\nimage 0 1\n", "BITMAP", 2, "expected: image <width> <height>"},
        {"colour . white\nimage 300 1\n", "BITMAP", 2, "expected: image <width> <height>"},
        {"colour . white\npicture 1 1\n", "BITMAP", 2, "expected 'colour' or 'image'"},
        {"# nothing\n", "BITMAP", 2, "no image"},
        {"colour - transparent\nimage 1 1\n-\n", "BITMAP", 2, "no transparent colour"},
        {"colour . white\nimage 1 1\n.\nimage 2 1\n..\n", "BITMAP", 4, "image is 2x1, the first is 1x1"},
        {"colour - transparent\nimage 1 1\n-\nimage 1 1\nq\n", "ICON", 5, "character 'q' is not in the legend"},
    };
    for (const Case& c : cases) {
        Compiler compiler;
        compiler.files["dir/x.art"] = c.art;
        const CompileError error = ErrorOf(compiler, std::string(c.resource) + " 1 \"x.art\"");
        EXPECT_EQ(error.file(), "dir/x.art") << c.art;
        EXPECT_EQ(error.line(), c.line) << c.art << "\n" << error.what();
        EXPECT_NE(error.message().find(c.message), std::string::npos) << c.art << "\n" << error.what();
    }
}

TEST(Rescomp, DepfileEscapesPathsForMake)
{
    EXPECT_EQ(rescomp::GenerateDepfile("out dir/r.cpp", {"a b.rc", "c$.art"}), "out\\ dir/r.cpp: \\\n  a\\ b.rc \\\n  c$$.art\n");
}

}  // namespace
