// Application callbacks: the object an application registers, the parameter
// it receives, and the registration interface every module offers.
#ifndef VYAPI_IVYCALLBACK_H
#define VYAPI_IVYCALLBACK_H

#include <cstdint>

namespace VyApi {

/// The parameter of a callback; GetCallbackType() tells which event it is.
class IVyCallbackParamBase {
public:
  virtual int32_t GetCallbackType() const = 0;
  virtual ~IVyCallbackParamBase() = default;
};

/// Template base of the parameter classes: answers GetCallbackType with the
/// event number nType for the parameter interface T.
template <typename T, int32_t nType>
class CVyCallbackParamBase : public T {
public:
  int32_t GetCallbackType() const override { return nType; }
};

/// The application's callback object. Its ownership passes to the registry at
/// RegisterCallback; the registry calls Release() exactly once when it gives the
/// object up (deregistration or destruction of the module).
class IVyCallback {
public:
  /// Called with the event's parameter; an exception from here is swallowed.
  virtual void OnCallback(IVyCallbackParamBase* pParam) = 0;
  /// Ends the object's life; exceptions are swallowed.
  virtual void Release() = 0;

protected:
  virtual ~IVyCallback() = default;
};

/// Registration of callbacks, offered by every module.
class IVyRegisterCallback {
public:
  /// Registers pCallback and returns its handle.
  /// Raises BadAllocException when no memory is left (pCallback stays the caller's).
  virtual void* RegisterCallback(IVyCallback* pCallback) = 0;
  /// Removes the callback and calls its Release().
  /// Raises InvalidArgumentException "hCallback is invalid." for an unknown handle.
  virtual void DeregisterCallback(void* hCallback) = 0;

protected:
  virtual ~IVyRegisterCallback() = default;
};

/// A registry that can also raise events.
class IVyCallbackManager : public IVyRegisterCallback {
public:
  /// Runs every registered callback with pParam, in handle order; raises nothing
  /// because of a callback.
  virtual void RunCallback(IVyCallbackParamBase* pParam) = 0;
};

}  // namespace VyApi

#endif
