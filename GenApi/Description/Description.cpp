// Turns register-description XML into SNodeDesc records. Groups are
// flattened, enumeration entries and structure entries become nodes of their
// own, and a register's inline IntSwissKnife becomes a named node that the
// register refers to with pAddress.
#include "Description/Description.h"

#include <algorithm>
#include <cstring>
#include <unordered_set>

#include <pugixml.hpp>
#include <zip.h>

#include <Base/GCException.h>

namespace GenApi_3_0 {
namespace detail {

const std::string* SElement::FindAttribute(const char* pName) const {
  for (const auto& a : m_vecAttributes)
    if (a.first == pName) return &a.second;
  return nullptr;
}

bool IsReferenceElement(const std::string& n) {
  // Every element whose name starts with a lower-case p and an upper-case
  // letter holds the name of another node (pValue, pFeature, pInvalidator...).
  return n.size() > 1 && n[0] == 'p' && n[1] >= 'A' && n[1] <= 'Z';
}

namespace {

/// Maps byte offsets of the text to 1-based line numbers.
class CLineIndex {
public:
  CLineIndex(const char* p, size_t n) {
    for (size_t i = 0; i < n; ++i)
      if (p[i] == '\n') m_vecNewlines.push_back(i);
  }
  int Line(ptrdiff_t offset) const {
    if (offset < 0) return 0;
    return 1 + static_cast<int>(std::lower_bound(m_vecNewlines.begin(), m_vecNewlines.end(),
                                                 static_cast<size_t>(offset)) - m_vecNewlines.begin());
  }

private:
  std::vector<size_t> m_vecNewlines;
};

std::string Trim(const char* p) {
  const char* b = p;
  while (*b == ' ' || *b == '\t' || *b == '\r' || *b == '\n') ++b;
  const char* e = b + strlen(b);
  while (e > b && (e[-1] == ' ' || e[-1] == '\t' || e[-1] == '\r' || e[-1] == '\n')) --e;
  return std::string(b, e);
}

const std::unordered_set<std::string>& NodeTypes() {
  static const std::unordered_set<std::string> s = {
      "Node",   "Category",     "Integer",     "IntReg",   "MaskedIntReg", "Boolean",   "Command",
      "Enumeration", "Float",   "FloatReg",    "String",   "StringReg",    "Register",  "Converter",
      "IntConverter", "SwissKnife", "IntSwissKnife", "Port", "StructReg", "ConfRom", "TextDesc",
      "IntKey", "AdvFeatureLock", "SmartFeature"};
  return s;
}

class CParser {
public:
  CParser(const char* p, size_t n) : m_Lines(p, n) {}

  int Line(const pugi::xml_node& n) const { return m_Lines.Line(n.offset_debug()); }

  [[noreturn]] void Fail(const pugi::xml_node& n, const std::string& node, const std::string& what) const {
    throw INVALID_ARGUMENT_EXCEPTION("Node '%s' (line %d): %s", node.c_str(), Line(n), what.c_str());
  }

  SElement MakeElement(const pugi::xml_node& e, const std::string& owner) const {
    SElement el;
    el.m_strName = e.name();
    el.m_nLine = Line(e);
    for (const auto& a : e.attributes()) el.m_vecAttributes.emplace_back(a.name(), a.value());
    for (const auto& c : e.children())
      if (c.type() == pugi::node_element) Fail(c, owner, std::string("unexpected element '") + c.name() + "' inside '" + e.name() + "'");
    el.m_strText = Trim(e.child_value());
    return el;
  }

  void ReadNodeHeader(const pugi::xml_node& n, SNodeDesc& d) const {
    d.m_strType = n.name();
    d.m_nLine = Line(n);
    pugi::xml_attribute name = n.attribute("Name");
    if (!name || !*name.value()) Fail(n, "?", std::string("a ") + n.name() + " element needs a Name attribute");
    d.m_strName = name.value();
    pugi::xml_attribute ns = n.attribute("NameSpace");
    if (ns) {
      std::string v = ns.value();
      if (v == "Standard") d.m_bStandardNameSpace = true;
      else if (v != "Custom") Fail(n, d.m_strName, "NameSpace must be Standard or Custom, not '" + v + "'");
    }
  }

