// CNodeBase: what all node types share: names and texts, the access-mode
// combination, the dependency graph with invalidation and callbacks, and the
// internal value calls through which nodes read and write each other.
#ifndef GENAPI_NODE_NODEBASE_H
#define GENAPI_NODE_NODEBASE_H

#include <string>
#include <vector>

#include <GenApi/INode.h>
#include <GenApi/ISelector.h>
#include <GenApi/IValue.h>
#include <GenApi/NodeCallback.h>

#include "Description/Description.h"

namespace GenApi_3_0 {
namespace detail {

class CNodeMap;
class CElementReader;

/// Which value of a node a reference reads: pVariable's .Min, .Max, .Inc.
enum EValuePart_t { vpValue, vpMin, vpMax, vpInc };

class CNodeBase : public virtual INode, public virtual IValue, public virtual ISelector {
public:
  CNodeBase(CNodeMap* pMap, const SNodeDesc& Desc);
  ~CNodeBase() override;
  CNodeBase(const CNodeBase&) = delete;
  CNodeBase& operator=(const CNodeBase&) = delete;

  /// Reads the node's elements; each node type reads its own after calling
  /// its base. Raises InvalidArgumentException for a bad element.
  virtual void mReadElements(CElementReader& Reader);
  /// Called once every reference of the map is resolved; checks the kinds
  /// of the nodes referred to. Raises InvalidArgumentException.
  virtual void mFinishLink() {}

  // IBase / INode
  EAccessMode GetAccessMode() const override;
  gcstring GetName(bool FullQualified = false) const override;
  ENameSpace GetNameSpace() const override;
  EVisibility GetVisibility() const override;
  void InvalidateNode() override;
  bool IsCachable() const override;
  EYesNo IsAccessModeCacheable() const override { return No; }
  ECachingMode GetCachingMode() const override;
  int64_t GetPollingTime() const override { return m_nPollingTime; }
  gcstring GetToolTip() const override { return m_strToolTip; }
  gcstring GetDescription() const override { return m_strDescription; }
  gcstring GetDisplayName() const override;
  gcstring GetDeviceName() const override;
  void GetChildren(NodeList_t& Children, ELinkType LinkType = ctReadingChildren) const override;
  void GetParents(NodeList_t& Parents) const override;
  CallbackHandleType RegisterCallback(CNodeCallback* pCallback) override;
  bool DeregisterCallback(CallbackHandleType hCallback) override;
  INodeMap* GetNodeMap() const override;
  gcstring GetEventID() const override { return m_strEventID; }
  bool IsStreamable() const override { return m_bStreamable; }
  void GetPropertyNames(GenICam_3_0::gcstring_vector& PropertyNames) const override;
  bool GetProperty(const gcstring& PropertyName, gcstring& ValueStr, gcstring& AttributeStr) override;
  void ImposeAccessMode(EAccessMode ImposedAccessMode) override;
  void ImposeVisibility(EVisibility ImposedVisibility) override;
  INode* GetAlias() const override { return m_pAlias; }
  INode* GetCastAlias() const override { return m_pCastAlias; }
  gcstring GetDocuURL() const override { return m_strDocuURL; }
  bool IsDeprecated() const override { return m_bDeprecated; }
  bool IsFeature() const override { return m_bIsFeature; }
  EInterfaceType GetPrincipalInterfaceType() const override { return intfIBase; }

  // IValue
  INode* GetNode() override { return this; }
  gcstring ToString(bool Verify = false, bool IgnoreCache = false) override;
  void FromString(const gcstring& ValueStr, bool Verify = true) override;
  bool IsValueCacheValid() const override;

  // ISelector
  bool IsSelector() const override { return !m_vecSelected.empty(); }
  void GetSelectedFeatures(FeatureList_t& Features) const override;
  void GetSelectingFeatures(FeatureList_t& Features) const override;

