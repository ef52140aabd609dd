// The bookmark and breakpoint views (the first byte picks one) over mark
// lists built from the input: any lines, texts of any bytes (GBK, invalid
// sequences, no terminator), paths past 255 bytes, null groups and null
// marks, unsorted and duplicate lines. The host then changes its list
// without the refresh it owes (groups and marks removed, inserted, edited,
// the list replaced, the context or the list gone, its requests unanswered,
// a hostile project path), refreshes with any hold value, and the user
// clicks, double clicks, presses keys and chooses from the context menu.
//
// A finding, beyond a crash or a sanitizer report (a freed mark read):
// a go-to names a file and line that the host's current list does not hold,
// or is sent with no list to look in; the host gets another command than
// the view's "clear all"; the hold flag does not follow the refreshes; a
// refresh that is carried out leaves other nodes (text, place, image) than
// the list's marks in order, or one that is not carried out changes a node.
#include <algorithm>
#include <array>
#include <climits>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "fuzz/support/fuzz_check.h"
#include "fuzz/support/op_stream.h"
#include "fuzz/support/view_session.h"
#include "marks/bookmark_tree_ctrl.h"
#include "marks/breakpoint_tree_ctrl.h"

namespace {


constexpr int kMaxOperations = 24;
constexpr unsigned kMaxGroupsRead = 12;
constexpr unsigned kMaxMarksRead = 20;
const CRect kPaneRect(0, 0, 240, 150);

struct BookmarkKind {
    using View = CBookMarkListTreeCtrl;
    using List = CBookMarkList;
    static constexpr std::array<UINT, 2> kCommands = {ID_BOOKMARK_SEEK, ID_EDIT_CLEAR_ALL_BOOKMARK};
    static constexpr UINT kHostCommand = ID_HOST_CLEAR_ALL_BOOKMARKS;
    static void Attach(ProjectContext& context, List* list) { context.bookMarkList = list; }
    static int Image(const CBookMarkItem&, std::int32_t) { return kImageBookmark; }
    static void SetActive(CBookMarkItem&, std::int32_t) {}
};

struct BreakpointKind {
    using View = CBreakPointListTreeCtrl;
    using List = CBreakPointList;
    static constexpr std::array<UINT, 2> kCommands = {ID_BREAKPOINT_SEEK, ID_EDIT_CLEAR_ALL_BKPT};
    static constexpr UINT kHostCommand = ID_HOST_CLEAR_ALL_BREAKPOINTS;
    static void Attach(ProjectContext& context, List* list) { context.breakPointList = list; }
    static int Image(const CBreakPointItem& item, std::int32_t hold) { return BreakPointImage(&item, hold); }
    static void SetActive(CBreakPointItem& item, std::int32_t active) { item.active = active; }
};

struct Node {
    std::string text;
    LPARAM data = 0;
    int image = 0;
    bool operator==(const Node&) const = default;
};

template <class View>
std::vector<Node> NodesOf(const View& view)
{
    std::vector<Node> nodes;
    TreeItemPeek peek;
    for (HTREEITEM node = view.GetRootItem(); node && view.PeekItem(node, peek); node = peek.nextSibling)
        nodes.push_back({std::string(peek.text), peek.data, peek.image});
    return nodes;
}

// Both views, each in a pane of its own at the same place; an input shows one.
struct Session {
    Session()
    {
        FuzzViews::HostView(host, bookmarkPane, bookmarks, kPaneRect);
        FuzzViews::HostView(host, breakpointPane, breakpoints, kPaneRect);
    }

    TestHost host;
    TestPane bookmarkPane;
    CBookMarkListTreeCtrl bookmarks;
    TestPane breakpointPane;
    CBreakPointListTreeCtrl breakpoints;
    // The host's lists, replaced at each input after the views let go of them.
    std::unique_ptr<CBookMarkList> bookmarkList;
    std::unique_ptr<CBreakPointList> breakpointList;
};

template <class Kind>
class MarkRun {
public:
    using View = typename Kind::View;
    using List = typename Kind::List;
    using Group = typename List::GroupType;
    using Item = typename Group::ItemType;