  void ParseNode(const pugi::xml_node& n, std::vector<SNodeDesc>& out) const {
    SNodeDesc d;
    if (std::string(n.name()) == "StructReg") {
      // A structure has a comment in the place of a name; its entries are the nodes.
      d.m_strType = "StructReg";
      d.m_nLine = Line(n);
      d.m_strName = std::string("StructReg '") + n.attribute("Comment").value() + "'";
    } else {
      ReadNodeHeader(n, d);
    }
    const std::string type = d.m_strType;
    std::vector<SNodeDesc> extra;
    for (const auto& e : n.children()) {
      if (e.type() != pugi::node_element) continue;
      std::string en = e.name();
      if (en == "Extension") continue;  // vendor data, outside the node model by definition
      if (type == "Enumeration" && en == "EnumEntry") {
        SNodeDesc entry;
        ReadNodeHeader(e, entry);
        entry.m_strOwner = d.m_strName;
        entry.m_strSymbolic = entry.m_strName;
        entry.m_strName = "EnumEntry_" + d.m_strName + "_" + entry.m_strSymbolic;
        for (const auto& c : e.children()) {
          if (c.type() != pugi::node_element) continue;
          if (std::string(c.name()) == "Extension") continue;
          entry.m_vecElements.push_back(MakeElement(c, entry.m_strName));
        }
        SElement ref;
        ref.m_strName = "EnumEntry";
        ref.m_strText = entry.m_strName;
        ref.m_nLine = entry.m_nLine;
        d.m_vecElements.push_back(ref);
        extra.push_back(std::move(entry));
        continue;
      }
      if (type == "StructReg" && en == "StructEntry") continue;  // below, once the register's elements are known
      if ((en == "IntSwissKnife") && (type == "IntReg" || type == "MaskedIntReg" || type == "StringReg" ||
                                     type == "Register" || type == "FloatReg" || type == "StructReg")) {
        std::vector<SNodeDesc> sk;
        ParseNode(e, sk);
        SElement ref;
        ref.m_strName = "pAddress";
        ref.m_strText = sk.front().m_strName;
        ref.m_nLine = Line(e);
        d.m_vecElements.push_back(ref);
        for (auto& s : sk) extra.push_back(std::move(s));
        continue;
      }
      d.m_vecElements.push_back(MakeElement(e, d.m_strName));
    }
    if (type == "StructReg") {
      // Each entry is a masked integer register over the structure's register:
      // the structure's elements first, the entry's own elements after them.
      bool any = false;
      for (const auto& e : n.children("StructEntry")) {
        any = true;
        SNodeDesc entry;
        ReadNodeHeader(e, entry);
        entry.m_strType = "StructEntry";
        entry.m_vecElements = d.m_vecElements;
        std::vector<SElement> own;
        for (const auto& c : e.children()) {
          if (c.type() != pugi::node_element) continue;
          if (std::string(c.name()) == "Extension") continue;
          own.push_back(MakeElement(c, entry.m_strName));
        }
        // An entry's own element replaces the structure's element of that name.
        for (const auto& o : own)
          entry.m_vecElements.erase(std::remove_if(entry.m_vecElements.begin(), entry.m_vecElements.end(),
                                                   [&](const SElement& x) { return x.m_strName == o.m_strName && o.m_strName != "pInvalidator"; }),
                                    entry.m_vecElements.end());
        for (auto& o : own) entry.m_vecElements.push_back(std::move(o));
        out.push_back(std::move(entry));
      }
      if (!any) Fail(n, d.m_strName, "a StructReg needs at least one StructEntry");
      for (auto& x : extra) out.push_back(std::move(x));
      return;  // the StructReg itself is not a node
    }
    out.push_back(std::move(d));
    for (auto& x : extra) out.push_back(std::move(x));
  }

