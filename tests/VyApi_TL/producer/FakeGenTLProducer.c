/* A GenTL producer stand-in for the loader tests. Its behaviour is set
 * through the FakeProducer_* functions, which a test reaches by opening the
 * same file itself before the loader does. Built twice: once complete, once
 * without GCGetLastError (FAKE_PRODUCER_NO_LAST_ERROR). */
#include <stddef.h>
#include <stdint.h>
#include <string.h>

typedef int32_t GC_ERROR;

static GC_ERROR g_initResult = 0;
static GC_ERROR g_lastError = 0;
static char g_lastErrorText[256] = "";
static int g_initCalls = 0;
static int g_closeCalls = 0;

void FakeProducer_SetInitResult(GC_ERROR result) { g_initResult = result; }

void FakeProducer_SetLastError(GC_ERROR code, const char* text) {
  g_lastError = code;
  strncpy(g_lastErrorText, text, sizeof(g_lastErrorText) - 1);
  g_lastErrorText[sizeof(g_lastErrorText) - 1] = '\0';
}

int FakeProducer_InitCalls(void) { return g_initCalls; }
int FakeProducer_CloseCalls(void) { return g_closeCalls; }

GC_ERROR GCInitLib(void) {
  ++g_initCalls;
  return g_initResult;
}

GC_ERROR GCCloseLib(void) {
  ++g_closeCalls;
  return 0;
}

#ifndef FAKE_PRODUCER_NO_LAST_ERROR
/* As the standard has it: with a null text, only the size (with the
 * terminating zero) is reported. */
GC_ERROR GCGetLastError(GC_ERROR* piErrorCode, char* sErrText, size_t* piSize) {
  const size_t need = strlen(g_lastErrorText) + 1;
  if (piErrorCode == NULL || piSize == NULL) return -1009;
  *piErrorCode = g_lastError;
  if (sErrText == NULL) {
    *piSize = need;
    return 0;
  }
  if (*piSize < need) return -1016;
  memcpy(sErrText, g_lastErrorText, need);
  *piSize = need;
  return 0;
}
#endif

GC_ERROR TLOpen(void** phTL) {
  if (phTL == NULL) return -1009;
  *phTL = &g_initCalls;
  return 0;
}
