#pragma once

#include "basics/geometry.h"

namespace chart {

// A distortion-free pinhole camera. Pixel coordinates: (0, 0) is the centre of the first pixel, x to the
// right, y down. Focal length and principal point are in pixels.
struct Camera {
    int nWidth = 1728;
    int nHeight = 972;
    double dFocal = 1900.0;
    double dPrincipalX = 863.5;
    double dPrincipalY = 485.5;
};

// Rotation of the camera in degrees, with the signs a measurement reports:
//   dRx > 0: the frame's top side appears shorter than its bottom side;
//   dRy > 0: its left side appears longer than its right side;
//   dRz > 0: the right end of the horizontal bar appears higher than its left end.
// Good for at least +-45 degrees about each axis.
using Pose = tools::Angles;

// 1728 x 972, focal length 1900, principal point in the picture's centre.
Camera DefaultMaster();

// As the master, but with the principal point 24.217 px higher: the two cameras see the chart at different
// heights, as two modules in one housing do.
Camera DefaultSlave();

// The same field of view on a picture of another size: focal length and the principal point's offset from
// the picture's centre shrink or grow by the smaller of the two size ratios, so that nothing seen before
// leaves the picture. Widths and heights from 1.
Camera ScaledTo(const Camera& tCamera, int nWidth, int nHeight);

} // namespace chart
