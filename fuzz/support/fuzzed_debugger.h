// A debugger service for fuzzing the watch: a hidden window that answers
// every UWM_DEBUG_REQUEST from the next bytes of the fuzz input. Its records
// are anything the bytes say (unterminated names, huge and negative counts,
// element sizes above 4, type, space and format codes out of range, error ids
// without a string), either field by field or as raw record bytes. Without
// input, or once the input is used up, every request gets a defined failure:
// status 0, a count of 0, an unreadable value, no list, no elements.
//
// A request the watch is never meant to send (a null record, an unknown
// sub-code, a member index past the cap, an element block not fresh, an
// unterminated text) aborts: that is a finding, as is a crash.
#pragma once

#include <cstdint>
#include <functional>

#include "fuzz/support/op_stream.h"
#include "platform/core/wnd.h"
#include "watch/debug_protocol.h"

class FuzzedDebugger : public CWnd {
public:
    FuzzedDebugger() = default;
    ~FuzzedDebugger() override;

    // A hidden child of parent; the target puts GetSafeHwnd() into the host's context.
    BOOL CreateService(CWnd* parent);

    // Answers from these bytes from now on; null: every request fails.
    void AnswerFrom(OpStream* input) { m_input = input; }

    // Called with each write request's record before it is answered.
    std::function<void(const WatchRecord*)> onWrite;

    // The list size last answered (what the watch may take of the list).
    std::int32_t ListSize() const { return m_listSize; }

    // The last element block answered: the array's record and the most
    // element rows its answer allows. Cleared by the target between operations.
    const WatchRecord* elementsArray = nullptr;
    std::int64_t elementsAllowed = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void Evaluate(const char* expression, WatchRecord* record);
    void Answer(unsigned code, LPARAM lParam);
    void ReadValue(WatchRecord& record);
    void FillList(WatchListEntry* entries);
    void FillElements(ElementBlock& block);

    // A record from the input; false (record left as it was) at the end.
    bool ReadRecord(WatchRecord& record);
    bool ReadListEntry(WatchListEntry& entry);
    std::int32_t ReadCount();

    OpStream* m_input = nullptr;
    std::int32_t m_listSize = 0;
};
