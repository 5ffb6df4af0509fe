// Enumerations and small types shared by the GenApi interfaces.
#ifndef GENAPI_TYPES_H
#define GENAPI_TYPES_H

#include <cstdint>

#include <Base/GCBase.h>

namespace GenApi_3_0 {

using GenICam_3_0::gcstring;
using GenICam_3_0::gcstring_vector;

/// Signedness of an integer register.
typedef enum _ESign { Signed, Unsigned, _UndefinedSign } ESign;

/// Access mode of a node. The order matters: Combine() keeps the weaker of
/// two modes in the sense NI < NA < WO/RO < RW.
typedef enum _EAccessMode {
  NI,                    ///< not implemented
  NA,                    ///< not available
  WO,                    ///< write only
  RO,                    ///< read only
  RW,                    ///< read and write
  _UndefinedAccesMode,   ///< not yet known
  _CycleDetectAccesMode  ///< used while an access mode is being evaluated
} EAccessMode;

/// Recommended visibility of a node.
typedef enum _EVisibility {
  Beginner = 0,
  Expert = 1,
  Guru = 2,
  Invisible = 3,
  _UndefinedVisibility = 99
} EVisibility;

/// Caching of register values.
typedef enum _ECachingMode {
  NoCache,       ///< every read goes to the port
  WriteThrough,  ///< a written value goes to the port and into the cache
  WriteAround,   ///< a written value goes to the port only; the next read fetches it
  _UndefinedCachingMode
} ECachingMode;

/// How a number is best shown to a user.
typedef enum _ERepresentation {
  Linear,
  Logarithmic,
  Boolean,
  PureNumber,
  HexNumber,
  IPV4Address,
  MACAddress,
  _UndefinedRepresentation
} ERepresentation;

/// Byte order of a register.
typedef enum _EEndianess { BigEndian, LittleEndian, _UndefinedEndian } EEndianess;

/// Name space of a node's name.
typedef enum _ENameSpace { Custom, Standard, _UndefinedNameSpace } ENameSpace;

/// Standard name space of a description.
typedef enum _EStandardNameSpace { None, GEV, IIDC, CL, USB, _UndefinedStandardNameSpace } EStandardNameSpace;

/// Yes/No as the descriptions write it.
typedef enum _EYesNo { Yes = 1, No = 0, _UndefinedYesNo = 2 } EYesNo;

/// Slope of a converter's formula.
typedef enum _ESlope { Increasing, Decreasing, Varying, Automatic, _UndefinedESlope } ESlope;

/// Notation of a float when shown.
typedef enum _EDisplayNotation { fnAutomatic, fnFixed, fnScientific, _UndefinedEDisplayNotation } EDisplayNotation;

/// The principal interface a node offers.
typedef enum _EInterfaceType {
  intfIValue,
  intfIBase,
  intfIInteger,
  intfIBoolean,
  intfICommand,
  intfIFloat,
  intfIString,
  intfIRegister,
  intfICategory,
  intfIEnumeration,
  intfIEnumEntry,
  intfIPort
} EInterfaceType;

/// Kinds of links between nodes, for INode::GetChildren.
typedef enum _ELinkType {
  ctParentNodes,
  ctReadingChildren,
  ctWritingChildren,
  ctInvalidatingChildren,
  ctDependingNodes,
  ctTerminalNodes,
  ctValueChangingChildren
} ELinkType;

/// How the valid values of a number are spaced.
typedef enum _EIncMode { noIncrement, fixedIncrement, listIncrement } EIncMode;

/// Direction of a converter's formula.
typedef enum _EInputDirection { idFrom, idTo, idNone } EInputDirection;

/// The content of a description handed to CNodeMapFactory.
typedef enum _EContentType {
  ContentType_Xml,        ///< XML text
  ContentType_ZippedXml,  ///< a zip archive holding one XML file
  ContentType_Auto        ///< decided from the data (zip signature) or the file name
} EContentType;

/// How CNodeMapFactory uses a cache of preprocessed descriptions. This engine
/// keeps no such cache; every value parses the description.
typedef enum _ECacheUsage {
  CacheUsage_Automatic,
  CacheUsage_ForceWrite,
  CacheUsage_ForceRead,
  CacheUsage_Ignore
} ECacheUsage;

/// Kind of callback run when a node changes.
typedef enum _ECallbackType { cbPostInsideLock = 1, cbPostOutsideLock = 2 } ECallbackType;

}  // namespace GenApi_3_0

#endif
