#pragma once

#include "Orvex_Alignment.h"

namespace orvex {

// Encrypts the record under the module's key, copies the file's bytes to pOutFile (may be null; at least
// ORVEX_OUT_FILE_CAPACITY bytes) and rewrites the record file. What fails is logged as one warning line; a
// record that cannot be encrypted leaves an empty file rather than another measurement's record.
void WriteRecordFile(const _AFPROTECT& tRecord, const unsigned char* pCalibData, unsigned char* pOutFile);

} // namespace orvex
