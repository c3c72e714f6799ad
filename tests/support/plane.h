#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace support {

// A plane to paint on; rectangles are inclusive and cut at the border.
struct Plane {
    int nColumns;
    int nRows;
    std::vector<unsigned char> aPixels;

    Plane(int nPlaneColumns, int nPlaneRows, unsigned char ubGrey)
        : nColumns(nPlaneColumns), nRows(nPlaneRows),
          aPixels(static_cast<std::size_t>(nPlaneColumns) * static_cast<std::size_t>(nPlaneRows), ubGrey) {}

    unsigned char& At(int x, int y) {
        return aPixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(nColumns) +
                       static_cast<std::size_t>(x)];
    }

    Plane& Fill(int x1, int y1, int x2, int y2, unsigned char ubGrey) {
        for (int y = std::max(y1, 0); y <= std::min(y2, nRows - 1); ++y)
            for (int x = std::max(x1, 0); x <= std::min(x2, nColumns - 1); ++x)
                At(x, y) = ubGrey;
        return *this;
    }

    unsigned char* Data() { return aPixels.data(); }
    unsigned int Columns() const { return static_cast<unsigned int>(nColumns); }
    unsigned int Rows() const { return static_cast<unsigned int>(nRows); }
};

constexpr unsigned char ubPaper = 200, ubInk = 40;

// An upright chart without noise on the default picture: cross bars 13 px wide around (864, 486), frame line
// 13 px wide with its centre 591 px beside and 325 px above and below it.
inline Plane UprightChart() {
    Plane t(1728, 972, ubPaper);
    t.Fill(267, 155, 1461, 817, ubInk).Fill(280, 168, 1448, 804, ubPaper);
    return t.Fill(530, 480, 1198, 492, ubInk).Fill(858, 312, 870, 660, ubInk);
}

} // namespace support
