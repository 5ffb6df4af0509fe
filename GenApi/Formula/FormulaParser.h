// Compiles the text of a formula into the node array of a CFormula.
#ifndef GENAPI_FORMULA_FORMULAPARSER_H
#define GENAPI_FORMULA_FORMULAPARSER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "Formula.h"

namespace GenApi_3_0 {
namespace detail {

/// A recursive-descent parser with one function per precedence level. It
/// tokenises the whole text first, then fills the target's variables and
/// nodes; the target is complete only when Parse returns.
class CFormulaParser {
public:
  explicit CFormulaParser(CFormula& target);

  /// Parses the target's text in the target's mode. Raises
  /// GenICam_3_0::InvalidArgumentException on a syntax error, naming the
  /// reason, the 1-based position and the formula.
  void Parse();

private:
  enum ETokenKind_t : uint8_t {
    eTokNumber, eTokIdentifier, eTokOperator, eTokLParen, eTokRParen, eTokComma, eTokEnd
  };

  struct SToken {
    ETokenKind_t m_eKind;
    size_t m_nPos;        // 0-based offset into the text
    std::string m_strText; // identifier or operator spelling
    int64_t m_nValue;     // integer literal
    double m_dblValue;    // float literal
    bool m_bReal;         // a literal with a fraction or an exponent
  };

  // Tokenising
  void mTokenize();
  size_t mLexNumber(size_t pos);
  bool mIsRealLiteral(size_t pos) const;
  [[noreturn]] void mFail(size_t pos, const std::string& reason) const;

  // One function per precedence level, lowest first
  int32_t mParseTernary();
  int32_t mParseBinaryLevel(int level);
  int32_t mParsePower();
  int32_t mParseUnary();
  int32_t mParsePrimary();
  int32_t mParseFunction(const SToken& name);

  bool mIsOperator(const char* spelling) const;
  const SToken& mPeek() const { return m_vecTokens[m_nNext]; }
  const SToken& mTake() { return m_vecTokens[m_nNext++]; }
  void mExpect(ETokenKind_t kind, const char* what);

  int32_t mAddNode(EFormulaOp_t op, int32_t a = -1, int32_t b = -1, int32_t c = -1);
  int32_t mAddConstant(int64_t intValue, double floatValue);
  int32_t mAddVariable(const std::string& name);

  CFormula& m_Target;
  std::vector<SToken> m_vecTokens;
  size_t m_nNext;
  // Height of each node's subtree, parallel to the target's nodes; the
  // evaluator recurses that deep, so it is bounded.
  std::vector<int32_t> m_vecHeight;
  int m_nNesting;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