    MarkRun(TestHost& host, TestPane& pane, View& view, std::unique_ptr<List>& list)
        : m_host(host), m_pane(pane), m_view(view), m_list(list)
    {
    }

    void Run(OpStream& ops)
    {
        for (unsigned g = ops.Below(kMaxGroupsRead + 1); g > 0; --g) m_list->Add(ReadGroup(ops));
        for (int i = 0; i < kMaxOperations && !ops.Done(); ++i) {
            switch (ops.Below(12)) {
            case 0:
            case 1:
                Refresh(ops);
                break;
            case 2:
            case 3:
                FuzzViews::PlayGesture(ops, m_pane, Kind::kCommands);
                break;
            case 4:
                ChangeList(ops);
                break;
            case 5:
            case 6:
                ChangeGroup(ops);
                break;
            case 7:
                ChangeMark(ops);
                break;
            case 8:
                ChangeHost(ops);
                break;
            case 9:
                FuzzViews::PaintPass(m_pane);
                break;
            case 10:
                m_view.SendMessage(UWM_DOCK_FONT_CHANGED);
                break;
            default:
                FuzzViews::ResizePane(ops, m_pane);
                break;
            }
            CheckHost();
        }
        FuzzViews::PaintPass(m_pane);
    }

private:
    // ------------------------------------------------------------ building

    Item* ReadMark(OpStream& ops)
    {
        const unsigned flags = ops.Byte();
        auto* item = new Item;
        constexpr std::array<std::int32_t, 6> kLines = {0, 1, -1, INT_MAX, INT_MIN, 65536};
        const unsigned lineChoice = flags & 7;
        item->line = lineChoice < kLines.size() ? kLines[lineChoice] : ops.I32();
        const std::string text = ops.Text(sizeof item->text);
        text.copy(item->text, sizeof item->text);
        // The text fills its field with no terminator, ending in a GBK lead byte.
        if (flags & 8) std::memset(item->text + text.size(), 0x81, sizeof item->text - text.size());
        Kind::SetActive(*item, (flags & 16) ? ops.I32() : 0);
        return item;
    }

    // Adds a mark (or a hole) as the host would, or carelessly at the end.
    void AddMark(OpStream& ops, Group& group)
    {
        const unsigned how = ops.Byte();
        if ((how & 3) == 0) {
            group.InsertAt(static_cast<int>(how >> 2), nullptr);
            return;
        }
        Item* item = ReadMark(ops);
        if ((how & 3) == 1) {
            group.Add(item);
            return;
        }
        const int before = group.GetSize();
        group.OrdAdd(item);
        if (group.GetSize() == before) delete item;  // a line already there: still ours
    }

    Group* ReadGroup(OpStream& ops)
    {
        if (ops.Below(8) == 0) return nullptr;
        auto* group = new Group;
        group->file = ops.Text(300).c_str();
        for (unsigned m = ops.Below(kMaxMarksRead + 1); m > 0; --m) AddMark(ops, *group);
        return group;
    }

    static void FreeGroup(Group* group)
    {
        if (!group) return;
        group->ReleaseAllItems();
        delete group;
    }

    // ------------------------------------------------------------ the host's careless changes

    Group* PickGroup(OpStream& ops) const
    {
        return m_list->GetSize() ? m_list->GroupAt(static_cast<int>(ops.Below(256)) % m_list->GetSize()) : nullptr;
    }

