#include <Orvex_Alignment.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

int main(void) {
    char* const pszVersion = getVersion();
    const int bSame = strcmp(pszVersion, g_Orvex_Alignment_VERSION) == 0 && nWidth == 1728;
    printf("%s\n", pszVersion);
    free(pszVersion);
    return bSame ? 0 : 1;
}
