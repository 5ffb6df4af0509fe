// Namespaces of the GenICam-compatible libraries, with the short aliases that
// applications written against the reference headers use.
#ifndef GENICAM_GCNAMESPACE_H
#define GENICAM_GCNAMESPACE_H

#define GENICAM_NAMESPACE GenICam_3_0
#define GENAPI_NAMESPACE GenApi_3_0

namespace GenICam_3_0 {}
namespace GenApi_3_0 {}
namespace GenICam = GenICam_3_0;
namespace GenApi = GenApi_3_0;

#endif
