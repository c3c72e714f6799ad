#pragma once

#include <string>

namespace support {

// The call into the cryptography library that fails from now on ("psa_import_key"); empty: none.
extern std::string g_strFailingCall;
extern int g_nFailedCalls;

} // namespace support
