#include "Node/IntegerNode.h"

#include <cmath>
#include <limits>

#include <GenApi/Pointer.h>

namespace GenApi_3_0 {
namespace detail {

void CIntegerBase::mReadElements(CElementReader& r) {
  CNodeBase::mReadElements(r);
  m_Value.Read(r, false);
  r.PointerList("pValueCopy", m_vecValueCopies, lkReads);
  r.IntProperty("Min", "pMin", m_Min);
  r.IntProperty("Max", "pMax", m_Max);
  r.IntProperty("Inc", "pInc", m_Inc);
  r.Text("Unit", m_strUnit);
  r.Representation("Representation", m_eRepresentation);
  std::string unused;
  r.Text("ValidValueSet", unused);  // reserved by the schema for future use, without meaning today
  r.AccessMode("AccessMode", m_eAccessMode);
}

void CIntegerBase::mFinishLink() {
  for (CNodeBase* n : m_Value.Nodes())
    if (!n->mIsNumber())
      throw INVALID_ARGUMENT_EXCEPTION("Node '%s' (line %d): its value node '%s' is not a number", m_strName.c_str(),
                                       m_pDesc->m_nLine, n->mName().c_str());
}

EAccessMode CIntegerBase::mNaturalAccessMode() const {
  CValueProperty& v = const_cast<CIndexedValue&>(m_Value).Current();
  return Combine(v.GetAccessMode(), m_eAccessMode);
}

int64_t CIntegerBase::mGetInt(bool Verify, bool IgnoreCache, EValuePart_t Part) {
  CValueProperty& v = m_Value.Current();
  switch (Part) {
    case vpValue:
      return v.GetInt(Verify, IgnoreCache);
    case vpMin:
      if (m_Min.IsSet()) return m_Min.GetInt();
      if (v.IsPointer() && v.GetNode()->mIsIntegerLike()) return v.GetNode()->mGetInt(false, false, vpMin);
      return std::numeric_limits<int64_t>::min();
    case vpMax:
      if (m_Max.IsSet()) return m_Max.GetInt();
      if (v.IsPointer() && v.GetNode()->mIsIntegerLike()) return v.GetNode()->mGetInt(false, false, vpMax);
      return std::numeric_limits<int64_t>::max();
    case vpInc:
      if (m_Inc.IsSet()) return m_Inc.GetInt();
      if (v.IsPointer() && v.GetNode()->mIsIntegerLike()) return v.GetNode()->mGetInt(false, false, vpInc);
      return 1;
  }
  return 0;
}

double CIntegerBase::mGetFloat(bool Verify, bool IgnoreCache, EValuePart_t Part) {
  return static_cast<double>(mGetInt(Verify, IgnoreCache, Part));
}

void CIntegerBase::mSetInt(int64_t Value, bool Verify) {
  CValueProperty& v = m_Value.Current();
  for (CNodeBase* c : m_vecValueCopies) c->mSetInt(Value, Verify);
  v.SetInt(Value, Verify);
  if (!v.IsPointer()) mNotifyChanged();
}

void CIntegerBase::mSetFloat(double Value, bool Verify) { mSetInt(static_cast<int64_t>(std::llround(Value)), Verify); }

}  // namespace detail
}  // namespace GenApi_3_0
