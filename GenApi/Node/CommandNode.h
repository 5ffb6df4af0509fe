// CCommandNode: writes CommandValue to its value to trigger an action.
#ifndef GENAPI_NODE_COMMANDNODE_H
#define GENAPI_NODE_COMMANDNODE_H

#include <GenApi/ICommand.h>

#include "Node/ValueProperty.h"

namespace GenApi_3_0 {
namespace detail {

class CCommandNode : public CNodeBase, public virtual ICommand {
public:
  using CNodeBase::CNodeBase;
  void mReadElements(CElementReader& Reader) override;
  EAccessMode mNaturalAccessMode() const override { return m_Value.GetAccessMode(); }
  EInterfaceType GetPrincipalInterfaceType() const override { return intfICommand; }

  void Execute(bool Verify = true) override;
  void operator()() override { Execute(); }
  /// Reads the value past the caches; done when it no longer equals the
  /// command value. A command that cannot be read is done at once.
  bool IsDone(bool Verify = true) override;

  /// "1" while the command runs, "0" when done.
  std::string mToString(bool Verify, bool IgnoreCache) override;
  /// "1" or "true" executes.
  void mFromString(const std::string& Value, bool Verify) override;

private:
  bool mIsDone();
  CValueProperty m_Value;
  CValueProperty m_CommandValue;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
