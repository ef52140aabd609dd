#include "tools/rescomp/rc_compiler.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iconv.h>
#include <map>
#include <memory>
#include <sstream>

#include "platform/core/resource_formats.h"
#include "tools/rescomp/art.h"

namespace rescomp {

namespace {

enum class TokenKind { Word, Number, String, OpenBrace, CloseBrace, Comma, End };

struct Token {
    TokenKind kind = TokenKind::End;
    std::string text;  // word, or string contents after escapes (UTF-8)
    unsigned long long value = 0;
    int line = 0;
};

bool IsWordStart(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_'; }
bool IsWordChar(char c) { return IsWordStart(c) || (c >= '0' && c <= '9'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::string Describe(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x21 && byte < 0x7F) return std::string("'") + c + "'";
    char buffer[8];
    std::snprintf(buffer, sizeof buffer, "0x%02X", byte);
    return std::string("byte ") + buffer;
}

std::vector<Token> Tokenize(std::string_view text, const std::string& file)
{
    std::vector<Token> tokens;
    size_t i = 0;
    int line = 1;
    if (text.substr(0, 3) == "\xEF\xBB\xBF") i = 3;  // editors may start UTF-8 files with a byte order mark
    while (i < text.size()) {
        const char c = text[i];
        if (c == '\n') {
            ++line;
            ++i;
        } else if (c == ' ' || c == '\t' || c == '\r' || c == '\f' || c == '\v') {
            ++i;
        } else if (text.substr(i, 2) == "//") {
            while (i < text.size() && text[i] != '\n') ++i;
        } else if (text.substr(i, 2) == "/*") {
            const int startLine = line;
            const size_t end = text.find("*/", i + 2);
            if (end == std::string_view::npos) throw CompileError(file, startLine, "comment is not closed");
            line += static_cast<int>(std::count(text.begin() + static_cast<std::ptrdiff_t>(i), text.begin() + static_cast<std::ptrdiff_t>(end), '\n'));
            i = end + 2;
        } else if (c == '"') {
            Token token{TokenKind::String, {}, 0, line};
            ++i;
            for (;;) {
                if (i >= text.size() || text[i] == '\n') throw CompileError(file, line, "string is not closed on its line");
                const char ch = text[i++];
                if (ch == '"') break;
                if (ch == '\0') throw CompileError(file, line, "string holds a NUL byte");
                if (ch != '\\') {
                    token.text += ch;
                    continue;
                }
                if (i >= text.size()) throw CompileError(file, line, "string is not closed on its line");
                const char escaped = text[i++];
                switch (escaped) {
                case 't': token.text += '\t'; break;
                case 'n': token.text += '\n'; break;
                case '"': token.text += '"'; break;
                case '\\': token.text += '\\'; break;
                default: throw CompileError(file, line, "unknown escape \\" + std::string(1, escaped) + " (known: \\t \\n \\\" \\\\)");
                }
            }
            tokens.push_back(std::move(token));
        } else if (IsDigit(c)) {
            Token token{TokenKind::Number, {}, 0, line};
            const bool hex = text.substr(i, 2) == "0x" || text.substr(i, 2) == "0X";
            const size_t start = hex ? i + 2 : i;
            size_t end = start;
            while (end < text.size() && IsWordChar(text[end])) ++end;
            token.text = std::string(text.substr(i, end - i));
            const std::string_view digits = text.substr(start, end - start);
            const std::string_view allowed = hex ? "0123456789abcdefABCDEF" : "0123456789";
            if (digits.empty() || digits.find_first_not_of(allowed) != std::string_view::npos)
                throw CompileError(file, line, "malformed number '" + token.text + "'");
            for (const char d : digits) {
                const unsigned digit = IsDigit(d) ? static_cast<unsigned>(d - '0') : static_cast<unsigned>((d | 0x20) - 'a' + 10);
                token.value = token.value * (hex ? 16 : 10) + digit;
                if (token.value > 0xFFFFFFFFull) throw CompileError(file, line, "number '" + token.text + "' is too large");
            }
            tokens.push_back(std::move(token));
            i = end;
        } else if (IsWordStart(c)) {
            size_t end = i;
            while (end < text.size() && IsWordChar(text[end])) ++end;
            tokens.push_back({TokenKind::Word, std::string(text.substr(i, end - i)), 0, line});
            i = end;
        } else if (c == '{' || c == '}' || c == ',') {
            tokens.push_back({c == '{' ? TokenKind::OpenBrace : c == '}' ? TokenKind::CloseBrace : TokenKind::Comma, std::string(1, c), 0, line});
            ++i;
        } else {
            throw CompileError(file, line, "unexpected " + Describe(c));
        }
    }
    tokens.push_back({TokenKind::End, {}, 0, line});
    return tokens;
}

// Length of the UTF-8 sequence at s[0], 0 when it is not a valid one.
size_t Utf8SequenceLength(std::string_view s, char32_t* codePoint)
{
    const auto b0 = static_cast<unsigned char>(s[0]);
    size_t length = 0;
    char32_t value = 0;
    if (b0 < 0x80) {
        *codePoint = b0;
        return 1;
    }
    if (b0 >= 0xC2 && b0 <= 0xDF) length = 2, value = b0 & 0x1F;
    else if (b0 >= 0xE0 && b0 <= 0xEF) length = 3, value = b0 & 0x0F;
    else if (b0 >= 0xF0 && b0 <= 0xF4) length = 4, value = b0 & 0x07;
    else return 0;
    if (s.size() < length) return 0;
    for (size_t k = 1; k < length; ++k) {
        const auto b = static_cast<unsigned char>(s[k]);
        if ((b & 0xC0) != 0x80) return 0;
        value = (value << 6) | (b & 0x3F);
    }
    // Overlong forms, surrogates and values past U+10FFFF are not UTF-8.
    if ((length == 3 && value < 0x800) || (length == 4 && (value < 0x10000 || value > 0x10FFFF)) || (value >= 0xD800 && value <= 0xDFFF)) return 0;
    *codePoint = value;
    return length;
}

struct MenuNode {
    bool popup = false;
    bool separator = false;
    std::string text;  // UTF-8
    unsigned id = 0;
    unsigned flags = 0;
    int line = 0;
    std::vector<MenuNode> children;
};

void PutWord(std::vector<unsigned char>& out, unsigned value)
{
    out.push_back(static_cast<unsigned char>(value & 0xFF));
    out.push_back(static_cast<unsigned char>((value >> 8) & 0xFF));
}

const char* TypeKeyword(ResourceType type)
{
    switch (type) {
    case ResourceType::Bitmap: return "BITMAP";
    case ResourceType::Menu: return "MENU";
    case ResourceType::String: return "string";
    case ResourceType::Icon: return "ICON";
    case ResourceType::Toolbar: return "TOOLBAR";
    }
    return "resource";
}

class Parser {
public:
    Parser(std::vector<Token> tokens, std::string file, const FileReader& read)
        : m_tokens(std::move(tokens)), m_file(std::move(file)), m_read(read)
    {
        m_baseDir = std::filesystem::path(m_file).parent_path();
        m_result.inputs.push_back(m_file);
    }

    CompileResult Run()
    {
        while (Peek().kind != TokenKind::End) {
            const Token& keyword = Peek();
            if (keyword.kind != TokenKind::Word) Fail(keyword, "expected a resource keyword, found '" + keyword.text + "'");
            if (keyword.text == "MENU") ParseMenu();
            else if (keyword.text == "STRINGTABLE") ParseStringTable();
            else if (keyword.text == "BITMAP") ParseImage(ResourceType::Bitmap);
            else if (keyword.text == "ICON") ParseImage(ResourceType::Icon);
            else if (keyword.text == "TOOLBAR") ParseToolbar();
            else Fail(keyword, "unknown resource keyword '" + keyword.text + "'");
        }
        CheckToolbarStrips();
        std::stable_sort(m_result.resources.begin(), m_result.resources.end(), [](const CompiledResource& a, const CompiledResource& b) {
            return a.type != b.type ? a.type < b.type : a.id < b.id;
        });
        return std::move(m_result);
    }

private:
    struct ToolbarInfo {
        unsigned id;
        unsigned width, height;
        size_t buttons;
        int line;
    };
    struct StripInfo {
        unsigned width, height;
    };

    [[noreturn]] void Fail(const Token& at, const std::string& message) const { throw CompileError(m_file, at.line, message); }

    const Token& Peek() const { return m_tokens[m_pos]; }
    const Token& Take()
    {
        const Token& token = m_tokens[m_pos];
        if (token.kind != TokenKind::End) ++m_pos;
        return token;
    }
    bool TakeIf(TokenKind kind)
    {
        if (Peek().kind != kind) return false;
        ++m_pos;
        return true;
    }
    bool TakeWordIf(const char* word)
    {
        if (Peek().kind != TokenKind::Word || Peek().text != word) return false;
        ++m_pos;
        return true;
    }
    static std::string Shown(const Token& token) { return token.kind == TokenKind::End ? "the end of the file" : "'" + token.text + "'"; }

    unsigned ExpectNumber(const char* what, unsigned long long min, unsigned long long max)
    {
        const Token& token = Take();
        if (token.kind != TokenKind::Number) Fail(token, std::string("expected ") + what + ", found " + Shown(token));
        if (token.value < min || token.value > max)
            Fail(token, std::string(what) + " " + token.text + " is out of range " + std::to_string(min) + "-" + std::to_string(max));
        return static_cast<unsigned>(token.value);
    }
    const Token& ExpectString(const char* what)
    {
        const Token& token = Take();
        if (token.kind != TokenKind::String) Fail(token, std::string("expected ") + what + " in quotes, found " + Shown(token));
        return token;
    }
    void ExpectOpen()
    {
        if (!TakeIf(TokenKind::OpenBrace) && !TakeWordIf("BEGIN")) Fail(Peek(), "expected '{' or BEGIN, found " + Shown(Peek()));
    }
    bool TakeClose() { return TakeIf(TokenKind::CloseBrace) || TakeWordIf("END"); }
    void SkipComma() { TakeIf(TokenKind::Comma); }

    unsigned ExpectResourceId() { return ExpectNumber("resource id", 1, 0xFFFF); }

    void Add(ResourceType type, unsigned id, std::vector<unsigned char> data, int line)
    {
        const auto [it, inserted] = m_declared.emplace(std::make_pair(type, id), line);
        if (!inserted)
            throw CompileError(m_file, line, std::string(TypeKeyword(type)) + " " + std::to_string(id) + " is already defined at line " + std::to_string(it->second));
        m_result.resources.push_back({type, id, std::move(data), m_file, line});
    }

    void ParseMenu()
    {
        const int line = Take().line;
        const unsigned id = ExpectResourceId();
        std::vector<MenuNode> items = ParseMenuBlock(1);
        std::vector<unsigned char> data;
        PutWord(data, 0);  // version
        PutWord(data, 0);  // header size
        EncodeMenuLevel(items, data);
        Add(ResourceType::Menu, id, std::move(data), line);
    }

    // A { ... } of items at the given nesting level (1 for the top).
    std::vector<MenuNode> ParseMenuBlock(int depth)
    {
        const Token& open = Peek();
        if (depth > kMaxMenuTemplateDepth) Fail(open, "popups are nested deeper than " + std::to_string(kMaxMenuTemplateDepth) + " levels");
        ExpectOpen();
        std::vector<MenuNode> items;
        while (!TakeClose()) {
            const Token& keyword = Take();
            MenuNode node;
            node.line = keyword.line;
            if (keyword.kind == TokenKind::Word && keyword.text == "POPUP") {
                node.popup = true;
                node.text = ExpectString("popup text").text;
                node.flags = ParseItemOptions(false);
                node.children = ParseMenuBlock(depth + 1);
            } else if (keyword.kind == TokenKind::Word && keyword.text == "MENUITEM") {
                if (TakeWordIf("SEPARATOR")) {
                    node.separator = true;
                } else {
                    const Token& text = ExpectString("item text");
                    node.text = text.text;
                    SkipComma();
                    node.id = ExpectNumber("command id", 0, 0xFFFF);
                    if (node.id == 0 && node.text.empty()) Fail(text, "an item with id 0 and no text reads as a separator; write MENUITEM SEPARATOR");
                    node.flags = ParseItemOptions(true);
                }
            } else {
                Fail(keyword, "expected POPUP, MENUITEM or the end of the block, found " + Shown(keyword));
            }
            items.push_back(std::move(node));
        }
        // The template marks the end of a level on its last item, so a level needs one.
        if (items.empty()) Fail(open, depth == 1 ? "menu has no items" : "popup has no items");
        return items;
    }

    unsigned ParseItemOptions(bool allowChecked)
    {
        unsigned flags = 0;
        while (TakeIf(TokenKind::Comma)) {
            const Token& option = Take();
            if (option.kind == TokenKind::Word && option.text == "GRAYED") flags |= MF_GRAYED;
            else if (option.kind == TokenKind::Word && (option.text == "INACTIVE" || option.text == "DISABLED")) flags |= MF_DISABLED;
            else if (allowChecked && option.kind == TokenKind::Word && option.text == "CHECKED") flags |= MF_CHECKED;
            else Fail(option, "unknown item option " + Shown(option));
        }
        return flags;
    }

    void EncodeMenuLevel(const std::vector<MenuNode>& items, std::vector<unsigned char>& out) const
    {
        for (size_t i = 0; i < items.size(); ++i) {
            const MenuNode& node = items[i];
            unsigned flags = node.flags | (i + 1 == items.size() ? MF_END : 0u);
            if (node.popup) {
                PutWord(out, flags | MF_POPUP);
                AppendText(out, node.text, node.line);
                EncodeMenuLevel(node.children, out);
            } else {
                PutWord(out, flags);
                PutWord(out, node.id);
                AppendText(out, node.text, node.line);
            }
        }
    }

    void AppendText(std::vector<unsigned char>& out, const std::string& utf8, int line) const
    {
        const std::string gbk = ToGbk(utf8, m_file, line);
        if (gbk.find('\0') != std::string::npos) throw CompileError(m_file, line, "menu text holds a NUL character");
        out.insert(out.end(), gbk.begin(), gbk.end());
        out.push_back(0);
    }

    void ParseStringTable()
    {
        Take();
        ExpectOpen();
        while (!TakeClose()) {
            const int line = Peek().line;
            const unsigned id = ExpectNumber("string id", 1, 0xFFFF);
            SkipComma();
            const std::string gbk = ToGbk(ExpectString("string text").text, m_file, line);
            Add(ResourceType::String, id, std::vector<unsigned char>(gbk.begin(), gbk.end()), line);
        }
    }

    void ParseImage(ResourceType type)
    {
        const int line = Take().line;
        const unsigned id = ExpectResourceId();
        SkipComma();
        const Token& name = ExpectString("art file name");
        if (name.text.empty()) Fail(name, "art file name is empty");
        std::filesystem::path path(name.text);
        if (path.is_relative()) path = m_baseDir / path;
        const std::string resolved = path.lexically_normal().string();
        if (std::find(m_result.inputs.begin(), m_result.inputs.end(), resolved) == m_result.inputs.end()) m_result.inputs.push_back(resolved);
        const std::optional<std::string> text = m_read(resolved);
        if (!text) Fail(name, "cannot read art file '" + resolved + "'");

        const std::vector<ArtImage> images = ParseArt(*text, resolved);
        if (type == ResourceType::Bitmap) {
            m_strips[id] = {static_cast<unsigned>(images.size() * static_cast<size_t>(images.front().width)), static_cast<unsigned>(images.front().height)};
            Add(type, id, EncodeBitmapStrip(images, resolved), line);
        } else {
            Add(type, id, EncodeIcon(images, resolved), line);
        }
    }

    void ParseToolbar()
    {
        const int line = Take().line;
        ToolbarInfo info{};
        info.line = line;
        info.id = ExpectResourceId();
        SkipComma();
        info.width = ExpectNumber("button width", 1, 255);
        SkipComma();
        info.height = ExpectNumber("button height", 1, 255);
        ExpectOpen();
        std::vector<unsigned> ids;
        while (!TakeClose()) {
            if (TakeWordIf("BUTTON")) {
                ids.push_back(ExpectNumber("button command id", 1, 0xFFFF));
                ++info.buttons;
            } else if (TakeWordIf("SEPARATOR")) {
                ids.push_back(0);
            } else {
                Fail(Peek(), "expected BUTTON, SEPARATOR or the end of the block, found " + Shown(Peek()));
            }
        }
        if (ids.size() > 0xFFFF) throw CompileError(m_file, line, "toolbar has too many entries");
        std::vector<unsigned char> data;
        PutWord(data, 1);
        PutWord(data, info.width);
        PutWord(data, info.height);
        PutWord(data, static_cast<unsigned>(ids.size()));
        for (const unsigned id : ids) PutWord(data, id);
        m_toolbars.push_back(info);
        Add(ResourceType::Toolbar, info.id, std::move(data), line);
    }

    // A toolbar draws its buttons from the bitmap of the same id, one cell per
    // button; a mismatch would show the wrong images.
    void CheckToolbarStrips() const
    {
        for (const ToolbarInfo& toolbar : m_toolbars) {
            const auto it = m_strips.find(toolbar.id);
            if (it == m_strips.end()) continue;
            const StripInfo& strip = it->second;
            if (strip.height != toolbar.height || strip.width != toolbar.width * toolbar.buttons) {
                std::ostringstream message;
                message << "toolbar " << toolbar.id << " has " << toolbar.buttons << " buttons of " << toolbar.width << "x" << toolbar.height
                        << " but bitmap " << toolbar.id << " is " << strip.width << "x" << strip.height;
                throw CompileError(m_file, toolbar.line, message.str());
            }
        }
    }

    std::vector<Token> m_tokens;
    size_t m_pos = 0;
    std::string m_file;
    std::filesystem::path m_baseDir;
    const FileReader& m_read;
    CompileResult m_result;
    std::map<std::pair<ResourceType, unsigned>, int> m_declared;
    std::map<unsigned, StripInfo> m_strips;
    std::vector<ToolbarInfo> m_toolbars;
};

std::optional<std::string> ReadWholeFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    if (!in) return std::nullopt;
    std::ostringstream contents;
    contents << in.rdbuf();
    if (in.bad()) return std::nullopt;
    return contents.str();
}

}  // namespace

std::string ToGbk(std::string_view utf8, const std::string& file, int line)
{
    for (size_t i = 0; i < utf8.size();) {
        char32_t codePoint = 0;
        const size_t length = Utf8SequenceLength(utf8.substr(i), &codePoint);
        if (length == 0) throw CompileError(file, line, "text is not valid UTF-8");
        i += length;
    }
    iconv_t cd = iconv_open("GBK", "UTF-8");
    if (cd == reinterpret_cast<iconv_t>(-1)) throw CompileError(file, line, "the system has no UTF-8 to GBK conversion");
    std::unique_ptr<void, int (*)(iconv_t)> guard(cd, iconv_close);

    // GBK never takes more bytes than UTF-8 for the same text.
    std::string out(utf8.size() + 4, '\0');
    char* in = const_cast<char*>(utf8.data());
    size_t inLeft = utf8.size();
    char* outPtr = out.data();
    size_t outLeft = out.size();
    if (iconv(cd, &in, &inLeft, &outPtr, &outLeft) == static_cast<size_t>(-1)) {
        char32_t codePoint = 0;
        Utf8SequenceLength(utf8.substr(static_cast<size_t>(in - utf8.data())), &codePoint);
        char buffer[16];
        std::snprintf(buffer, sizeof buffer, "U+%04X", static_cast<unsigned>(codePoint));
        throw CompileError(file, line, std::string("character ") + buffer + " has no GBK form");
    }
    out.resize(out.size() - outLeft);
    return out;
}

CompileResult CompileScript(std::string_view text, const std::string& path, const FileReader& read)
{
    Parser parser(Tokenize(text, path), path, read);
    return parser.Run();
}

CompileResult CompileScriptFile(const std::string& path)
{
    const std::optional<std::string> text = ReadWholeFile(path);
    if (!text) throw CompileError(path, 1, "cannot read the resource script");
    return CompileScript(*text, path, ReadWholeFile);
}

}  // namespace rescomp
