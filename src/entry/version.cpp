#include "Orvex_Alignment.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

const char g_Orvex_Alignment_VERSION[15] = "v1313.47.10.02";

char* getVersion(void) {
    char* const pszVersion = static_cast<char*>(std::calloc(16, 1));
    Orvex_Alignment_VersionInfo_Get(pszVersion);
    return pszVersion;
}

int Orvex_Alignment_VersionInfo_Get(char* pszVersion) {
    if (pszVersion == nullptr)
        return -1;
    std::memcpy(pszVersion, g_Orvex_Alignment_VERSION, sizeof g_Orvex_Alignment_VERSION);
    return sizeof g_Orvex_Alignment_VERSION;
}

void Orvex_GetVersion(char* pszVersion, int nSize) {
    // Older than the library's own version, on purpose.
    constexpr char szVersion[] = "v1313.40.9.1";
    if (pszVersion != nullptr && nSize > 0)
        std::memcpy(pszVersion, szVersion,
                    std::min<std::size_t>(static_cast<std::size_t>(nSize), sizeof szVersion));
}
