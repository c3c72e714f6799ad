/* A host in plain C that binds libOrvex_Alignment by name and measures one pair. */
#include "alignment.h"
#include "input_files.h"

#include <stdio.h>
#include <stdlib.h>

static void PrintVersion(const Alignment* pAlignment) {
    char* const szVersion = pAlignment->pGetVersion();
    printf("version %s\n", szVersion != NULL ? szVersion : "unknown: out of memory");
    free(szVersion);
}

/* Angles with as many digits as tell any two apart. */
static int PrintRotation(Rotation t) {
    if (t.nStatus != ORVEX_OK && t.nStatus != ORVEX_ANGLE_OUT_OF_RANGE) {
        /* The library's own line about it may stand before this in stdout's buffer, mostly without an end. */
        printf("\nstatus 0x%X\nThe chart could not be measured: orvex-align measure --report shows why.\n",
               t.nStatus);
        return EXIT_NOT_MEASURED;
    }
    printf("status 0x%X\nrx %.17g\nry %.17g\nrz %.17g\n", t.nStatus, t.dRx, t.dRy, t.dRz);
    return t.nStatus == ORVEX_OK ? EXIT_WITHIN_RANGE : EXIT_OUT_OF_RANGE;
}

int main(int nArguments, char** aszArguments) {
    if (nArguments != 5) {
        fputs("Usage: align_host LIBRARY MASTER.pgm SLAVE.pgm CALIBRATION\n", stderr);
        return EXIT_WRONG_USAGE;
    }
    Alignment tAlignment;
    const char* const szWhy = BindAlignment(&tAlignment, aszArguments[1]);
    if (szWhy != NULL)
        Refuse(aszArguments[1], szWhy, "Name the library with its path");
    const Picture tMaster = ReadPgm(aszArguments[2]), tSlave = ReadPgm(aszArguments[3]);
    unsigned char* const pCalibration = ReadCalibration(aszArguments[4]);

    PrintVersion(&tAlignment);
    const Rotation tRotation = MeasurePair(&tAlignment, tMaster, tSlave, pCalibration);
    free(pCalibration);
    return PrintRotation(tRotation);
}
