// Callbacks run when a node changes or is invalidated.
#ifndef GENAPI_NODECALLBACK_H
#define GENAPI_NODECALLBACK_H

#include <functional>

#include <GenApi/INode.h>

namespace GenApi_3_0 {

/// A callback registered at a node. Runs inside the node map's lock.
class CNodeCallback {
public:
  CNodeCallback(INode* pNode, ECallbackType CallbackType) : m_pNode(pNode), m_CallbackType(CallbackType) {}
  virtual ~CNodeCallback() = default;
  /// Runs the callback; exceptions it raises reach the caller of the change.
  virtual void operator()(ECallbackType CallbackType) const = 0;
  virtual void Destroy() { delete this; }
  INode* GetNode() const { return m_pNode; }
  ECallbackType GetCallbackType() const { return m_CallbackType; }

protected:
  INode* m_pNode;
  ECallbackType m_CallbackType;
};

/// A callback calling a function object with the node.
class CFunctionNodeCallback : public CNodeCallback {
public:
  CFunctionNodeCallback(INode* pNode, std::function<void(INode*)> Function,
                        ECallbackType CallbackType = cbPostInsideLock)
      : CNodeCallback(pNode, CallbackType), m_Function(std::move(Function)) {}
  void operator()(ECallbackType CallbackType) const override {
    if (CallbackType == m_CallbackType && m_Function) m_Function(m_pNode);
  }

private:
  std::function<void(INode*)> m_Function;
};

/// Registers a free function or function object taking INode*.
template <class Function>
CallbackHandleType Register(INode* pNode, Function f, ECallbackType CallbackType = cbPostInsideLock) {
  return pNode->RegisterCallback(new CFunctionNodeCallback(pNode, std::function<void(INode*)>(f), CallbackType));
}

/// Registers a member function of an object, called with INode*.
template <class Client, class Member>
CallbackHandleType Register(INode* pNode, Client& c, Member m, ECallbackType CallbackType = cbPostInsideLock) {
  Client* pc = &c;
  return pNode->RegisterCallback(
      new CFunctionNodeCallback(pNode, [pc, m](INode* p) { (pc->*m)(p); }, CallbackType));
}

/// Removes a callback registered with Register(); false if unknown.
inline bool Deregister(INode* pNode, CallbackHandleType h) { return pNode->DeregisterCallback(h); }

}  // namespace GenApi_3_0

#endif
