#include "Formula.h"

#include <cmath>
#include <limits>

#include "FormulaParser.h"

namespace GenApi_3_0 {
namespace detail {

namespace {

// Integer arithmetic wraps like the hardware does: the operations go through
// uint64_t, where overflow is defined, and the conversion back to int64_t is
// modular (guaranteed by C++20, and by GCC and Clang for earlier standards).
int64_t Wrap(uint64_t v) { return static_cast<int64_t>(v); }
int64_t WrapAdd(int64_t a, int64_t b) { return Wrap(uint64_t(a) + uint64_t(b)); }
int64_t WrapSub(int64_t a, int64_t b) { return Wrap(uint64_t(a) - uint64_t(b)); }
int64_t WrapMul(int64_t a, int64_t b) { return Wrap(uint64_t(a) * uint64_t(b)); }

// Shifts by a count outside 0..63 shift every bit out; >> is arithmetic.
int64_t ShiftLeft(int64_t a, int64_t count) {
  if (count < 0 || count > 63) return 0;
  return Wrap(uint64_t(a) << count);
}
int64_t ShiftRight(int64_t a, int64_t count) {
  if (count < 0 || count > 63) return a < 0 ? -1 : 0;
  return a >> count;
}

// Float to int64 for the bitwise operators and EvaluateInteger: truncation
// toward zero, saturating at the range, NaN as 0.
int64_t ToInt64(double v) {
  if (std::isnan(v)) return 0;
  if (v >= 9223372036854775808.0) return std::numeric_limits<int64_t>::max();
  if (v < -9223372036854775808.0) return std::numeric_limits<int64_t>::min();
  return static_cast<int64_t>(v);
}

double Bool(bool b) { return b ? 1.0 : 0.0; }

// The binary operations of integer arithmetic; `text` names the formula in
// the exception of a division by zero.
int64_t IntBinary(EFormulaOp_t op, int64_t a, int64_t b, const std::string& text) {
  switch (op) {
    case eFormulaAdd: return WrapAdd(a, b);
    case eFormulaSub: return WrapSub(a, b);
    case eFormulaMul: return WrapMul(a, b);
    case eFormulaDiv:
      if (b == 0) throw LOGICAL_ERROR_EXCEPTION("Division by zero in formula '%s'", text.c_str());
      if (b == -1) return WrapSub(0, a);  // INT64_MIN / -1 wraps instead of trapping
      return a / b;
    case eFormulaMod:
      if (b == 0) throw LOGICAL_ERROR_EXCEPTION("Modulo by zero in formula '%s'", text.c_str());
      if (b == -1) return 0;
      return a % b;
    case eFormulaPow: {
      if (b < 0) {
        // The exact power is 1 / a**-b, truncated toward zero.
        if (a == 0) throw LOGICAL_ERROR_EXCEPTION("Division by zero in formula '%s'", text.c_str());
        if (a == 1) return 1;
        if (a == -1) return (b & 1) ? -1 : 1;
        return 0;
      }
      uint64_t result = 1;
      uint64_t base = uint64_t(a);
      for (uint64_t e = uint64_t(b); e != 0; e >>= 1) {
        if (e & 1) result *= base;
        base *= base;
      }
      return Wrap(result);
    }
    case eFormulaShl: return ShiftLeft(a, b);
    case eFormulaShr: return ShiftRight(a, b);
    case eFormulaBitAnd: return a & b;
    case eFormulaBitOr: return a | b;
    case eFormulaBitXor: return a ^ b;
    case eFormulaEq: return a == b;
    case eFormulaNe: return a != b;
    case eFormulaLt: return a < b;
    case eFormulaLe: return a <= b;
    case eFormulaGt: return a > b;
    case eFormulaGe: return a >= b;
    default: break;
  }
  throw LOGICAL_ERROR_EXCEPTION("Corrupt integer formula '%s'", text.c_str());
}

// The binary operations of double arithmetic.
double FloatBinary(EFormulaOp_t op, double a, double b, const std::string& text) {
  switch (op) {
    case eFormulaAdd: return a + b;
    case eFormulaSub: return a - b;
    case eFormulaMul: return a * b;
    case eFormulaDiv:
      if (b == 0.0) throw LOGICAL_ERROR_EXCEPTION("Division by zero in formula '%s'", text.c_str());
      return a / b;
    case eFormulaMod:
      if (b == 0.0) throw LOGICAL_ERROR_EXCEPTION("Modulo by zero in formula '%s'", text.c_str());
      return std::fmod(a, b);
    case eFormulaPow: return std::pow(a, b);
    case eFormulaShl: return static_cast<double>(ShiftLeft(ToInt64(a), ToInt64(b)));
    case eFormulaShr: return static_cast<double>(ShiftRight(ToInt64(a), ToInt64(b)));
    case eFormulaBitAnd: return static_cast<double>(ToInt64(a) & ToInt64(b));
    case eFormulaBitOr: return static_cast<double>(ToInt64(a) | ToInt64(b));
    case eFormulaBitXor: return static_cast<double>(ToInt64(a) ^ ToInt64(b));
    case eFormulaEq: return Bool(a == b);
    case eFormulaNe: return Bool(a != b);
    case eFormulaLt: return Bool(a < b);
    case eFormulaLe: return Bool(a <= b);
    case eFormulaGt: return Bool(a > b);
    case eFormulaGe: return Bool(a >= b);
    case eFormulaRound2: {
      // ROUND(x, n): x rounded to n decimals (n truncated; negative n rounds
      // to tens, hundreds, ...).
      const double scale = std::pow(10.0, std::trunc(b));
      const double scaled = a * scale;
      if (!std::isfinite(scaled) || scale == 0.0) return a;  // more decimals than a double holds
      return std::round(scaled) / scale;
    }
    default: break;
  }
  throw LOGICAL_ERROR_EXCEPTION("Corrupt float formula '%s'", text.c_str());
}

// Values of integer formulas with double literals.
bool IsTrue(const SFormulaMixedValue& v) { return v.m_bReal ? v.m_dblValue != 0.0 : v.m_nValue != 0; }
int64_t AsInt(const SFormulaMixedValue& v) { return v.m_bReal ? ToInt64(v.m_dblValue) : v.m_nValue; }
double AsReal(const SFormulaMixedValue& v) { return v.m_bReal ? v.m_dblValue : static_cast<double>(v.m_nValue); }

}  // namespace

CFormula::CFormula(const std::string& text, bool integerMode)
    : m_strText(text), m_bIntegerMode(integerMode), m_nRoot(-1), m_bMixed(false) {
  CFormulaParser parser(*this);
  parser.Parse();
}

int64_t CFormula::EvaluateInteger(const std::function<int64_t(size_t)>& intVar,
                                  const std::function<double(size_t)>& floatVar) const {
  if (m_bMixed) return AsInt(mEvalMixed(m_nRoot, intVar));
  if (m_bIntegerMode) return mEvalInt(m_nRoot, intVar);
  return ToInt64(mEvalFloat(m_nRoot, floatVar));
}

double CFormula::EvaluateFloat(const std::function<int64_t(size_t)>& intVar,
                               const std::function<double(size_t)>& floatVar) const {
  if (m_bMixed) return AsReal(mEvalMixed(m_nRoot, intVar));
  if (m_bIntegerMode) return static_cast<double>(mEvalInt(m_nRoot, intVar));
  return mEvalFloat(m_nRoot, floatVar);
}

int64_t CFormula::mEvalInt(int32_t index, const std::function<int64_t(size_t)>& intVar) const {
  const SNode& n = m_vecNodes[size_t(index)];
  switch (n.m_eOp) {
    case eFormulaConst: return n.m_nValue;
    case eFormulaVariable: return intVar(size_t(n.m_nValue));
    case eFormulaNeg: return WrapSub(0, mEvalInt(n.m_nA, intVar));
    case eFormulaPlus: return mEvalInt(n.m_nA, intVar);
    case eFormulaBitNot: return ~mEvalInt(n.m_nA, intVar);
    case eFormulaAnd: return (mEvalInt(n.m_nA, intVar) != 0 && mEvalInt(n.m_nB, intVar) != 0) ? 1 : 0;
    case eFormulaOr: return (mEvalInt(n.m_nA, intVar) != 0 || mEvalInt(n.m_nB, intVar) != 0) ? 1 : 0;
    case eFormulaTernary:
      return mEvalInt(mEvalInt(n.m_nA, intVar) != 0 ? n.m_nB : n.m_nC, intVar);
    default: break;
  }

  return IntBinary(n.m_eOp, mEvalInt(n.m_nA, intVar), mEvalInt(n.m_nB, intVar), m_strText);
}

double CFormula::mEvalFloat(int32_t index, const std::function<double(size_t)>& floatVar) const {
  const SNode& n = m_vecNodes[size_t(index)];
  switch (n.m_eOp) {
    case eFormulaConst:
    case eFormulaRealConst: return n.m_dblValue;
    case eFormulaVariable: return floatVar(size_t(n.m_nValue));
    case eFormulaAnd: return Bool(mEvalFloat(n.m_nA, floatVar) != 0.0 && mEvalFloat(n.m_nB, floatVar) != 0.0);
    case eFormulaOr: return Bool(mEvalFloat(n.m_nA, floatVar) != 0.0 || mEvalFloat(n.m_nB, floatVar) != 0.0);
    case eFormulaTernary:
      return mEvalFloat(mEvalFloat(n.m_nA, floatVar) != 0.0 ? n.m_nB : n.m_nC, floatVar);
    default: break;
  }

  const double a = mEvalFloat(n.m_nA, floatVar);
  if (n.m_nB < 0) {
    switch (n.m_eOp) {
      case eFormulaNeg: return -a;
      case eFormulaPlus: return a;
      case eFormulaBitNot: return static_cast<double>(~ToInt64(a));
      case eFormulaSgn: return a > 0.0 ? 1.0 : (a < 0.0 ? -1.0 : 0.0);
      case eFormulaFNeg: return -a;
      case eFormulaAbs: return std::fabs(a);
      case eFormulaSin: return std::sin(a);
      case eFormulaCos: return std::cos(a);
      case eFormulaTan: return std::tan(a);
      case eFormulaAsin: return std::asin(a);
      case eFormulaAcos: return std::acos(a);
      case eFormulaAtan: return std::atan(a);
      case eFormulaExp: return std::exp(a);
      case eFormulaLn: return std::log(a);
      case eFormulaLg: return std::log10(a);
      case eFormulaSqrt: return std::sqrt(a);
      case eFormulaTrunc: return std::trunc(a);
      case eFormulaFloor: return std::floor(a);
      case eFormulaCeil: return std::ceil(a);
      case eFormulaRound: return std::round(a);  // halves away from zero
      default: break;
    }
    throw LOGICAL_ERROR_EXCEPTION("Corrupt float formula '%s'", m_strText.c_str());
  }

  return FloatBinary(n.m_eOp, a, mEvalFloat(n.m_nB, floatVar), m_strText);
}

SFormulaMixedValue CFormula::mEvalMixed(int32_t index, const std::function<int64_t(size_t)>& intVar) const {
  using V = SFormulaMixedValue;
  const SNode& n = m_vecNodes[size_t(index)];
  switch (n.m_eOp) {
    case eFormulaConst: return V{false, n.m_nValue, 0.0};
    case eFormulaRealConst: return V{true, 0, n.m_dblValue};
    case eFormulaVariable: return V{false, intVar(size_t(n.m_nValue)), 0.0};
    case eFormulaAnd: return V{false, IsTrue(mEvalMixed(n.m_nA, intVar)) && IsTrue(mEvalMixed(n.m_nB, intVar)), 0.0};
    case eFormulaOr: return V{false, IsTrue(mEvalMixed(n.m_nA, intVar)) || IsTrue(mEvalMixed(n.m_nB, intVar)), 0.0};
    case eFormulaTernary: return mEvalMixed(IsTrue(mEvalMixed(n.m_nA, intVar)) ? n.m_nB : n.m_nC, intVar);
    case eFormulaNeg: {
      const V a = mEvalMixed(n.m_nA, intVar);
      return a.m_bReal ? V{true, 0, -a.m_dblValue} : V{false, WrapSub(0, a.m_nValue), 0.0};
    }
    case eFormulaPlus: return mEvalMixed(n.m_nA, intVar);
    case eFormulaBitNot: return V{false, ~AsInt(mEvalMixed(n.m_nA, intVar)), 0.0};
    default: break;
  }

  const V a = mEvalMixed(n.m_nA, intVar);
  const V b = mEvalMixed(n.m_nB, intVar);
  switch (n.m_eOp) {
    case eFormulaShl:
    case eFormulaShr:
    case eFormulaBitAnd:
    case eFormulaBitOr:
    case eFormulaBitXor:
      return V{false, IntBinary(n.m_eOp, AsInt(a), AsInt(b), m_strText), 0.0};
    case eFormulaEq:
    case eFormulaNe:
    case eFormulaLt:
    case eFormulaLe:
    case eFormulaGt:
    case eFormulaGe:
      if (a.m_bReal || b.m_bReal) return V{false, FloatBinary(n.m_eOp, AsReal(a), AsReal(b), m_strText) != 0.0, 0.0};
      return V{false, IntBinary(n.m_eOp, a.m_nValue, b.m_nValue, m_strText), 0.0};
    default:
      if (a.m_bReal || b.m_bReal) return V{true, 0, FloatBinary(n.m_eOp, AsReal(a), AsReal(b), m_strText)};
      return V{false, IntBinary(n.m_eOp, a.m_nValue, b.m_nValue, m_strText), 0.0};
  }
}

}  // namespace detail
}  // namespace GenApi_3_0
