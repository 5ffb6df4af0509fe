// CEnumerationNode: a feature taking the value of one of its entries.
#ifndef GENAPI_NODE_ENUMERATIONNODE_H
#define GENAPI_NODE_ENUMERATIONNODE_H

#include <GenApi/IEnumeration.h>

#include "Node/EnumEntryNode.h"
#include "Node/ValueProperty.h"

namespace GenApi_3_0 {
namespace detail {

class CEnumerationNode : public CNodeBase, public virtual IEnumeration {
public:
  using CNodeBase::CNodeBase;
  void mReadElements(CElementReader& Reader) override;
  void mFinishLink() override;
  bool mIsIntegerLike() const override { return true; }
  EAccessMode mNaturalAccessMode() const override { return m_Value.GetAccessMode(); }
  EInterfaceType GetPrincipalInterfaceType() const override { return intfIEnumeration; }

  void GetSymbolics(StringList_t& Symbolics) override;
  void GetEntries(NodeList_t& Entries) override;
  IEnumeration& operator=(const gcstring& ValueStr) override;
  IEnumeration& operator=(const char* pValueStr) override;
  void SetIntValue(int64_t Value, bool Verify = true) override;
  IEnumeration& operator=(int64_t Value) override;
  using IEnumeration::operator=;
  gcstring operator*() override;
  gcstring operator()() override { return operator*(); }
  int64_t GetIntValue(bool Verify = false, bool IgnoreCache = false) override;
  IEnumEntry* GetEntryByName(const gcstring& Symbolic) override;
  IEnumEntry* GetEntry(const int64_t IntValue) override;
  IEnumEntry* GetCurrentEntry(bool Verify = false, bool IgnoreCache = false) override;

  int64_t mGetInt(bool Verify, bool IgnoreCache, EValuePart_t Part = vpValue) override;
  double mGetFloat(bool Verify, bool IgnoreCache, EValuePart_t Part = vpValue) override;
  void mSetInt(int64_t Value, bool Verify) override;
  std::string mToString(bool Verify, bool IgnoreCache) override;
  void mFromString(const std::string& Value, bool Verify) override;

private:
  CEnumEntryNode* mFindValue(int64_t Value) const;
  CEnumEntryNode* mFindSymbolic(const std::string& Symbolic) const;
  /// Raises LogicalErrorException when the value matches no entry.
  CEnumEntryNode* mCurrent(bool Verify, bool IgnoreCache);
  void mSetEntry(CEnumEntryNode* pEntry, bool Verify);

  CValueProperty m_Value;
  std::vector<CNodeBase*> m_vecEntryNodes;
  std::vector<CEnumEntryNode*> m_vecEntries;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
