// CEnumEntryNode: one entry of an enumeration, a node of the map named
// EnumEntry_<Enumeration>_<Entry>.
#ifndef GENAPI_NODE_ENUMENTRYNODE_H
#define GENAPI_NODE_ENUMENTRYNODE_H

#include <GenApi/IEnumEntry.h>

#include "Node/NodeBase.h"

namespace GenApi_3_0 {
namespace detail {

class CEnumEntryNode : public CNodeBase, public virtual IEnumEntry {
public:
  using CNodeBase::CNodeBase;
  void mReadElements(CElementReader& Reader) override;
  EInterfaceType GetPrincipalInterfaceType() const override { return intfIEnumEntry; }
  bool mIsIntegerLike() const override { return true; }

  int64_t GetValue() override { return m_nValue; }
  gcstring GetSymbolic() const override { return m_strSymbolic; }
  double GetNumericValue() override { return m_bHasNumeric ? m_dblNumericValue : static_cast<double>(m_nValue); }
  bool IsSelfClearing() override { return m_bSelfClearing; }

  int64_t mGetInt(bool, bool, EValuePart_t = vpValue) override { return m_nValue; }
  double mGetFloat(bool, bool, EValuePart_t = vpValue) override { return GetNumericValue(); }
  std::string mToString(bool, bool) override { return m_strSymbolic; }
  int64_t mValue() const { return m_nValue; }
  const std::string& mSymbolic() const { return m_strSymbolic; }

private:
  int64_t m_nValue = 0;
  double m_dblNumericValue = 0.0;
  bool m_bHasNumeric = false;
  bool m_bSelfClearing = false;
  std::string m_strSymbolic;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
