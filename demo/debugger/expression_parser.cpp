#include "demo/debugger/expression_parser.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <vector>

#include "demo/debugger/evaluation_error.h"
#include "demo/debugger/expression_lexer.h"
#include "watch/debug_protocol.h"

namespace {

using Node = std::unique_ptr<ExpressionNode>;

// Binary operators from the loosest to the tightest binding.
const std::array<std::initializer_list<std::string_view>, 6> kLevels{{
    {"|"}, {"^"}, {"&"}, {"<<", ">>"}, {"+", "-"}, {"*", "/", "%"},
}};
constexpr std::string_view kPrefixOperators[] = {"-", "+", "~", "*", "&"};
// Nested brackets and prefixes; a watch expression never comes near it, and
// it keeps the recursion's stack use small whatever the text.
constexpr int kMaxDepth = 64;

void CheckBrackets(const std::vector<Token>& tokens)
{
    std::vector<char> open;
    for (const Token& token : tokens) {
        if (token.kind != Token::Kind::Operator) continue;
        if (token.text == "(" || token.text == "[") open.push_back(token.text[0]);
        if (token.text == ")" || token.text == "]") {
            const char opening = token.text == ")" ? '(' : '[';
            if (open.empty() || open.back() != opening) Fail(WERR_MISSING_OPEN);
            open.pop_back();
        }
    }
    if (!open.empty()) Fail(WERR_MISSING_CLOSE);
}

Node MakeNode(ExpressionNode::Kind kind, std::string text, Node left = nullptr, Node right = nullptr)
{
    auto node = std::make_unique<ExpressionNode>();
    node->kind = kind;
    node->text = std::move(text);
    node->left = std::move(left);
    node->right = std::move(right);
    return node;
}

class Parser {
public:
    explicit Parser(const std::vector<Token>& tokens) : m_tokens(tokens) {}

    Node ParseAll()
    {
        Node node = Binary(0);
        if (m_next != m_tokens.size()) Fail(WERR_EXPRESSION_FORMAT);
        return node;
    }

private:
    const Token* Peek() const { return m_next < m_tokens.size() ? &m_tokens[m_next] : nullptr; }

    bool TakeOperator(std::string_view spelling)
    {
        const Token* token = Peek();
        if (!token || token->kind != Token::Kind::Operator || token->text != spelling) return false;
        ++m_next;
        return true;
    }

    const Token& Take()
    {
        if (m_next >= m_tokens.size()) Fail(WERR_EXPRESSION_FORMAT);
        return m_tokens[m_next++];
    }

    Node Binary(std::size_t level)
    {
        if (level == kLevels.size()) return Unary();
        Node left = Binary(level + 1);
        for (bool more = true; more;) {
            more = false;
            for (const std::string_view spelling : kLevels[level]) {
                if (!TakeOperator(spelling)) continue;
                left = MakeNode(ExpressionNode::Kind::Binary, std::string(spelling), std::move(left), Binary(level + 1));
                more = true;
                break;
            }
        }
        return left;
    }

    Node Unary()
    {
        for (const std::string_view spelling : kPrefixOperators) {
            if (!TakeOperator(spelling)) continue;
            Deeper();
            Node operand = Unary();
            --m_depth;
            return MakeNode(ExpressionNode::Kind::Unary, std::string(spelling), std::move(operand));
        }
        return Postfix(Primary());
    }

    Node Postfix(Node node)
    {
        while (true) {
            if (TakeOperator("[")) {
                Deeper();
                node = MakeNode(ExpressionNode::Kind::Index, {}, std::move(node), Binary(0));
                --m_depth;
                if (!TakeOperator("]")) Fail(WERR_EXPRESSION_FORMAT);
            } else if (TakeOperator(".") || TakeOperator("->")) {
                const bool arrow = m_tokens[m_next - 1].text == "->";
                const Token& member = Take();
                if (member.kind != Token::Kind::Name) Fail(WERR_EXPRESSION_FORMAT);
                node = MakeNode(arrow ? ExpressionNode::Kind::Arrow : ExpressionNode::Kind::Member, member.text, std::move(node));
            } else {
                return node;
            }
        }
    }

    Node Primary()
    {
        const Token& token = Take();
        switch (token.kind) {
        case Token::Kind::Name:
            return MakeNode(ExpressionNode::Kind::Name, token.text);
        case Token::Kind::Number: {
            Node node = MakeNode(ExpressionNode::Kind::Number, {});
            node->type = token.type;
            node->bits = token.bits;
            return node;
        }
        case Token::Kind::String:
            Fail(WERR_WRONG_EXPRESSION);
        case Token::Kind::Operator:
            break;
        }
        if (token.text != "(") Fail(WERR_EXPRESSION_FORMAT);
        Deeper();
        Node inner = Binary(0);
        --m_depth;
        if (!TakeOperator(")")) Fail(WERR_EXPRESSION_FORMAT);
        return inner;
    }

    void Deeper()
    {
        if (++m_depth > kMaxDepth) Fail(WERR_EXPRESSION_FORMAT);
    }

    const std::vector<Token>& m_tokens;
    std::size_t m_next = 0;
    int m_depth = 0;
};

}  // namespace

std::unique_ptr<ExpressionNode> ParseExpression(std::string_view text)
{
    const std::vector<Token> tokens = Tokenize(text);
    CheckBrackets(tokens);
    return Parser(tokens).ParseAll();
}
