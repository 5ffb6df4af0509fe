#include <GenApi/NodeMapFactory.h>

#include <fstream>
#include <iterator>
#include <sstream>

#include <Base/GCException.h>

#include "Description/Description.h"
#include "NodeMap/NodeMap.h"

namespace GenApi_3_0 {

namespace detail {
namespace {
bool IsZip(const void* p, size_t n) {
  const unsigned char* b = static_cast<const unsigned char*>(p);
  return n >= 4 && b[0] == 'P' && b[1] == 'K' && b[2] == 3 && b[3] == 4;
}
}  // namespace
}  // namespace detail

using detail::CDescription;

CNodeMapFactory::CNodeMapFactory() = default;
CNodeMapFactory::CNodeMapFactory(const CNodeMapFactory&) = default;
CNodeMapFactory& CNodeMapFactory::operator=(const CNodeMapFactory&) = default;
CNodeMapFactory::~CNodeMapFactory() = default;

CNodeMapFactory::CNodeMapFactory(EContentType ContentType, const void* pData, size_t Size, ECacheUsage, bool) {
  if (!pData || Size == 0) throw RUNTIME_EXCEPTION("The register description is empty");
  bool zip = ContentType == ContentType_ZippedXml || (ContentType == ContentType_Auto && detail::IsZip(pData, Size));
  m_pRawData = std::make_shared<const std::string>(static_cast<const char*>(pData), Size);
  m_pDescription = std::make_shared<const CDescription>(zip ? CDescription::ParseZip(pData, Size)
                                                            : CDescription::ParseXml(static_cast<const char*>(pData), Size));
}

CNodeMapFactory::CNodeMapFactory(EContentType ContentType, const gcstring& FileName, ECacheUsage CacheUsage,
                                 bool SuppressStringsOnLoad) {
  std::ifstream f(FileName.c_str(), std::ios::binary);
  if (!f) throw RUNTIME_EXCEPTION("The register description file '%s' cannot be opened", FileName.c_str());
  std::string data((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
  if (f.bad()) throw RUNTIME_EXCEPTION("The register description file '%s' cannot be read", FileName.c_str());
  if (ContentType == ContentType_Auto) {
    std::string n = FileName.str();
    ContentType = (n.size() > 4 && (n.substr(n.size() - 4) == ".zip" || n.substr(n.size() - 4) == ".ZIP"))
                      ? ContentType_ZippedXml
                      : (detail::IsZip(data.data(), data.size()) ? ContentType_ZippedXml : ContentType_Xml);
  }
  *this = CNodeMapFactory(ContentType, data.data(), data.size(), CacheUsage, SuppressStringsOnLoad);
}

INodeMap* CNodeMapFactory::CreateNodeMap(const gcstring& DeviceName, bool DoReleaseCameraDescriptionFileData) {
  if (!m_pDescription) throw RUNTIME_EXCEPTION("The node map factory holds no register description");
  INodeMap* p = new detail::CNodeMap(m_pDescription, DeviceName.str());
  if (DoReleaseCameraDescriptionFileData) ReleaseCameraDescriptionFileData();
  return p;
}

CNodeMapFactory CNodeMapFactory::ExtractSubtree(const gcstring& SubTreeRootName, bool ReleaseSourceData) {
  CNodeMapFactory f;
  if (m_pDescription) {
    CDescription sub = m_pDescription->ExtractSubtree(SubTreeRootName.str());
    if (!sub.GetNodes().empty()) f.m_pDescription = std::make_shared<const CDescription>(std::move(sub));
  }
  if (ReleaseSourceData) ReleaseCameraDescriptionFileData();
  return f;
}

bool CNodeMapFactory::IsEmpty() const { return !m_pDescription; }

void CNodeMapFactory::ReleaseCameraDescriptionFileData() { m_pRawData.reset(); }

bool CNodeMapFactory::HasCameraDescriptionFileData() const { return m_pRawData != nullptr; }

}  // namespace GenApi_3_0