    void ChangeList(OpStream& ops)
    {
        const int size = m_list->GetSize();
        const int index = static_cast<int>(ops.Byte());
        switch (ops.Below(5)) {
        case 0:  // a group removed
            if (size) {
                FreeGroup(m_list->GroupAt(index % size));
                m_list->RemoveAt(index % size);
            }
            break;
        case 1:  // a group inserted, anywhere (past the end pads with holes)
            m_list->InsertAt(index, ReadGroup(ops));
            break;
        case 2:  // a group freed, its slot left empty
            if (size) {
                FreeGroup(m_list->GroupAt(index % size));
                m_list->SetAt(index % size, nullptr);
            }
            break;
        case 3: {  // a new list published, the old one freed
            auto fresh = std::make_unique<List>();
            for (unsigned g = ops.Below(kMaxGroupsRead + 1); g > 0; --g) fresh->Add(ReadGroup(ops));
            if (m_attached) Kind::Attach(m_host.context, fresh.get());
            m_list = std::move(fresh);
            break;
        }
        default:  // every group freed
            m_list->ReleaseAllItems();
            break;
        }
    }

    void ChangeGroup(OpStream& ops)
    {
        Group* group = PickGroup(ops);
        if (!group) return;
        const int size = group->GetSize();
        const int index = static_cast<int>(ops.Byte());
        switch (ops.Below(5)) {
        case 0:
            AddMark(ops, *group);
            break;
        case 1:  // a mark removed
            if (size) {
                delete group->ItemAt(index % size);
                group->RemoveAt(index % size);
            }
            break;
        case 2:  // a mark freed, its slot left empty
            if (size) {
                delete group->ItemAt(index % size);
                group->SetAt(index % size, nullptr);
            }
            break;
        case 3:
            group->file = ops.Text(300).c_str();
            break;
        default:
            group->ReleaseAllItems();
            break;
        }
    }

    void ChangeMark(OpStream& ops)
    {
        Group* group = PickGroup(ops);
        Item* item = group && group->GetSize() ? group->ItemAt(static_cast<int>(ops.Byte()) % group->GetSize()) : nullptr;
        if (!item) return;
        Item* changed = ReadMark(ops);
        *item = *changed;
        delete changed;
    }

    void ChangeHost(OpStream& ops)
    {
        switch (ops.Below(5)) {
        case 0:
            m_host.appData.context = m_host.appData.context ? nullptr : &m_host.context;
            break;
        case 1:
            m_attached = !m_attached;
            Kind::Attach(m_host.context, m_attached ? m_list.get() : nullptr);
            break;
        case 2:
            m_host.answersAppData = !m_host.answersAppData;
            break;
        case 3:
            m_host.answersProjectPath = !m_host.answersProjectPath;
            break;
        default:
            m_host.projectPath = ops.Text(400);
            break;
        }
    }

    // ------------------------------------------------------------ refreshes and what the host got

    // The list the view finds when it asks the host, or null.
    const List* ReachableList() const
    {
        return m_host.answersAppData && m_host.appData.context && m_attached ? m_list.get() : nullptr;
    }

    void Refresh(OpStream& ops)
    {
        constexpr std::array<WPARAM, 5> kHolds = {0, 1, 2, 0xFFFFFFFF, WPARAM(1) << 32};
        const unsigned choice = ops.Below(8);
        const WPARAM hold = choice < kHolds.size() ? kHolds[choice] : static_cast<WPARAM>(ops.U64());
        const std::int32_t heldBefore = m_view.GetHoldFlag();
        const std::vector<Node> before = NodesOf(m_view);

        m_view.SendMessage(UWM_REFRESH_VIEW, hold, 0);

        if (heldBefore && hold) {
            FUZZ_CHECK(m_view.GetHoldFlag() == heldBefore);
            FUZZ_CHECK(NodesOf(m_view) == before);
            return;
        }
        const std::int32_t expectedHold = hold == 0 ? 0 : (static_cast<std::int32_t>(hold) ? static_cast<std::int32_t>(hold) : 1);
        FUZZ_CHECK(m_view.GetHoldFlag() == expectedHold);
        const List* list = ReachableList();
        FUZZ_CHECK(NodesOf(m_view) == (list ? Expected(*list, expectedHold) : before));
    }

