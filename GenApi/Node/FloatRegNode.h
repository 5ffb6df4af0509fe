// CFloatRegNode: an IEEE float register of 4 or 8 bytes.
#ifndef GENAPI_NODE_FLOATREGNODE_H
#define GENAPI_NODE_FLOATREGNODE_H

#include "Node/FloatInterface.h"
#include "Node/RegisterBase.h"

namespace GenApi_3_0 {
namespace detail {

class CFloatRegBase : public CRegisterBase {
public:
  using CRegisterBase::CRegisterBase;
  void mReadElements(CElementReader& Reader) override;
  bool mIsNumber() const override { return true; }
  double mGetFloat(bool Verify, bool IgnoreCache, EValuePart_t Part = vpValue) override;
  int64_t mGetInt(bool Verify, bool IgnoreCache, EValuePart_t Part = vpValue) override;
  void mSetFloat(double Value, bool Verify) override;
  void mSetInt(int64_t Value, bool Verify) override { mSetFloat(static_cast<double>(Value), Verify); }
  bool mHasFloatInc() const { return false; }

protected:
  EEndianess m_eEndianess = LittleEndian;
  ERepresentation m_eRepresentation = PureNumber;
  std::string m_strUnit;
  EDisplayNotation m_eDisplayNotation = fnAutomatic;
  int64_t m_nDisplayPrecision = 6;
};

class CFloatRegNode : public CFloatInterface<CFloatRegBase> {
public:
  using CFloatInterface<CFloatRegBase>::CFloatInterface;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
