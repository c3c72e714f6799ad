package com.orvex.alignment.host;

import com.sun.jna.Native;
import com.sun.jna.NativeLibrary;
import com.sun.jna.Pointer;
import com.sun.jna.ptr.DoubleByReference;

/** Measures pairs with the native library: whose memory is whose is settled in here. */
final class Alignment {
    static final int OK = 0;
    static final int ANGLE_OUT_OF_RANGE = 0x1020015;
    static final int CALIBRATION_SIZE = 2915;

    private final OrvexLibrary library;
    private final Pointer masterWidth, masterHeight, slaveWidth, slaveHeight;

    /** A path, or the bare name "Orvex_Alignment", as in an application's package. */
    Alignment(String name) {
        library = Native.load(name, OrvexLibrary.class);
        NativeLibrary symbols = NativeLibrary.getInstance(name);
        masterWidth = symbols.getGlobalVariableAddress("nWidth");
        masterHeight = symbols.getGlobalVariableAddress("nHeight");
        slaveWidth = symbols.getGlobalVariableAddress("nWidth_Slave");
        slaveHeight = symbols.getGlobalVariableAddress("nHeight_Slave");
    }

    String version() {
        Pointer text = library.getVersion();
        if (text == null)
            throw new OutOfMemoryError("getVersion found no memory");
        try {
            return text.getString(0);
        } finally {
            Native.free(Pointer.nativeValue(text)); // the caller's
        }
    }

    /** One measurement at a time in a process: the library's state is global. */
    Rotation measure(Picture master, Picture slave, byte[] calibration) {
        if (calibration.length < CALIBRATION_SIZE)
            throw new IllegalArgumentException("calibration of " + calibration.length + " bytes");
        DoubleByReference rx = new DoubleByReference();
        DoubleByReference ry = new DoubleByReference();
        DoubleByReference rz = new DoubleByReference();
        synchronized (Alignment.class) {
            masterWidth.setInt(0, master.width);
            masterHeight.setInt(0, master.height);
            slaveWidth.setInt(0, slave.width);
            slaveHeight.setInt(0, slave.height);
            Pointer masterPixels = onHeap(master), slavePixels = onHeap(slave);
            // getAlign frees both pictures on every path; a null one gets a status.
            int status = library.getAlign(masterPixels, slavePixels, rx, ry, rz, calibration, null);
            return new Rotation(status, rx.getValue(), ry.getValue(), rz.getValue());
        }
    }

    /** A copy from the C allocator, as getAlign needs it to free it; null without memory. */
    private static Pointer onHeap(Picture picture) {
        long address = Native.malloc(picture.pixels.length);
        if (address == 0)
            return null;
        Pointer memory = new Pointer(address);
        memory.write(0, picture.pixels, 0, picture.pixels.length);
        return memory;
    }
}
