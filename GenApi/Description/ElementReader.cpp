#include "Description/ElementReader.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include <Base/GCException.h>

namespace GenApi_3_0 {
namespace detail {

CElementReader::CElementReader(CNodeBase* pOwner, const SNodeDesc& Desc, CLinker& Linker)
    : m_pOwner(pOwner), m_Desc(Desc), m_Linker(Linker), m_vecTaken(Desc.m_vecElements.size(), false) {}

const SElement* CElementReader::Take(const char* pName) {
  for (size_t i = 0; i < m_Desc.m_vecElements.size(); ++i) {
    if (!m_vecTaken[i] && m_Desc.m_vecElements[i].m_strName == pName) {
      m_vecTaken[i] = true;
      return &m_Desc.m_vecElements[i];
    }
  }
  return nullptr;
}

std::vector<const SElement*> CElementReader::TakeAll(const char* pName) {
  std::vector<const SElement*> out;
  for (size_t i = 0; i < m_Desc.m_vecElements.size(); ++i) {
    if (!m_vecTaken[i] && m_Desc.m_vecElements[i].m_strName == pName) {
      m_vecTaken[i] = true;
      out.push_back(&m_Desc.m_vecElements[i]);
    }
  }
  return out;
}

bool CElementReader::Has(const char* pName) const {
  for (size_t i = 0; i < m_Desc.m_vecElements.size(); ++i)
    if (!m_vecTaken[i] && m_Desc.m_vecElements[i].m_strName == pName) return true;
  return false;
}

void CElementReader::Fail(const SElement* pElement, const std::string& What) const {
  throw INVALID_ARGUMENT_EXCEPTION("Node '%s' (line %d): %s", m_Desc.m_strName.c_str(),
                                   pElement ? pElement->m_nLine : m_Desc.m_nLine, What.c_str());
}

void CElementReader::FailMissing(const std::string& What) const {
  throw INVALID_ARGUMENT_EXCEPTION("Node '%s' (line %d): %s %s is missing %s", m_Desc.m_strName.c_str(), m_Desc.m_nLine,
                                   m_Desc.m_strType.c_str(), m_Desc.m_strName.c_str(), What.c_str());
}

bool CElementReader::ParseInt(const std::string& Text, int64_t& Out) {
  const char* p = Text.c_str();
  bool neg = false;
  if (*p == '-' || *p == '+') neg = (*p++ == '-');
  if (!*p) return false;
  errno = 0;
  char* end = nullptr;
  uint64_t v;
  if (p[0] == '0' && (p[1] == 'x' || p[1] == 'X')) {
    if (!p[2]) return false;
    v = strtoull(p + 2, &end, 16);
  } else {
    if (*p < '0' || *p > '9') return false;
    v = strtoull(p, &end, 10);
  }
  if (errno == ERANGE || *end) return false;
  Out = neg ? static_cast<int64_t>(0 - v) : static_cast<int64_t>(v);
  return true;
}

bool CElementReader::ParseFloat(const std::string& Text, double& Out) {
  if (Text.empty()) return false;
  int64_t i;
  if (Text.find_first_of("xX") != std::string::npos && ParseInt(Text, i)) {
    Out = static_cast<double>(i);
    return true;
  }
  char* end = nullptr;
  Out = strtod(Text.c_str(), &end);
  return *end == '\0';
}

bool CElementReader::Text(const char* pName, std::string& Out) {
  const SElement* e = Take(pName);
  if (!e) return false;
  Out = e->m_strText;
  return true;
}

bool CElementReader::Int(const char* pName, int64_t& Out) {
  const SElement* e = Take(pName);
  if (!e) return false;
  if (!ParseInt(e->m_strText, Out)) Fail(e, std::string(pName) + " '" + e->m_strText + "' is not an integer");
  return true;
}

bool CElementReader::Float(const char* pName, double& Out) {
  const SElement* e = Take(pName);
  if (!e) return false;
  if (!ParseFloat(e->m_strText, Out)) Fail(e, std::string(pName) + " '" + e->m_strText + "' is not a number");
  return true;
}

template <class E>
bool CElementReader::mEnum(const char* pName, E& Out, std::initializer_list<std::pair<const char*, E>> Values) {
  const SElement* e = Take(pName);
  if (!e) return false;
  for (const auto& v : Values) {
    if (e->m_strText == v.first) {
      Out = v.second;
      return true;
    }
  }
  Fail(e, std::string(pName) + " '" + e->m_strText + "' is not a valid value");
}

bool CElementReader::YesNo(const char* pName, bool& Out) {
  return mEnum<bool>(pName, Out, {{"Yes", true}, {"No", false}});
}
bool CElementReader::AccessMode(const char* pName, EAccessMode& Out) {
  return mEnum<EAccessMode>(pName, Out, {{"RO", RO}, {"RW", RW}, {"WO", WO}, {"NA", NA}, {"NI", NI}});
}
bool CElementReader::Visibility(const char* pName, EVisibility& Out) {
  return mEnum<EVisibility>(pName, Out,
                            {{"Beginner", Beginner}, {"Expert", Expert}, {"Guru", Guru}, {"Invisible", Invisible}});
}
bool CElementReader::CachingMode(const char* pName, ECachingMode& Out) {
  return mEnum<ECachingMode>(pName, Out,
                             {{"NoCache", NoCache}, {"WriteThrough", WriteThrough}, {"WriteAround", WriteAround}});
}
bool CElementReader::Sign(const char* pName, ESign& Out) {
  return mEnum<ESign>(pName, Out, {{"Signed", Signed}, {"Unsigned", Unsigned}});
}
bool CElementReader::Endianess(const char* pName, EEndianess& Out) {
  return mEnum<EEndianess>(pName, Out, {{"LittleEndian", LittleEndian}, {"BigEndian", BigEndian}});
}
bool CElementReader::Representation(const char* pName, ERepresentation& Out) {
  return mEnum<ERepresentation>(pName, Out,
                                {{"Linear", Linear},
                                 {"Logarithmic", Logarithmic},
                                 {"Boolean", Boolean},
                                 {"PureNumber", PureNumber},
                                 {"HexNumber", HexNumber},
                                 {"IPV4Address", IPV4Address},
                                 {"MACAddress", MACAddress}});
}
bool CElementReader::DisplayNotation(const char* pName, EDisplayNotation& Out) {
  return mEnum<EDisplayNotation>(pName, Out,
                                 {{"Automatic", fnAutomatic}, {"Fixed", fnFixed}, {"Scientific", fnScientific}});
}
bool CElementReader::Slope(const char* pName, ESlope& Out) {
  return mEnum<ESlope>(pName, Out,
                       {{"Increasing", Increasing}, {"Decreasing", Decreasing}, {"Varying", Varying},
                        {"Automatic", Automatic}});
}

void CElementReader::Reference(const SElement& Element, const std::string& What, const std::string& Target,
                               ELink_t Link, std::function<void(CNodeBase*)> Bind) {
  if (Target.empty()) Fail(&Element, What + " names no node");
  m_Linker.Add(m_pOwner, What, Element.m_nLine, Target, Link, std::move(Bind));
}

bool CElementReader::mProperty(const char* pLiteral, const char* pPointer, CValueProperty& Prop, bool Required,
                               const std::function<void(const SElement&)>& SetLiteral) {
  const SElement* lit = pLiteral ? Take(pLiteral) : nullptr;
  const SElement* ptr = pPointer ? Take(pPointer) : nullptr;
  if (lit && ptr) Fail(ptr, std::string("both ") + pLiteral + " and " + pPointer + " are given");
  if (lit) {
    SetLiteral(*lit);
    return true;
  }
  if (ptr) {
    CValueProperty* p = &Prop;
    Reference(*ptr, pPointer, ptr->m_strText, lkReads, [p](CNodeBase* n) { p->SetPointer(n); });
    return true;
  }
  if (Required) FailMissing(std::string(pLiteral ? pLiteral : "") + (pLiteral && pPointer ? " or " : "") + (pPointer ? pPointer : ""));
  return false;
}

bool CElementReader::IntProperty(const char* pLiteral, const char* pPointer, CValueProperty& Prop, bool Required) {
  return mProperty(pLiteral, pPointer, Prop, Required, [&](const SElement& lit) {
    int64_t v;
    if (!ParseInt(lit.m_strText, v)) Fail(&lit, std::string(pLiteral) + " '" + lit.m_strText + "' is not an integer");
    Prop.SetLiteral(v);
  });
}

bool CElementReader::FloatProperty(const char* pLiteral, const char* pPointer, CValueProperty& Prop, bool Required) {
  return mProperty(pLiteral, pPointer, Prop, Required, [&](const SElement& lit) {
    double v;
    if (!ParseFloat(lit.m_strText, v)) Fail(&lit, std::string(pLiteral) + " '" + lit.m_strText + "' is not a number");
    Prop.SetLiteral(v);
  });
}

bool CElementReader::TextProperty(const char* pLiteral, const char* pPointer, CValueProperty& Prop, bool Required) {
  return mProperty(pLiteral, pPointer, Prop, Required, [&](const SElement& lit) { Prop.SetLiteralText(lit.m_strText); });
}

bool CElementReader::Pointer(const char* pName, CNodeBase*& Out, ELink_t Link) {
  const SElement* e = Take(pName);
  if (!e) return false;
  CNodeBase** p = &Out;
  Reference(*e, pName, e->m_strText, Link, [p](CNodeBase* n) { *p = n; });
  return true;
}

void CElementReader::PointerList(const char* pName, std::vector<CNodeBase*>& Out, ELink_t Link) {
  for (const SElement* e : TakeAll(pName)) {
    std::vector<CNodeBase*>* p = &Out;
    Reference(*e, pName, e->m_strText, Link, [p](CNodeBase* n) { p->push_back(n); });
  }
}

void CElementReader::Links(const char* pName, ELink_t Link) {
  for (const SElement* e : TakeAll(pName)) Reference(*e, pName, e->m_strText, Link, nullptr);
}

void CElementReader::Finish() {
  for (size_t i = 0; i < m_vecTaken.size(); ++i) {
    if (!m_vecTaken[i]) {
      const SElement& e = m_Desc.m_vecElements[i];
      Fail(&e, "unknown or repeated element '" + e.m_strName + "' in a " + m_Desc.m_strType);
    }
  }
}

}  // namespace detail
}  // namespace GenApi_3_0
