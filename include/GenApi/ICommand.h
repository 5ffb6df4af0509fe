// ICommand: a feature that triggers an action.
#ifndef GENAPI_ICOMMAND_H
#define GENAPI_ICOMMAND_H

#include <GenApi/IValue.h>

namespace GenApi_3_0 {

struct ICommand : virtual public IValue {
  /// Writes the command value. Raises AccessException when not writable.
  virtual void Execute(bool Verify = true) = 0;
  virtual void operator()() = 0;
  /// True when the command has finished, that is, when its value no longer
  /// reads as the command value. Raises AccessException when not readable.
  virtual bool IsDone(bool Verify = true) = 0;
};

}  // namespace GenApi_3_0

#endif
