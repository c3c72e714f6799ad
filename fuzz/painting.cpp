#include "painting.h"

#include "chart/render.h"

#include <cstring>
#include <map>

namespace fuzz {
namespace {

// Cheaper than the renderer's noise, and enough to be irregular.
class Grain {
public:
    explicit Grain(int nSeed) : m_n(static_cast<std::uint32_t>(nSeed) | 1u) {}
    int Next(int nRange) {
        m_n ^= m_n << 13 & 0xFFFFFFFFu;
        m_n ^= m_n >> 17;
        m_n ^= m_n << 5 & 0xFFFFFFFFu;
        return static_cast<int>(m_n >> 8) % nRange;
    }

private:
    std::uint32_t m_n;
};

unsigned char Clamped(int n) {
    return static_cast<unsigned char>(std::clamp(n, 0, 255));
}

constexpr std::array<chart::Pose, 6> atPoses = {
    {{0, 0, 0}, {0.6, -0.4, 0.8}, {-1.5, 1.2, -1.4}, {0, 0, 3.7}, {4, -6, 0.1}, {0.1, 0.1, -9}}};

std::vector<std::uint8_t> RenderView(const View& t, const chart::Pose& tPose) {
    chart::Chart tChart;
    chart::Camera tCamera = {t.nColumns, t.nRows, 0, (t.nColumns - 1) / 2.0, (t.nRows - 1) / 2.0};
    tChart.dDistance = tCamera.dFocal = 600; // a unit is a pixel
    tChart.dFrameHalfWidth = t.dFrameHalfWidth;
    tChart.dFrameHalfHeight = t.dFrameHalfHeight;
    tChart.dHorizontalBarHalfLength = t.nColumns * 0.2;
    tChart.dVerticalBarHalfLength = t.nRows * 0.2;
    tChart.dFrameLineWidth = tChart.dHorizontalBarWidth = tChart.dVerticalBarWidth = 9;
    return chart::Render(tChart, tCamera, tPose);
}

const std::vector<std::uint8_t>& Kept(const View& t, int nPose) {
    static std::map<std::pair<int, int>, std::vector<std::uint8_t>> aKept;
    std::vector<std::uint8_t>& a = aKept[{t.nColumns, nPose}];
    if (a.empty())
        a = RenderView(t, atPoses[static_cast<std::size_t>(nPose)]);
    return a;
}

// The view's pixels moved by (dx, dy); paper where they leave the plane bare.
void Place(const View& tView, const std::vector<std::uint8_t>& aView, int dx, int dy, Plane& t) {
    const int x1 = std::max(dx, 0), x2 = std::min(dx + tView.nColumns, t.nColumns);
    for (int y = std::max(dy, 0); y < std::min(dy + tView.nRows, t.nRows) && x1 < x2; ++y)
        std::memcpy(&t.At(x1, y), &aView[static_cast<std::size_t>((y - dy) * tView.nColumns + x1 - dx)],
                    static_cast<std::size_t>(x2 - x1));
}

void ChangeGreys(Input& tInput, Plane& t) {
    const int nGain = tInput.Around0(128), nOffset = tInput.Around0(200);
    std::array<unsigned char, 256> aub;
    for (int i = 0; i < 256; ++i)
        aub[static_cast<std::size_t>(i)] = Clamped(i * (128 + nGain) / 128 + nOffset);
    for (unsigned char& ub : t.aPixels)
        ub = aub[ub];
}

void AddNoise(Input& tInput, Plane& t) {
    const int nLevels = tInput.Int(1, 120);
    Grain tGrain(tInput.Int(0, 65535));
    for (unsigned char& ub : t.aPixels)
        ub = Clamped(ub + tGrain.Next(nLevels) - nLevels / 2);
}

} // namespace

void PaintPatches(Input& tInput, Plane& tPlane, int nMost) {
    for (int i = tInput.Int(0, nMost); i > 0; --i) {
        const int x = tInput.Int(-10, tPlane.nColumns), y = tInput.Int(-10, tPlane.nRows);
        const int nWidth = tInput.Int(1, tInput.OneIn(3) ? tPlane.nColumns : 40);
        const int nHeight = tInput.Int(1, tInput.OneIn(3) ? tPlane.nRows : 40);
        const int nKind = tInput.Int(0, 3);
        const unsigned char ubGrey = tInput.Byte();
        if (nKind < 2) {
            tPlane.Fill(x, y, x + nWidth - 1, y + nHeight - 1, ubGrey);
            continue;
        }
        Grain tGrain(ubGrey);
        for (int v = std::max(y, 0); v < std::min(y + nHeight, tPlane.nRows); ++v)
            for (int u = std::max(x, 0); u < std::min(x + nWidth, tPlane.nColumns); ++u)
                tPlane.At(u, v) = Clamped(nKind == 2 ? tGrain.Next(256) : 255 - tPlane.At(u, v));
    }
}

Plane PaintChart(Input& tInput, const View& tView) {
    const int nPose = tInput.Int(0, static_cast<int>(atPoses.size()) - 1);
    const bool bOtherSize = tInput.OneIn(4);
    const int nColumns = bOtherSize ? tInput.Int(1, tView.nColumns + 60) : tView.nColumns;
    const int nRows = bOtherSize ? tInput.Int(1, tView.nRows + 60) : tView.nRows;
    Plane t(nColumns, nRows, support::ubPaper);
    const bool bMoved = tInput.OneIn(2);
    const int dx = bMoved ? tInput.Around0(tView.nColumns / 2) : 0;
    const int dy = bMoved ? tInput.Around0(tView.nRows / 2) : 0;
    Place(tView, Kept(tView, nPose), dx, dy, t);
    if (tInput.OneIn(4))
        ChangeGreys(tInput, t);
    PaintPatches(tInput, t, 12);
    if (tInput.OneIn(4))
        AddNoise(tInput, t);
    return t;
}

Plane Binarised(const Plane& tGrey, unsigned char ubDarkest) {
    Plane t = tGrey;
    for (unsigned char& ub : t.aPixels)
        ub = ub <= ubDarkest ? 0 : 255;
    return t;
}

} // namespace fuzz
