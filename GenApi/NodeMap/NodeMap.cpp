#include "NodeMap/NodeMap.h"

#include <functional>

#include <Base/GCException.h>

#include "Description/ElementReader.h"
#include "Description/Linker.h"
#include "Node/BooleanNode.h"
#include "Node/CategoryNode.h"
#include "Node/CommandNode.h"
#include "Node/ConverterNode.h"
#include "Node/EnumerationNode.h"
#include "Node/FloatNode.h"
#include "Node/FloatRegNode.h"
#include "Node/IntRegNode.h"
#include "Node/IntSwissKnifeNode.h"
#include "Node/IntegerNode.h"
#include "Node/MaskedIntRegNode.h"
#include "Node/PortNode.h"
#include "Node/RegisterNode.h"
#include "Node/StringNode.h"
#include "Node/StringRegNode.h"
#include "Node/SwissKnifeNode.h"

namespace GenApi_3_0 {
namespace detail {

namespace {

std::unique_ptr<CNodeBase> MakeNode(CNodeMap* pMap, const SNodeDesc& d) {
  const std::string& t = d.m_strType;
  if (t == "Integer") return std::unique_ptr<CNodeBase>(new CIntegerNode(pMap, d));
  if (t == "IntReg") return std::unique_ptr<CNodeBase>(new CIntRegNode(pMap, d));
  if (t == "MaskedIntReg" || t == "StructEntry") return std::unique_ptr<CNodeBase>(new CMaskedIntRegNode(pMap, d));
  if (t == "Float") return std::unique_ptr<CNodeBase>(new CFloatNode(pMap, d));
  if (t == "FloatReg") return std::unique_ptr<CNodeBase>(new CFloatRegNode(pMap, d));
  if (t == "Boolean") return std::unique_ptr<CNodeBase>(new CBooleanNode(pMap, d));
  if (t == "Command") return std::unique_ptr<CNodeBase>(new CCommandNode(pMap, d));
  if (t == "Enumeration") return std::unique_ptr<CNodeBase>(new CEnumerationNode(pMap, d));
  if (t == "EnumEntry") return std::unique_ptr<CNodeBase>(new CEnumEntryNode(pMap, d));
  if (t == "String") return std::unique_ptr<CNodeBase>(new CStringNode(pMap, d));
  if (t == "StringReg") return std::unique_ptr<CNodeBase>(new CStringRegNode(pMap, d));
  if (t == "Register") return std::unique_ptr<CNodeBase>(new CRegisterNode(pMap, d));
  if (t == "IntSwissKnife") return std::unique_ptr<CNodeBase>(new CIntSwissKnifeNode(pMap, d));
  if (t == "SwissKnife") return std::unique_ptr<CNodeBase>(new CSwissKnifeNode(pMap, d));
  if (t == "Converter") return std::unique_ptr<CNodeBase>(new CConverterNode(pMap, d));
  if (t == "IntConverter") return std::unique_ptr<CNodeBase>(new CIntConverterNode(pMap, d));
  if (t == "Category") return std::unique_ptr<CNodeBase>(new CCategoryNode(pMap, d));
  if (t == "Port") return std::unique_ptr<CNodeBase>(new CPortNode(pMap, d));
  if (t == "Node") return std::unique_ptr<CNodeBase>(new CNodeBase(pMap, d));
  throw INVALID_ARGUMENT_EXCEPTION("Node '%s' (line %d): the node type %s is not supported", d.m_strName.c_str(),
                                   d.m_nLine, t.c_str());
}

}  // namespace

CNodeMap::CNodeMap(std::shared_ptr<const CDescription> pDescription, const std::string& DeviceName)
    : m_pDescription(std::move(pDescription)), m_strDeviceName(DeviceName) {
  mBuild();
}

CNodeMap::~CNodeMap() = default;

void CNodeMap::mBuild() {
  const auto& descs = m_pDescription->GetNodes();
  m_vecNodes.reserve(descs.size());
  m_mapIndex.reserve(descs.size() * 2);
  for (const SNodeDesc& d : descs) {
    std::unique_ptr<CNodeBase> p = MakeNode(this, d);
    if (!m_mapIndex.emplace(d.m_strName, p.get()).second)
      throw INVALID_ARGUMENT_EXCEPTION("Node '%s' (line %d): a node of this name exists already", d.m_strName.c_str(),
                                       d.m_nLine);
    if (auto* port = dynamic_cast<CPortNode*>(p.get())) m_vecPorts.push_back(port);
    m_vecNodes.push_back(std::move(p));
  }
  CLinker linker(m_mapIndex);
  for (auto& p : m_vecNodes) {
    CElementReader reader(p.get(), p->mDesc(), linker);
    p->mReadElements(reader);
    reader.Finish();
  }
  linker.Resolve();
  for (auto& p : m_vecNodes) {
    p->mFinishLink();
    p->mSortOutGraph();
  }
  mMarkFeatures();
}

void CNodeMap::mMarkFeatures() {
  CNodeBase* root = mFind("Root");
  auto* cat = dynamic_cast<CCategoryNode*>(root);
  if (!cat) return;
  std::vector<CNodeBase*> stack{root};
  while (!stack.empty()) {
    CNodeBase* n = stack.back();
    stack.pop_back();
    if (n->IsFeature()) continue;
    n->mSetIsFeature();
    if (auto* c = dynamic_cast<CCategoryNode*>(n))
      for (CNodeBase* f : c->mFeatures()) stack.push_back(f);
  }
}

CNodeBase* CNodeMap::mFind(const std::string& Name) const {
  auto it = m_mapIndex.find(Name);
  if (it != m_mapIndex.end()) return it->second;
  // Fully qualified names: "Std::Width", "Cust::MyFeature".
  size_t sep = Name.find("::");
  if (sep != std::string::npos) {
    it = m_mapIndex.find(Name.substr(sep + 2));
    if (it != m_mapIndex.end()) return it->second;
  }
  return nullptr;
}

void CNodeMap::GetNodes(NodeList_t& Nodes) const {
  AutoLock l(m_Lock);
  Nodes.clear();
  Nodes.reserve(m_vecNodes.size());
  for (const auto& p : m_vecNodes) Nodes.push_back(p.get());
}

INode* CNodeMap::GetNode(const gcstring& Name) const {
  AutoLock l(m_Lock);
  return mFind(Name.str());
}

void CNodeMap::InvalidateNodes() const {
  AutoLock l(m_Lock);
  for (const auto& p : m_vecNodes) p->mClearCache();
}

bool CNodeMap::Connect(IPort* pPort, const gcstring& PortName) const {
  AutoLock l(m_Lock);
  auto* port = dynamic_cast<CPortNode*>(mFind(PortName.str()));
  if (!port) return false;
  port->mSetPort(pPort);
  InvalidateNodes();
  return true;
}

bool CNodeMap::Connect(IPort* pPort) const {
  AutoLock l(m_Lock);
  if (mFind("Device") && dynamic_cast<CPortNode*>(mFind("Device"))) return Connect(pPort, "Device");
  if (m_vecPorts.size() == 1) return Connect(pPort, m_vecPorts.front()->mName());
  return false;
}

void CNodeMap::Poll(int64_t ElapsedTime) {
  AutoLock l(m_Lock);
  for (auto& p : m_vecNodes) p->mPoll(ElapsedTime);
}

}  // namespace detail
}  // namespace GenApi_3_0
