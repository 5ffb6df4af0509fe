// The callback registry that every module holds.
#ifndef VYAPI_VYCALLBACKMANAGER_H
#define VYAPI_VYCALLBACKMANAGER_H

#include <map>

#include <GenApi/Synch.h>
#include <VyApi_IP/IVyCallback.h>

namespace VyApi {

/// Heap record of one registration; its address is the handle.
class CVyCallbackEntry {
public:
  explicit CVyCallbackEntry(IVyCallback* pCallback) : m_pCallback(pCallback) {}
  virtual ~CVyCallbackEntry() = default;
  IVyCallback* m_pCallback;
};

class CVyCallbackManager : public IVyCallbackManager {
public:
  CVyCallbackManager() = default;
  CVyCallbackManager(const CVyCallbackManager&) = delete;
  CVyCallbackManager& operator=(const CVyCallbackManager&) = delete;

  /// Raises BadAllocException when no memory is left; pCallback stays the caller's then.
  void* RegisterCallback(IVyCallback* pCallback) override;
  /// Raises InvalidArgumentException "hCallback is invalid." for an unknown handle.
  void DeregisterCallback(void* hCallback) override;
  /// Raises nothing because of a callback: their exceptions are swallowed.
  void RunCallback(IVyCallbackParamBase* pParam) override;

  /// Releases every callback, in handle order, without taking the lock.
  virtual ~CVyCallbackManager();

private:
  GenApi_3_0::CLock m_Lock;
  std::map<void*, CVyCallbackEntry*> m_mapCallbacks;
};

}  // namespace VyApi

#endif
