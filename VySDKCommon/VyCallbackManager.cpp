#include <VyApi_IP/VyCallbackManager.h>

#include <new>

#include <VyApi_IP/VyReporter.h>

namespace VyApi {

void* CVyCallbackManager::RegisterCallback(IVyCallback* pCallback) {
  CVyCallbackEntry* pEntry = nullptr;
  try {
    pEntry = new CVyCallbackEntry(pCallback);
  } catch (const std::bad_alloc& e) {
    throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
  }
  GenApi_3_0::AutoLock lock(m_Lock);
  try {
    m_mapCallbacks.insert(std::make_pair(static_cast<void*>(pEntry), pEntry));
  } catch (const std::bad_alloc& e) {
    delete pEntry;
    throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
  }
  return pEntry;
}

void CVyCallbackManager::DeregisterCallback(void* hCallback) {
  GenApi_3_0::AutoLock lock(m_Lock);
  auto it = m_mapCallbacks.find(hCallback);
  if (it == m_mapCallbacks.end()) throw VY_INVALID_ARGUMENT_EXCEPTION("hCallback is invalid.");
  CVyCallbackEntry* pEntry = it->second;
  m_mapCallbacks.erase(it);
  try {
    pEntry->m_pCallback->Release();
  } catch (...) {
  }
  delete pEntry;
}

void CVyCallbackManager::RunCallback(IVyCallbackParamBase* pParam) {
  GenApi_3_0::AutoLock lock(m_Lock);
  // A callback may deregister itself on this thread (the lock is recursive),
  // so the walk steps by key and never keeps an iterator across the call.
  auto it = m_mapCallbacks.begin();
  while (it != m_mapCallbacks.end()) {
    void* key = it->first;
    try {
      it->second->m_pCallback->OnCallback(pParam);
    } catch (...) {
    }
    it = m_mapCallbacks.upper_bound(key);
  }
}

CVyCallbackManager::~CVyCallbackManager() {
  for (auto& kv : m_mapCallbacks) {
    try {
      kv.second->m_pCallback->Release();
    } catch (...) {
    }
    delete kv.second;
  }
  m_mapCallbacks.clear();
}

}  // namespace VyApi
