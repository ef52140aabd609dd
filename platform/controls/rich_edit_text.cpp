#include "platform/controls/rich_edit_text.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <iterator>

#include "platform/text/gbk.h"

namespace richedit {
namespace {

// Adds a run at `start` to runs that end before it. An empty run at the
// same start gives way, and a run of the format already running is no run.
void AppendRun(std::vector<Run>& runs, int start, CharColor format)
{
    if (!runs.empty() && runs.back().start == start) runs.pop_back();
    if (!runs.empty() && runs.back().format == format) return;
    runs.push_back({start, format});
}

// The runs over [from, to) of a line, counted from `from`.
std::vector<Run> Slice(const std::vector<Run>& runs, int from, int to)
{
    std::vector<Run> out;
    for (size_t i = 0; i < runs.size(); ++i) {
        const int start = runs[i].start;
        const int end = i + 1 < runs.size() ? runs[i + 1].start : INT_MAX;
        if (end <= from || start >= to) continue;
        AppendRun(out, std::max(start, from) - from, runs[i].format);
    }
    return out;
}

// Gives offsets [lo, hi) of the line the format; hi may reach the line end.
void ApplyFormat(Line& line, int lo, int hi, CharColor format)
{
    const int end = line.Size() + 1;
    const CharColor after = hi < end ? line.FormatAt(hi) : CharColor();
    std::vector<Run> out;
    for (const Run& run : line.runs) {
        if (run.start >= lo) break;
        AppendRun(out, run.start, run.format);
    }
    AppendRun(out, lo, format);
    if (hi < end) {
        AppendRun(out, hi, after);
        for (const Run& run : line.runs)
            if (run.start > hi) AppendRun(out, run.start, run.format);
    }
    line.runs = std::move(out);
}

}  // namespace

CharColor Line::FormatAt(int offset) const
{
    const auto after = std::upper_bound(runs.begin(), runs.end(), offset, [](int o, const Run& run) { return o < run.start; });
    return after == runs.begin() ? runs.front().format : std::prev(after)->format;
}

std::string NormalizeInput(std::string_view text, bool singleLine)
{
    std::string out;
    out.reserve(text.size());
    const auto isBreak = [](char c) { return c == '\r' || c == '\n'; };
    for (size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (isBreak(c)) {
            if (singleLine) break;
            if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
            out += '\r';
        } else if (IsDBCSLeadByte(static_cast<unsigned char>(c))) {
            if (i + 1 < text.size() && !isBreak(text[i + 1]) && text[i + 1] != '\0') {
                out += c;
                out += text[++i];
            } else {
                out += '?';
            }
        } else {
            out += c;
        }
    }
    return out;
}

bool IsWordCharAt(std::string_view text, size_t offset)
{
    if (offset >= text.size()) return false;
    if (GbkCharLength(text, offset) == 2) return true;
    const auto c = static_cast<unsigned char>(text[offset]);
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

int SnapInLine(const std::string& text, int offset)
{
    const int size = static_cast<int>(text.size());
    if (offset <= 0) return 0;
    if (offset >= size) return size;
    int pos = 0;
    while (pos < size) {
        const int length = GbkCharLength(text, static_cast<size_t>(pos));
        if (pos + length > offset) return pos;
        pos += length;
    }
    return size;
}

int NextInLine(const std::string& text, int offset)
{
    if (offset < 0) return 0;
    if (offset >= static_cast<int>(text.size())) return static_cast<int>(text.size());
    return offset + GbkCharLength(text, static_cast<size_t>(offset));
}

int PrevInLine(const std::string& text, int offset)
{
    int previous = 0;
    for (int pos = 0; pos < offset && pos < static_cast<int>(text.size());) {
        previous = pos;
        pos += GbkCharLength(text, static_cast<size_t>(pos));
    }
    return previous;
}

TextStore::TextStore()
{
    Reset(CharColor());
}

void TextStore::Reset(CharColor format)
{
    m_lines.assign(1, Line{std::string(), {Run{0, format}}});
    m_index.Assign({1});
}

Pos TextStore::Snap(Pos pos) const
{
    pos = std::clamp<Pos>(pos, 0, Length());
    const size_t line = LineOf(pos);
    const Pos start = LineStart(line);
    return start + SnapInLine(m_lines[line].text, static_cast<int>(pos - start));
}

Pos TextStore::NextChar(Pos pos) const
{
    pos = Snap(pos);
    const size_t line = LineOf(pos);
    const Pos start = LineStart(line);
    const int offset = static_cast<int>(pos - start);
    if (offset < m_lines[line].Size()) return start + NextInLine(m_lines[line].text, offset);
    return line + 1 < m_lines.size() ? pos + 1 : pos;
}

Pos TextStore::PrevChar(Pos pos) const
{
    pos = Snap(pos);
    const size_t line = LineOf(pos);
    const Pos start = LineStart(line);
    if (pos > start) return start + PrevInLine(m_lines[line].text, static_cast<int>(pos - start));
    return line > 0 ? pos - 1 : pos;
}

CharColor TextStore::FormatAt(Pos pos) const
{
    pos = std::clamp<Pos>(pos, 0, Length());
    const size_t line = LineOf(pos);
    return m_lines[line].FormatAt(static_cast<int>(pos - LineStart(line)));
}

bool TextStore::SameFormat(Pos from, Pos to, CharColor* first) const
{
    from = std::clamp<Pos>(from, 0, Length());
    to = std::clamp<Pos>(to, from, Length());
    const CharColor format = FormatAt(from);
    if (first) *first = format;
    Pos start = LineStart(LineOf(from));
    for (size_t line = LineOf(from); line < m_lines.size() && start < to; ++line) {
        const Line& l = m_lines[line];
        const int lo = static_cast<int>(std::max<Pos>(from - start, 0));
        const int hi = static_cast<int>(std::min<Pos>(to - start, l.Size() + 1));
        for (size_t i = 0; i < l.runs.size(); ++i) {
            const int runEnd = i + 1 < l.runs.size() ? l.runs[i + 1].start : INT_MAX;
            if (runEnd <= lo || l.runs[i].start >= hi) continue;
            if (!(l.runs[i].format == format)) return false;
        }
        start += l.Size() + 1;
    }
    return true;
}

Change TextStore::Replace(Pos from, Pos to, std::string_view text, CharColor format)
{
    const size_t a = LineOf(from);
    const size_t b = LineOf(to);
    const int headSize = static_cast<int>(from - LineStart(a));
    const int tailFrom = static_cast<int>(to - LineStart(b));
    const Line& lineA = m_lines[a];
    const Line& lineB = m_lines[b];

    std::vector<std::string_view> pieces;
    for (size_t begin = 0;;) {
        const size_t brk = text.find('\r', begin);
        pieces.push_back(text.substr(begin, brk == std::string_view::npos ? std::string_view::npos : brk - begin));
        if (brk == std::string_view::npos) break;
        begin = brk + 1;
    }

    std::vector<Line> lines(pieces.size());
    lines.front().text.assign(lineA.text, 0, static_cast<size_t>(headSize));
    lines.front().runs = Slice(lineA.runs, 0, headSize);
    for (size_t i = 0; i < pieces.size(); ++i) {
        Line& line = lines[i];
        if (!pieces[i].empty()) {
            AppendRun(line.runs, line.Size(), format);
            line.text.append(pieces[i]);
        }
        // The "\r" ending this line is new text as well.
        if (i + 1 < pieces.size()) AppendRun(line.runs, line.Size(), format);
    }
    Line& last = lines.back();
    const int shift = last.Size();
    last.text.append(lineB.text, static_cast<size_t>(tailFrom));
    for (const Run& run : Slice(lineB.runs, tailFrom, lineB.Size() + 1)) AppendRun(last.runs, run.start + shift, run.format);

    const size_t added = lines.size();
    Splice(a, b, lines);
    return Change{a, b + 1, a + added};
}

void TextStore::Splice(size_t first, size_t last, std::vector<Line>& lines)
{
    const size_t oldCount = last - first + 1;
    const size_t newCount = lines.size();
    const size_t common = std::min(oldCount, newCount);
    if (oldCount == newCount) {
        for (size_t i = 0; i < common; ++i) {
            const std::int64_t delta = lines[i].Size() - m_lines[first + i].Size();
            m_lines[first + i] = std::move(lines[i]);
            m_index.Add(first + i, delta);
        }
        return;
    }
    const bool atEnd = last + 1 == m_lines.size();
    for (size_t i = 0; i < common; ++i) m_lines[first + i] = std::move(lines[i]);
    if (newCount > oldCount) {
        m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(last + 1), std::make_move_iterator(lines.begin() + static_cast<std::ptrdiff_t>(common)),
                       std::make_move_iterator(lines.end()));
    } else {
        m_lines.erase(m_lines.begin() + static_cast<std::ptrdiff_t>(first + newCount), m_lines.begin() + static_cast<std::ptrdiff_t>(last + 1));
    }
    if (atEnd) {
        // Only the end moved: the sums before `first` still hold.
        while (m_index.Count() > first) m_index.PopBack();
        for (size_t i = first; i < m_lines.size(); ++i) m_index.PushBack(m_lines[i].Size() + 1);
        return;
    }
    std::vector<std::int64_t> sizes;
    sizes.reserve(m_lines.size());
    for (const Line& line : m_lines) sizes.push_back(line.Size() + 1);
    m_index.Assign(sizes);
}

void TextStore::SetFormat(Pos from, Pos to, CharColor format)
{
    from = std::clamp<Pos>(from, 0, Length());
    to = std::clamp<Pos>(to, from, Length());
    if (from >= to) return;
    size_t line = LineOf(from);
    for (Pos start = LineStart(line); line < m_lines.size() && start < to; ++line) {
        Line& l = m_lines[line];
        const int lo = static_cast<int>(std::max<Pos>(from - start, 0));
        const int hi = static_cast<int>(std::min<Pos>(to - start, l.Size() + 1));
        if (lo < hi) ApplyFormat(l, lo, hi, format);
        start += l.Size() + 1;
    }
}

void TextStore::SetAllFormats(CharColor format)
{
    for (Line& line : m_lines) line.runs.assign(1, Run{0, format});
}

size_t TextStore::CopyOut(Pos from, Pos to, bool crlf, char* dest, size_t capacity) const
{
    from = std::clamp<Pos>(from, 0, Length());
    to = std::clamp<Pos>(to, from, Length());
    size_t written = 0;
    size_t line = LineOf(from);
    for (Pos start = LineStart(line); line < m_lines.size() && start <= to && from < to; ++line) {
        const Line& l = m_lines[line];
        const int lo = static_cast<int>(std::max<Pos>(from - start, 0));
        const int hi = static_cast<int>(std::min<Pos>(to - start, l.Size()));
        if (lo < hi) {
            int cut = hi;
            if (written + static_cast<size_t>(hi - lo) > capacity) {
                const std::string_view part = std::string_view(l.text).substr(static_cast<size_t>(lo), static_cast<size_t>(hi - lo));
                cut = lo + static_cast<int>(GbkPrefixBytes(part, capacity - written));
            }
            std::memcpy(dest + written, l.text.data() + lo, static_cast<size_t>(cut - lo));
            written += static_cast<size_t>(cut - lo);
            if (cut < hi) return written;
        }
        const Pos end = start + l.Size();
        if (end < to && line + 1 < m_lines.size()) {
            if (written + (crlf ? 2 : 1) > capacity) return written;
            dest[written++] = '\r';
            if (crlf) dest[written++] = '\n';
        }
        start = end + 1;
    }
    return written;
}

std::string TextStore::Text(Pos from, Pos to, bool crlf) const
{
    from = std::clamp<Pos>(from, 0, Length());
    to = std::clamp<Pos>(to, from, Length());
    const size_t breaks = crlf ? LineOf(to) - LineOf(from) : 0;
    std::string out(static_cast<size_t>(to - from) + breaks, '\0');
    out.resize(CopyOut(from, to, crlf, out.data(), out.size()));
    return out;
}

}  // namespace richedit
