#ifndef ALIGNMENT_H
#define ALIGNMENT_H

#include <Orvex_Alignment.h> /* types and statuses; nothing of it is linked */

/* The library's entry points and picture sizes, bound by name. */
typedef struct {
    __typeof__(getVersion)* pGetVersion;
    __typeof__(getAlign)* pGetAlign;
    int *pWidth, *pHeight, *pWidthSlave, *pHeightSlave;
} Alignment;

/* A picture in memory from malloc. */
typedef struct {
    int nColumns, nRows;
    unsigned char* pPixels;
} Picture;

typedef struct {
    unsigned int nStatus;
    double dRx, dRy, dRz; /* written with ORVEX_OK and ORVEX_ANGLE_OUT_OF_RANGE */
} Rotation;

/* Null, or why the library cannot be used. It stays loaded until the process ends. szLibrary: a path, or a
 * bare name that the dynamic linker looks up. */
const char* BindAlignment(Alignment* pAlignment, const char* szLibrary);

/* Measures one pair; one measurement at a time in a process. Takes both pictures over, whatever comes of it;
 * the calibration stays the caller's. */
Rotation MeasurePair(const Alignment* pAlignment, Picture tMaster, Picture tSlave,
                     unsigned char* pCalibration);

#endif
