// The parsed form of a register description: one record per node with its
// elements as text, independent of the XML library. Immutable once built, so
// factories and their copies share it.
#ifndef GENAPI_DESCRIPTION_DESCRIPTION_H
#define GENAPI_DESCRIPTION_DESCRIPTION_H

#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace GenApi_3_0 {
namespace detail {

/// One element of a node, such as <pValue>WidthReg</pValue>.
struct SElement {
  std::string m_strName;
  std::string m_strText;
  std::vector<std::pair<std::string, std::string>> m_vecAttributes;
  int m_nLine = 0;

  /// The attribute's value, or null when absent.
  const std::string* FindAttribute(const char* pName) const;
};

/// One node: its element type (Integer, IntReg...), name, and elements.
struct SNodeDesc {
  std::string m_strType;
  std::string m_strName;
  bool m_bStandardNameSpace = false;
  int m_nLine = 0;
  std::vector<SElement> m_vecElements;
  /// EnumEntry only: the name of its enumeration and its symbolic name.
  std::string m_strOwner;
  std::string m_strSymbolic;
};

class CDescription {
public:
  /// Parses XML text (a byte-order mark is skipped). Raises RuntimeException
  /// for malformed XML and InvalidArgumentException for a structure that is
  /// not a register description, naming the line.
  static CDescription ParseXml(const char* pData, size_t Size);
  /// Unpacks the first .xml file of a zip archive and parses it. Raises
  /// RuntimeException for bad zip data.
  static CDescription ParseZip(const void* pData, size_t Size);
  /// A description with the node Root and every node it refers to, directly
  /// or indirectly; empty when Root is not a node.
  CDescription ExtractSubtree(const std::string& Root) const;

  const std::vector<SNodeDesc>& GetNodes() const { return m_vecNodes; }
  int GetSchemaMajor() const { return m_nSchemaMajor; }
  int GetSchemaMinor() const { return m_nSchemaMinor; }
  const std::string& GetModelName() const { return m_strModelName; }
  const std::string& GetStandardNameSpace() const { return m_strStandardNameSpace; }

private:
  std::vector<SNodeDesc> m_vecNodes;
  std::string m_strModelName;
  std::string m_strStandardNameSpace;
  int m_nSchemaMajor = 1;
  int m_nSchemaMinor = 1;
};

/// True when an element's text names another node (pValue, pFeature...).
bool IsReferenceElement(const std::string& ElementName);

}  // namespace detail
}  // namespace GenApi_3_0

#endif
