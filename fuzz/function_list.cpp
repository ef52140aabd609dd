// The function list view over entry containers built from the input: texts
// of any bytes (embedded NULs, GBK, invalid sequences, long), any lines,
// null entries, names out of order, containers padded past the 3,000-line
// cap. The host shows them with refreshes and show-file requests whose file
// is null, empty, long or GBK, asks for lines that exist or not, and edits a
// shown container without a refresh; the user types letters (the search by
// initial), clicks, double clicks, presses Enter and other keys, and
// chooses from the context menu.
//
// A finding, beyond a crash or a sanitizer report: a report to the host
// (UWM_FUNCLIST_SELECTED, UWM_GOTO_SOURCE) that names another file than the
// one shown or a line no shown entry has; a shown file name past 255 bytes
// or not a prefix of the one sent; a refresh that leaves other lines than
// the container's entries in order (null entries taking none, the first
// 3,000 slots only).
#include <algorithm>
#include <array>
#include <climits>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "funclist/func_list_tree_ctrl.h"
#include "fuzz/support/fuzz_check.h"
#include "fuzz/support/op_stream.h"
#include "fuzz/support/view_session.h"
#include "host/resource_ids.h"
#include "platform/text/compare.h"

namespace {


constexpr int kMaxOperations = 24;
constexpr unsigned kContainers = 3;
constexpr unsigned kMaxEntriesRead = 40;
constexpr std::uint8_t kPadPastTheCap = 0xCA;
constexpr std::array<UINT, 1> kMenuCommands = {ID_FUNLIST_SEEK};

struct Session {
    Session() { FuzzViews::HostView(host, pane, view, CRect(0, 0, 200, 160)); }

    TestHost host;
    TestPane pane;
    CFuncListTreeCtrl view;
    // The host's containers; freed only once the view shows none of them.
    std::array<std::unique_ptr<CFuncSeekItems>, kContainers> containers;
};

CFuncSeekItem* ReadEntry(OpStream& ops)
{
    const unsigned flags = ops.Byte();
    if ((flags & 7) == 0) return nullptr;
    auto* entry = new CFuncSeekItem;
    // Long texts only now and then: they cost a line of their own each.
    const size_t longest = (flags & 8) ? 600 : 24;
    entry->typeText = CString(std::string_view(ops.Text(longest)));
    entry->name = CString(std::string_view(ops.Text(longest)));
    entry->paramText = CString(std::string_view(ops.Text(longest)));
    constexpr std::array<std::int32_t, 4> kLines = {0, -1, INT_MAX, INT_MIN};
    entry->line = (flags & 16) ? kLines[(flags >> 5) & 3] : ops.I32();
    return entry;
}

std::unique_ptr<CFuncSeekItems> ReadContainer(OpStream& ops)
{
    auto container = std::make_unique<CFuncSeekItems>();
    for (unsigned n = ops.Below(kMaxEntriesRead + 1); n > 0; --n) container->Add(ReadEntry(ops));
    // Null slots past the cap: the warning and the cut, without 3,000 entries
    // to build. Only behind one byte value, not the zeros inputs are full of,
    // as every pass over such a container costs 3,000 steps.
    if (ops.Byte() == kPadPastTheCap) container->SetSize(kFuncListMaxLines + static_cast<int>(ops.Byte()));
    return container;
}

class FunctionListRun {
public:
    explicit FunctionListRun(Session& session) : m_session(session), m_view(session.view) {}

    void Run(OpStream& ops)
    {
        for (int i = 0; i < kMaxOperations && !ops.Done(); ++i) {
            switch (ops.Below(12)) {
            case 0:
                ReplaceContainer(ops);
                break;
            case 1:
            case 2:
                Show(ops, UWM_REFRESH_VIEW);
                break;
            case 3:
                Show(ops, UWM_FUNCLIST_SHOW_FILE);
                break;
            case 4:
                SeekLine(ops);
                break;
            case 5:
                ChangeContainer(ops);
                break;
            case 6:
            case 7:
            case 8:
                FuzzViews::PlayGesture(ops, m_session.pane, kMenuCommands);
                break;
            case 9:
                FuzzViews::PaintPass(m_session.pane);
                break;
            case 10:
                m_view.SendMessage(UWM_DOCK_FONT_CHANGED);
                break;
            default:
                FuzzViews::ResizePane(ops, m_session.pane);
                break;
            }
            CheckHost();
        }
        FuzzViews::PaintPass(m_session.pane);
    }

private:
    // The host builds a new container in place of one it holds; the shown
    // one it keeps, since the view points at it.
    void ReplaceContainer(OpStream& ops)
    {
        auto& slot = m_session.containers[ops.Below(kContainers)];
        auto fresh = ReadContainer(ops);
        if (slot.get() != m_view.GetShownList()) slot = std::move(fresh);
    }

    CFuncSeekItems* PickContainer(OpStream& ops) const
    {
        const unsigned choice = ops.Below(kContainers + 1);
        return choice < kContainers ? m_session.containers[choice].get() : nullptr;
    }

