#pragma once

#include "support/plane.h"

#include <vector>

namespace support {

// Pictures that get as far as one failure point of the pipeline, for either camera.

inline Plane Paper() {
    return {1728, 972, ubPaper};
}

// A stroke of slope nPer100 / 100 from (x1, y1) to column x2.
inline Plane Stroke(Plane t, int x1, int y1, int x2, int nPer100, int nThickness) {
    for (int x = x1; x <= x2; ++x)
        t.Fill(x, y1 + (x - x1) * nPer100 / 100, x, y1 + (x - x1) * nPer100 / 100 + nThickness - 1, ubInk);
    return t;
}

// A slanting stroke makes the rows dense on the first pass; it leaves the window on the second, which follows
// the fullest column to the right.
inline Plane RowsDenseOnFirstPassOnly() {
    return Stroke(Paper(), 480, 270, 700, 100, 4)
        .Fill(712, 400, 1240, 409, ubInk)
        .Fill(1100, 385, 1110, 424, ubInk);
}

// The same with a vertical bar below the centre that keeps the rows dense, beyond a gap.
inline Plane CentreAboveRows() {
    return RowsDenseOnFirstPassOnly()
        .Fill(1100, 385, 1110, 399, ubPaper)
        .Fill(1100, 410, 1110, 424, ubPaper)
        .Fill(1100, 440, 1110, 640, ubInk);
}

// The vertical bar widens, near its upper end, beyond its band. The columns there are alternately 0 and 1, so
// that both edges at the band's borders are extrapolated far to the left: the mean column is negative.
inline Plane ColumnBarOutside(int nFirstOneRight = 140) {
    Plane t(480, 300, 255);
    t.Fill(30, 146, 250, 155, 0).Fill(134, 84, 139, 216, 0).Fill(60, 91, 210, 107, 0);
    for (const int nFirstOne : {60, nFirstOneRight})
        for (int x = nFirstOne; x < nFirstOne + 72; x += 2)
            t.Fill(x, 91, x, 107, 1);
    return t;
}

// The same with the bars' roles exchanged; the band's far border then is an odd line.
inline Plane RowBarOutside() {
    Plane tColumns = ColumnBarOutside(141), t(300, 480, 0);
    for (int y = 0; y < t.nRows; ++y)
        for (int x = 0; x < t.nColumns; ++x)
            t.At(x, y) = tColumns.At(y, x);
    return t;
}

// Dark lines at the top border catch the frame search there; the horizontal bar's ends lie so high that no
// row is left between the frame's inner top and the centre. Its middle hangs lower, where the first pass
// looks.
inline Plane CentreAtFramesTop() {
    Plane t(1100, 205, ubPaper);
    t.Fill(400, 37, 450, 42, ubInk).Fill(450, 50, 650, 62, ubInk).Fill(650, 37, 700, 42, ubInk);
    t.Fill(547, 2, 553, 150, ubInk);
    t.Fill(80, 0, 120, 1, ubInk).Fill(980, 0, 1020, 1, ubInk);         // above the search's start points
    t.Fill(80, 203, 120, 204, ubInk).Fill(980, 203, 1020, 204, ubInk); // below them
    return t.Fill(20, 0, 40, 204, ubInk).Fill(1060, 0, 1080, 204, ubInk);
}

// A vertical side that does not reach the corner gives the horizontal scan nothing that ends.
inline Plane WithoutLeftTop() {
    return UprightChart().Fill(260, 168, 290, 240, ubPaper);
}
inline Plane WithoutRightDown() {
    return UprightChart().Fill(1440, 730, 1470, 804, ubPaper);
}

// One for each failure point, in the pipeline's order.
inline std::vector<Plane> FailingCharts() {
    return {Paper(), // 0x1010006
                     // 0x1010008: every column is dense, but no row holds more than 20 dark pixels.
            Stroke(Paper(), 600, 380, 1100, 40, 5),
            // 0x1010009: the vertical bar stands left of the horizontal one, with a gap between them.
            Paper().Fill(600, 310, 609, 660, ubInk).Fill(700, 480, 1000, 489, ubInk),
            // 0x101000A, 0x101000B: one end of the bar lies so far aside that its lines have nothing dark
            // near the other end's.
            UprightChart().Fill(520, 470, 640, 500, ubPaper).Fill(530, 300, 640, 312, ubInk),
            UprightChart().Fill(1088, 470, 1210, 500, ubPaper).Fill(1088, 300, 1198, 312, ubInk),
            RowBarOutside(),            // 0x101000E
            RowsDenseOnFirstPassOnly(), // 0x101000F
            // 0x1010011: a slanting stroke instead of a vertical bar: rows are dense, no column holds more
            // than 20.
            Stroke(Paper(), 760, 320, 1060, 100, 4).Fill(560, 480, 1198, 489, ubInk),
            CentreAboveRows(), // 0x1010012
            // 0x1010013, 0x1010014: as for the other bar.
            UprightChart().Fill(850, 300, 880, 370, ubPaper).Fill(600, 312, 612, 370, ubInk),
            UprightChart().Fill(850, 600, 880, 670, ubPaper).Fill(600, 600, 612, 660, ubInk),
            ColumnBarOutside(), // 0x1010016
            // 0x101001A to 0x101001D: a corner of the frame is missing.
            UprightChart().Fill(0, 0, 500, 200, ubPaper), UprightChart().Fill(0, 700, 500, 971, ubPaper),
            UprightChart().Fill(1300, 0, 1727, 200, ubPaper),
            UprightChart().Fill(1300, 700, 1727, 971, ubPaper),
            CentreAtFramesTop(), // 0x101001E
            // 0x101001F: the top side ends short of its left corner, where the stripes lie.
            UprightChart().Fill(440, 150, 800, 175, ubPaper),
            // 0x101001F to 0x1010022
            WithoutLeftTop(), UprightChart().Fill(1440, 168, 1470, 240, ubPaper),
            UprightChart().Fill(260, 730, 290, 804, ubPaper), WithoutRightDown()};
}

} // namespace support
