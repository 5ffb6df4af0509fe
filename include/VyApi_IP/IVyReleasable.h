// An object that its owner destroys by calling Release().
#ifndef VYAPI_IVYRELEASABLE_H
#define VYAPI_IVYRELEASABLE_H

namespace VyApi {

class IVyReleasable {
public:
  /// Destroys the object at once. Raises nothing.
  virtual void Release() = 0;

protected:
  virtual ~IVyReleasable() = default;
};

}  // namespace VyApi

#endif
