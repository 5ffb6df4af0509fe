// CVyAutoPtrArray: owner of a list of releasable objects.
#ifndef VYAPI_VYAUTOPTRARRAY_H
#define VYAPI_VYAUTOPTRARRAY_H

#include <cstddef>
#include <new>
#include <stdexcept>
#include <vector>

#include <VyApi_IP/VyReporter.h>

namespace VyApi {

template <typename T, typename UT>
class CVyAutoPtrArray {
public:
  /// Raises BadAllocException when no memory is left.
  CVyAutoPtrArray() {
    try {
      m_pvec = new std::vector<T*>();
    } catch (const std::bad_alloc& e) {
      throw VY_REPORTER_FROM(c_szVyApiIPSource, BadAllocException)("%s", e.what());
    }
  }
  CVyAutoPtrArray(const CVyAutoPtrArray&) = delete;
  CVyAutoPtrArray& operator=(const CVyAutoPtrArray&) = delete;

  /// Releases every entry in order, swallowing their exceptions.
  virtual ~CVyAutoPtrArray() {
    for (T* p : *m_pvec) {
      try {
        if (p) p->Release();
      } catch (...) {
      }
    }
    delete m_pvec;
  }

  /// Appends p, taking ownership, and returns its index. On failure the caller
  /// keeps p: InvalidArgumentException (length error), BadAllocException, or
  /// RuntimeException for any other standard exception, with its text.
  virtual size_t Register(T* p) {
    try {
      m_pvec->push_back(p);
    } catch (const std::length_error& e) {
      throw VY_REPORTER_FROM(c_szVyApiIPSource, InvalidArgumentException)("%s", e.what());
    } catch (const std::bad_alloc& e) {
      throw VY_REPORTER_FROM(c_szVyApiIPSource, BadAllocException)("%s", e.what());
    } catch (const std::exception& e) {
      throw VY_REPORTER_FROM(c_szVyApiIPSource, RuntimeException)("%s", e.what());
    }
    return m_pvec->size() - 1;
  }

  /// Removes entry nIndex, closing the gap, and hands it back to the caller.
  /// Raises OutOfRangeException for an index outside the list.
  virtual T* Deregister(size_t nIndex) {
    mCheckIndex(nIndex);
    T* p = (*m_pvec)[nIndex];
    m_pvec->erase(m_pvec->begin() + static_cast<std::ptrdiff_t>(nIndex));
    return p;
  }

  /// Number of entries. Raises nothing.
  virtual size_t GetSize() const { return m_pvec->size(); }

  /// Entry nIndex as the user interface. Raises OutOfRangeException for an
  /// index outside the list; a null entry stops the process ("(pUT) != NULL").
  virtual UT* operator[](size_t nIndex) const {
    mCheckIndex(nIndex);
    UT* pUT = (*m_pvec)[nIndex];
    VY_ASSERT_NOT_NULL(pUT);
    return pUT;
  }

private:
  void mCheckIndex(size_t nIndex) const {
    const long long n = static_cast<long long>(nIndex);
    if (n < 0) throw VY_REPORTER_FROM(c_szVyApiIPSource, OutOfRangeException)("%s = %lld must be equal or greater than Min = %lld", "nIndex", n, 0LL);
    if (nIndex >= m_pvec->size())
      throw VY_REPORTER_FROM(c_szVyApiIPSource, OutOfRangeException)("%s = %lld must be smaller than Max = %lld", "nIndex", n,
                                      static_cast<long long>(m_pvec->size()));
  }

  std::vector<T*>* m_pvec;
};

}  // namespace VyApi

#endif
