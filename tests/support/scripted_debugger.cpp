#include "tests/support/scripted_debugger.h"

#include <cstdlib>
#include <cstring>

namespace {

bool CarriesRecord(unsigned code)
{
    return code == ScriptedDebugger::kEvaluate || code == DRQ_WRITE_VALUE || code == DRQ_GET_COUNT ||
           code == DRQ_GET_MEMBER || code == DRQ_READ_VALUE;
}

std::uint32_t SizeMask(std::uint32_t size)
{
    if (size == 1) return 0xFF;
    if (size == 2) return 0xFFFF;
    return 0xFFFFFFFF;
}

}  // namespace

ScriptedDebugger::~ScriptedDebugger()
{
    if (GetSafeHwnd()) DestroyWindow();
}

BOOL ScriptedDebugger::CreateService(CWnd* parent)
{
    return Create(nullptr, "debugger", WS_CHILD, CRect(0, 0, 0, 0), parent, 0);
}

void ScriptedDebugger::Define(const std::string& expression, const WatchRecord& record)
{
    m_expressions[expression] = record;
}

void ScriptedDebugger::DefineError(const std::string& expression, std::uint32_t errorId)
{
    WatchRecord record{};
    record.errorId = errorId;
    m_expressions[expression] = record;
}

void ScriptedDebugger::DefineMembers(std::uint32_t typeRef, std::vector<WatchRecord> members)
{
    m_members[typeRef] = std::move(members);
}

void ScriptedDebugger::DefineElements(std::uint32_t space, std::uint32_t address, Elements elements)
{
    m_elements[{space, address}] = std::move(elements);
}

void ScriptedDebugger::Poke(std::uint32_t space, std::uint32_t address, std::uint32_t value)
{
    m_memory[{space, address}] = value;
}

std::uint32_t ScriptedDebugger::Peek(std::uint32_t space, std::uint32_t address) const
{
    const auto found = m_memory.find({space, address});
    return found == m_memory.end() ? 0 : found->second;
}

std::vector<unsigned> ScriptedDebugger::Codes() const
{
    std::vector<unsigned> codes;
    for (const Request& request : requests) codes.push_back(request.code);
    return codes;
}

LRESULT ScriptedDebugger::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != UWM_DEBUG_REQUEST) return CWnd::WindowProc(message, wParam, lParam);
    const unsigned code = wParam <= kLastDebugRequest ? static_cast<unsigned>(wParam) : kEvaluate;
    Request request;
    request.code = code;
    auto* record = reinterpret_cast<WatchRecord*>(lParam);
    const bool withRecord = CarriesRecord(code) && record;
    if (code == kEvaluate) request.text = reinterpret_cast<const char*>(wParam);
    if (code == DRQ_SHOW_MEMORY && lParam) request.text = reinterpret_cast<const char*>(lParam);
    if (withRecord) request.sent = *record;
    if (code == kEvaluate) {
        Evaluate(request.text.c_str(), record);
    } else {
        Answer(code, lParam);
    }
    if (withRecord) request.answered = *record;
    requests.push_back(std::move(request));
    return 0;
}

void ScriptedDebugger::Evaluate(const char* expression, WatchRecord* record)
{
    if (!record) return;
    const auto found = m_expressions.find(expression);
    if (found == m_expressions.end()) {
        record->status = 0;
        record->errorId = unknownErrorId;
        return;
    }
    *record = found->second;
    if (record->status != 0) ReadValue(*record);
}

void ScriptedDebugger::ReadValue(WatchRecord& record) const
{
    const std::pair key{record.space, record.address};
    const auto found = m_memory.find(key);
    if (found != m_memory.end()) record.value = found->second;
    record.unavailable = unreadable.count(key) ? 1 : 0;
}

std::int32_t ScriptedDebugger::CountOf(const WatchRecord& record) const
{
    if (const auto members = m_members.find(record.typeRef); members != m_members.end()) {
        return static_cast<std::int32_t>(members->second.size());
    }
    if (const auto elements = m_elements.find({record.space, record.address}); elements != m_elements.end()) {
        const std::uint32_t size = elements->second.elementTemplate.size;
        return size ? static_cast<std::int32_t>(elements->second.data.size() / size) : 0;
    }
    return 0;
}

void ScriptedDebugger::Answer(unsigned code, LPARAM lParam)
{
    if (!lParam) return;
    auto* record = reinterpret_cast<WatchRecord*>(lParam);
    switch (code) {
    case DRQ_WRITE_VALUE:
        m_memory[{record->space, record->address}] = record->value & SizeMask(record->size);
        break;
    case DRQ_GET_COUNT:
        record->count = countAnswer ? *countAnswer : CountOf(*record);
        break;
    case DRQ_GET_MEMBER: {
        const auto members = m_members.find(record->typeRef);
        const std::int32_t index = record->count;
        if (members == m_members.end() || index < 0 || index >= static_cast<std::int32_t>(members->second.size())) {
            record->status = 0;
            break;
        }
        *record = members->second[static_cast<std::size_t>(index)];
        ReadValue(*record);
        break;
    }
    case DRQ_READ_VALUE:
        ReadValue(*record);
        break;
    case DRQ_GET_LIST_SIZE:
        *reinterpret_cast<std::int32_t*>(lParam) = listSizeAnswer ? *listSizeAnswer : static_cast<std::int32_t>(list.size());
        break;
    case DRQ_GET_LIST:
        if (!list.empty()) std::memcpy(reinterpret_cast<void*>(lParam), list.data(), list.size() * sizeof(WatchListEntry));
        break;
    case DRQ_GET_ELEMENTS:
        FillElements(reinterpret_cast<ElementBlock*>(lParam));
        break;
    default:
        break;
    }
}

void ScriptedDebugger::FillElements(ElementBlock* block) const
{
    if (!block->array || !block->element) return;
    const auto found = m_elements.find({block->array->space, block->array->address});
    if (found == m_elements.end()) return;
    const Elements& elements = found->second;
    *block->element = elements.elementTemplate;
    // Handed over with the allocator both sides share; the watch frees them.
    block->data = static_cast<std::uint8_t*>(std::malloc(elements.data.size() + 1));
    block->valid = static_cast<std::uint8_t*>(std::malloc(elements.valid.size() + 1));
    if (!elements.data.empty()) std::memcpy(block->data, elements.data.data(), elements.data.size());
    if (!elements.valid.empty()) std::memcpy(block->valid, elements.valid.data(), elements.valid.size());
}
