// The message view (build, search and debug message panes) fed the host's
// MessageLineRecords with any bytes: texts and paths without a terminator,
// hostile levels, located flags and lines, reserved bytes; interleaved with
// appends that start a new output, prepends, null records, the host's go-to
// request, font changes, resizes, the user's clicks, double clicks, keys,
// wheel and menu choices, and paint passes.
//
// A finding, beyond a crash or a sanitizer report: the view holds another
// number of records than the host gave it; a go-to reaches the host under
// the wrong message for the pane's mode, or names a file and line no located
// record holds; the red mark lies outside the text; or the text shown is not
// the records' texts (indented by level when appended) in their order.
#include <algorithm>
#include <array>
#include <cstring>
#include <deque>
#include <string>

#include "fuzz/support/fuzz_check.h"
#include "fuzz/support/op_stream.h"
#include "fuzz/support/view_session.h"
#include "host/resource_ids.h"
#include "output/message_edit_ctrl.h"
#include "platform/controls/rich_edit_text.h"
#include "platform/menu/menu_driver.h"
#include "platform/text/field_text.h"
#include "siblings/orv_project_misc.h"

namespace {


constexpr int kMaxOperations = 24;
constexpr std::array<UINT, 4> kMenuCommands = {ID_MESSAGE_COPY, ID_MESSAGE_CLEAR, ID_MESSAGE_SEEK, ID_MESSAGE_STOP};

// What the view is expected to hold of one record.
struct KeptRecord {
    bool located = false;
    std::string file;  // as handed to the host: cut to the field's 255 bytes
    std::int32_t line = 0;
};

struct Session {
    Session() { FuzzViews::HostView(host, pane, view, CRect(0, 0, 300, 150)); }

    TestHost host;
    TestPane pane;
    CMessageEditCtrl view;
};

// The levels a host might send, the bad ones first.
std::int32_t ReadLevel(OpStream& ops, unsigned choice)
{
    constexpr std::array<std::int32_t, 7> kLevels = {0, 1, 2, -1, 0x7FFFFFFF, INT32_MIN, kMaxIndentLevel + 1};
    return choice < kLevels.size() ? kLevels[choice] : ops.I32();
}

// A record from the input. Flags: bit 0 located, bit 1 the text fills its
// field with no terminator, bit 2 so does the path, bit 3 the text gets its
// line break, bit 4 the reserved bytes are set; bits 5 to 7 pick the level.
MessageLineRecord ReadRecord(OpStream& ops)
{
    MessageLineRecord record{};
    const unsigned flags = ops.Byte();
    record.level = ReadLevel(ops, flags >> 5);
    std::string text = ops.Text(sizeof record.text);
    if (flags & 8) text += "\r\n";
    text.copy(record.text, sizeof record.text);
    if (flags & 2) std::memset(record.text + std::min(text.size(), sizeof record.text), 'u', sizeof record.text - std::min(text.size(), sizeof record.text));
    if (flags & 1) {
        record.located = ops.Bool() ? 1 : ops.I32() | 1;
        const std::string file = ops.Text(sizeof record.file);
        file.copy(record.file, sizeof record.file);
        if (flags & 4) std::memset(record.file + file.size(), 'f', sizeof record.file - file.size());
        record.line = ops.I32();
    }
    if (flags & 16) std::memset(record.reserved1, 0xFF, sizeof record.reserved1);
    return record;
}

class MessageViewRun {
public:
    MessageViewRun(Session& session, int mode) : m_session(session), m_mode(mode) {}

    // The host sends a record; wParam 0 asks for a new output.
    void Send(const MessageLineRecord* record, WPARAM keep, bool prepend)
    {
        m_session.view.SendMessage(prepend ? UWM_MSGVIEW_PREPEND : UWM_MSGVIEW_APPEND, keep,
                                   reinterpret_cast<LPARAM>(record));
        if (!record) return;
        if (keep == 0 && record->level == 0) Clear();
        KeptRecord kept;
        kept.located = record->located != 0;
        kept.file.assign(record->file, strnlen(record->file, sizeof record->file - 1));
        kept.line = record->line;
        std::string text(FieldText(record->text));
        if (prepend) {
            m_kept.push_front(kept);
            m_stored.insert(0, richedit::NormalizeInput(text, false));
        } else {
            m_kept.push_back(kept);
            text.insert(0, static_cast<size_t>(kBlanksPerLevel * std::clamp(record->level, 0, kMaxIndentLevel)), ' ');
            m_stored.append(richedit::NormalizeInput(text, false));
        }
    }

