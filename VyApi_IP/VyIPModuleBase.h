// CVyIPModuleBase<T>: the frame every filter, converter and filer stands on.
// It serves the module's registers over a GenApi port (turning each access
// into mRead/mWrite calls), makes the module's node map on first demand from
// the embedded description, and keeps the callback registry, the two locks
// and the pool of temporary image buffers.
#ifndef VYAPI_IP_VYIPMODULEBASE_H
#define VYAPI_IP_VYIPMODULEBASE_H

#include <cstdint>
#include <cstring>
#include <new>
#include <vector>

#include <GenApi/IPort.h>
#include <GenApi/NodeMapFactory.h>
#include <GenApi/NodeMapRef.h>
#include <GenApi/Synch.h>
#include <VyApi_IP/IVyImageBuffer.h>
#include <VyApi_IP/IVyPixelFormatInfo.h>
#include <VyApi_IP/VyApi_TL.h>
#include <VyApi_IP/VyCallbackManager.h>
#include <VyApi_IP/VyReporter.h>

#include "VyResource_VyApi_IP.h"

namespace VyApi {

template <typename T>
class CVyIPModuleBase : public T, public GenApi_3_0::IPort {
public:
  CVyIPModuleBase(const CVyIPModuleBase&) = delete;
  CVyIPModuleBase& operator=(const CVyIPModuleBase&) = delete;

  /// Raises BadAllocException when no memory is left; pCallback stays the caller's then.
  void* RegisterCallback(IVyCallback* pCallback) override { return m_CallbackManager.RegisterCallback(pCallback); }
  /// Raises InvalidArgumentException "hCallback is invalid." for an unknown handle.
  void DeregisterCallback(void* hCallback) override { m_CallbackManager.DeregisterCallback(hCallback); }

  /// Makes the node map on the first call and returns it; later calls return
  /// it at once without a lock. The first call is not safe for two threads.
  /// Raises RuntimeException "Node map already created" when a second thread
  /// lost the race of the first call, AccessException "Feature not present
  /// (reference not valid)" when no map could be attached, BadAllocException,
  /// and whatever the node-map engine raises while parsing or connecting.
  GenApi_3_0::INodeMap* GetINodeMap() override {
    if (m_bNodeMapCreated) return m_NodeMap._Ptr;
    CVyResource_VyApi_IP resource;
    const int64_t nSize = resource.getSize(m_nResourceID);
    const char* pData = resource.getData(m_nResourceID);
    GenICam_3_0::gcstring strXml;
    try {
      char* pCopy = new char[static_cast<size_t>(nSize) + 1];
      if (nSize > 0) std::memcpy(pCopy, pData, static_cast<size_t>(nSize));
      pCopy[nSize] = '\0';
      strXml = GenICam_3_0::gcstring(pCopy, static_cast<size_t>(nSize));
      delete[] pCopy;
    } catch (const std::bad_alloc& e) {
      throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
    }
    if (m_NodeMap._Ptr != nullptr) throw VY_RUNTIME_EXCEPTION("Node map already created");
    GenApi_3_0::CNodeMapFactory factory(GenApi_3_0::ContentType_Xml, strXml.c_str(), strXml.size());
    m_NodeMap._Attach(factory.CreateNodeMap("Device", true), "Device", nullptr);
    if (m_NodeMap._Ptr == nullptr) throw VY_ACCESS_EXCEPTION("Feature not present (reference not valid)");
    m_NodeMap._Connect(this, m_szPortName);
    m_bNodeMapCreated = true;
    return m_NodeMap._Ptr;
  }

  // --- GenApi_3_0::IPort. No lock is taken here: register operations lock
  // what they need one value at a time.
  GenApi_3_0::EAccessMode GetAccessMode() const override { return m_eAccessMode; }
  void Read(void* pBuffer, int64_t Address, int64_t Length) override {
    mWalk(static_cast<unsigned char*>(pBuffer), Address, Length,
          [this](unsigned char* p, long a, long* n) { return mRead(p, a, n); });
  }
  void Write(const void* pBuffer, int64_t Address, int64_t Length) override {
    mWalk(static_cast<unsigned char*>(const_cast<void*>(pBuffer)), Address, Length,
          [this](unsigned char* p, long a, long* n) { return mWrite(p, a, n); });
  }

protected:
  /// Raises BadAllocException when a member cannot get its memory.
  explicit CVyIPModuleBase(int32_t nResourceID) try : m_nResourceID(nResourceID) {
  } catch (const std::bad_alloc& e) {
    throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
  }

  /// Releases every temporary buffer, then the node map and the registry.
  ~CVyIPModuleBase() override {
    GenApi_3_0::AutoLock lock(m_BufferLock);
    for (IVyImageBufferReleasable* p : m_vecAllBuffers) p->Release();
    m_vecAllBuffers.clear();
    m_vecFreeBuffers.clear();
  }

  /// Serves the base's register SizeTSize at address 0 (one byte, the value 8).
  /// Returns false for every other address. Raises OutOfRangeException
  /// "Length = %lld must be equal or greater than Min = 1" for a shorter access.
  virtual bool mRead(unsigned char* pBuffer, long Address, long* pLength) {
    if (Address != 0) return false;
    if (*pLength < 1)
      throw VY_OUT_OF_RANGE_EXCEPTION("%s = %lld must be equal or greater than Min = %lld", "Length",
                                      static_cast<long long>(*pLength), 1LL);
    pBuffer[0] = static_cast<unsigned char>(sizeof(size_t));
    *pLength = 1;
    return true;
  }

