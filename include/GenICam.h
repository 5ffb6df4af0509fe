// Umbrella header of the GenICam-compatible base and node-map libraries.
#ifndef GENICAM_GENICAM_H
#define GENICAM_GENICAM_H
#include <Base/GCBase.h>
#include <GenApi/GenApi.h>
#endif
