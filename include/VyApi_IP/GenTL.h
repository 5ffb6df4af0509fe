// The part of the GenICam GenTL producer interface (C calling convention,
// function pointers) that the kit's producer loader needs. Types and
// signatures follow the public GenTL standard; the information and command
// selectors are kept as plain 32-bit integers.
#ifndef VYAPI_GENTL_H
#define VYAPI_GENTL_H

#include <cstddef>
#include <cstdint>

namespace GenTL {

typedef int32_t GC_ERROR;
typedef uint8_t bool8_t;

enum : GC_ERROR {
  GC_ERR_SUCCESS = 0,
  GC_ERR_ERROR = -1001,
  GC_ERR_NOT_INITIALIZED = -1002,
  GC_ERR_NOT_IMPLEMENTED = -1003,
  GC_ERR_RESOURCE_IN_USE = -1004,
  GC_ERR_ACCESS_DENIED = -1005,
  GC_ERR_INVALID_HANDLE = -1006,
  GC_ERR_INVALID_ID = -1007,
  GC_ERR_NO_DATA = -1008,
  GC_ERR_INVALID_PARAMETER = -1009,
  GC_ERR_IO = -1010,
  GC_ERR_TIMEOUT = -1011,
  GC_ERR_ABORT = -1012,
  GC_ERR_INVALID_BUFFER = -1013,
  GC_ERR_NOT_AVAILABLE = -1014,
  GC_ERR_INVALID_ADDRESS = -1015,
  GC_ERR_BUFFER_TOO_SMALL = -1016,
  GC_ERR_INVALID_INDEX = -1017,
  GC_ERR_PARSING_CHUNK_DATA = -1018,
  GC_ERR_INVALID_VALUE = -1019,
  GC_ERR_RESOURCE_EXHAUSTED = -1020,
  GC_ERR_OUT_OF_MEMORY = -1021,
  GC_ERR_BUSY = -1022,
};

typedef void* TL_HANDLE;
typedef void* IF_HANDLE;
typedef void* DEV_HANDLE;
typedef void* DS_HANDLE;
typedef void* PORT_HANDLE;
typedef void* BUFFER_HANDLE;
typedef void* EVENTSRC_HANDLE;
typedef void* EVENT_HANDLE;

typedef int32_t INFO_DATATYPE;
typedef int32_t TL_INFO_CMD;
typedef int32_t INTERFACE_INFO_CMD;
typedef int32_t DEVICE_INFO_CMD;
typedef int32_t DEVICE_ACCESS_FLAGS;
typedef int32_t STREAM_INFO_CMD;
typedef int32_t BUFFER_INFO_CMD;
typedef int32_t BUFFER_PART_INFO_CMD;
typedef int32_t PORT_INFO_CMD;
typedef int32_t URL_INFO_CMD;
typedef int32_t EVENT_TYPE;
typedef int32_t EVENT_INFO_CMD;
typedef int32_t EVENT_DATA_INFO_CMD;
typedef int32_t ACQ_QUEUE_TYPE;
typedef int32_t ACQ_START_FLAGS;
typedef int32_t ACQ_STOP_FLAGS;

struct PORT_REGISTER_STACK_ENTRY {
  uint64_t Address;
  void* pBuffer;
  size_t Size;
};

struct SINGLE_CHUNK_DATA {
  uint64_t ChunkID;
  ptrdiff_t ChunkOffset;
  size_t ChunkLength;
};

extern "C" {
typedef GC_ERROR (*PGCGetInfo)(TL_INFO_CMD, INFO_DATATYPE*, void*, size_t*);
typedef GC_ERROR (*PGCGetLastError)(GC_ERROR* piErrorCode, char* sErrText, size_t* piSize);
typedef GC_ERROR (*PGCInitLib)(void);
typedef GC_ERROR (*PGCCloseLib)(void);
typedef GC_ERROR (*PGCReadPort)(PORT_HANDLE, uint64_t, void*, size_t*);
typedef GC_ERROR (*PGCWritePort)(PORT_HANDLE, uint64_t, const void*, size_t*);
typedef GC_ERROR (*PGCGetPortURL)(PORT_HANDLE, char*, size_t*);
typedef GC_ERROR (*PGCGetPortInfo)(PORT_HANDLE, PORT_INFO_CMD, INFO_DATATYPE*, void*, size_t*);
typedef GC_ERROR (*PGCRegisterEvent)(EVENTSRC_HANDLE, EVENT_TYPE, EVENT_HANDLE*);
typedef GC_ERROR (*PGCUnregisterEvent)(EVENTSRC_HANDLE, EVENT_TYPE);
typedef GC_ERROR (*PEventGetData)(EVENT_HANDLE, void*, size_t*, uint64_t);
typedef GC_ERROR (*PEventGetDataInfo)(EVENT_HANDLE, const void*, size_t, EVENT_DATA_INFO_CMD, INFO_DATATYPE*, void*,
                                      size_t*);
typedef GC_ERROR (*PEventGetInfo)(EVENT_HANDLE, EVENT_INFO_CMD, INFO_DATATYPE*, void*, size_t*);
typedef GC_ERROR (*PEventFlush)(EVENT_HANDLE);
typedef GC_ERROR (*PEventKill)(EVENT_HANDLE);
typedef GC_ERROR (*PTLOpen)(TL_HANDLE*);
typedef GC_ERROR (*PTLClose)(TL_HANDLE);
typedef GC_ERROR (*PTLGetInfo)(TL_HANDLE, TL_INFO_CMD, INFO_DATATYPE*, void*, size_t*);
typedef GC_ERROR (*PTLGetNumInterfaces)(TL_HANDLE, uint32_t*);
typedef GC_ERROR (*PTLGetInterfaceID)(TL_HANDLE, uint32_t, char*, size_t*);
typedef GC_ERROR (*PTLGetInterfaceInfo)(TL_HANDLE, const char*, INTERFACE_INFO_CMD, INFO_DATATYPE*, void*, size_t*);
typedef GC_ERROR (*PTLOpenInterface)(TL_HANDLE, const char*, IF_HANDLE*);
typedef GC_ERROR (*PTLUpdateInterfaceList)(TL_HANDLE, bool8_t*, uint64_t);
typedef GC_ERROR (*PIFClose)(IF_HANDLE);
typedef GC_ERROR (*PIFGetInfo)(IF_HANDLE, INTERFACE_INFO_CMD, INFO_DATATYPE*, void*, size_t*);
typedef GC_ERROR (*PIFGetNumDevices)(IF_HANDLE, uint32_t*);
typedef GC_ERROR (*PIFGetDeviceID)(IF_HANDLE, uint32_t, char*, size_t*);
typedef GC_ERROR (*PIFUpdateDeviceList)(IF_HANDLE, bool8_t*, uint64_t);
typedef GC_ERROR (*PIFGetDeviceInfo)(IF_HANDLE, const char*, DEVICE_INFO_CMD, INFO_DATATYPE*, void*, size_t*);
typedef GC_ERROR (*PIFOpenDevice)(IF_HANDLE, const char*, DEVICE_ACCESS_FLAGS, DEV_HANDLE*);
typedef GC_ERROR (*PIFGetParentTL)(IF_HANDLE, TL_HANDLE*);
typedef GC_ERROR (*PDevGetPort)(DEV_HANDLE, PORT_HANDLE*);
typedef GC_ERROR (*PDevGetNumDataStreams)(DEV_HANDLE, uint32_t*);
typedef GC_ERROR (*PDevGetDataStreamID)(DEV_HANDLE, uint32_t, char*, size_t*);
typedef GC_ERROR (*PDevOpenDataStream)(DEV_HANDLE, const char*, DS_HANDLE*);
typedef GC_ERROR (*PDevGetInfo)(DEV_HANDLE, DEVICE_INFO_CMD, INFO_DATATYPE*, void*, size_t*);
typedef GC_ERROR (*PDevClose)(DEV_HANDLE);
typedef GC_ERROR (*PDevGetParentIF)(DEV_HANDLE, IF_HANDLE*);
typedef GC_ERROR (*PDSAnnounceBuffer)(DS_HANDLE, void*, size_t, void*, BUFFER_HANDLE*);
typedef GC_ERROR (*PDSAllocAndAnnounceBuffer)(DS_HANDLE, size_t, void*, BUFFER_HANDLE*);
typedef GC_ERROR (*PDSFlushQueue)(DS_HANDLE, ACQ_QUEUE_TYPE);
typedef GC_ERROR (*PDSStartAcquisition)(DS_HANDLE, ACQ_START_FLAGS, uint64_t);
typedef GC_ERROR (*PDSStopAcquisition)(DS_HANDLE, ACQ_STOP_FLAGS);
typedef GC_ERROR (*PDSGetInfo)(DS_HANDLE, STREAM_INFO_CMD, INFO_DATATYPE*, void*, size_t*);
typedef GC_ERROR (*PDSGetBufferID)(DS_HANDLE, uint32_t, BUFFER_HANDLE*);
typedef GC_ERROR (*PDSClose)(DS_HANDLE);
typedef GC_ERROR (*PDSRevokeBuffer)(DS_HANDLE, BUFFER_HANDLE, void**, void**);
typedef GC_ERROR (*PDSQueueBuffer)(DS_HANDLE, BUFFER_HANDLE);
typedef GC_ERROR (*PDSGetBufferInfo)(DS_HANDLE, BUFFER_HANDLE, BUFFER_INFO_CMD, INFO_DATATYPE*, void*, size_t*);
typedef GC_ERROR (*PDSGetBufferChunkData)(DS_HANDLE, BUFFER_HANDLE, SINGLE_CHUNK_DATA*, size_t*);
typedef GC_ERROR (*PDSGetParentDev)(DS_HANDLE, DEV_HANDLE*);
typedef GC_ERROR (*PDSGetNumBufferParts)(DS_HANDLE, BUFFER_HANDLE, uint32_t*);
typedef GC_ERROR (*PDSGetBufferPartInfo)(DS_HANDLE, BUFFER_HANDLE, uint32_t, BUFFER_PART_INFO_CMD, INFO_DATATYPE*,
                                         void*, size_t*);
typedef GC_ERROR (*PGCGetNumPortURLs)(PORT_HANDLE, uint32_t*);
typedef GC_ERROR (*PGCGetPortURLInfo)(PORT_HANDLE, uint32_t, URL_INFO_CMD, INFO_DATATYPE*, void*, size_t*);
typedef GC_ERROR (*PGCReadPortStacked)(PORT_HANDLE, PORT_REGISTER_STACK_ENTRY*, size_t*);
typedef GC_ERROR (*PGCWritePortStacked)(PORT_HANDLE, PORT_REGISTER_STACK_ENTRY*, size_t*);
}

}  // namespace GenTL

#endif
