#include "support/plane.h"
#include "trust/warnings.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>

using namespace tools;

namespace {

constexpr Point tFrom = {30.3, 60.2}, tTo = {330.7, 71.4}; // slanted, between pixels
constexpr double dHalfLine = 4.25, dDark = 50, dBright = 180;

// A dark line with soft edges, dShift px beside the straight line at each share of the way.
Picture Line(const std::function<double(double)>& Shift, double dLineDark = dDark) {
    Picture t = {"line", 360, 130, std::vector<unsigned char>(360 * 130)};
    const double dLength = std::hypot(tTo.dX - tFrom.dX, tTo.dY - tFrom.dY);
    const Point u = {(tTo.dX - tFrom.dX) / dLength, (tTo.dY - tFrom.dY) / dLength};
    for (int y = 0; y < t.nRows; ++y)
        for (int x = 0; x < t.nColumns; ++x) {
            const double dX = x - tFrom.dX, dY = y - tFrom.dY, dAlong = (dX * u.dX + dY * u.dY) / dLength;
            const double dOff = std::fabs(dY * u.dX - dX * u.dY - Shift(dAlong)) - dHalfLine;
            const double dShare = 1 / (1 + std::exp(-2 * dOff));
            t.aGrey[static_cast<std::size_t>(y * t.nColumns + x)] =
                static_cast<unsigned char>(std::lround(std::lerp(dLineDark, dBright, dShare)));
        }
    return t;
}

// The upright chart's frame moved, with its corners where a measurement would find them.
struct Frame {
    Picture tPicture;
    CameraMeasurement tMeasured;
};

Frame FrameAt(int nLeft, int nTop, unsigned char ubInk) {
    support::Plane t(800, 500, support::ubPaper);
    t.Fill(nLeft, nTop, nLeft + 612, nTop + 412, ubInk)
        .Fill(nLeft + 13, nTop + 13, nLeft + 599, nTop + 399, support::ubPaper);
    const double dL = nLeft + 6, dT = nTop + 6, dR = nLeft + 606, dB = nTop + 406;
    Frame tFrame = {{"frame", 800, 500, t.aPixels}, {}};
    tFrame.tMeasured.aoCorners = {Point{dL, dT}, Point{dR, dT}, Point{dL, dB}, Point{dR, dB}};
    return tFrame;
}

} // namespace

TEST(SideReading, ResidualIsTheRmsDistanceFromTheFittedLine) {
    const struct {
        const char* szWhat;
        std::function<double(double)> Shift;
        double dResidual, dFirst, dLast; // the line's distance from the corners
    } aCases[] = {
        {"straight", [](double) { return 0.0; }, 0, 0, 0},
        {"beside its corners", [](double) { return -0.7; }, 0, 0.7, 0.7},
        {"slanted", [](double d) { return 3 * d; }, 0, 0, 3},
        {"waves", [](double d) { return std::sin(60 * d); }, std::sqrt(0.5), 0, 0},
    };
    for (const auto& t : aCases) {
        SCOPED_TRACE(t.szWhat);
        const SideReading r = ReadSide(Line(t.Shift), tFrom, tTo);
        EXPECT_GT(r.nLines, 30);
        EXPECT_EQ(r.nRead, r.nLines);
        ASSERT_TRUE(r.oResidual);
        EXPECT_NEAR(*r.oResidual, t.dResidual, 0.02 + 0.03 * t.dResidual);
        EXPECT_NEAR(Distance((*r.oEnds)[0], tFrom), t.dFirst, 0.05 + 0.1 * t.dResidual);
        EXPECT_NEAR(Distance((*r.oEnds)[1], tTo), t.dLast, 0.05 + 0.1 * t.dResidual);
        EXPECT_NEAR(*r.oWidth, 2 * dHalfLine, 0.1);
        EXPECT_NEAR(*r.oDark, dDark, 1);
        EXPECT_NEAR(*r.oBright, dBright, 1);
    }
}

TEST(SideReading, LinesWithoutAnEndedDarkRunDoNotCount) {
    const auto Straight = [](double) { return 0.0; };
    const auto HalfGone = [](double d) { return d < 0.5 ? 0.0 : 1000.0; };
    const SideReading tHalf = ReadSide(Line(HalfGone), tFrom, tTo);
    EXPECT_NEAR(tHalf.nRead, tHalf.nLines / 2.0, 2);
    EXPECT_LT(*tHalf.oResidual, 0.03) << "only what was read counts";

    const double dNan = std::numeric_limits<double>::quiet_NaN();
    const std::pair<Picture, Point> aUnread[] = {
        {Line(Straight, dBright - 5), tTo}, // no ink
        {Line(Straight), tFrom},
        {Line(Straight), {tFrom.dX + 1e12, 0}},
        {Line(Straight), {dNan, dNan}},
        {{"dot", 1, 1, {120}}, tTo},
    };
    for (const auto& [tPicture, tEnd] : aUnread)
        EXPECT_FALSE(ReadSide(tPicture, tFrom, tEnd).oResidual) << tEnd.dX;
}

