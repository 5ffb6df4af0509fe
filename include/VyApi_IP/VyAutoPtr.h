// CVyAutoPtr: owner of one releasable object, offering its user interface.
#ifndef VYAPI_VYAUTOPTR_H
#define VYAPI_VYAUTOPTR_H

#include <VyApi_IP/VyReporter.h>

namespace VyApi {

/// T is the releasable interface held, UT the interface offered, as in
/// CVyAutoPtr<IVyConverterReleasable, IVyPixelFormatConverter>.
template <typename T, typename UT>
class CVyAutoPtr {
public:
  explicit CVyAutoPtr(T* p = nullptr) : m_p(p) {}
  CVyAutoPtr(const CVyAutoPtr&) = delete;
  CVyAutoPtr& operator=(const CVyAutoPtr&) = delete;
  virtual ~CVyAutoPtr() {
    try {
      if (m_p) m_p->Release();
    } catch (...) {
    }
  }

  /// Raises LogicalErrorException "NULL pointer dereferenced" when empty.
  UT* operator->() const { return mCast(); }
  /// Raises LogicalErrorException "NULL pointer dereferenced" when empty.
  operator UT*() const { return mCast(); }

  /// The owned pointer, or null. Raises nothing.
  T* Get() const { return m_p; }
  /// Gives up ownership. Raises nothing.
  T* Detach() {
    T* p = m_p;
    m_p = nullptr;
    return p;
  }
  /// Releases the owned object, if any, and takes p. Raises nothing.
  void Reset(T* p = nullptr) {
    if (m_p && m_p != p) {
      try {
        m_p->Release();
      } catch (...) {
      }
    }
    m_p = p;
  }

private:
  UT* mCast() const {
    if (!m_p) throw VY_REPORTER_FROM(c_szVyApiIPSource, LogicalErrorException)("NULL pointer dereferenced");
    UT* pUT = dynamic_cast<UT*>(m_p);
    VY_ASSERT_NOT_NULL(pUT);
    return pUT;
  }

  T* m_p;
};

}  // namespace VyApi

#endif
