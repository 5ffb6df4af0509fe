// CRegisterBase: the part every register node shares: address (Address,
// pAddress, pIndex with Offset/pOffset), length (Length|pLength), port,
// access mode, and the byte cache with its caching mode.
#ifndef GENAPI_NODE_REGISTERBASE_H
#define GENAPI_NODE_REGISTERBASE_H

#include <vector>

#include "Node/NodeBase.h"
#include "Node/ValueProperty.h"

namespace GenApi_3_0 {
namespace detail {

class CPortNode;

class CRegisterBase : public CNodeBase {
public:
  using CNodeBase::CNodeBase;

  void mReadElements(CElementReader& Reader) override;
  void mFinishLink() override;
  EAccessMode mNaturalAccessMode() const override;
  ECachingMode GetCachingMode() const override { return m_eCachingMode; }
  bool mHasCache() const override { return true; }
  void mClearCache() override { m_bCacheValid = false; }
  bool mOwnCacheValid() const override { return m_bCacheValid && m_eCachingMode != NoCache; }

  /// The register's address: the sum of its address elements.
  int64_t mAddress();
  int64_t mLength();
  /// Reads the register's bytes, from the cache when it is valid.
  void mReadBytes(uint8_t* pBuffer, int64_t Length, bool IgnoreCache);
  /// Writes the register's bytes, keeps or drops the cache as the caching
  /// mode says, and invalidates what depends on the register.
  void mWriteBytes(const uint8_t* pBuffer, int64_t Length);

protected:
  struct SIndex {
    CNodeBase* m_pIndex = nullptr;
    CValueProperty m_Offset;  // default: the register's length
    bool m_bHasOffset = false;
  };
  std::vector<int64_t> m_vecAddresses;
  std::vector<CNodeBase*> m_vecAddressNodes;
  std::vector<SIndex> m_vecIndices;
  CValueProperty m_Length;
  EAccessMode m_eAccessMode = RO;
  CNodeBase* m_pPortNode = nullptr;
  CPortNode* m_pPort = nullptr;
  ECachingMode m_eCachingMode = WriteThrough;
  std::vector<uint8_t> m_vecCache;
  int64_t m_nCacheAddress = 0;
  bool m_bCacheValid = false;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