    // A file argument: null, or a terminated text of any bytes, sometimes
    // far past the 255 bytes the view keeps.
    static const char* PickFile(OpStream& ops, std::string& storage)
    {
        const unsigned how = ops.Byte();
        if ((how & 7) == 0) return nullptr;
        storage = ops.Text(how & 8 ? 5000 : 300);
        if (how & 16) storage.append(static_cast<size_t>(how) * 20, '\xB0');
        return storage.c_str();
    }

    void Show(OpStream& ops, UINT message)
    {
        std::string storage;
        const char* file = PickFile(ops, storage);
        CFuncSeekItems* list = PickContainer(ops);
        const std::string shownBefore = m_view.GetCurrentFile();
        const std::vector<Line> linesBefore = Lines();
        m_view.SendMessage(message, reinterpret_cast<WPARAM>(file), reinterpret_cast<LPARAM>(list));

        const bool shows = file && (message == UWM_REFRESH_VIEW || _stricmp(file, shownBefore.c_str()) != 0);
        const std::string shown = m_view.GetCurrentFile();
        FUZZ_CHECK(shown.size() < kPathBytes);
        if (!shows) {
            FUZZ_CHECK(shown == shownBefore && Lines() == linesBefore);
            return;
        }
        FUZZ_CHECK(std::string_view(file).starts_with(shown));
        FUZZ_CHECK(m_view.GetShownList() == list);
        FUZZ_CHECK(Matches(Lines(), list));
    }

    void SeekLine(OpStream& ops)
    {
        const std::vector<Line> lines = Lines();
        // A line the view shows, or any value.
        const unsigned choice = ops.Byte();
        const WPARAM line = choice < lines.size() ? static_cast<WPARAM>(lines[choice].data) : static_cast<WPARAM>(ops.U64());
        m_view.SendMessage(UWM_FUNCLIST_SEEK_LINE, line);
        FUZZ_CHECK(Lines() == lines);
    }

    // The host edits a container, shown or not, without telling the view.
    void ChangeContainer(OpStream& ops)
    {
        CFuncSeekItems* list = PickContainer(ops);
        if (!list) return;
        const int size = list->GetSize();
        const int index = size ? static_cast<int>(ops.U16()) % size : 0;
        switch (ops.Below(5)) {
        case 0:
            list->InsertAt(index, ReadEntry(ops));
            break;
        case 1:
            if (size) {
                delete list->ItemAt(index);
                list->RemoveAt(index);
            }
            break;
        case 2:
            if (CFuncSeekItem* entry = list->ItemAt(index)) entry->name = CString(std::string_view(ops.Text(24)));
            break;
        case 3:
            if (CFuncSeekItem* entry = list->ItemAt(index)) entry->line = ops.I32();
            break;
        default:
            list->ReleaseAllItems();
            break;
        }
    }

    struct Line {
        std::string text;
        LPARAM data = 0;
        bool operator==(const Line&) const = default;
    };

    std::vector<Line> Lines() const
    {
        std::vector<Line> lines;
        TreeItemPeek peek;
        for (HTREEITEM node = m_view.GetRootItem(); node && m_view.PeekItem(node, peek); node = peek.nextSibling)
            lines.push_back({std::string(peek.text), peek.data});
        return lines;
    }

    // The lines a container must leave. A line whose text differs only in
    // letter case may keep its old text, so texts are compared folded.
    static bool Matches(const std::vector<Line>& lines, const CFuncSeekItems* list)
    {
        size_t k = 0;
        const int count = list ? std::min(list->GetSize(), kFuncListMaxLines) : 0;
        std::string text;
        for (int i = 0; i < count; ++i) {
            const CFuncSeekItem* entry = list->ItemAt(i);
            if (!entry) continue;
            if (k >= lines.size()) return false;
            text.clear();
            CFuncListTreeCtrl::AppendTreeText(text, *entry);
            if (CompareFolded(lines[k].text, text) != 0 || lines[k].data != static_cast<LPARAM>(entry->line)) return false;
            ++k;
        }
        return k == lines.size();
    }

    // Every report names the shown file and a line the view shows.
    void CheckHost()
    {
        const auto& received = m_session.host.Received();
        if (m_seen == received.size()) return;
        const std::vector<Line> lines = Lines();
        for (; m_seen < received.size(); ++m_seen) {
            const HostRecord& record = received[m_seen];
            if (record.message != UWM_GOTO_SOURCE && record.message != UWM_FUNCLIST_SELECTED) continue;
            FUZZ_CHECK(record.text == m_view.GetCurrentFile());
            FUZZ_CHECK(std::any_of(lines.begin(), lines.end(), [&](const Line& line) { return line.data == record.lParam; }));
        }
    }

    Session& m_session;
    CFuncListTreeCtrl& m_view;
    size_t m_seen = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    static Session* session = new Session;
    OpStream ops(data, size);
    FuzzViews::BeginInput(session->host, session->pane);
    session->pane.MoveWindow(0, 0, 200, 160);
    // The view lets go of the last input's containers before they are freed.
    session->view.SendMessage(UWM_REFRESH_VIEW, reinterpret_cast<WPARAM>(""), 0);
    for (auto& container : session->containers) container = ReadContainer(ops);
    FunctionListRun(*session).Run(ops);
    return 0;
}