  /// The base serves no writable register.
  virtual bool mWrite(const unsigned char* /*pBuffer*/, long /*Address*/, long* /*pLength*/) { return false; }

  /// Invalidates the register node of that name if the node map exists, so a
  /// cached feature value does not go stale after a typed setter. A missing
  /// node is passed over. Raises LogicalErrorException "NULL pointer
  /// dereferenced" if the map cannot be reached.
  void InvalidateRegisterNode(const char* szRegisterName) {
    if (!m_bNodeMapCreated) return;
    GenApi_3_0::INodeMap* pMap = GetINodeMap();
    if (pMap == nullptr) throw VY_LOGICAL_ERROR_EXCEPTION("NULL pointer dereferenced");
    GenApi_3_0::INode* pNode = pMap->GetNode(szRegisterName);
    if (pNode) pNode->InvalidateNode();
  }

  /// The road of every plain typed setter: stores value into member and, if
  /// it changed, invalidates the register node behind it. Raises what
  /// InvalidateRegisterNode raises.
  template <typename V>
  void StoreSetting(V& member, V value, const char* szRegisterName) {
    if (member == value) return;
    member = value;
    InvalidateRegisterNode(szRegisterName);
  }

  /// Lends a buffer of the pool (the oldest handed back first), or a new one.
  /// Raises BadAllocException when no memory is left.
  IVyImageBufferReleasable* GetTempolaryBuffer() {
    GenApi_3_0::AutoLock lock(m_BufferLock);
    if (!m_vecFreeBuffers.empty()) {
      IVyImageBufferReleasable* p = m_vecFreeBuffers.front();
      m_vecFreeBuffers.erase(m_vecFreeBuffers.begin());
      return p;
    }
    IVyImageBufferReleasable* pIVyImageBuffer = CreateIVyImageBuffer(nullptr);
    VY_ASSERT(pIVyImageBuffer);
    try {
      m_vecAllBuffers.push_back(pIVyImageBuffer);
    } catch (const std::bad_alloc& e) {
      pIVyImageBuffer->Release();
      throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
    }
    return pIVyImageBuffer;
  }

  /// Hands a lent buffer back; it keeps its memory and size. Raises nothing.
  void ReleaseTempolaryBuffer(IVyImageBufferReleasable* p) {
    GenApi_3_0::AutoLock lock(m_BufferLock);
    try {
      m_vecFreeBuffers.push_back(p);
    } catch (const std::bad_alloc&) {
      // The pool could not take it back; it must not outlive the module either.
      for (auto it = m_vecAllBuffers.begin(); it != m_vecAllBuffers.end(); ++it) {
        if (*it == p) {
          m_vecAllBuffers.erase(it);
          break;
        }
      }
      p->Release();
    }
  }

  /// Borrows a temporary buffer for one scope and hands it back on every path.
  class CTempolaryBuffer {
  public:
    explicit CTempolaryBuffer(CVyIPModuleBase& module) : m_Module(module), m_p(module.GetTempolaryBuffer()) {}
    CTempolaryBuffer(const CTempolaryBuffer&) = delete;
    CTempolaryBuffer& operator=(const CTempolaryBuffer&) = delete;
    ~CTempolaryBuffer() { m_Module.ReleaseTempolaryBuffer(m_p); }
    IVyImageBufferReleasable* operator->() const { return m_p; }
    IVyImageBufferReleasable* Get() const { return m_p; }

  private:
    CVyIPModuleBase& m_Module;
    IVyImageBufferReleasable* m_p;
  };

  /// The format's name for messages such as "Not supported pixelformat %s".
  static GenICam_3_0::gcstring FormatName(EVyPixelFormatNamingConvention_t eFormat) {
    IVyPixelFormatInfo* pInfo = GetIVyPixelFormatInfo(eFormat);
    return pInfo ? pInfo->GetName() : GenICam_3_0::gcstring("Unknown");
  }

  CVyCallbackManager m_CallbackManager;
  int32_t m_nResourceID;
  GenApi_3_0::EAccessMode m_eAccessMode = GenApi_3_0::RW;
  const char* m_szPortName = "IPPort";
  GenApi_3_0::CNodeMapRef m_NodeMap{"Device"};
  bool m_bNodeMapCreated = false;
  mutable GenApi_3_0::CLock m_Lock;
  GenApi_3_0::CLock m_BufferLock;
  std::vector<IVyImageBufferReleasable*> m_vecAllBuffers;
  std::vector<IVyImageBufferReleasable*> m_vecFreeBuffers;

private:
  // Walks an access of Length bytes over the register file. A refused address
  // skips to the next multiple of four; that is what lets a 4-byte access pass
  // over a one-byte register. A refusal at a multiple of four repeats for ever,
  // which no description ever asks for.
  template <typename Fn>
  static void mWalk(unsigned char* p, int64_t Address, int64_t Length, Fn fn) {
    long a = static_cast<long>(Address);
    long n = static_cast<long>(Length);
    while (n > 0) {
      long len = n;
      if (fn(p, a, &len)) {
        n -= len;
        a += len;
        p += len;
      } else {
        const long k = (-a) & 3;
        n -= k;
        a += k;
        p += k;
      }
    }
  }
};

}  // namespace VyApi

#endif
