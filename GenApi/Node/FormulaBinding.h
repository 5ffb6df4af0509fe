// CFormulaBinding: the pVariable, Constant and Expression elements of a
// SwissKnife or Converter, and the formulas that use them. Each name a
// formula uses is bound once, at link time, to where its value comes from.
#ifndef GENAPI_NODE_FORMULABINDING_H
#define GENAPI_NODE_FORMULABINDING_H

#include <memory>
#include <string>
#include <vector>

#include "Description/ElementReader.h"
#include "Formula/Formula.h"

namespace GenApi_3_0 {
namespace detail {

class CFormulaBinding {
public:
  /// Reads pVariable, Constant and Expression elements. IntegerMode selects
  /// 64-bit integer arithmetic.
  void Read(CElementReader& Reader, bool IntegerMode);
  /// Compiles a formula element; Extra are names the caller supplies at
  /// evaluation (FROM, TO). Returns its index. Raises through the reader
  /// for a syntax error.
  size_t Add(CElementReader& Reader, const SElement& Element, const std::vector<std::string>& Extra = {});
  /// Binds every name the formulas use. Raises InvalidArgumentException for
  /// a name that is no variable, constant or expression.
  void Link(const CNodeBase* pOwner);

  int64_t EvaluateInt(size_t Formula, const int64_t* pExtra = nullptr) const;
  double EvaluateFloat(size_t Formula, const double* pExtra = nullptr) const;

private:
  enum ESource_t { srcVariable, srcConstant, srcExpression, srcExtra };
  struct SSource {
    ESource_t m_eKind;
    size_t m_nIndex;
    EValuePart_t m_ePart;
  };
  struct SCompiled {
    std::unique_ptr<CFormula> m_pFormula;
    std::vector<std::string> m_vecExtra;
    std::vector<SSource> m_vecSources;
    int m_nLine;
  };
  struct SVariable {
    std::string m_strName;
    CNodeBase* m_pNode = nullptr;
  };
  struct SConstant {
    std::string m_strName;
    int64_t m_nValue;
    double m_dblValue;
  };

  int64_t mInt(const SCompiled& c, size_t i, const int64_t* pExtra, int Depth) const;
  double mFloat(const SCompiled& c, size_t i, const double* pExtra, int Depth) const;
  int64_t mEvalInt(const SCompiled& c, const int64_t* pExtra, int Depth) const;
  double mEvalFloat(const SCompiled& c, const double* pExtra, int Depth) const;
  SSource mResolve(const CNodeBase* pOwner, const SCompiled& c, const std::string& Name) const;

  bool m_bIntegerMode = false;
  std::vector<SVariable> m_vecVariables;
  std::vector<SConstant> m_vecConstants;
  std::vector<std::string> m_vecExpressionNames;
  std::vector<SCompiled> m_vecExpressions;
  std::vector<SCompiled> m_vecFormulas;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
