// A GenTL producer, found by its file name on GENICAM_GENTL64_PATH, loaded at
// run time and held as a table of its functions. A function the producer does
// not export stays null; callers test the pointer, and GC_ERR_NOT_IMPLEMENTED
// stands for it where a result is needed.
#ifndef VYGENTLCOMMON_VYGENTLLIB_H
#define VYGENTLCOMMON_VYGENTLLIB_H

#include <Base/GCString.h>
#include <VyApi_IP/GenTL.h>

// The producer's functions, in the order of the table.
#define VY_GENTL_FUNCTIONS(X)                                                                                   \
  X(GCCloseLib) X(GCGetInfo) X(GCGetLastError) X(GCInitLib) X(TLClose) X(TLGetInfo) X(TLGetInterfaceID)          \
  X(TLGetInterfaceInfo) X(TLGetNumInterfaces) X(TLOpen) X(TLOpenInterface) X(TLUpdateInterfaceList) X(IFClose)  \
  X(IFGetInfo) X(IFGetDeviceID) X(IFGetDeviceInfo) X(IFGetNumDevices) X(IFOpenDevice) X(IFUpdateDeviceList)      \
  X(IFGetParentTL) X(DevClose) X(DevGetInfo) X(DevGetDataStreamID) X(DevGetNumDataStreams) X(DevGetPort)         \
  X(DevOpenDataStream) X(DevGetParentIF) X(DSAllocAndAnnounceBuffer) X(DSAnnounceBuffer) X(DSClose)              \
  X(DSFlushQueue) X(DSGetBufferID) X(DSGetBufferInfo) X(DSGetInfo) X(DSQueueBuffer) X(DSRevokeBuffer)           \
  X(DSStartAcquisition) X(DSStopAcquisition) X(DSGetBufferChunkData) X(DSGetParentDev) X(DSGetNumBufferParts)    \
  X(DSGetBufferPartInfo) X(GCGetPortInfo) X(GCGetPortURL) X(GCGetNumPortURLs) X(GCGetPortURLInfo) X(GCReadPort)  \
  X(GCWritePort) X(GCWritePortStacked) X(GCReadPortStacked) X(EventFlush) X(EventGetData) X(EventGetDataInfo)    \
  X(EventGetInfo) X(EventKill) X(GCRegisterEvent) X(GCUnregisterEvent)

namespace VyApi {

class CVyGenTLLib {
public:
  /// Finds the producer on GENICAM_GENTL64_PATH, loads it and initialises it.
  /// Raises RuntimeException "File %s not found.", CVyLinuxErrorException
  /// when dlopen fails, CVyGenTLErrorException when GCInitLib fails or is
  /// missing, BadAllocException.
  explicit CVyGenTLLib(GenICam_3_0::gcstring strFileName);
  /// Closes and unloads the producer.
  virtual ~CVyGenTLLib();
  CVyGenTLLib(const CVyGenTLLib&) = delete;
  CVyGenTLLib& operator=(const CVyGenTLLib&) = delete;

  /// The first directory of GENICAM_GENTL64_PATH (":"-separated) that holds a
  /// readable file of that name, joined with it. Raises RuntimeException
  /// "File %s not found." when there is none.
  GenICam_3_0::gcstring GetFullPathName();
  /// Loads the file at the full path, reusing a copy already in the process,
  /// looks up the table and calls GCInitLib. Raises as the constructor.
  void LoadLib();
  /// Calls GCCloseLib, clears the table and unloads. Raises nothing.
  void UnloadLib();

  /// The full path of the loaded file.
  const GenICam_3_0::gcstring& GetFileName() const { return m_strFileName; }
  const GenICam_3_0::gcstring& GetFullPath() const { return m_strFullPath; }
  bool IsLoaded() const { return m_hLibrary != nullptr; }

#define VY_GENTL_MEMBER(name) GenTL::P##name name;
  VY_GENTL_FUNCTIONS(VY_GENTL_MEMBER)
#undef VY_GENTL_MEMBER

protected:
  /// An object that holds no producer, for classes that fill the table
  /// themselves (a producer linked into the program, or a stand-in in tests).
  CVyGenTLLib();

private:
  void mClearTable();

  GenICam_3_0::gcstring m_strFileName;
  GenICam_3_0::gcstring m_strFullPath;
  void* m_hLibrary;
};

}  // namespace VyApi

#endif
