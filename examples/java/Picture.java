package com.orvex.alignment.host;

/** An 8-bit grey plane, rows from top to bottom without gaps. */
final class Picture {
    final int width, height;
    final byte[] pixels;

    Picture(int width, int height, byte[] pixels) {
        if (pixels.length < (long)width * height)
            throw new IllegalArgumentException(pixels.length + " bytes for " + width + " x " + height +
                                               " pixels");
        this.width = width;
        this.height = height;
        this.pixels = pixels;
    }
}
