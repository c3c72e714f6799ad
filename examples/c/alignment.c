#include "alignment.h"

#include <dlfcn.h>
#include <stddef.h>

const char* BindAlignment(Alignment* p, const char* szLibrary) {
    void* const pLibrary = dlopen(szLibrary, RTLD_NOW | RTLD_LOCAL);
    const int bBound = pLibrary != NULL && (p->pGetVersion = dlsym(pLibrary, "getVersion")) != NULL &&
                       (p->pGetAlign = dlsym(pLibrary, "getAlign")) != NULL &&
                       (p->pWidth = dlsym(pLibrary, "nWidth")) != NULL &&
                       (p->pHeight = dlsym(pLibrary, "nHeight")) != NULL &&
                       (p->pWidthSlave = dlsym(pLibrary, "nWidth_Slave")) != NULL &&
                       (p->pHeightSlave = dlsym(pLibrary, "nHeight_Slave")) != NULL;
    return bBound ? NULL : dlerror();
}

Rotation MeasurePair(const Alignment* p, Picture tMaster, Picture tSlave, unsigned char* pCalibration) {
    Rotation t = {0};
    *p->pWidth = tMaster.nColumns;
    *p->pHeight = tMaster.nRows;
    *p->pWidthSlave = tSlave.nColumns;
    *p->pHeightSlave = tSlave.nRows;
    /* getAlign frees both pictures on every path: they must not be touched after this. */
    t.nStatus = p->pGetAlign(tMaster.pPixels, tSlave.pPixels, &t.dRx, &t.dRy, &t.dRz, pCalibration, NULL);
    return t;
}
