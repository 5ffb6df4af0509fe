// CLock: the recursive lock of the node-map engine, and its scoped holder.
#ifndef GENAPI_SYNCH_H
#define GENAPI_SYNCH_H

#include <mutex>

#include <Base/GCNamespace.h>

namespace GenApi_3_0 {

class CLock {
public:
  CLock() = default;
  CLock(const CLock&) = delete;
  CLock& operator=(const CLock&) = delete;
  ~CLock() = default;

  /// Takes the lock; the owning thread may take it again. Raises nothing.
  void Lock() { m_Mutex.lock(); }
  /// Releases one level of ownership. Raises nothing.
  void Unlock() { m_Mutex.unlock(); }
  /// Takes the lock if it is free or already ours. Raises nothing.
  bool TryLock() { return m_Mutex.try_lock(); }

private:
  std::recursive_mutex m_Mutex;
};

/// Holds a CLock for the lifetime of the object.
class AutoLock {
public:
  explicit AutoLock(CLock& lock) : m_Lock(lock) { m_Lock.Lock(); }
  AutoLock(const AutoLock&) = delete;
  AutoLock& operator=(const AutoLock&) = delete;
  ~AutoLock() { m_Lock.Unlock(); }

private:
  CLock& m_Lock;
};

}  // namespace GenApi_3_0

#endif
