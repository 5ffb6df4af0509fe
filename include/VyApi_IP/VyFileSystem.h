// File-system helpers of the file writers.
#ifndef VYAPI_VYFILESYSTEM_H
#define VYAPI_VYFILESYSTEM_H

#include <cstdio>

#include <Base/GCString.h>

namespace VyApi {

/// Makes the directory that a file of that name lives in (bIsFileName true:
/// the path up to its last "/" past the first character) or the path itself
/// (false), with mode 0775. Only the last level is made. A name with no "/"
/// past its first character is made as a directory itself. Failures (the
/// directory exists, a parent is missing) are passed over. Raises nothing
/// but BadAllocException when the copy of the path cannot be made.
void MakePath(const GenICam_3_0::gcstring& strPath, bool bIsFileName);

/// Opens a new temporary file "<dir>/<szName>.XXXXXX" for writing and removes
/// its name at once, so the file vanishes when the stream is closed. The
/// directory is TMPDIR when the process runs with its own user id and TMPDIR
/// is set, else "/tmp". Returns null when no file could be made. Raises nothing.
FILE* openTempFile(const char* szName);

}  // namespace VyApi

#endif
