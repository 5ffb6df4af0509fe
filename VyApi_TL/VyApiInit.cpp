#include <atomic>

#include <VyApi_IP/VyApiInit.h>
#include <VyApi_IP/VyReporter.h>

namespace VyApi {

namespace {
std::atomic<long> g_nInitCount{0};
}

void InitializeVyApi() { g_nInitCount.fetch_add(1, std::memory_order_acq_rel); }

void TerminateVyApi() {
  long n = g_nInitCount.load(std::memory_order_acquire);
  while (n > 0 && !g_nInitCount.compare_exchange_weak(n, n - 1, std::memory_order_acq_rel)) {
  }
}

bool IsVyApiInitialized() { return g_nInitCount.load(std::memory_order_acquire) > 0; }

void CheckVyApiInitialized() {
  if (!IsVyApiInitialized())
    throw VY_RUNTIME_EXCEPTION("VyApi is not initialized. Call VyApi::InitializeVyApi() first.");
}

}  // namespace VyApi
