// A debugger service for tests: a hidden window that answers
// UWM_DEBUG_REQUEST from tables the test fills, over a small target memory,
// and records every request with what it carried, so a test can assert the
// exact sequence of requests and their arguments.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/core/wnd.h"
#include "tests/support/watch_records.h"
#include "watch/debug_protocol.h"

class ScriptedDebugger : public CWnd {
public:
    // The code a request records when it evaluates an expression.
    static constexpr unsigned kEvaluate = 0xFFFFFFFFu;

    struct Request {
        unsigned code = 0;       // a DRQ_ sub-code, or kEvaluate
        std::string text;        // the expression (evaluate, DRQ_SHOW_MEMORY)
        WatchRecord sent{};      // the record as it arrived, for requests that carry one
        WatchRecord answered{};  // and as the service left it
    };

    struct Elements {
        WatchRecord elementTemplate{};  // what the service says of element 0
        std::vector<std::uint8_t> data;   // element bytes, most significant first
        std::vector<std::uint8_t> valid;  // 1 where a byte was read
    };

    ScriptedDebugger() = default;
    ~ScriptedDebugger() override;

    // A hidden child of parent; the test puts GetSafeHwnd() into the host's context.
    BOOL CreateService(CWnd* parent);

    // An expression (byte for byte) and the record it evaluates to; its value
    // is read from memory when memory holds the object.
    void Define(const std::string& expression, const WatchRecord& record);
    // Records that name no object: status 0 and this message. Undefined
    // expressions answer 52066 ("variable not defined") unless changed here.
    void DefineError(const std::string& expression, std::uint32_t errorId);
    std::uint32_t unknownErrorId = WERR_UNDEFINED;
    // The members of a structured type, in order.
    void DefineMembers(std::uint32_t typeRef, std::vector<WatchRecord> members);
    // The elements of the array at an address (in its space).
    void DefineElements(std::uint32_t space, std::uint32_t address, Elements elements);

    // Target memory: a value per object, as DRQ_READ_VALUE reads it and
    // DRQ_WRITE_VALUE stores it (cut to the object's size).
    void Poke(std::uint32_t space, std::uint32_t address, std::uint32_t value);
    std::uint32_t Peek(std::uint32_t space, std::uint32_t address) const;
    // Objects whose bytes cannot be read.
    std::set<std::pair<std::uint32_t, std::uint32_t>> unreadable;

    // The service's own list (DRQ_GET_LIST).
    std::vector<WatchListEntry> list;

    // Answers a hostile service would give instead of the true ones: every
    // DRQ_GET_COUNT, and DRQ_GET_LIST_SIZE (the list itself stays as it is).
    std::optional<std::int32_t> countAnswer;
    std::optional<std::int32_t> listSizeAnswer;

    std::vector<Request> requests;
    // The codes of the requests, in order.
    std::vector<unsigned> Codes() const;
    void ClearRequests() { requests.clear(); }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void Evaluate(const char* expression, WatchRecord* record);
    void Answer(unsigned code, LPARAM lParam);
    void ReadValue(WatchRecord& record) const;
    std::int32_t CountOf(const WatchRecord& record) const;
    void FillElements(ElementBlock* block) const;

    std::map<std::string, WatchRecord> m_expressions;
    std::map<std::uint32_t, std::vector<WatchRecord>> m_members;
    std::map<std::pair<std::uint32_t, std::uint32_t>, Elements> m_elements;
    std::map<std::pair<std::uint32_t, std::uint32_t>, std::uint32_t> m_memory;
};
