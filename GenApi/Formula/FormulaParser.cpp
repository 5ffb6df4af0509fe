#include "FormulaParser.h"

#include <algorithm>
#include <charconv>
#include <cstring>

namespace GenApi_3_0 {
namespace detail {

namespace {

// Bounds that keep both the parser's and the evaluator's recursion far from
// the end of a thread's stack, whatever a description contains. Real
// descriptions nest formulas about 30 levels deep.
const int kMaxNesting = 200;
const int32_t kMaxTreeHeight = 1000;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsHexDigit(char c) { return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }
bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsIdentStart(char c) { return IsLetter(c) || c == '_'; }
bool IsIdentChar(char c) { return IsIdentStart(c) || IsDigit(c) || c == '.'; }
bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v'; }

struct SFunction {
  const char* m_pName;
  EFormulaOp_t m_eOneArg;  // the operation with one argument
  bool m_bTwoArgs;         // also takes a second argument (ROUND's decimals)
};

// Function names are matched exactly, in capitals.
const SFunction kFunctions[] = {
    {"SGN", eFormulaSgn, false},     {"NEG", eFormulaFNeg, false},   {"ABS", eFormulaAbs, false},
    {"SIN", eFormulaSin, false},     {"COS", eFormulaCos, false},    {"TAN", eFormulaTan, false},
    {"ASIN", eFormulaAsin, false},   {"ACOS", eFormulaAcos, false},  {"ATAN", eFormulaAtan, false},
    {"EXP", eFormulaExp, false},     {"LN", eFormulaLn, false},      {"LG", eFormulaLg, false},
    {"SQRT", eFormulaSqrt, false},   {"TRUNC", eFormulaTrunc, false}, {"FLOOR", eFormulaFloor, false},
    {"CEIL", eFormulaCeil, false},   {"ROUND", eFormulaRound, true},
};

const SFunction* FindFunction(const std::string& name) {
  for (const SFunction& fn : kFunctions)
    if (name == fn.m_pName) return &fn;
  return nullptr;
}

}  // namespace

CFormulaParser::CFormulaParser(CFormula& target) : m_Target(target), m_nNext(0), m_nNesting(0) {}

void CFormulaParser::mFail(size_t pos, const std::string& reason) const {
  // The reason and position come first: the message is cut at 1024 bytes, and
  // long formulas would push them out.
  throw INVALID_ARGUMENT_EXCEPTION("%s at position %zu in formula '%s'", reason.c_str(), pos + 1,
                                   m_Target.m_strText.c_str());
}

// ---------------------------------------------------------------------------
// Tokenising

bool CFormulaParser::mIsRealLiteral(size_t pos) const {
  const std::string& s = m_Target.m_strText;
  size_t end = pos;
  while (end < s.size() && IsDigit(s[end])) ++end;
  if (end == s.size()) return false;
  if (s[end] == '.') return true;
  return (s[end] == 'e' || s[end] == 'E') && end + 1 < s.size() &&
         (IsDigit(s[end + 1]) ||
          ((s[end + 1] == '-' || s[end + 1] == '+') && end + 2 < s.size() && IsDigit(s[end + 2])));
}

size_t CFormulaParser::mLexNumber(size_t pos) {
  const std::string& s = m_Target.m_strText;
  const bool integerMode = m_Target.m_bIntegerMode;
  SToken tok{eTokNumber, pos, std::string(), 0, 0.0, false};
  size_t end = pos;

  if (s[pos] == '0' && pos + 1 < s.size() && (s[pos + 1] == 'x' || s[pos + 1] == 'X')) {
    end = pos + 2;
    uint64_t value = 0;
    while (end < s.size() && IsHexDigit(s[end])) {
      const char c = s[end];
      const unsigned digit = IsDigit(c) ? unsigned(c - '0') : unsigned((c | 0x20) - 'a' + 10);
      if (value > (UINT64_MAX >> 4)) mFail(pos, "hexadecimal number out of range");
      value = (value << 4) | digit;
      ++end;
    }
    if (end == pos + 2) mFail(pos, "hexadecimal number without digits");
    // Hexadecimal literals are bit patterns: in integer formulas the full 64
    // bits are kept (0xFFFFFFFFFFFFFFFF is -1); in float formulas they count
    // as unsigned magnitudes.
    tok.m_nValue = static_cast<int64_t>(value);
    tok.m_dblValue = static_cast<double>(value);
  } else if (integerMode && !mIsRealLiteral(pos)) {
    uint64_t value = 0;
    while (end < s.size() && IsDigit(s[end])) {
      const unsigned digit = unsigned(s[end] - '0');
      if (value > (UINT64_MAX - digit) / 10) mFail(pos, "number out of range");
      value = value * 10 + digit;
      ++end;
    }
    // Literals up to 2**64-1 are accepted and wrap, so that the most
    // negative value can be written as -9223372036854775808.
    tok.m_nValue = static_cast<int64_t>(value);
    tok.m_dblValue = static_cast<double>(value);
  } else {
    // from_chars is locale-independent, unlike strtod.
    double value = 0.0;
    const char* first = s.data() + pos;
    const char* last = s.data() + s.size();
    const std::from_chars_result r = std::from_chars(first, last, value, std::chars_format::general);
    if (r.ec == std::errc::result_out_of_range) mFail(pos, "number out of range");
    if (r.ec != std::errc()) mFail(pos, "malformed number");
    end = size_t(r.ptr - s.data());
    tok.m_dblValue = value;
    tok.m_nValue = 0;
    tok.m_bReal = true;
  }
  if (end < s.size() && IsIdentChar(s[end])) mFail(pos, "malformed number");
  tok.m_strText = s.substr(pos, end - pos);
  m_vecTokens.push_back(std::move(tok));
  return end;
}

void CFormulaParser::mTokenize() {
  static const char* const kTwoCharOps[] = {"**", "||", "&&", "<>", "<=", ">=", "<<", ">>"};
  static const char kOneCharOps[] = "?:|^&=<>+-*/%~";
  const std::string& s = m_Target.m_strText;
  size_t pos = 0;
  while (pos < s.size()) {
    const char c = s[pos];
    if (IsSpace(c)) {
      ++pos;
    } else if (IsDigit(c) || (c == '.' && pos + 1 < s.size() && IsDigit(s[pos + 1]))) {
      pos = mLexNumber(pos);
    } else if (IsIdentStart(c)) {
      size_t end = pos;
      while (end < s.size() && IsIdentChar(s[end])) ++end;
      m_vecTokens.push_back(SToken{eTokIdentifier, pos, s.substr(pos, end - pos), 0, 0.0, false});
      pos = end;
    } else if (c == '(') {
      m_vecTokens.push_back(SToken{eTokLParen, pos, "(", 0, 0.0, false});
      ++pos;
    } else if (c == ')') {
      m_vecTokens.push_back(SToken{eTokRParen, pos, ")", 0, 0.0, false});
      ++pos;
    } else if (c == ',') {
      m_vecTokens.push_back(SToken{eTokComma, pos, ",", 0, 0.0, false});
      ++pos;
    } else {
      size_t len = 0;
      for (const char* op : kTwoCharOps)
        if (s.compare(pos, 2, op) == 0) len = 2;
      if (len == 0 && std::strchr(kOneCharOps, c) != nullptr && c != '\0') len = 1;
      if (len == 0) mFail(pos, std::string("unexpected character '") + c + "'");
      m_vecTokens.push_back(SToken{eTokOperator, pos, s.substr(pos, len), 0, 0.0, false});
      pos += len;
    }
  }
  m_vecTokens.push_back(SToken{eTokEnd, s.size(), std::string(), 0, 0.0, false});
}

// ---------------------------------------------------------------------------
// Parsing

namespace {

// Guards the recursion of the parser itself.
class CNestingGuard {
public:
  explicit CNestingGuard(int& nesting) : m_rNesting(nesting) { ++m_rNesting; }
  ~CNestingGuard() { --m_rNesting; }
  CNestingGuard(const CNestingGuard&) = delete;
  CNestingGuard& operator=(const CNestingGuard&) = delete;

private:
  int& m_rNesting;
};

}  // namespace

void CFormulaParser::Parse() {
  m_Target.m_bMixed = false;
  m_Target.m_vecVariables.clear();
  m_Target.m_vecNodes.clear();
  m_vecTokens.clear();
  m_vecHeight.clear();
  m_nNext = 0;
  m_nNesting = 0;

  mTokenize();
  if (mPeek().m_eKind == eTokEnd) mFail(0, "empty formula");
  m_Target.m_nRoot = mParseTernary();
  const SToken& rest = mPeek();
  if (rest.m_eKind == eTokRParen) mFail(rest.m_nPos, "unbalanced ')'");
  if (rest.m_eKind != eTokEnd) mFail(rest.m_nPos, "unexpected '" + rest.m_strText + "'");
}

bool CFormulaParser::mIsOperator(const char* spelling) const {
  const SToken& tok = mPeek();
  return tok.m_eKind == eTokOperator && tok.m_strText == spelling;
}

void CFormulaParser::mExpect(ETokenKind_t kind, const char* what) {
  const SToken& tok = mPeek();
  if (tok.m_eKind != kind) {
    if (tok.m_eKind == eTokEnd) mFail(tok.m_nPos, std::string("missing ") + what);
    mFail(tok.m_nPos, std::string("expected ") + what + " instead of '" + tok.m_strText + "'");
  }
  ++m_nNext;
}

int32_t CFormulaParser::mParseTernary() {
  CNestingGuard guard(m_nNesting);
  if (m_nNesting > kMaxNesting) mFail(mPeek().m_nPos, "formula nested too deeply");
  const int32_t condition = mParseBinaryLevel(0);
  if (!mIsOperator("?")) return condition;
  ++m_nNext;
  const int32_t whenTrue = mParseTernary();
  if (!mIsOperator(":")) {
    const SToken& tok = mPeek();
    if (tok.m_eKind == eTokEnd) mFail(tok.m_nPos, "missing ':' of '?'");
    mFail(tok.m_nPos, "expected ':' instead of '" + tok.m_strText + "'");
  }
  ++m_nNext;
  const int32_t whenFalse = mParseTernary();  // right-associative
  return mAddNode(eFormulaTernary, condition, whenTrue, whenFalse);
}

namespace {

struct SBinaryOp {
  const char* m_pSpelling;
  int m_nLevel;
  EFormulaOp_t m_eOp;
};

// Binary operators by precedence level, 0 binding loosest. ** is handled
// apart because it associates to the right.
const SBinaryOp kBinaryOps[] = {
    {"||", 0, eFormulaOr},  {"&&", 1, eFormulaAnd},   {"|", 2, eFormulaBitOr},  {"^", 3, eFormulaBitXor},
    {"&", 4, eFormulaBitAnd}, {"=", 5, eFormulaEq},   {"<>", 5, eFormulaNe},    {"<", 6, eFormulaLt},
    {"<=", 6, eFormulaLe},  {">", 6, eFormulaGt},     {">=", 6, eFormulaGe},    {"<<", 7, eFormulaShl},
    {">>", 7, eFormulaShr}, {"+", 8, eFormulaAdd},    {"-", 8, eFormulaSub},    {"*", 9, eFormulaMul},
    {"/", 9, eFormulaDiv},  {"%", 9, eFormulaMod},
};
const int kBinaryLevels = 10;

}  // namespace

int32_t CFormulaParser::mParseBinaryLevel(int level) {
  if (level == kBinaryLevels) return mParsePower();
  int32_t lhs = mParseBinaryLevel(level + 1);
  for (;;) {
    const SToken& tok = mPeek();
    if (tok.m_eKind != eTokOperator) return lhs;
    const SBinaryOp* match = nullptr;
    for (const SBinaryOp& op : kBinaryOps)
      if (op.m_nLevel == level && tok.m_strText == op.m_pSpelling) match = &op;
    if (match == nullptr) return lhs;
    ++m_nNext;
    const int32_t rhs = mParseBinaryLevel(level + 1);
    lhs = mAddNode(match->m_eOp, lhs, rhs);
  }
}

int32_t CFormulaParser::mParsePower() {
  const int32_t base = mParseUnary();
  if (!mIsOperator("**")) return base;
  ++m_nNext;
  CNestingGuard guard(m_nNesting);
  if (m_nNesting > kMaxNesting) mFail(mPeek().m_nPos, "formula nested too deeply");
  const int32_t exponent = mParsePower();  // right-associative: 2**3**2 is 2**9
  return mAddNode(eFormulaPow, base, exponent);
}

int32_t CFormulaParser::mParseUnary() {
  if (mPeek().m_eKind != eTokOperator) return mParsePrimary();
  CNestingGuard guard(m_nNesting);
  if (m_nNesting > kMaxNesting) mFail(mPeek().m_nPos, "formula nested too deeply");
  if (mIsOperator("-")) {
    ++m_nNext;
    return mAddNode(eFormulaNeg, mParseUnary());
  }
  if (mIsOperator("+")) {
    ++m_nNext;
    return mAddNode(eFormulaPlus, mParseUnary());
  }
  if (mIsOperator("~")) {
    ++m_nNext;
    return mAddNode(eFormulaBitNot, mParseUnary());
  }
  return mParsePrimary();
}

int32_t CFormulaParser::mParsePrimary() {
  const SToken& tok = mTake();
  switch (tok.m_eKind) {
    case eTokNumber:
      if (tok.m_bReal && m_Target.m_bIntegerMode) {
        m_Target.m_bMixed = true;
        const int32_t node = mAddConstant(0, tok.m_dblValue);
        m_Target.m_vecNodes[size_t(node)].m_eOp = eFormulaRealConst;
        return node;
      }
      return mAddConstant(tok.m_nValue, tok.m_dblValue);
    case eTokLParen: {
      const int32_t inner = mParseTernary();
      const SToken& close = mPeek();
      if (close.m_eKind == eTokEnd) mFail(tok.m_nPos, "unbalanced '('");
      mExpect(eTokRParen, "')'");
      return inner;
    }
    case eTokIdentifier: {
      if (mPeek().m_eKind == eTokLParen) return mParseFunction(tok);
      if (!m_Target.m_bIntegerMode) {
        // Integer formulas have no constants: there PI and E are ordinary names.
        if (tok.m_strText == "PI") return mAddConstant(0, 3.14159265358979323846);
        if (tok.m_strText == "E") return mAddConstant(0, 2.71828182845904523536);
      }
      return mAddVariable(tok.m_strText);
    }
    case eTokEnd:
      mFail(tok.m_nPos, "unexpected end of formula");
    case eTokRParen:
      mFail(tok.m_nPos, "unexpected ')'");
    default:
      mFail(tok.m_nPos, "unexpected '" + tok.m_strText + "'");
  }
}

int32_t CFormulaParser::mParseFunction(const SToken& name) {
  const SFunction* fn = FindFunction(name.m_strText);
  if (fn == nullptr) mFail(name.m_nPos, "unknown function '" + name.m_strText + "'");
  if (m_Target.m_bIntegerMode)
    mFail(name.m_nPos, "function '" + name.m_strText + "' is not available in an integer formula");
  mExpect(eTokLParen, "'('");
  const int32_t first = mParseTernary();
  int32_t second = -1;
  if (fn->m_bTwoArgs && mPeek().m_eKind == eTokComma) {
    ++m_nNext;
    second = mParseTernary();
  }
  const SToken& close = mPeek();
  if (close.m_eKind == eTokComma)
    mFail(close.m_nPos, "too many arguments for function '" + name.m_strText + "'");
  if (close.m_eKind == eTokEnd) mFail(name.m_nPos, "unbalanced '(' of function '" + name.m_strText + "'");
  mExpect(eTokRParen, "')'");
  if (second >= 0) return mAddNode(eFormulaRound2, first, second);
  return mAddNode(fn->m_eOneArg, first);
}

// ---------------------------------------------------------------------------
// Building the tree

int32_t CFormulaParser::mAddNode(EFormulaOp_t op, int32_t a, int32_t b, int32_t c) {
  int32_t height = 0;
  for (int32_t child : {a, b, c})
    if (child >= 0) height = std::max(height, m_vecHeight[size_t(child)]);
  ++height;
  if (height > kMaxTreeHeight) mFail(mPeek().m_nPos, "formula too long or nested too deeply");
  m_Target.m_vecNodes.push_back(CFormula::SNode{op, a, b, c, 0, 0.0});
  m_vecHeight.push_back(height);
  return int32_t(m_Target.m_vecNodes.size() - 1);
}

int32_t CFormulaParser::mAddConstant(int64_t intValue, double floatValue) {
  const int32_t node = mAddNode(eFormulaConst);
  m_Target.m_vecNodes[size_t(node)].m_nValue = intValue;
  m_Target.m_vecNodes[size_t(node)].m_dblValue = floatValue;
  return node;
}

int32_t CFormulaParser::mAddVariable(const std::string& name) {
  std::vector<std::string>& vars = m_Target.m_vecVariables;
  size_t index = size_t(std::find(vars.begin(), vars.end(), name) - vars.begin());
  if (index == vars.size()) vars.push_back(name);
  const int32_t node = mAddNode(eFormulaVariable);
  m_Target.m_vecNodes[size_t(node)].m_nValue = int64_t(index);
  return node;
}

}  // namespace detail
}  // namespace GenApi_3_0
