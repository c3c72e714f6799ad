package com.orvex.alignment.host;

import java.io.File;

/** A host in Java that binds libOrvex_Alignment by name through JNA and measures one pair. */
public final class AlignHost {
    // As orvex-align has them.
    private static final int WITHIN_RANGE = 0, OUT_OF_RANGE = 1, NOT_MEASURED = 2, UNFIT_FILE = 3;
    private static final int WRONG_USAGE = 64;

    public static void main(String[] arguments) { System.exit(exitCodeOf(arguments)); }

    private static int exitCodeOf(String[] arguments) {
        if (arguments.length != 4) {
            System.err.println("Usage: AlignHost LIBRARY MASTER.pgm SLAVE.pgm CALIBRATION");
            return WRONG_USAGE;
        }
        try {
            Alignment alignment = load(arguments[0]);
            Picture master = InputFiles.readPgm(arguments[1]), slave = InputFiles.readPgm(arguments[2]);
            byte[] calibration = InputFiles.readCalibration(arguments[3]);
            System.out.println("version " + alignment.version());
            return print(alignment.measure(master, slave, calibration));
        } catch (InputFiles.Unfit e) {
            System.err.println("AlignHost: " + e.getMessage());
            return UNFIT_FILE;
        }
    }

    private static Alignment load(String library) throws InputFiles.Unfit {
        try {
            return new Alignment(library.contains("/") ? new File(library).getAbsolutePath() : library);
        } catch (UnsatisfiedLinkError e) {
            throw new InputFiles.Unfit(library, e.getMessage(), "Name the library with its path");
        }
    }

    private static int print(Rotation rotation) {
        System.out.println("status 0x" + Integer.toHexString(rotation.status).toUpperCase());
        if (!rotation.isMeasured()) {
            System.out.println("The chart could not be measured: orvex-align measure --report shows why.");
            return NOT_MEASURED;
        }
        System.out.println("rx " + rotation.rx + "\nry " + rotation.ry + "\nrz " + rotation.rz);
        return rotation.status == Alignment.OK ? WITHIN_RANGE : OUT_OF_RANGE;
    }
}
