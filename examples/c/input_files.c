#include "input_files.h"

#include <errno.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

void Refuse(const char* szFile, const char* szWhat, const char* szToDo) {
    fprintf(stderr, "align_host: %s: %s.\n  %s.\n", szFile, szWhat, szToDo);
    exit(EXIT_UNFIT_FILE);
}

static FILE* Open(const char* szFile) {
    FILE* const pFile = fopen(szFile, "rb");
    if (pFile == NULL)
        Refuse(szFile, strerror(errno), "Check the name and the permissions of the file");
    return pFile;
}

/* The next nBytes of the file, which is closed. */
static unsigned char* ReadBytes(FILE* pFile, size_t nBytes, const char* szFile, const char* szTooShort) {
    unsigned char* const pBytes = malloc(nBytes);
    if (pBytes == NULL)
        Refuse(szFile, "there is not enough memory for it", "Close other programs");
    if (fread(pBytes, 1, nBytes, pFile) != nBytes)
        Refuse(szFile, szTooShort, "Copy or record it again");
    fclose(pFile);
    return pBytes;
}

Picture ReadPgm(const char* szFile) {
    FILE* const pFile = Open(szFile);
    Picture t = {0, 0, NULL};
    int nLargest = 0;
    /* NOLINTNEXTLINE(cert-err34-c): so few digits fit into an int */
    if (fscanf(pFile, "P5 %5d %5d %3d", &t.nColumns, &t.nRows, &nLargest) != 3 || nLargest != 255 ||
        fgetc(pFile) == EOF || t.nColumns < 1 || t.nRows < 1)
        Refuse(szFile, "is no binary PGM picture (P5) with 255 as its largest value",
               "Convert it, or make a pair with orvex-align render");
    t.pPixels = ReadBytes(pFile, (size_t)t.nColumns * (size_t)t.nRows, szFile, "is cut off");
    return t;
}

unsigned char* ReadCalibration(const char* szFile) {
    return ReadBytes(Open(szFile), ORVEX_CALIBRATION_SIZE, szFile, "is too short for a calibration image");
}
