// CRegisterNode: a block of bytes, read and written as a whole.
#ifndef GENAPI_NODE_REGISTERNODE_H
#define GENAPI_NODE_REGISTERNODE_H

#include <GenApi/IRegister.h>

#include "Node/RegisterBase.h"

namespace GenApi_3_0 {
namespace detail {

class CRegisterNode : public CRegisterBase, public virtual IRegister {
public:
  using CRegisterBase::CRegisterBase;

  void Set(const uint8_t* pBuffer, int64_t Length, bool Verify = true) override;
  void Get(uint8_t* pBuffer, int64_t Length, bool Verify = false, bool IgnoreCache = false) override;
  int64_t GetLength() override;
  int64_t GetAddress() override;
  EInterfaceType GetPrincipalInterfaceType() const override { return intfIRegister; }

  /// Hexadecimal bytes in address order, "0x" first.
  std::string mToString(bool Verify, bool IgnoreCache) override;
  void mFromString(const std::string& Value, bool Verify) override;

private:
  void mCheckLength(int64_t Length);
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
