// Integer expressions of resource scripts and of #if lines, by precedence climbing.
#include "host/res/ResScript.h"
#include "host/res/ResTokens.h"

#include <limits>

namespace svres {
namespace {

struct BinaryOp {
    const wchar_t* text;
    int precedence;
};

// C precedence, from || (1) up to * / % (10).
constexpr BinaryOp kBinaryOps[] = {
    {L"||", 1}, {L"&&", 2}, {L"|", 3}, {L"^", 4}, {L"&", 5}, {L"==", 6}, {L"!=", 6},
    {L"<", 7}, {L">", 7}, {L"<=", 7}, {L">=", 7}, {L"<<", 8}, {L">>", 8},
    {L"+", 9}, {L"-", 9}, {L"*", 10}, {L"/", 10}, {L"%", 10},
};

int PrecedenceOf(const Token& tok)
{
    if (tok.kind != TokKind::Punct)
        return 0;
    for (const BinaryOp& op : kBinaryOps)
        if (tok.text == op.text)
            return op.precedence;
    return 0;
}

class Evaluator {
public:
    Evaluator(const std::vector<Token>& tokens, size_t& pos, const std::wstring& file, bool bNamesAreZero)
        : m_tokens(tokens), m_pos(pos), m_file(file), m_bNamesAreZero(bNamesAreZero) {}

    long long Expression(int minPrecedence)
    {
        if (++m_depth > kMaxDepth)
            Fail(Peek(), L"expression nested too deeply");
        long long lhs = Unary();
        for (;;) {
            const Token& op = Peek();
            const int prec = PrecedenceOf(op);
            if (prec == 0 || prec < minPrecedence) {
                --m_depth;
                return lhs;
            }
            ++m_pos;
            const long long rhs = Expression(prec + 1);
            lhs = Apply(op, lhs, rhs);
        }
    }

private:
    const Token& Peek() const { return m_tokens[m_pos < m_tokens.size() ? m_pos : m_tokens.size() - 1]; }

    [[noreturn]] void Fail(const Token& at, const std::wstring& message) const
    {
        throw ResError(m_file, at.line, message);
    }

    long long Unary()
    {
        if (++m_depth > kMaxDepth)
            Fail(Peek(), L"expression nested too deeply");
        struct Leave {
            int& depth;
            ~Leave() { --depth; }
        } leave{m_depth};
        const Token& tok = Peek();
        if (tok.kind == TokKind::Punct) {
            if (tok.text == L"-") { ++m_pos; return -Unary(); }
            if (tok.text == L"+") { ++m_pos; return Unary(); }
            if (tok.text == L"~") { ++m_pos; return ~Unary(); }
            if (tok.text == L"!") { ++m_pos; return !Unary(); }
            if (tok.text == L"(") {
                ++m_pos;
                const long long v = Expression(1);
                if (Peek().kind != TokKind::Punct || Peek().text != L")")
                    Fail(Peek(), L"expected \")\", found " + Describe(Peek()));
                ++m_pos;
                return v;
            }
        }
        if (tok.kind == TokKind::Number) {
            ++m_pos;
            return tok.value;
        }
        if (tok.kind == TokKind::Name && m_bNamesAreZero) {
            ++m_pos;
            return 0;
        }
        if (tok.kind == TokKind::Name)
            Fail(tok, L"undefined symbol " + tok.text);
        Fail(tok, L"expected a number, found " + Describe(tok));
    }

    long long Apply(const Token& op, long long a, long long b) const
    {
        const std::wstring& o = op.text;
        if ((o == L"/" || o == L"%") && b == 0)
            Fail(op, L"division by zero");
        if (o == L"||") return a || b;
        if (o == L"&&") return a && b;
        if (o == L"|") return a | b;
        if (o == L"^") return a ^ b;
        if (o == L"&") return a & b;
        if (o == L"==") return a == b;
        if (o == L"!=") return a != b;
        if (o == L"<") return a < b;
        if (o == L">") return a > b;
        if (o == L"<=") return a <= b;
        if (o == L">=") return a >= b;
        if (o == L"<<" || o == L">>") {
            if (b < 0 || b > 62)
                Fail(op, L"shift count out of range");
            return o == L"<<" ? static_cast<long long>(static_cast<unsigned long long>(a) << b) : a >> b;
        }
        // Wrap like the 32-bit arithmetic of the resource compiler instead of overflowing.
        const auto ua = static_cast<unsigned long long>(a), ub = static_cast<unsigned long long>(b);
        if (o == L"+") return static_cast<long long>(ua + ub);
        if (o == L"-") return static_cast<long long>(ua - ub);
        if (o == L"*") return static_cast<long long>(ua * ub);
        if (a == std::numeric_limits<long long>::min() && b == -1)
            return o == L"/" ? a : 0;
        return o == L"/" ? a / b : a % b;
    }

    const std::vector<Token>& m_tokens;
    size_t& m_pos;
    const std::wstring& m_file;
    bool m_bNamesAreZero;
    int m_depth = 0;
    static constexpr int kMaxDepth = 256;  // keeps hostile input from exhausting the stack
};

} // namespace

long long EvalExpression(const std::vector<Token>& tokens, size_t& pos, const std::wstring& file, bool bNamesAreZero)
{
    return Evaluator(tokens, pos, file, bNamesAreZero).Expression(1);
}

} // namespace svres
