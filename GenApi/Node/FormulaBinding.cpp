#include "Node/FormulaBinding.h"

#include <cmath>

#include <Base/GCException.h>

namespace GenApi_3_0 {
namespace detail {

namespace {
// Expressions may use expressions; a deeper chain than this is a cycle.
const int kMaxDepth = 64;
}  // namespace

void CFormulaBinding::Read(CElementReader& r, bool IntegerMode) {
  m_bIntegerMode = IntegerMode;
  std::vector<const SElement*> vars = r.TakeAll("pVariable");
  m_vecVariables.resize(vars.size());
  for (size_t i = 0; i < vars.size(); ++i) {
    const std::string* name = vars[i]->FindAttribute("Name");
    if (!name || name->empty()) r.Fail(vars[i], "pVariable needs a Name attribute");
    m_vecVariables[i].m_strName = *name;
    SVariable* v = &m_vecVariables[i];
    r.Reference(*vars[i], "pVariable " + *name, vars[i]->m_strText, lkReads, [v](CNodeBase* n) { v->m_pNode = n; });
  }
  for (const SElement* e : r.TakeAll("Constant")) {
    const std::string* name = e->FindAttribute("Name");
    if (!name || name->empty()) r.Fail(e, "Constant needs a Name attribute");
    SConstant c{*name, 0, 0.0};
    int64_t i;
    if (CElementReader::ParseInt(e->m_strText, i)) {
      c.m_nValue = i;
      c.m_dblValue = static_cast<double>(i);
    } else if (!IntegerMode && CElementReader::ParseFloat(e->m_strText, c.m_dblValue)) {
      c.m_nValue = static_cast<int64_t>(c.m_dblValue);
    } else {
      r.Fail(e, "Constant " + *name + " '" + e->m_strText + "' is not a number");
    }
    m_vecConstants.push_back(c);
  }
  for (const SElement* e : r.TakeAll("Expression")) {
    const std::string* name = e->FindAttribute("Name");
    if (!name || name->empty()) r.Fail(e, "Expression needs a Name attribute");
    m_vecExpressionNames.push_back(*name);
    SCompiled c;
    try {
      c.m_pFormula.reset(new CFormula(e->m_strText, IntegerMode));
    } catch (const GenICam_3_0::GenericException& x) {
      r.Fail(e, std::string("Expression ") + *name + ": " + x.GetDescription());
    }
    c.m_nLine = e->m_nLine;
    m_vecExpressions.push_back(std::move(c));
  }
}

size_t CFormulaBinding::Add(CElementReader& r, const SElement& e, const std::vector<std::string>& Extra) {
  SCompiled c;
  try {
    c.m_pFormula.reset(new CFormula(e.m_strText, m_bIntegerMode));
  } catch (const GenICam_3_0::GenericException& x) {
    r.Fail(&e, e.m_strName + ": " + x.GetDescription());
  }
  c.m_vecExtra = Extra;
  c.m_nLine = e.m_nLine;
  m_vecFormulas.push_back(std::move(c));
  return m_vecFormulas.size() - 1;
}

CFormulaBinding::SSource CFormulaBinding::mResolve(const CNodeBase* pOwner, const SCompiled& c,
                                                   const std::string& Name) const {
  for (size_t i = 0; i < c.m_vecExtra.size(); ++i)
    if (c.m_vecExtra[i] == Name) return SSource{srcExtra, i, vpValue};
  for (size_t i = 0; i < m_vecConstants.size(); ++i)
    if (m_vecConstants[i].m_strName == Name) return SSource{srcConstant, i, vpValue};
  for (size_t i = 0; i < m_vecExpressionNames.size(); ++i)
    if (m_vecExpressionNames[i] == Name) return SSource{srcExpression, i, vpValue};
  for (size_t i = 0; i < m_vecVariables.size(); ++i)
    if (m_vecVariables[i].m_strName == Name) return SSource{srcVariable, i, vpValue};
  size_t dot = Name.rfind('.');
  if (dot != std::string::npos) {
    std::string base = Name.substr(0, dot), suffix = Name.substr(dot + 1);
    EValuePart_t part = vpValue;
    bool known = true;
    if (suffix == "Value") part = vpValue;
    else if (suffix == "Min") part = vpMin;
    else if (suffix == "Max") part = vpMax;
    else if (suffix == "Inc") part = vpInc;
    else known = false;
    if (known)
      for (size_t i = 0; i < m_vecVariables.size(); ++i)
        if (m_vecVariables[i].m_strName == base) return SSource{srcVariable, i, part};
  }
  throw INVALID_ARGUMENT_EXCEPTION("Node '%s' (line %d): the formula '%s' uses '%s', which is no pVariable, Constant "
                                   "or Expression of the node",
                                   pOwner->mName().c_str(), c.m_nLine, c.m_pFormula->GetText().c_str(), Name.c_str());
}

void CFormulaBinding::Link(const CNodeBase* pOwner) {
  for (auto* list : {&m_vecExpressions, &m_vecFormulas}) {
    for (SCompiled& c : *list) {
      c.m_vecSources.clear();
      for (const std::string& n : c.m_pFormula->GetVariableNames()) c.m_vecSources.push_back(mResolve(pOwner, c, n));
    }
  }
  for (const SVariable& v : m_vecVariables) {
    if (!v.m_pNode->mIsNumber())
      throw INVALID_ARGUMENT_EXCEPTION("Node '%s' (line %d): pVariable %s refers to '%s', which is not a number",
                                       pOwner->mName().c_str(), pOwner->mDesc().m_nLine, v.m_strName.c_str(),
                                       v.m_pNode->mName().c_str());
  }
}

int64_t CFormulaBinding::mInt(const SCompiled& c, size_t i, const int64_t* pExtra, int Depth) const {
  const SSource& s = c.m_vecSources[i];
  switch (s.m_eKind) {
    case srcVariable: return m_vecVariables[s.m_nIndex].m_pNode->mGetInt(false, false, s.m_ePart);
    case srcConstant: return m_vecConstants[s.m_nIndex].m_nValue;
    case srcExpression: return mEvalInt(m_vecExpressions[s.m_nIndex], pExtra, Depth + 1);
    case srcExtra: return pExtra ? pExtra[s.m_nIndex] : 0;
  }
  return 0;
}

double CFormulaBinding::mFloat(const SCompiled& c, size_t i, const double* pExtra, int Depth) const {
  const SSource& s = c.m_vecSources[i];
  switch (s.m_eKind) {
    case srcVariable: return m_vecVariables[s.m_nIndex].m_pNode->mGetFloat(false, false, s.m_ePart);
    case srcConstant: return m_vecConstants[s.m_nIndex].m_dblValue;
    case srcExpression: return mEvalFloat(m_vecExpressions[s.m_nIndex], pExtra, Depth + 1);
    case srcExtra: return pExtra ? pExtra[s.m_nIndex] : 0.0;
  }
  return 0.0;
}

int64_t CFormulaBinding::mEvalInt(const SCompiled& c, const int64_t* pExtra, int Depth) const {
  if (Depth > kMaxDepth)
    throw LOGICAL_ERROR_EXCEPTION("The expressions of formula '%s' refer to each other in a cycle",
                                  c.m_pFormula->GetText().c_str());
  return c.m_pFormula->EvaluateInteger([&](size_t i) { return mInt(c, i, pExtra, Depth); },
                                       [&](size_t i) { return static_cast<double>(mInt(c, i, pExtra, Depth)); });
}

double CFormulaBinding::mEvalFloat(const SCompiled& c, const double* pExtra, int Depth) const {
  if (Depth > kMaxDepth)
    throw LOGICAL_ERROR_EXCEPTION("The expressions of formula '%s' refer to each other in a cycle",
                                  c.m_pFormula->GetText().c_str());
  return c.m_pFormula->EvaluateFloat([&](size_t i) { return static_cast<int64_t>(mFloat(c, i, pExtra, Depth)); },
                                     [&](size_t i) { return mFloat(c, i, pExtra, Depth); });
}

int64_t CFormulaBinding::EvaluateInt(size_t f, const int64_t* pExtra) const {
  return mEvalInt(m_vecFormulas[f], pExtra, 0);
}

double CFormulaBinding::EvaluateFloat(size_t f, const double* pExtra) const {
  return mEvalFloat(m_vecFormulas[f], pExtra, 0);
}

}  // namespace detail
}  // namespace GenApi_3_0
