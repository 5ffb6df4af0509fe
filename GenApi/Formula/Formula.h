// The formula language of SwissKnife, IntSwissKnife, Converter and
// IntConverter nodes: a parser that compiles a formula once into a flat
// expression tree, and an evaluator that walks that tree without allocating.
#ifndef GENAPI_FORMULA_FORMULA_H
#define GENAPI_FORMULA_FORMULA_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <Base/GCException.h>

namespace GenApi_3_0 {
namespace detail {

/// Operations of a compiled formula's nodes.
enum EFormulaOp_t : uint8_t {
  eFormulaConst,     // literal or constant
  eFormulaRealConst, // literal with a fraction or exponent in an integer formula
  eFormulaVariable,  // the node's m_nValue is the variable's index
  eFormulaNeg, eFormulaPlus, eFormulaBitNot,
  eFormulaAdd, eFormulaSub, eFormulaMul, eFormulaDiv, eFormulaMod, eFormulaPow,
  eFormulaShl, eFormulaShr, eFormulaBitAnd, eFormulaBitOr, eFormulaBitXor,
  eFormulaEq, eFormulaNe, eFormulaLt, eFormulaLe, eFormulaGt, eFormulaGe,
  eFormulaAnd, eFormulaOr, eFormulaTernary,
  // functions of float formulas
  eFormulaSgn, eFormulaFNeg, eFormulaAbs, eFormulaSin, eFormulaCos, eFormulaTan, eFormulaAsin,
  eFormulaAcos, eFormulaAtan, eFormulaExp, eFormulaLn, eFormulaLg, eFormulaSqrt, eFormulaTrunc,
  eFormulaFloor, eFormulaCeil, eFormulaRound, eFormulaRound2
};

/// A value of an integer formula that holds double literals: an int64 or a
/// double.
struct SFormulaMixedValue {
  bool m_bReal;
  int64_t m_nValue;
  double m_dblValue;
};

/// A compiled formula.
///
/// Integer mode (IntSwissKnife, IntConverter): 64-bit two's-complement
/// arithmetic that wraps on overflow; / truncates toward zero and % takes the
/// sign of the dividend (as in C); ** with a negative exponent gives the
/// truncated quotient (0 unless the base is 1 or -1); << and >> (arithmetic)
/// by a count outside 0..63 shift every bit out. No functions and no
/// constants (PI and E are plain variable names there). Integer literals are
/// decimal or 0x hexadecimal up to 2**64-1, wrapping, so that
/// 0xFFFFFFFFFFFFFFFF is -1. Device descriptions also write literals with a
/// fraction or an exponent into integer formulas ("TO / 4.0"); such a literal
/// is a double, and, as in C, an arithmetic operation with a double operand is
/// done in double, comparisons compare the doubles, and bitwise operators and
/// shifts truncate to int64. EvaluateInteger truncates a double result toward
/// zero.
/// Float mode (SwissKnife, Converter): double arithmetic, % is fmod, the
/// functions SGN, NEG, ABS, SIN, COS, TAN, ASIN, ACOS, ATAN, EXP, LN, LG, SQRT,
/// TRUNC, FLOOR, CEIL, ROUND (halves away from zero, with an optional second
/// argument: the number of decimals), spelt in capitals, and the constants PI
/// and E, which take precedence over variables of those names. Bitwise
/// operators and shifts work on the operands truncated to int64.
///
/// Operators, lowest to highest precedence: ?: (right-associative), ||, &&,
/// |, ^, &, = and <>, < <= > >=, << and >>, + and -, * / and %, ** (right-
/// associative), unary - + ~. `=` compares. Comparisons and logic give 1 or 0;
/// && and || and ?: evaluate only the operands they need.
///
/// Value semantics: a CFormula may be copied, moved and assigned freely; a
/// copy is independent of the original. Evaluation is const and keeps no
/// state, so one CFormula may be evaluated by several threads at once.
class CFormula {
public:
  /// Parses `text`. Raises GenICam_3_0::InvalidArgumentException on a syntax
  /// error (unexpected character or token, unbalanced parentheses, a function
  /// unknown or unavailable in integer mode, wrong argument count, a literal
  /// out of range, nesting deeper than the evaluator allows); the message
  /// quotes the formula and names the 1-based character position.
  CFormula(const std::string& text, bool integerMode);

  /// The formula text as given. Raises nothing.
  const std::string& GetText() const { return m_strText; }
  /// True when compiled for integer arithmetic. Raises nothing.
  bool IsIntegerMode() const { return m_bIntegerMode; }

  /// Every identifier the formula uses as a variable (dotted names such as
  /// "Width.Max" or "VAR.Value" included, as written), in order of first
  /// appearance, without function names and constants. Raises nothing.
  const std::vector<std::string>& GetVariableNames() const { return m_vecVariables; }

  /// Evaluates the formula. Variable i (an index into GetVariableNames()) is
  /// asked for through intVar in integer mode and through floatVar in float
  /// mode; the other source is never called and may be empty. A source is
  /// called for every occurrence that evaluation reaches (operands that &&,
  /// || and ?: skip are not read). Raises GenICam_3_0::LogicalErrorException on a
  /// division or modulo by zero (0 ** negative in integer arithmetic counts as
  /// one); lets whatever a source raises pass.
  /// EvaluateInteger of a float formula truncates the result toward zero
  /// (saturating at the int64 range, NaN gives 0); EvaluateFloat of an
  /// integer formula converts the result to double.
  int64_t EvaluateInteger(const std::function<int64_t(size_t)>& intVar,
                          const std::function<double(size_t)>& floatVar) const;
  double EvaluateFloat(const std::function<int64_t(size_t)>& intVar,
                       const std::function<double(size_t)>& floatVar) const;

private:
  /// One node of the compiled tree; children are indices into m_vecNodes.
  struct SNode {
    EFormulaOp_t m_eOp;
    int32_t m_nA;      // first operand, -1 if none
    int32_t m_nB;      // second operand, -1 if none
    int32_t m_nC;      // third operand (ternary's else), -1 if none
    int64_t m_nValue;  // literal in integer mode, variable index
    double m_dblValue; // literal in float mode
  };

  friend class CFormulaParser;

  int64_t mEvalInt(int32_t node, const std::function<int64_t(size_t)>& intVar) const;
  SFormulaMixedValue mEvalMixed(int32_t node, const std::function<int64_t(size_t)>& intVar) const;
  double mEvalFloat(int32_t node, const std::function<double(size_t)>& floatVar) const;

  std::string m_strText;
  bool m_bIntegerMode;
  std::vector<std::string> m_vecVariables;
  std::vector<SNode> m_vecNodes;
  int32_t m_nRoot;
  bool m_bMixed;  // an integer formula with double literals
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
