#include <Orvex_Alignment_Stages.h>

#include <cstdio>

int main() {
    char szVersion[16];
    const int nLength = Orvex_Alignment_VersionInfo_Get(szVersion);
    DualCamAlign_LoadParameters_ForAndroid();
    std::printf("%s\n", szVersion);
    return nLength == 15 && m_tDualCamAlignParam.nChartDistance == 600 ? 0 : 1;
}