    void Clear()
    {
        m_kept.clear();
        m_stored.clear();
    }

    // What the host received since the last look: go-to requests only under
    // the pane's message, for a located record the view holds.
    void CheckHost()
    {
        const auto& received = m_session.host.Received();
        for (; m_seen < received.size(); ++m_seen) {
            const HostRecord& record = received[m_seen];
            if (record.message != UWM_MSGVIEW_GOTO && record.message != UWM_GOTO_SOURCE) continue;
            const UINT expected = m_mode == kGotoSendsMessageViewGoto ? UWM_MSGVIEW_GOTO
                                : m_mode == kGotoSendsGotoSource      ? UWM_GOTO_SOURCE
                                                                      : 0;
            FUZZ_CHECK(record.message == expected);
            FUZZ_CHECK(std::any_of(m_kept.begin(), m_kept.end(), [&](const KeptRecord& kept) {
                return kept.located && kept.file == record.text && kept.line == static_cast<std::int32_t>(record.lParam);
            }));
        }
        FUZZ_CHECK(m_session.view.GetMessageCount() == static_cast<int>(m_kept.size()));
        const int marked = m_session.view.GetMarkedLine();
        FUZZ_CHECK(marked == -1 || (marked >= 0 && marked <= m_session.view.GetTextLength()));
    }

    // The text shown is the records' texts in order; the control gives its
    // line ends back as "\r\n".
    void CheckText() const
    {
        std::string expected;
        for (char c : m_stored) {
            expected += c;
            if (c == '\r') expected += '\n';
        }
        CString shown;
        m_session.view.GetWindowText(shown);
        FUZZ_CHECK(std::string_view(shown.GetString(), static_cast<size_t>(shown.GetLength())) == expected);
    }

    // A menu's "clear" empties the view; nothing else the user does changes
    // what it holds.
    void NoteUserClear(int menusBefore)
    {
        if (MenuDriver::ShownCount() != menusBefore && m_session.view.GetMessageCount() == 0) Clear();
    }

private:
    Session& m_session;
    int m_mode;
    std::deque<KeptRecord> m_kept;
    std::string m_stored;  // as the control keeps it
    size_t m_seen = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    static Session* session = new Session;
    CMessageEditCtrl& view = session->view;
    OpStream ops(data, size);

    FuzzViews::BeginInput(session->host, session->pane);
    session->pane.MoveWindow(0, 0, 300, 150);
    view.ClearAllMessages();
    view.SendMessage(UWM_DOCK_FONT_CHANGED);
    const int mode = static_cast<int>(ops.Below(4));
    view.SetGotoMode(mode);
    MessageViewRun run(*session, mode);

    for (int i = 0; i < kMaxOperations && !ops.Done(); ++i) {
        switch (ops.Below(10)) {
        case 0:
        case 1:
        case 2: {
            const unsigned how = ops.Byte();
            const MessageLineRecord record = ReadRecord(ops);
            run.Send(&record, (how & 2) ? 0 : 1 + (how >> 2), how & 1);
            break;
        }
        case 3: {
            const unsigned how = ops.Byte();
            run.Send(nullptr, how & 2 ? 0 : 1, how & 1);
            break;
        }
        case 4:
            view.SendMessage(UWM_MSGVIEW_GOTO);
            break;
        case 5:
        case 6: {
            const int menus = MenuDriver::ShownCount();
            FuzzViews::PlayGesture(ops, session->pane, kMenuCommands);
            run.NoteUserClear(menus);
            break;
        }
        case 7:
            FuzzViews::PaintPass(session->pane);
            break;
        case 8: {
            const std::string face = ops.Text(64);
            OrvProjectMisc::SetDockFont(face.c_str(), ops.I32());
            view.SendMessage(UWM_DOCK_FONT_CHANGED);
            break;
        }
        default:
            FuzzViews::ResizePane(ops, session->pane);
            break;
        }
        run.CheckHost();
    }
    FuzzViews::PaintPass(session->pane);
    run.CheckText();
    return 0;
}