  // Internal value calls: the map's lock is held, access is not checked.
  // The defaults raise LogicalErrorException (the node offers no such value).
  virtual int64_t mGetInt(bool Verify, bool IgnoreCache, EValuePart_t Part = vpValue);
  virtual double mGetFloat(bool Verify, bool IgnoreCache, EValuePart_t Part = vpValue);
  virtual void mSetInt(int64_t Value, bool Verify);
  virtual void mSetFloat(double Value, bool Verify);
  virtual std::string mGetString(bool Verify, bool IgnoreCache);
  virtual void mSetString(const std::string& Value, bool Verify);
  /// True when mGetInt answers the part (an integer-like node).
  virtual bool mIsIntegerLike() const { return false; }
  /// True when mGetFloat answers the part (a number).
  virtual bool mIsNumber() const { return mIsIntegerLike(); }
  /// True when the node itself holds a cache (registers).
  virtual bool mHasCache() const { return false; }

  /// The access mode without the lock (the lock is held by the caller).
  EAccessMode mGetAccessMode() const;
  /// The access mode of the node type before ImposedAccessMode and the
  /// pIsImplemented/pIsAvailable/pIsLocked pointers.
  virtual EAccessMode mNaturalAccessMode() const { return RO; }
  /// Drops the node's own cached value, if it keeps one.
  virtual void mClearCache() {}
  virtual bool mOwnCacheValid() const { return true; }
  /// Text form of the value, used by ToString after the access check.
  virtual std::string mToString(bool Verify, bool IgnoreCache);
  virtual void mFromString(const std::string& Value, bool Verify);

  // Graph.
  /// pDependent must be invalidated whenever this node changes.
  void mAddDependent(CNodeBase* pDependent);
  void mAddReadingChild(CNodeBase* pChild);
  void mAddInvalidator(CNodeBase* pInvalidator) { m_vecInvalidators.push_back(pInvalidator); }
  void mAddSelected(CNodeBase* pSelected) { m_vecSelected.push_back(pSelected); }
  void mAddSelecting(CNodeBase* pSelecting) { m_vecSelecting.push_back(pSelecting); }
  void mSortOutGraph();
  void mSetIsFeature() { m_bIsFeature = true; }
  /// After a write at this node: every dependent node is invalidated and the
  /// callbacks of all of them run.
  void mNotifyChanged();
  /// Invalidation step of one wave (Generation), with cycle protection.
  void mInvalidate(uint64_t Generation);
  /// Drops the caches of every register below this node, so that the next
  /// read reaches the device (self-clearing values, IsDone).
  void mInvalidateTerminals(uint64_t Generation);
  /// Advances the polling time; invalidates the node when it elapsed.
  void mPoll(int64_t ElapsedTime);

  const std::string& mName() const { return m_strName; }
  const SNodeDesc& mDesc() const { return *m_pDesc; }
  CNodeMap* mMap() const { return m_pMap; }

  /// Checks and raise AccessException naming the node and the operation.
  void mCheckReadable(const char* pOperation) const;
  void mCheckWritable(const char* pOperation) const;

protected:
  /// True when a pIsImplemented/pIsAvailable/pIsLocked style node reads as
  /// true; an unreadable node counts as false.
  static bool mTruth(CNodeBase* pNode);
  void mRunCallbacks();

  CNodeMap* m_pMap;
  const SNodeDesc* m_pDesc;
  std::string m_strName;
  bool m_bStandardNameSpace;
  std::string m_strToolTip, m_strDescription, m_strDisplayName, m_strDocuURL, m_strEventID;
  EVisibility m_eVisibility = Beginner;
  EAccessMode m_eImposedAccessMode = RW;
  bool m_bDeprecated = false;
  bool m_bStreamable = false;
  bool m_bIsFeature = false;
  int64_t m_nPollingTime = -1;
  int64_t m_nPollElapsed = 0;
  CNodeBase* m_pIsImplemented = nullptr;
  CNodeBase* m_pIsAvailable = nullptr;
  CNodeBase* m_pIsLocked = nullptr;
  CNodeBase* m_pAlias = nullptr;
  CNodeBase* m_pCastAlias = nullptr;
  std::vector<CNodeBase*> m_vecErrors;
  std::vector<CNodeBase*> m_vecDependents;
  std::vector<CNodeBase*> m_vecReadingChildren;
  std::vector<CNodeBase*> m_vecParents;
  std::vector<CNodeBase*> m_vecInvalidators;
  std::vector<CNodeBase*> m_vecSelected;
  std::vector<CNodeBase*> m_vecSelecting;
  std::vector<CNodeCallback*> m_vecCallbacks;
  uint64_t m_nGeneration = 0;
  mutable bool m_bInAccessMode = false;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
