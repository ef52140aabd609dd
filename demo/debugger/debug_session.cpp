#include "demo/debugger/debug_session.h"

#include <cstring>

#include "demo/debugger/element_block_fill.h"
#include "demo/debugger/evaluation_error.h"
#include "demo/debugger/expression_evaluator.h"
#include "demo/debugger/expression_parser.h"
#include "demo/debugger/record_description.h"
#include "demo/debugger/record_value.h"
#include "demo/debugger/transcript_text.h"
#include "demo/debugger/watch_list.h"

namespace {

// Longer texts are refused, and never read further than one byte past this.
constexpr std::size_t kMaxExpressionBytes = 1024;

std::string_view BoundedText(const char* text)
{
    return {text, strnlen(text, kMaxExpressionBytes + 1)};
}

}  // namespace

DebugSession::DebugSession(std::unique_ptr<DebugTarget> target, SymbolTable symbols, const std::vector<std::string>& listNames)
    : m_target(std::move(target)), m_symbols(std::move(symbols)), m_list(MakeWatchList(m_symbols, listNames, *m_target))
{
}

void DebugSession::EvaluateInto(std::string_view expression, WatchRecord& record)
{
    try {
        if (expression.size() > kMaxExpressionBytes) Fail(WERR_STRING_TOO_LONG);
        const std::unique_ptr<ExpressionNode> tree = ParseExpression(expression);
        Describe(ExpressionEvaluator(m_symbols, *m_target).Evaluate(*tree), m_symbols.Types(), *m_target, record);
    } catch (const EvaluationError& error) {
        DescribeError(error.id, record);
    }
}

std::string DebugSession::Evaluate(const char* text, WatchRecord& record)
{
    const std::string_view expression = BoundedText(text);
    EvaluateInto(expression, record);
    return "evaluate " + QuotedText(expression) + " -> " + RecordText(record);
}

std::string DebugSession::WriteValue(const WatchRecord& record)
{
    const bool stored = record.status != 0 && StoreValue(record, *m_target);
    return "write " + RecordText(record) + (stored ? "" : ": not written");
}

std::string DebugSession::GetCount(WatchRecord& record) const
{
    record.count = record.status != 0 ? CountOf(record, m_symbols.Types()) : 0;
    return "count of " + RecordText(record) + " -> " + std::to_string(record.count);
}

std::string DebugSession::GetMember(WatchRecord& record)
{
    const std::string index = std::to_string(record.count);
    if (record.status == 0 || !DescribeMember(record, m_symbols.Types(), *m_target)) return "member " + index + ": none";
    return "member " + index + " \"" + std::string(record.name, strnlen(record.name, sizeof record.name)) + "\" -> " + RecordText(record);
}

std::string DebugSession::ReadValue(WatchRecord& record)
{
    if (record.status != 0) RefreshValue(record, *m_target);
    return "read " + RecordText(record);
}

std::string DebugSession::GetListSize(std::int32_t& size) const
{
    size = static_cast<std::int32_t>(m_list.size());
    return "list size -> " + std::to_string(size);
}

std::string DebugSession::GetList(WatchListEntry* entries) const
{
    std::string names;
    for (std::size_t i = 0; i < m_list.size(); ++i) {
        entries[i] = m_list[i];
        names += (i ? ", " : "") + std::string(m_list[i].name, strnlen(m_list[i].name, sizeof m_list[i].name));
    }
    return "list -> " + names;
}

std::string DebugSession::ShowMemory(const char* text, const std::function<void(const MemoryShowRequest&)>& show)
{
    const std::string_view expression = BoundedText(text);
    WatchRecord record{};
    EvaluateInto(expression, record);
    m_memoryView.assign(expression.substr(0, kMaxExpressionBytes));
    if (record.status == 0) {
        return "memory view: " + QuotedText(expression) + " has no value, nothing shown (" + RecordText(record) + ")";
    }
    if (show) show({record.space, record.address, record.size, m_memoryView});
    return "memory view shows " + QuotedText(expression) + " (" + RecordText(record) + ")";
}

std::string DebugSession::GetElements(ElementBlock& block)
{
    const std::size_t count = FillElements(block, m_symbols.Types(), *m_target);
    if (count == 0) return "elements: none";
    return "elements of " + RecordText(*block.array) + " -> " + std::to_string(count) + " x " +
           std::to_string(block.element->size) + " bytes";
}

std::string DebugSession::Step()
{
    m_target->Step();
    return "target ran one step";
}
