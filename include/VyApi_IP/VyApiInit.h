// Initialisation of the kit. Every factory of the image-processing library
// checks it first.
#ifndef VYAPI_VYAPIINIT_H
#define VYAPI_VYAPIINIT_H

namespace VyApi {

/// Initialises the kit; calls are counted. Raises nothing.
void InitializeVyApi();
/// Undoes one InitializeVyApi(); extra calls are ignored. Raises nothing.
void TerminateVyApi();
/// True while at least one InitializeVyApi() is not undone. Raises nothing.
bool IsVyApiInitialized();
/// Raises RuntimeException, telling the caller to call VyApi::InitializeVyApi()
/// first, when the kit is not initialised.
void CheckVyApiInitialized();

/// Holds one initialisation for its lifetime.
class CVyApiAutoInit {
public:
  CVyApiAutoInit() { InitializeVyApi(); }
  ~CVyApiAutoInit() { TerminateVyApi(); }
  CVyApiAutoInit(const CVyApiAutoInit&) = delete;
  CVyApiAutoInit& operator=(const CVyApiAutoInit&) = delete;
};

}  // namespace VyApi

#endif
