// A counted table: a heap array and an atomic reference count. The module
// holds one reference while the table is cached and every running image holds
// one more, so a setter on another thread can replace the table under a
// running pixel pass. Whoever drops the last reference frees array and holder.
#ifndef VYAPI_IP_VYCOUNTEDTABLE_H
#define VYAPI_IP_VYCOUNTEDTABLE_H

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <new>

#include <VyApi_IP/VyReporter.h>

namespace VyApi {

template <typename Entry>
class CVyCountedTable {
public:
  /// A table of nEntries uninitialised entries with count 0.
  /// Raises BadAllocException when no memory is left.
  static CVyCountedTable* Create(size_t nEntries) {
    CVyCountedTable* p = nullptr;
    try {
      p = new CVyCountedTable();
      p->m_pData = new Entry[nEntries];
    } catch (const std::bad_alloc& e) {
      delete p;
      throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
    }
    return p;
  }

  CVyCountedTable(const CVyCountedTable&) = delete;
  CVyCountedTable& operator=(const CVyCountedTable&) = delete;

  /// Adds one reference (full barrier). Raises nothing.
  void AddRef() { m_nRefCount.fetch_add(1, std::memory_order_seq_cst); }

  /// Drops one reference and frees the table with the last one. Raises nothing.
  void Release() {
    if (m_nRefCount.fetch_sub(1, std::memory_order_seq_cst) == 1) delete this;
  }

  Entry* Data() { return m_pData; }
  const Entry* Data() const { return m_pData; }

private:
  CVyCountedTable() = default;
  ~CVyCountedTable() { delete[] m_pData; }

  Entry* m_pData = nullptr;
  std::atomic<int64_t> m_nRefCount{0};
};

/// Holds one reference of a counted table for a scope (null allowed).
template <typename Entry>
class CVyCountedTableRef {
public:
  /// Takes over a reference the caller already holds.
  explicit CVyCountedTableRef(CVyCountedTable<Entry>* p) : m_p(p) {}
  CVyCountedTableRef(const CVyCountedTableRef&) = delete;
  CVyCountedTableRef& operator=(const CVyCountedTableRef&) = delete;
  ~CVyCountedTableRef() {
    if (m_p) m_p->Release();
  }
  explicit operator bool() const { return m_p != nullptr; }
  const Entry* Data() const { return m_p->Data(); }

private:
  CVyCountedTable<Entry>* m_p;
};

}  // namespace VyApi

#endif
