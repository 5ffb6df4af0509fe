// Fixed-width integer types used across the GenICam interfaces.
#ifndef GENICAM_GCTYPES_H
#define GENICAM_GCTYPES_H

#include <cstddef>
#include <cstdint>

#include <Base/GCNamespace.h>

#endif