  void ParseChildren(const pugi::xml_node& parent, std::vector<SNodeDesc>& out) const {
    for (const auto& n : parent.children()) {
      if (n.type() != pugi::node_element) continue;
      std::string name = n.name();
      if (name == "Group") {
        ParseChildren(n, out);
      } else if (NodeTypes().count(name)) {
        ParseNode(n, out);
      } else {
        throw INVALID_ARGUMENT_EXCEPTION("Line %d: unknown node type '%s'", Line(n), name.c_str());
      }
    }
  }

private:
  CLineIndex m_Lines;
};

}  // namespace

CDescription CDescription::ParseXml(const char* pData, size_t Size) {
  if (!pData || Size == 0) throw RUNTIME_EXCEPTION("The register description is empty");
  // pugixml stops at a terminating zero; a text handed over with its zero
  // counted in the size is the same text.
  while (Size > 0 && pData[Size - 1] == '\0') --Size;
  pugi::xml_document doc;
  pugi::xml_parse_result res = doc.load_buffer(pData, Size, pugi::parse_default, pugi::encoding_utf8);
  CParser parser(pData, Size);
  if (!res) {
    throw RUNTIME_EXCEPTION("The register description is not well-formed XML: %s at line %d (offset %lld)",
                            res.description(), CLineIndex(pData, Size).Line(res.offset),
                            static_cast<long long>(res.offset));
  }
  pugi::xml_node root = doc.document_element();
  if (std::string(root.name()) != "RegisterDescription")
    throw INVALID_ARGUMENT_EXCEPTION("Line %d: the root element is '%s', not 'RegisterDescription'", parser.Line(root),
                                     root.name());
  CDescription d;
  d.m_strModelName = root.attribute("ModelName").value();
  d.m_strStandardNameSpace = root.attribute("StandardNameSpace").value();
  std::string xmlns = root.attribute("xmlns").value();
  if (xmlns.find("Version_1_0") != std::string::npos) {
    d.m_nSchemaMinor = 0;
  } else if (root.attribute("SchemaMinorVersion")) {
    d.m_nSchemaMinor = root.attribute("SchemaMinorVersion").as_int();
  }
  if (root.attribute("SchemaMajorVersion")) d.m_nSchemaMajor = root.attribute("SchemaMajorVersion").as_int();
  if (d.m_nSchemaMajor != 1)
    throw INVALID_ARGUMENT_EXCEPTION("Line %d: schema version %d.%d is not supported", parser.Line(root),
                                     d.m_nSchemaMajor, d.m_nSchemaMinor);
  parser.ParseChildren(root, d.m_vecNodes);
  return d;
}

CDescription CDescription::ParseZip(const void* pData, size_t Size) {
  zip_error_t err;
  zip_error_init(&err);
  zip_source_t* src = zip_source_buffer_create(pData, Size, 0, &err);
  if (!src) {
    zip_error_fini(&err);
    throw RUNTIME_EXCEPTION("Cannot read the zipped register description");
  }
  zip_t* za = zip_open_from_source(src, ZIP_RDONLY, &err);
  if (!za) {
    std::string msg = zip_error_strerror(&err);
    zip_source_free(src);
    zip_error_fini(&err);
    throw RUNTIME_EXCEPTION("The zipped register description is not a zip archive: %s", msg.c_str());
  }
  zip_error_fini(&err);
  std::string text;
  bool found = false;
  zip_int64_t n = zip_get_num_entries(za, 0);
  for (zip_int64_t i = 0; i < n && !found; ++i) {
    zip_stat_t st;
    if (zip_stat_index(za, i, 0, &st) != 0) continue;
    std::string name = st.name ? st.name : "";
    if (name.size() < 4) continue;
    std::string ext = name.substr(name.size() - 4);
    std::transform(ext.begin(), ext.end(), ext.begin(), ::tolower);
    if (ext != ".xml") continue;
    zip_file_t* f = zip_fopen_index(za, i, 0);
    if (!f) break;
    text.resize(static_cast<size_t>(st.size));
    zip_int64_t got = text.empty() ? 0 : zip_fread(f, &text[0], st.size);
    zip_fclose(f);
    if (got != static_cast<zip_int64_t>(st.size)) break;
    found = true;
  }
  zip_discard(za);
  if (!found) throw RUNTIME_EXCEPTION("The zipped register description holds no readable .xml file");
  return ParseXml(text.data(), text.size());
}

CDescription CDescription::ExtractSubtree(const std::string& Root) const {
  std::unordered_map<std::string, size_t> index;
  for (size_t i = 0; i < m_vecNodes.size(); ++i) index.emplace(m_vecNodes[i].m_strName, i);
  CDescription out;
  out.m_strModelName = m_strModelName;
  out.m_strStandardNameSpace = m_strStandardNameSpace;
  out.m_nSchemaMajor = m_nSchemaMajor;
  out.m_nSchemaMinor = m_nSchemaMinor;
  if (!index.count(Root)) return out;
  std::vector<bool> take(m_vecNodes.size(), false);
  std::vector<size_t> stack{index[Root]};
  take[index[Root]] = true;
  auto visit = [&](const std::string& name) {
    auto it = index.find(name);
    if (it != index.end() && !take[it->second]) {
      take[it->second] = true;
      stack.push_back(it->second);
    }
  };
  while (!stack.empty()) {
    const SNodeDesc& d = m_vecNodes[stack.back()];
    stack.pop_back();
    for (const auto& e : d.m_vecElements) {
      if (IsReferenceElement(e.m_strName) || e.m_strName == "EnumEntry") visit(e.m_strText);
      if (const std::string* p = e.FindAttribute("pOffset")) visit(*p);
    }
    // Entries of an enumeration and the nodes they refer to come along.
  }
  for (size_t i = 0; i < m_vecNodes.size(); ++i)
    if (take[i]) out.m_vecNodes.push_back(m_vecNodes[i]);
  return out;
}

}  // namespace detail
}  // namespace GenApi_3_0