    // The nodes a refresh must leave: the marks of every group in order, a
    // null group skipped, a group's marks up to its first hole.
    std::vector<Node> Expected(const List& list, std::int32_t hold) const
    {
        char base[kPathBytes];
        HostLink::QueryProjectDirectory(base);
        CMarkTextMaker texts;
        std::vector<Node> nodes;
        for (int f = 0; f < std::min(list.GetSize(), kMaxMarkGroups); ++f) {
            const Group* group = list.GroupAt(f);
            if (!group) continue;
            texts.BeginFile(group->file, base);
            for (int e = 0; e < std::min(group->GetSize(), kMaxMarksPerGroup); ++e) {
                const Item* item = group->ItemAt(e);
                if (!item) break;
                nodes.push_back({texts.Text(item->line, FieldText(item->text)), static_cast<LPARAM>(EncodeMarkData(f, e)),
                                 Kind::Image(*item, hold)});
            }
        }
        return nodes;
    }

    // A go-to names a mark of the list the host holds now; the only command
    // is the view's "clear all".
    void CheckHost()
    {
        const auto& received = m_host.Received();
        for (; m_seen < received.size(); ++m_seen) {
            const HostRecord& record = received[m_seen];
            if (record.message == WM_COMMAND) FUZZ_CHECK(record.wParam == Kind::kHostCommand);
            if (record.message != UWM_GOTO_SOURCE) continue;
            const List* list = ReachableList();
            FUZZ_CHECK(list != nullptr);
            bool found = false;
            for (int f = 0; f < list->GetSize() && !found; ++f) {
                const Group* group = list->GroupAt(f);
                if (!group || record.text != group->file.GetString()) continue;
                for (int e = 0; e < group->GetSize() && !found; ++e) {
                    const Item* item = group->ItemAt(e);
                    found = item && item->line == static_cast<std::int32_t>(record.lParam);
                }
            }
            FUZZ_CHECK(found);
        }
    }

    TestHost& m_host;
    TestPane& m_pane;
    View& m_view;
    std::unique_ptr<List>& m_list;
    bool m_attached = true;
    size_t m_seen = 0;
};

// Fresh empty lists, shown by both views (which empties them and releases
// any hold), and the old lists freed once no view can look at them.
void ResetLists(Session& session)
{
    auto bookmarks = std::make_unique<CBookMarkList>();
    auto breakpoints = std::make_unique<CBreakPointList>();
    session.host.context.bookMarkList = bookmarks.get();
    session.host.context.breakPointList = breakpoints.get();
    session.bookmarks.SendMessage(UWM_REFRESH_VIEW, 0, 0);
    session.breakpoints.SendMessage(UWM_REFRESH_VIEW, 0, 0);
    session.bookmarkList = std::move(bookmarks);
    session.breakpointList = std::move(breakpoints);
}

template <class Kind>
void RunOn(Session& session, TestPane& shown, TestPane& hidden, typename Kind::View& view,
           std::unique_ptr<typename Kind::List>& list, OpStream& ops)
{
    hidden.ShowWindow(SW_HIDE);
    shown.ShowWindow(SW_SHOW);
    shown.MoveWindow(kPaneRect.left, kPaneRect.top, kPaneRect.Width(), kPaneRect.Height());
    FuzzViews::BeginInput(session.host, shown);
    ResetLists(session);
    MarkRun<Kind>(session.host, shown, view, list).Run(ops);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    static Session* session = new Session;
    OpStream ops(data, size);
    if (ops.Bool()) {
        RunOn<BreakpointKind>(*session, session->breakpointPane, session->bookmarkPane, session->breakpoints,
                              session->breakpointList, ops);
    } else {
        RunOn<BookmarkKind>(*session, session->bookmarkPane, session->breakpointPane, session->bookmarks,
                            session->bookmarkList, ops);
    }
    return 0;
}
