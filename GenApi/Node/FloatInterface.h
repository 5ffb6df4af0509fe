// CFloatInterface<TBase>: IFloat on top of a node type's internal float
// calls: access checks, range checks with their messages, text forms.
#ifndef GENAPI_NODE_FLOATINTERFACE_H
#define GENAPI_NODE_FLOATINTERFACE_H

#include <algorithm>
#include <limits>

#include <Base/GCException.h>
#include <GenApi/IFloat.h>

#include "Description/ElementReader.h"
#include "NodeMap/NodeMap.h"

namespace GenApi_3_0 {
namespace detail {

/// Text form of a float with the node's notation and precision.
std::string FloatToString(double Value, EDisplayNotation Notation, int64_t Precision);

template <class TBase>
class CFloatInterface : public TBase, public virtual IFloat {
public:
  using TBase::TBase;

  void SetValue(double Value, bool Verify = true) override {
    AutoLock l(this->m_pMap->GetLock());
    this->mCheckWritable("SetValue");
    if (Verify) mVerifyRange(Value);
    this->mSetFloat(Value, Verify);
  }
  IFloat& operator=(double Value) override {
    SetValue(Value, true);
    return *this;
  }
  double GetValue(bool Verify = false, bool IgnoreCache = false) override {
    AutoLock l(this->m_pMap->GetLock());
    this->mCheckReadable("GetValue");
    double v = this->mGetFloat(Verify, IgnoreCache, vpValue);
    if (Verify) mVerifyRange(v);
    return v;
  }
  double operator()() override { return GetValue(); }
  double operator*() override { return GetValue(); }
  double GetMin() override {
    AutoLock l(this->m_pMap->GetLock());
    return std::max(this->mGetFloat(false, false, vpMin), m_dblImposedMin);
  }
  double GetMax() override {
    AutoLock l(this->m_pMap->GetLock());
    return std::min(this->mGetFloat(false, false, vpMax), m_dblImposedMax);
  }
  bool HasInc() override { return this->mHasFloatInc(); }
  EIncMode GetIncMode() override { return HasInc() ? fixedIncrement : noIncrement; }
  double GetInc() override {
    AutoLock l(this->m_pMap->GetLock());
    if (!this->mHasFloatInc()) throw ACCESS_EXCEPTION("Node '%s' has no increment", this->m_strName.c_str());
    return this->mGetFloat(false, false, vpInc);
  }
  double_autovector_t GetListOfValidValues(bool = true) override { return double_autovector_t(); }
  ERepresentation GetRepresentation() override { return this->m_eRepresentation; }
  gcstring GetUnit() const override { return this->m_strUnit; }
  EDisplayNotation GetDisplayNotation() const override { return this->m_eDisplayNotation; }
  int64_t GetDisplayPrecision() const override { return this->m_nDisplayPrecision; }
  void ImposeMin(double Value) override {
    AutoLock l(this->m_pMap->GetLock());
    m_dblImposedMin = Value;
  }
  void ImposeMax(double Value) override {
    AutoLock l(this->m_pMap->GetLock());
    m_dblImposedMax = Value;
  }
  EInterfaceType GetPrincipalInterfaceType() const override { return intfIFloat; }

  std::string mToString(bool Verify, bool IgnoreCache) override {
    double v = this->mGetFloat(Verify, IgnoreCache, vpValue);
    if (Verify) mVerifyRange(v);
    return FloatToString(v, this->m_eDisplayNotation, this->m_nDisplayPrecision);
  }
  void mFromString(const std::string& Text, bool Verify) override {
    double v;
    if (!CElementReader::ParseFloat(Text, v))
      throw INVALID_ARGUMENT_EXCEPTION("Node '%s': '%s' is not a number", this->m_strName.c_str(), Text.c_str());
    if (Verify) mVerifyRange(v);
    this->mSetFloat(v, Verify);
  }

protected:
  /// Raises OutOfRangeException below Min or above Max.
  void mVerifyRange(double v) {
    double mn = std::max(this->mGetFloat(false, false, vpMin), m_dblImposedMin);
    double mx = std::min(this->mGetFloat(false, false, vpMax), m_dblImposedMax);
    if (v < mn)
      throw OUT_OF_RANGE_EXCEPTION("%s = %f must be greater than or equal %f", this->m_strName.c_str(), v, mn);
    if (v > mx)
      throw OUT_OF_RANGE_EXCEPTION("%s = %f must be smaller than or equal %f", this->m_strName.c_str(), v, mx);
  }

  double m_dblImposedMin = -std::numeric_limits<double>::max();
  double m_dblImposedMax = std::numeric_limits<double>::max();
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
