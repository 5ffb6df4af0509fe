// CIntegerInterface<TBase>: IInteger on top of a node type's internal integer
// calls, so that the access checks, the range checks and their messages, the
// text forms and the imposed limits exist once for every integer node type.
#ifndef GENAPI_NODE_INTEGERINTERFACE_H
#define GENAPI_NODE_INTEGERINTERFACE_H

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <limits>

#include <Base/GCException.h>
#include <GenApi/IInteger.h>

#include "Description/ElementReader.h"
#include "NodeMap/NodeMap.h"

namespace GenApi_3_0 {
namespace detail {

/// Text form of an integer in a representation (hex, IPv4, MAC, decimal).
std::string IntegerToString(int64_t Value, ERepresentation Representation);
/// Parses the text forms IntegerToString writes, and decimal/0x-hex always.
bool IntegerFromString(const std::string& Text, int64_t& Value);

template <class TBase>
class CIntegerInterface : public TBase, public virtual IInteger {
public:
  using TBase::TBase;

  void SetValue(int64_t Value, bool Verify = true) override {
    AutoLock l(this->m_pMap->GetLock());
    this->mCheckWritable("SetValue");
    if (Verify) mVerifyRange(Value);
    this->mSetInt(Value, Verify);
  }
  IInteger& operator=(int64_t Value) override {
    SetValue(Value, true);
    return *this;
  }
  int64_t GetValue(bool Verify = false, bool IgnoreCache = false) override {
    AutoLock l(this->m_pMap->GetLock());
    this->mCheckReadable("GetValue");
    int64_t v = this->mGetInt(Verify, IgnoreCache, vpValue);
    if (Verify) mVerifyRange(v);
    return v;
  }
  int64_t operator()() override { return GetValue(); }
  int64_t operator*() override { return GetValue(); }
  int64_t GetMin() override {
    AutoLock l(this->m_pMap->GetLock());
    return std::max(this->mGetInt(false, false, vpMin), m_nImposedMin);
  }
  int64_t GetMax() override {
    AutoLock l(this->m_pMap->GetLock());
    return std::min(this->mGetInt(false, false, vpMax), m_nImposedMax);
  }
  EIncMode GetIncMode() override { return fixedIncrement; }
  int64_t GetInc() override {
    AutoLock l(this->m_pMap->GetLock());
    return this->mGetInt(false, false, vpInc);
  }
  int64_autovector_t GetListOfValidValues(bool = true) override { return int64_autovector_t(); }
  ERepresentation GetRepresentation() override { return this->m_eRepresentation; }
  gcstring GetUnit() const override { return this->m_strUnit; }
  void ImposeMin(int64_t Value) override {
    AutoLock l(this->m_pMap->GetLock());
    m_nImposedMin = Value;
  }
  void ImposeMax(int64_t Value) override {
    AutoLock l(this->m_pMap->GetLock());
    m_nImposedMax = Value;
  }
  EInterfaceType GetPrincipalInterfaceType() const override { return intfIInteger; }

  std::string mToString(bool Verify, bool IgnoreCache) override {
    int64_t v = this->mGetInt(Verify, IgnoreCache, vpValue);
    if (Verify) mVerifyRange(v);
    return IntegerToString(v, this->m_eRepresentation);
  }
  void mFromString(const std::string& Text, bool Verify) override {
    int64_t v;
    if (!IntegerFromString(Text, v))
      throw INVALID_ARGUMENT_EXCEPTION("Node '%s': '%s' is not an integer", this->m_strName.c_str(), Text.c_str());
    if (Verify) mVerifyRange(v);
    this->mSetInt(v, Verify);
  }

protected:
  /// Raises OutOfRangeException below Min, above Max or off the Inc grid.
  void mVerifyRange(int64_t v) {
    const char* n = this->m_strName.c_str();
    int64_t mn = std::max(this->mGetInt(false, false, vpMin), m_nImposedMin);
    int64_t mx = std::min(this->mGetInt(false, false, vpMax), m_nImposedMax);
    if (v < mn)
      throw OUT_OF_RANGE_EXCEPTION("%s = %" PRId64 " must be equal or greater than Min = %" PRId64, n, v, mn);
    if (v > mx)
      throw OUT_OF_RANGE_EXCEPTION("%s = %" PRId64 " must be equal or smaller than Max = %" PRId64, n, v, mx);
    int64_t inc = this->mGetInt(false, false, vpInc);
    if (inc == 0) throw LOGICAL_ERROR_EXCEPTION("Increment must not equal 0!");
    if (inc != 1 && (static_cast<uint64_t>(v) - static_cast<uint64_t>(mn)) % static_cast<uint64_t>(inc < 0 ? -inc : inc) != 0)
      throw OUT_OF_RANGE_EXCEPTION("The difference between %s = %" PRId64 " and Min = %" PRId64
                                   " must be dividable without rest by Inc = %" PRId64,
                                   n, v, mn, inc);
  }

  int64_t m_nImposedMin = std::numeric_limits<int64_t>::min();
  int64_t m_nImposedMax = std::numeric_limits<int64_t>::max();
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
