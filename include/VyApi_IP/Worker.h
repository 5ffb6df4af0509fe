// The base of everything that owns a thread: a subclass supplies mWork, and
// the base starts and stops the thread around it with a manual-reset stop
// event. mWork watches the stop event, usually as the last index of a
// WaitForMultipleObjects, so that queued work is done before a stop.
#ifndef VYAPI_WORKER_H
#define VYAPI_WORKER_H

#include <pthread.h>

#include <VyApi_IP/EventObject.h>

namespace VyApi {

class IWorker {
public:
  /// True when the stop event is signaled within nMilliseconds. Raises nothing.
  virtual bool IsStopRequest(unsigned int nMilliseconds) = 0;
  /// The stop event's handle for a wait of the subclass's own, or null once
  /// the event is being destroyed. Raises nothing.
  virtual void* GetStopRequestEvent() = 0;

protected:
  ~IWorker() = default;
};

class CWorker : public IWorker {
public:
  /// szName is the thread's name as debuggers and `top -H` show it (at most
  /// 15 characters), such as "VyApi_IP_Video". Raises BadAllocException when
  /// the stop event cannot be made.
  explicit CWorker(const char* szName);
  /// Stops the thread (exceptions swallowed). Subclasses call Stop() in their
  /// own destructors, since their members are gone by the time this runs.
  virtual ~CWorker();
  CWorker(const CWorker&) = delete;
  CWorker& operator=(const CWorker&) = delete;

  bool IsStopRequest(unsigned int nMilliseconds) override;
  void* GetStopRequestEvent() override;

  /// Sets the stop event, joins the thread and forgets it; nothing when no
  /// thread is there. Raises nothing.
  virtual void Stop();
  /// Stops a running thread, resets the stop event and starts a new thread
  /// running mWork. Reports nothing.
  void Start();

protected:
  /// The thread's work; its result is dropped.
  virtual unsigned int mWork() = 0;

private:
  static void* mThreadEntry(void* pThis);
  void mThreadStart();

protected:
  const char* m_szName;
  CEventObject m_StopEvent;
  std::atomic<int> m_bRunning;
  int m_nPriority;
  pthread_t m_hThread;
  pthread_mutex_t m_RunMutex;
};

}  // namespace VyApi

#endif
