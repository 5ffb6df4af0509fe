#include "Node/ValueProperty.h"

#include <cmath>

namespace GenApi_3_0 {
namespace detail {

void CValueProperty::SetLiteral(int64_t Value) {
  m_eKind = eInt;
  m_nValue = Value;
  m_dblValue = static_cast<double>(Value);
  m_strValue = std::to_string(Value);
}

void CValueProperty::SetLiteral(double Value) {
  m_eKind = eFloat;
  m_dblValue = Value;
  m_nValue = std::isfinite(Value) ? static_cast<int64_t>(std::llround(Value)) : 0;
}

void CValueProperty::SetLiteralText(const std::string& Value) {
  m_eKind = eText;
  m_strValue = Value;
}

void CValueProperty::SetPointer(CNodeBase* pNode, EValuePart_t Part) {
  m_eKind = ePointer;
  m_pNode = pNode;
  m_ePart = Part;
}

int64_t CValueProperty::GetInt(bool Verify, bool IgnoreCache) const {
  if (m_eKind == ePointer) return m_pNode->mGetInt(Verify, IgnoreCache, m_ePart);
  return m_nValue;
}

double CValueProperty::GetFloat(bool Verify, bool IgnoreCache) const {
  if (m_eKind == ePointer) return m_pNode->mGetFloat(Verify, IgnoreCache, m_ePart);
  return m_dblValue;
}

std::string CValueProperty::GetString(bool Verify, bool IgnoreCache) const {
  if (m_eKind == ePointer) return m_pNode->mGetString(Verify, IgnoreCache);
  return m_strValue;
}

void CValueProperty::SetInt(int64_t Value, bool Verify) {
  if (m_eKind == ePointer) {
    m_pNode->mSetInt(Value, Verify);
  } else {
    SetLiteral(Value);
  }
}

void CValueProperty::SetFloat(double Value, bool Verify) {
  if (m_eKind == ePointer) {
    m_pNode->mSetFloat(Value, Verify);
  } else {
    SetLiteral(Value);
  }
}

void CValueProperty::SetString(const std::string& Value, bool Verify) {
  if (m_eKind == ePointer) {
    m_pNode->mSetString(Value, Verify);
  } else {
    SetLiteralText(Value);
  }
}

EAccessMode CValueProperty::GetAccessMode() const {
  if (m_eKind == ePointer) return m_pNode->mGetAccessMode();
  return m_eKind == eNone ? NI : RW;
}

}  // namespace detail
}  // namespace GenApi_3_0
