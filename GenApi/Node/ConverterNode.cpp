#include "Node/ConverterNode.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "Node/SwissKnifeNode.h"

namespace GenApi_3_0 {
namespace detail {

void CConverterBase::mReadElements(CElementReader& r) {
  CNodeBase::mReadElements(r);
  m_Formulas.Read(r, m_bIntegerMode);
  const SElement* to = r.Take("FormulaTo");
  const SElement* from = r.Take("FormulaFrom");
  if (!to) r.FailMissing("FormulaTo");
  if (!from) r.FailMissing("FormulaFrom");
  m_nTo = m_Formulas.Add(r, *to, {"FROM"});
  m_nFrom = m_Formulas.Add(r, *from, {"TO"});
  r.IntProperty(nullptr, "pValue", m_Value, true);
  r.Slope("Slope", m_eSlope);
  r.YesNo("IsLinear", m_bIsLinear);
  r.Text("Unit", m_strUnit);
  r.Representation("Representation", m_eRepresentation);
  r.DisplayNotation("DisplayNotation", m_eDisplayNotation);
  r.Int("DisplayPrecision", m_nDisplayPrecision);
}

void CConverterBase::mFinishLink() {
  m_Formulas.Link(this);
  if (!m_Value.GetNode()->mIsNumber())
    throw INVALID_ARGUMENT_EXCEPTION("Node '%s' (line %d): pValue '%s' is not a number", m_strName.c_str(),
                                     m_pDesc->m_nLine, m_Value.GetNode()->mName().c_str());
}

double CConverterBase::mFrom(double To) const {
  if (m_bIntegerMode) {
    int64_t t = SaturatingRound(To);
    return static_cast<double>(m_Formulas.EvaluateInt(m_nFrom, &t));
  }
  return m_Formulas.EvaluateFloat(m_nFrom, &To);
}

double CConverterBase::mGetFloat(bool Verify, bool IgnoreCache, EValuePart_t Part) {
  CNodeBase* n = m_Value.GetNode();
  switch (Part) {
    case vpValue:
      if (m_bIntegerMode) {
        int64_t t = n->mGetInt(Verify, IgnoreCache);
        return static_cast<double>(m_Formulas.EvaluateInt(m_nFrom, &t));
      }
      return mFrom(n->mGetFloat(Verify, IgnoreCache));
    case vpInc:
      return m_bIntegerMode ? 1.0 : 0.0;
    case vpMin:
    case vpMax: {
      // The limits are the images of the value node's limits; which one is
      // the lower depends on the slope, so both are mapped.
      double a = mFrom(n->mGetFloat(false, false, vpMin));
      double b = mFrom(n->mGetFloat(false, false, vpMax));
      if (m_eSlope == Increasing) return Part == vpMin ? a : b;
      if (m_eSlope == Decreasing) return Part == vpMin ? b : a;
      if (std::isnan(a)) a = Part == vpMin ? -std::numeric_limits<double>::max() : std::numeric_limits<double>::max();
      if (std::isnan(b)) b = a;
      return Part == vpMin ? std::min(a, b) : std::max(a, b);
    }
  }
  return 0.0;
}

int64_t CConverterBase::mGetInt(bool Verify, bool IgnoreCache, EValuePart_t Part) {
  if (m_bIntegerMode && Part == vpValue) {
    int64_t t = m_Value.GetNode()->mGetInt(Verify, IgnoreCache);
    return m_Formulas.EvaluateInt(m_nFrom, &t);
  }
  if (m_bIntegerMode && Part == vpInc) return 1;
  return SaturatingRound(mGetFloat(Verify, IgnoreCache, Part));
}

void CConverterBase::mSetFloat(double Value, bool Verify) {
  if (m_bIntegerMode) {
    mSetInt(SaturatingRound(Value), Verify);
    return;
  }
  double to = m_Formulas.EvaluateFloat(m_nTo, &Value);
  CNodeBase* n = m_Value.GetNode();
  if (n->mIsIntegerLike()) n->mSetInt(SaturatingRound(to), Verify);
  else n->mSetFloat(to, Verify);
}

void CConverterBase::mSetInt(int64_t Value, bool Verify) {
  if (!m_bIntegerMode) {
    mSetFloat(static_cast<double>(Value), Verify);
    return;
  }
  int64_t to = m_Formulas.EvaluateInt(m_nTo, &Value);
  m_Value.GetNode()->mSetInt(to, Verify);
}

}  // namespace detail
}  // namespace GenApi_3_0
