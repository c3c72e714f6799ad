package com.orvex.alignment.host;

import java.io.ByteArrayOutputStream;
import java.io.File;
import java.io.FileInputStream;
import java.io.IOException;
import java.io.InputStream;
import java.nio.charset.StandardCharsets;
import java.util.Arrays;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/** Reads what a measurement needs from files. */
final class InputFiles {
    /** Says which file, what is wrong with it and what to do. */
    static final class Unfit extends Exception {
        private static final long serialVersionUID = 1;

        Unfit(String file, String what, String toDo) { super(file + ": " + what + ".\n  " + toDo + "."); }
    }

    private static final Pattern PGM_HEADER = Pattern.compile("P5\\s+(\\d{1,5})\\s+(\\d{1,5})\\s+255\\s");
    private static final int LONGEST_HEADER = 64;

    static Picture readPgm(String file) throws Unfit {
        byte[] bytes = read(file);
        String start =
            new String(bytes, 0, Math.min(bytes.length, LONGEST_HEADER), StandardCharsets.ISO_8859_1);
        Matcher header = PGM_HEADER.matcher(start);
        if (!header.lookingAt())
            throw new Unfit(file, "is no binary PGM picture (P5) with 255 as its largest value",
                            "Convert it, or make a pair with orvex-align render");
        int width = Integer.parseInt(header.group(1)), height = Integer.parseInt(header.group(2));
        if (bytes.length - header.end() < (long)width * height)
            throw new Unfit(file, "is cut off", "Copy or record it again");
        return new Picture(width, height, Arrays.copyOfRange(bytes, header.end(), bytes.length));
    }

    static byte[] readCalibration(String file) throws Unfit {
        byte[] bytes = read(file);
        if (bytes.length < Alignment.CALIBRATION_SIZE)
            throw new Unfit(file, "is too short for a calibration image", "Copy or record it again");
        return bytes;
    }

    // Android has java.nio.file and readAllBytes only in later versions.
    private static byte[] read(String file) throws Unfit {
        try (InputStream in = new FileInputStream(new File(file))) {
            ByteArrayOutputStream out = new ByteArrayOutputStream();
            byte[] chunk = new byte[1 << 16];
            for (int read = in.read(chunk); read >= 0; read = in.read(chunk))
                out.write(chunk, 0, read);
            return out.toByteArray();
        } catch (IOException e) {
            throw new Unfit(file, "cannot be read: " + e.getMessage(), "Check its name and permissions");
        }
    }
}
