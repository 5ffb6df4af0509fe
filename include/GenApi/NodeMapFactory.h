// CNodeMapFactory: loads a description once and makes node maps from it.
#ifndef GENAPI_NODEMAPFACTORY_H
#define GENAPI_NODEMAPFACTORY_H

#include <cstddef>
#include <memory>

#include <GenApi/INodeMap.h>
#include <GenApi/Types.h>

namespace GenApi_3_0 {

namespace detail {
class CDescription;
}

class CNodeMapFactory {
public:
  /// An empty factory; IsEmpty() is true and CreateNodeMap raises.
  CNodeMapFactory();
  /// Parses a description held in memory (XML text, or a zip archive with
  /// one XML file). A leading UTF-8 byte-order mark is accepted. Raises
  /// RuntimeException for malformed XML or zip data, and
  /// InvalidArgumentException or RuntimeException, naming the node and the
  /// line, for a description that breaks the node rules (unknown element,
  /// missing required element, dangling reference, bad value).
  CNodeMapFactory(EContentType ContentType, const void* pData, size_t Size,
                  ECacheUsage CacheUsage = CacheUsage_Automatic, bool SuppressStringsOnLoad = false);
  /// Parses a description file. Raises RuntimeException when the file cannot
  /// be read, and what the constructor from memory raises.
  CNodeMapFactory(EContentType ContentType, const gcstring& FileName,
                  ECacheUsage CacheUsage = CacheUsage_Automatic, bool SuppressStringsOnLoad = false);
  CNodeMapFactory(const CNodeMapFactory&);
  CNodeMapFactory& operator=(const CNodeMapFactory&);
  ~CNodeMapFactory();

  /// Makes a new node map; the caller destroys it with IDestroy::Destroy()
  /// (or hands it to CNodeMapRef::_Attach). Raises RuntimeException when the
  /// factory is empty.
  INodeMap* CreateNodeMap(const gcstring& DeviceName = "Device", bool DoReleaseCameraDescriptionFileData = true);
  /// A factory holding the node SubTreeRootName and every node it refers to,
  /// directly or indirectly (an empty factory when the node does not exist).
  /// ReleaseSourceData drops this factory's copy of the raw description
  /// bytes; the parsed description stays usable.
  CNodeMapFactory ExtractSubtree(const gcstring& SubTreeRootName, bool ReleaseSourceData = false);
  /// True when the factory holds no description.
  bool IsEmpty() const;
  /// Drops the raw description bytes; node maps can still be made.
  void ReleaseCameraDescriptionFileData();
  /// True while the raw description bytes are held.
  bool HasCameraDescriptionFileData() const;

private:
  std::shared_ptr<const detail::CDescription> m_pDescription;
  std::shared_ptr<const std::string> m_pRawData;
};

}  // namespace GenApi_3_0

#endif
