#include "pictures/thumbnail.h"

#include "pictures/formats.h"

#include <algorithm>

namespace tools {
namespace {

constexpr int kLeastColumns = 160, kGap = 4;

// Means over blocks of pixels, in their place.
void Place(const Picture& tPicture, int nFirst, Picture& tThumbnail) {
    const int nBlock = std::max(1, tPicture.nColumns / kLeastColumns);
    for (int y = 0; y < tPicture.nRows / nBlock; ++y)
        for (int x = 0; x < tPicture.nColumns / nBlock; ++x) {
            int nSum = 0;
            for (int i = 0; i < nBlock * nBlock; ++i)
                nSum += tPicture.aGrey[std::size_t(y * nBlock + i / nBlock) * std::size_t(tPicture.nColumns) +
                                       std::size_t(x * nBlock + i % nBlock)];
            tThumbnail.aGrey[std::size_t(y) * std::size_t(tThumbnail.nColumns) + std::size_t(nFirst + x)] =
                static_cast<unsigned char>(nSum / (nBlock * nBlock));
        }
}

PictureSize Reduced(const Picture& tPicture) {
    const int nBlock = std::max(1, tPicture.nColumns / kLeastColumns);
    return {tPicture.nColumns / nBlock, tPicture.nRows / nBlock};
}

} // namespace

std::string ThumbnailOf(const Picture& tLeft, const Picture& tRight) {
    const PictureSize tFirst = Reduced(tLeft), tSecond = Reduced(tRight);
    Picture t = {
        "thumbnail", tFirst.nColumns + kGap + tSecond.nColumns, std::max(tFirst.nRows, tSecond.nRows), {}};
    t.aGrey.resize(std::size_t(t.nColumns) * std::size_t(t.nRows));
    Place(tLeft, 0, t);
    Place(tRight, tFirst.nColumns + kGap, t);
    return EncodePng(t);
}

} // namespace tools
