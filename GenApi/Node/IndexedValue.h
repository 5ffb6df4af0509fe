// CIndexedValue: the value of an Integer or Float node: Value|pValue, or, with
// pIndex, the ValueIndexed|pValueIndexed entry of the index's current value
// and ValueDefault|pValueDefault otherwise.
#ifndef GENAPI_NODE_INDEXEDVALUE_H
#define GENAPI_NODE_INDEXEDVALUE_H

#include <utility>
#include <vector>

#include "Description/ElementReader.h"
#include "Node/ValueProperty.h"

namespace GenApi_3_0 {
namespace detail {

class CIndexedValue {
public:
  /// Reads the elements; Float selects float literals. Raises through the
  /// reader when neither a value nor an index is given.
  void Read(CElementReader& Reader, bool Float);
  /// The property that holds the value now (follows the index).
  CValueProperty& Current();
  /// The plain Value|pValue property (unset with pIndex).
  CValueProperty& Plain() { return m_Value; }
  bool IsIndexed() const { return m_pIndex != nullptr || m_bIndexed; }
  /// Every node the value may be read from, for type checks.
  std::vector<CNodeBase*> Nodes() const;

private:
  CValueProperty m_Value;
  CNodeBase* m_pIndex = nullptr;
  bool m_bIndexed = false;
  std::vector<std::pair<int64_t, CValueProperty>> m_vecIndexed;
  CValueProperty m_Default;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