TEST(Trust, WarningsNameSideValueAndLimitAsFarAsTheStagesCame) {
    const Rectangle tWindow = {200, 100, 600, 400}, tStart = {150, 100, 650, 400};
    const Frame tGood = FrameAt(90, 40, support::ubInk);
    Frame tUnmeasured = FrameAt(170, 50, 165);
    tUnmeasured.tMeasured.aoCorners = {};
    const std::vector<std::string>
        aPaleSides = {"low_contrast slave camera, left, top, right, bottom sides: at worst low contrast"},
        aOnly17 = {"frame_near_border slave camera: the frame is only 17"};
    const struct {
        const char* szWhat;
        Frame tFrame;
        StageView tView;
        std::vector<std::vector<std::string>> aWarnings; // of each its beginning, and other parts
        std::optional<double> oBorder = {};
    } aCases[] = {
        {"good", tGood, {}, {}, 40},
        {"near",
         FrameAt(170, 50, support::ubInk),
         {},
         {{"frame_near_border", "only 17.0 px", "border", "20 px"}},
         17},
        // The line across the left side ends at the border on one side.
        {"cut",
         FrameAt(-4, 50, support::ubInk),
         {},
         {{"few_lines", ", left side", "show the frame"}, {"frame_touches_border", "touches"}},
         -4},
        {"pale", FrameAt(90, 40, 165), {}, {{aPaleSides[0], "dark 165", "bright 200", "70"}}, 40},
        {"nothing", tUnmeasured, {}, {}},
        {"no cross",
         tUnmeasured,
         {tWindow, {}, 120.0, {}, {}, {}, {}},
         {{"low_cross_contrast slave camera, cross: low contrast, dark 200"}}},
        {"no frame",
         tUnmeasured,
         {{}, {}, {}, Rectangle{300, 100, 650, 400}, {}, {}, {}},
         {aPaleSides, aOnly17}},
        {"no corners",
         tUnmeasured,
         {{}, {}, {}, tStart, {}, {}, Rectangle{182, 64, 770, 450}},
         {aPaleSides, aOnly17}},
        {"pale cross",
         tGood,
         {Rectangle{60, 100, 150, 400}, {}, 20.0, {}, {}, {}, {}},
         {{"pale_cross slave camera, cross: too pale"}},
         40},
    };
    for (const auto& t : aCases) {
        SCOPED_TRACE(t.szWhat);
        const CameraTrust tTrust = TrustOf(t.tFrame.tPicture, {t.tFrame.tMeasured, t.tView, {}}, {}, false);
        if (t.oBorder) {
            EXPECT_NEAR(tTrust.oBorderDistance.value_or(1e9), *t.oBorder, 0.1);
        }
        const std::vector<Warning> a = WarningsOf(Camera::kSlave, tTrust);
        ASSERT_EQ(a.size(), t.aWarnings.size());
        for (std::size_t i = 0; i < a.size(); ++i) {
            const std::string strKey = KeyOf(JsonOf(a[i])), strTold = strKey + " " + a[i].strText;
            EXPECT_TRUE(GeneralText(strKey)) << strTold;
            EXPECT_TRUE(strTold.starts_with("slave:" + t.aWarnings[i][0])) << strTold;
            for (const std::string& strPart : t.aWarnings[i])
                EXPECT_NE(strTold.find(strPart), std::string::npos) << strPart << " in " << strTold;
        }
    }
    Frame tBent = FrameAt(90, 40, support::ubInk);
    tBent.tMeasured.aoCorners[3]->dY += 3; // right down: its two sides no longer follow the picture's
    tBent.tMeasured.aoCorners[0].reset();  // the other two cannot be read
    const std::vector<Warning> a =
        WarningsOf(Camera::kMaster, TrustOf(tBent.tPicture, {tBent.tMeasured, {}, {}}, {}, true));
    ASSERT_EQ(a.size(), 1u);
    EXPECT_TRUE(a[0].strText.starts_with("master camera, bottom side: its right down corner lies 3.0"))
        << a[0].strText;
}
