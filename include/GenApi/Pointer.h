// CPointer<T>: a checked pointer to a node interface, made from any node
// pointer by dynamic_cast; and the helpers IsReadable, IsWritable...
#ifndef GENAPI_POINTER_H
#define GENAPI_POINTER_H

#include <Base/GCException.h>
#include <GenApi/IBoolean.h>
#include <GenApi/ICategory.h>
#include <GenApi/ICommand.h>
#include <GenApi/IEnumeration.h>
#include <GenApi/IFloat.h>
#include <GenApi/IInteger.h>
#include <GenApi/INodeMap.h>
#include <GenApi/IPort.h>
#include <GenApi/IRegister.h>
#include <GenApi/ISelector.h>
#include <GenApi/IString.h>

namespace GenApi_3_0 {

template <class T, class B = IBase>
class CPointer {
public:
  CPointer() noexcept : m_pT(nullptr) {}
  /// Casts; the pointer is null when pB does not offer T.
  CPointer(B* pB) : m_pT(pB ? dynamic_cast<T*>(pB) : nullptr) {}
  CPointer(const CPointer& rT) = default;
  /// Casts from a pointer to another interface.
  template <class T2, class B2>
  CPointer(const CPointer<T2, B2>& rT) : m_pT(rT.IsValid() ? dynamic_cast<T*>(static_cast<T2*>(rT)) : nullptr) {}
  CPointer& operator=(const CPointer& rT) = default;
  CPointer& operator=(B* pB) {
    m_pT = pB ? dynamic_cast<T*>(pB) : nullptr;
    return *this;
  }
  virtual ~CPointer() = default;

  /// Raises LogicalErrorException "NULL pointer dereferenced" when null.
  T* operator->() const {
    if (!m_pT) throw LOGICAL_ERROR_EXCEPTION("NULL pointer dereferenced");
    return m_pT;
  }
  /// Raises LogicalErrorException "NULL pointer dereferenced" when null.
  T& operator*() const {
    if (!m_pT) throw LOGICAL_ERROR_EXCEPTION("NULL pointer dereferenced");
    return *m_pT;
  }
  operator T*() const noexcept { return m_pT; }
  bool IsValid() const noexcept { return m_pT != nullptr; }
  explicit operator bool() const noexcept { return m_pT != nullptr; }
  bool operator==(T* pT) const noexcept { return m_pT == pT; }
  bool operator!=(T* pT) const noexcept { return m_pT != pT; }
  bool operator==(std::nullptr_t) const noexcept { return m_pT == nullptr; }
  bool operator!=(std::nullptr_t) const noexcept { return m_pT != nullptr; }
  void Release() noexcept { m_pT = nullptr; }

protected:
  T* m_pT;
};

typedef CPointer<IBase> CBasePtr;
typedef CPointer<INode> CNodePtr;
typedef CPointer<IValue> CValuePtr;
typedef CPointer<ICategory> CCategoryPtr;
typedef CPointer<IBoolean> CBooleanPtr;
typedef CPointer<IInteger> CIntegerPtr;
typedef CPointer<IString> CStringPtr;
typedef CPointer<IRegister> CRegisterPtr;
typedef CPointer<IEnumeration> CEnumerationPtr;
typedef CPointer<IEnumEntry> CEnumEntryPtr;
typedef CPointer<IPort> CPortPtr;
typedef CPointer<IFloat> CFloatPtr;
typedef CPointer<ICommand> CCommandPtr;
typedef CPointer<ISelector> CSelectorPtr;

inline bool IsReadable(EAccessMode AccessMode) { return AccessMode == RO || AccessMode == RW; }
inline bool IsWritable(EAccessMode AccessMode) { return AccessMode == WO || AccessMode == RW; }
inline bool IsImplemented(EAccessMode AccessMode) {
  return AccessMode != NI && AccessMode != _UndefinedAccesMode && AccessMode != _CycleDetectAccesMode;
}
inline bool IsAvailable(EAccessMode AccessMode) {
  return IsImplemented(AccessMode) && AccessMode != NA;
}

/// The weaker of two access modes: NI before NA, RO with WO gives NA.
inline EAccessMode Combine(EAccessMode Peter, EAccessMode Paul) {
  if (Peter == NI || Paul == NI) return NI;
  if (Peter == NA || Paul == NA) return NA;
  if ((Peter == RO && Paul == WO) || (Peter == WO && Paul == RO)) return NA;
  if (Peter == WO || Paul == WO) return WO;
  if (Peter == RO || Paul == RO) return RO;
  return RW;
}

/// True when a node of visibility Entity is shown at MaxVisiblity.
inline bool IsVisible(EVisibility Visibility, EVisibility MaxVisibility) { return Visibility <= MaxVisibility; }

// The helpers below accept null and then answer false; a null smart pointer
// converts to a null interface pointer.
inline bool IsReadable(const IBase* p) { return p && IsReadable(p->GetAccessMode()); }
inline bool IsReadable(const IBase& r) { return IsReadable(r.GetAccessMode()); }
inline bool IsWritable(const IBase* p) { return p && IsWritable(p->GetAccessMode()); }
inline bool IsWritable(const IBase& r) { return IsWritable(r.GetAccessMode()); }
inline bool IsImplemented(const IBase* p) { return p && IsImplemented(p->GetAccessMode()); }
inline bool IsImplemented(const IBase& r) { return IsImplemented(r.GetAccessMode()); }
inline bool IsAvailable(const IBase* p) { return p && IsAvailable(p->GetAccessMode()); }
inline bool IsAvailable(const IBase& r) { return IsAvailable(r.GetAccessMode()); }

template <class T, class B>
inline bool IsReadable(const CPointer<T, B>& ptr) { return IsReadable(static_cast<const IBase*>(static_cast<T*>(ptr))); }
template <class T, class B>
inline bool IsWritable(const CPointer<T, B>& ptr) { return IsWritable(static_cast<const IBase*>(static_cast<T*>(ptr))); }
template <class T, class B>
inline bool IsImplemented(const CPointer<T, B>& ptr) { return IsImplemented(static_cast<const IBase*>(static_cast<T*>(ptr))); }
template <class T, class B>
inline bool IsAvailable(const CPointer<T, B>& ptr) { return IsAvailable(static_cast<const IBase*>(static_cast<T*>(ptr))); }

}  // namespace GenApi_3_0

#endif
