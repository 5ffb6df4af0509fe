// CElementReader: hands a node type the elements of its description, parses
// their values, queues references for the linker, and at the end raises for
// any element no node type asked for, so that nothing is silently ignored.
#ifndef GENAPI_DESCRIPTION_ELEMENTREADER_H
#define GENAPI_DESCRIPTION_ELEMENTREADER_H

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include <GenApi/Types.h>

#include "Description/Description.h"
#include "Description/Linker.h"
#include "Node/ValueProperty.h"

namespace GenApi_3_0 {
namespace detail {

class CElementReader {
public:
  CElementReader(CNodeBase* pOwner, const SNodeDesc& Desc, CLinker& Linker);

  const SNodeDesc& Desc() const { return m_Desc; }
  CLinker& Linker() { return m_Linker; }

  /// The first element of that name not yet taken, or null; marks it taken.
  const SElement* Take(const char* pName);
  /// All elements of that name not yet taken, in order; marks them taken.
  std::vector<const SElement*> TakeAll(const char* pName);
  bool Has(const char* pName) const;

  bool Text(const char* pName, std::string& Out);
  bool Int(const char* pName, int64_t& Out);
  bool Float(const char* pName, double& Out);
  bool YesNo(const char* pName, bool& Out);
  bool AccessMode(const char* pName, EAccessMode& Out);
  bool Visibility(const char* pName, EVisibility& Out);
  bool CachingMode(const char* pName, ECachingMode& Out);
  bool Sign(const char* pName, ESign& Out);
  bool Endianess(const char* pName, EEndianess& Out);
  bool Representation(const char* pName, ERepresentation& Out);
  bool DisplayNotation(const char* pName, EDisplayNotation& Out);
  bool Slope(const char* pName, ESlope& Out);

  /// Literal element pLiteral (integer) or pointer element pPointer into
  /// Prop. With Required, raises when neither is given.
  bool IntProperty(const char* pLiteral, const char* pPointer, CValueProperty& Prop, bool Required = false);
  bool FloatProperty(const char* pLiteral, const char* pPointer, CValueProperty& Prop, bool Required = false);
  bool TextProperty(const char* pLiteral, const char* pPointer, CValueProperty& Prop, bool Required = false);
  /// A pointer element into a node pointer (null when absent).
  bool Pointer(const char* pName, CNodeBase*& Out, ELink_t Link = lkReads);
  /// Every pointer element of that name, appended to Out in order.
  void PointerList(const char* pName, std::vector<CNodeBase*>& Out, ELink_t Link = lkReads);
  /// Every pointer element of that name, recorded as links only.
  void Links(const char* pName, ELink_t Link);
  /// Queues a reference by name (for attributes such as pOffset).
  void Reference(const SElement& Element, const std::string& What, const std::string& Target, ELink_t Link,
                 std::function<void(CNodeBase*)> Bind);

  /// Raises InvalidArgumentException when an element was left untaken.
  void Finish();
  /// Raises InvalidArgumentException naming the node, the line and the text.
  [[noreturn]] void Fail(const SElement* pElement, const std::string& What) const;
  [[noreturn]] void FailMissing(const std::string& What) const;

  /// Parses decimal, 0x hexadecimal, with an optional sign.
  static bool ParseInt(const std::string& Text, int64_t& Out);
  static bool ParseFloat(const std::string& Text, double& Out);

private:
  /// The literal-or-pointer rule shared by the typed property readers:
  /// SetLiteral parses and stores a literal element.
  bool mProperty(const char* pLiteral, const char* pPointer, CValueProperty& Prop, bool Required,
                 const std::function<void(const SElement&)>& SetLiteral);
  template <class E>
  bool mEnum(const char* pName, E& Out, std::initializer_list<std::pair<const char*, E>> Values);

  CNodeBase* m_pOwner;
  const SNodeDesc& m_Desc;
  CLinker& m_Linker;
  std::vector<bool> m_vecTaken;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
