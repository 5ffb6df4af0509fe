// CValueProperty: one element pair of the form "literal or pointer", such as
// Value|pValue, Min|pMin, Address|pAddress. Every node type holds its
// numbers this way, so that no node resolves "literal or reference" itself.
#ifndef GENAPI_NODE_VALUEPROPERTY_H
#define GENAPI_NODE_VALUEPROPERTY_H

#include <cstdint>
#include <string>

#include <GenApi/Types.h>

#include "Node/NodeBase.h"

namespace GenApi_3_0 {
namespace detail {

class CValueProperty {
public:
  bool IsSet() const { return m_eKind != eNone; }
  bool IsPointer() const { return m_eKind == ePointer; }
  CNodeBase* GetNode() const { return m_pNode; }
  EValuePart_t GetPart() const { return m_ePart; }

  void SetLiteral(int64_t Value);
  void SetLiteral(double Value);
  void SetLiteralText(const std::string& Value);
  void SetPointer(CNodeBase* pNode, EValuePart_t Part = vpValue);

  /// The literal, or the node's value (part). Raises what the node raises.
  int64_t GetInt(bool Verify = false, bool IgnoreCache = false) const;
  double GetFloat(bool Verify = false, bool IgnoreCache = false) const;
  std::string GetString(bool Verify = false, bool IgnoreCache = false) const;
  /// Stores a new literal, or writes through the node.
  void SetInt(int64_t Value, bool Verify);
  void SetFloat(double Value, bool Verify);
  void SetString(const std::string& Value, bool Verify);
  /// RW for a literal, the node's access mode for a pointer.
  EAccessMode GetAccessMode() const;

private:
  enum EKind { eNone, eInt, eFloat, eText, ePointer };
  EKind m_eKind = eNone;
  int64_t m_nValue = 0;
  double m_dblValue = 0.0;
  std::string m_strValue;
  CNodeBase* m_pNode = nullptr;
  EValuePart_t m_ePart = vpValue;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
