// Win32-style events and waits over POSIX mutexes and condition variables.
// The kit's worker code waits on manual-reset and auto-reset events, on one
// event with a timeout in milliseconds, or on several with an all-or-any
// choice. An event's handle, for the wait functions, is its address.
#ifndef VYAPI_EVENTOBJECT_H
#define VYAPI_EVENTOBJECT_H

#include <pthread.h>

#include <atomic>
#include <vector>

namespace VyApi {

struct _SVyMultiEventsWaiter;

/// One registration of a multi-wait with an event: which wait, and the
/// event's index within that call.
struct SVyWaiterEntry_ {
  _SVyMultiEventsWaiter* m_pWaiter;
  unsigned int m_nIndex;
};

/// The signal part of an event.
struct SVyEventSignal_ {
  /// Raises BadAllocException (empty text) when the mutex or the condition
  /// cannot be initialised.
  SVyEventSignal_();
  SVyEventSignal_(const SVyEventSignal_&) = delete;
  SVyEventSignal_& operator=(const SVyEventSignal_&) = delete;

  pthread_mutex_t m_Mutex;
  pthread_cond_t m_Cond;
  bool m_bManualReset;
  // Read without the mutex on the fast paths of the waits; one byte, atomic
  // so that those reads are defined.
  std::atomic<bool> m_bSignaled;
  std::vector<SVyWaiterEntry_*> m_vecWaiters;
};

class CEventObject : public SVyEventSignal_ {
public:
  /// pAttributes and szName are stored and not used. With bInitialState the
  /// event is set last. Raises BadAllocException.
  CEventObject(void* pAttributes, bool bManualReset, bool bInitialState, const char* szName);
  /// Marks the event closed under its mutex, then destroys it. Raises nothing.
  ~CEventObject();

  /// Signals the event: wakes the multi-waits registered with it and one
  /// single waiter. Does nothing once destruction has started. Raises nothing.
  void SetEvent();
  /// Clears the signal. Does nothing once destruction has started. Raises nothing.
  void ResetEvent();

  std::atomic<int> m_bClosed;
  void* m_pAttributes;
  const char* m_szName;
};

/// Results of the waits, with their Win32 meanings.
constexpr unsigned int VY_WAIT_OBJECT_0 = 0;
constexpr unsigned int VY_WAIT_TIMEOUT = 0x102;
constexpr unsigned int VY_WAIT_FAILED = 0xFFFFFFFFu;
/// A timeout that never ends; 0 polls.
constexpr unsigned int VY_INFINITE = 0xFFFFFFFFu;

/// Waits for one event (a CEventObject*). Returns 0 when it is signaled
/// (consuming an auto-reset signal), 258 on timeout, 0xFFFFFFFF for a null
/// handle or a wait error. Raises nothing.
unsigned int WaitForSingleObject(void* hEvent, unsigned int nMilliseconds);

/// Waits for any or all of nCount events. Returns the lowest index of a
/// signaled event when the wait is satisfied, 258 on timeout, 0xFFFFFFFF for
/// nCount 0 or a null array. Signaled auto-reset events are consumed, all of
/// them, also when the wait as a whole times out. Raises BadAllocException
/// when the wait's own mutex or condition cannot be initialised.
unsigned int WaitForMultipleObjects(unsigned int nCount, void* const* phEvents, bool bWaitAll,
                                    unsigned int nMilliseconds);

}  // namespace VyApi

#endif
