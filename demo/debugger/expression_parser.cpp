#include "demo/debugger/expression_parser.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <vector>

#include "demo/debugger/evaluation_error.h"
#include "demo/debugger/expression_lexer.h"
#include "demo/debugger/type_name.h"
#include "watch/debug_protocol.h"

namespace {

using Node = std::unique_ptr<ExpressionNode>;

// Binary operators from the loosest to the tightest binding.
const std::array<std::initializer_list<std::string_view>, 10> kLevels{{
    {"||"}, {"&&"}, {"|"}, {"^"}, {"&"}, {"==", "!="}, {"<=", ">=", "<", ">"},
    {"<<", ">>"}, {"+", "-"}, {"*", "/", "%"},
}};
constexpr std::string_view kPrefixOperators[] = {"-", "+", "~", "!", "*", "&"};
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

// An assignment (=, +=, ...) would change the target; a watch only reads it.
void RefuseAssignment(const std::vector<Token>& tokens)
{
    const auto assignment = [](const Token& token) { return token.kind == Token::Kind::Operator && token.text == "="; };
    if (std::any_of(tokens.begin(), tokens.end(), assignment)) Fail(WERR_WRONG_EXPRESSION);
}

bool IsOperator(const Token* token, std::string_view spelling)
{
    return token && token->kind == Token::Kind::Operator && token->text == spelling;
}

// What may follow a cast but never a parenthesised expression.
bool StartsOperand(const Token* token)
{
    return token && (token->kind != Token::Kind::Operator || token->text == "(");
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
    const Token* Peek(std::size_t ahead = 0) const
    {
        return m_next + ahead < m_tokens.size() ? &m_tokens[m_next + ahead] : nullptr;
    }

    bool TakeOperator(std::string_view spelling)
    {
        if (!IsOperator(Peek(), spelling)) return false;
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
        if (IsOperator(Peek(), "(") && StartsTypeName(m_tokens, m_next + 1)) return Cast();
        // "&&x" outside a binary operator is & applied twice.
        if (TakeOperator("&&")) return Prefix("&", Prefix("&", nullptr));
        for (const std::string_view spelling : kPrefixOperators) {
            if (TakeOperator(spelling)) return Prefix(spelling, nullptr);
        }
        return Postfix(Primary());
    }

    // The operator applied to inner, or to the unary expression that follows.
    Node Prefix(std::string_view spelling, Node inner)
    {
        Deeper();
        Node operand = inner ? std::move(inner) : Unary();
        --m_depth;
        return MakeNode(ExpressionNode::Kind::Unary, std::string(spelling), std::move(operand));
    }

    // "(" type-name ")" unary-expression, binding as a prefix does.
    Node Cast()
    {
        ++m_next;
        const CastType type = ReadTypeName(m_tokens, m_next);
        if (!TakeOperator(")")) Fail(WERR_EXPRESSION_FORMAT);
        Deeper();
        Node node = MakeNode(ExpressionNode::Kind::Cast, {}, Unary());
        --m_depth;
        node->cast = type;
        return node;
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
        // "(name)x" can only be a cast, to a type this program does not have.
        if (inner->kind == ExpressionNode::Kind::Name && StartsOperand(Peek())) Fail(WERR_UNDEFINED);
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
    RefuseAssignment(tokens);
    return Parser(tokens).ParseAll();
}
