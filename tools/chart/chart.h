#pragma once

namespace chart {

// The printed chart: a dark cross at the origin, a dark rectangular frame around it. Lengths are in chart
// units, X to the right, Y down, origin at the centre of the cross; grey levels are those of an evenly lit,
// noise-free picture. Negative lengths count as 0.
struct Chart {
    double dDistance = 600.0; // from the camera's centre to the chart plane, along the plane's normal

    double dFrameHalfWidth = 186.75;  // origin to the centre line of the frame's left and right side
    double dFrameHalfHeight = 102.75; // origin to the centre line of its top and bottom side
    double dFrameLineWidth = 4.0;

    double dHorizontalBarHalfLength = 105.0;
    double dHorizontalBarWidth = 4.0;
    double dVerticalBarHalfLength = 55.0;
    double dVerticalBarWidth = 4.0;

    double dInk = 40.0;
    double dPaper = 200.0;
};

} // namespace chart
