#include "reading/words.h"

#include <fmt/format.h>

namespace tools {

std::string NameOfSide(std::size_t nSide) {
    return fmt::format("the {} side", kSides[nSide].szKey);
}

std::string NameOfLine(std::size_t nLine) {
    if (nLine >= kHalfSides)
        return nLine == kHorizontalBar ? "the horizontal bar" : "the vertical bar";
    constexpr const char* kHalves[2][2] = {{"upper", "lower"}, {"left", "right"}};
    return fmt::format("{}'s {} half", NameOfSide(nLine / 2),
                       kHalves[kSides[nLine / 2].bAlongRows][nLine % 2]);
}

std::string DescribeMissing(const ReadingOutcome& tOutcome) {
    switch (tOutcome.tReason) {
    case NoReading::kNoContrast:
        return "the picture is blank, or so pale that noise hides the chart. Check light and exposure, and "
               "that nothing covers the lens";
    case NoReading::kInverted:
        return "the picture is inverted, with bright lines on dark paper. Take it as the camera sees it, not "
               "its negative";
    case NoReading::kNoFrame:
        return "no whole frame of the chart's shape is in view: it is cut off, larger than the picture, or "
               "covered. Aim at the chart's middle, move away from a chart that is larger than the picture, "
               "and remove what covers it";
    case NoReading::kFrameCut:
        return "the picture's border cuts the frame off. Aim at the chart's middle, or move away from it";
    case NoReading::kFrameOnSide:
        return "the frame stands on its side. Turn the picture by a quarter, as the module stands in the "
               "phone";
    case NoReading::kSideHidden:
        return fmt::format("too little of {} is to be seen. Bring all of the frame into view, with paper "
                           "around it, and remove what covers it",
                           tOutcome.oLine ? NameOfLine(*tOutcome.oLine) : "the frame");
    case NoReading::kNoCross:
        return "there is no cross in the middle of the frame, or too little of it is to be seen. Remove what "
               "covers it";
    }
    return "";
}

} // namespace tools
