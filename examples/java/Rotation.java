package com.orvex.alignment.host;

/** The slave's rotation against the master, degrees; the angles are void if the chart was not measured. */
final class Rotation {
    final int status;
    final double rx, ry, rz;

    Rotation(int status, double rx, double ry, double rz) {
        this.status = status;
        this.rx = rx;
        this.ry = ry;
        this.rz = rz;
    }

    boolean isMeasured() { return status == Alignment.OK || status == Alignment.ANGLE_OUT_OF_RANGE; }
}
