#ifndef GENICAM_GCBASE_H
#define GENICAM_GCBASE_H
#include <Base/GCNamespace.h>
#include <Base/GCTypes.h>
#include <Base/GCString.h>
#include <Base/GCStringVector.h>
#include <Base/GCException.h>
#endif
