#include <GenApi/NodeMapRef.h>

#include <Base/GCException.h>

namespace GenApi_3_0 {

namespace {
[[noreturn]] void NullMap() { throw LOGICAL_ERROR_EXCEPTION("NULL pointer dereferenced"); }
}  // namespace

CNodeMapRef::CNodeMapRef(const gcstring& DeviceName) : _Ptr(nullptr), _DeviceName(DeviceName), _pRefCount(nullptr) {}

CNodeMapRef::CNodeMapRef(const CNodeMapRef& rhs)
    : _Ptr(rhs._Ptr), _DeviceName(rhs._DeviceName), _pRefCount(rhs._pRefCount) {
  if (_pRefCount) ++*_pRefCount;
}

CNodeMapRef& CNodeMapRef::operator=(const CNodeMapRef& rhs) {
  if (this == &rhs || _Ptr == rhs._Ptr) return *this;
  mRelease();
  _Ptr = rhs._Ptr;
  _DeviceName = rhs._DeviceName;
  _pRefCount = rhs._pRefCount;
  if (_pRefCount) ++*_pRefCount;
  return *this;
}

CNodeMapRef::~CNodeMapRef() {
  try {
    mRelease();
  } catch (...) {
  }
}

void CNodeMapRef::mRelease() {
  if (_Ptr) {
    if (!_pRefCount || --*_pRefCount == 0) {
      if (IDestroy* d = dynamic_cast<IDestroy*>(_Ptr)) d->Destroy();
      else delete _Ptr;
      delete _pRefCount;
    }
  }
  _Ptr = nullptr;
  _pRefCount = nullptr;
}

void CNodeMapRef::_Destroy() { mRelease(); }

void CNodeMapRef::_Attach(INodeMap* pNodeMap, const gcstring& DeviceName, int* pRefCount) {
  if (pNodeMap == _Ptr) return;
  mRelease();
  if (!pNodeMap) {
    delete pRefCount;
    return;
  }
  _Ptr = pNodeMap;
  _DeviceName = DeviceName;
  _pRefCount = pRefCount ? pRefCount : new int(0);
  ++*_pRefCount;
}

void CNodeMapRef::mLoad(const CNodeMapFactory& Factory) {
  if (_Ptr) throw LOGICAL_ERROR_EXCEPTION("The node map reference holds a node map already");
  CNodeMapFactory f(Factory);
  INodeMap* p = f.CreateNodeMap(_DeviceName);
  _Attach(p, _DeviceName, nullptr);
}

void CNodeMapRef::_LoadXMLFromFile(const gcstring& FileName) { mLoad(CNodeMapFactory(ContentType_Xml, FileName)); }

void CNodeMapRef::_LoadXMLFromZIPFile(const gcstring& ZipFileName) {
  mLoad(CNodeMapFactory(ContentType_ZippedXml, ZipFileName));
}

void CNodeMapRef::_LoadXMLFromString(const gcstring& XMLData) {
  mLoad(CNodeMapFactory(ContentType_Xml, XMLData.c_str(), XMLData.size()));
}

void CNodeMapRef::_LoadXMLFromZIPData(const void* zipData, size_t zipSize) {
  mLoad(CNodeMapFactory(ContentType_ZippedXml, zipData, zipSize));
}

gcstring CNodeMapRef::_GetDeviceName() const {
  if (!_Ptr) NullMap();
  return _Ptr->GetDeviceName();
}

void CNodeMapRef::_Poll(int64_t ElapsedTime) {
  if (!_Ptr) NullMap();
  _Ptr->Poll(ElapsedTime);
}

void CNodeMapRef::_GetNodes(NodeList_t& Nodes) const {
  if (!_Ptr) NullMap();
  _Ptr->GetNodes(Nodes);
}

INode* CNodeMapRef::_GetNode(const gcstring& Name) const {
  if (!_Ptr) NullMap();
  return _Ptr->GetNode(Name);
}

void CNodeMapRef::_InvalidateNodes() const {
  if (!_Ptr) NullMap();
  _Ptr->InvalidateNodes();
}

bool CNodeMapRef::_Connect(IPort* pPort, const gcstring& PortName) const {
  if (!_Ptr) NullMap();
  return _Ptr->Connect(pPort, PortName);
}

bool CNodeMapRef::_Connect(IPort* pPort) const {
  if (!_Ptr) NullMap();
  return _Ptr->Connect(pPort);
}

uint64_t CNodeMapRef::_GetNumNodes() const {
  if (!_Ptr) NullMap();
  return _Ptr->GetNumNodes();
}

CLock& CNodeMapRef::_GetLock() const {
  if (!_Ptr) NullMap();
  return _Ptr->GetLock();
}

}  // namespace GenApi_3_0
