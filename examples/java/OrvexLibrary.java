package com.orvex.alignment.host;

import com.sun.jna.*;
import com.sun.jna.ptr.DoubleByReference;

/** The functions of libOrvex_Alignment that are bound by name; Orvex_Alignment.h describes them. */
interface OrvexLibrary extends Library {
    Pointer getVersion();

    int getAlign(Pointer master, Pointer slave, DoubleByReference rx, DoubleByReference ry,
                 DoubleByReference rz, byte[] calibration, byte[] record);
}
