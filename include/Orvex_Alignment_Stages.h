// libOrvex_Alignment: the stages of a measurement and the records they share.
//
// A host needs only Orvex_Alignment.h. The stages are exported for hosts that drive the pipeline themselves
// and for tools that look at its measurements. Order of a run, for the master and then the slave:
//
//   GetGValueFromRGB                              grey plane
//   DualCamAlign_BinaryImage                      \  twice: coarse centre (bRefine false),
//   DualCamAlign_CalculateIntersectionAndAngle    /  then sub-pixel centre and roll (bRefine true)
//   DualCamAlign_CalImageFrame                    frame rectangles
//   DualCamAlign_BinaryImageFrame                 frame binarisation
//   DualCamAlign_NewMeasure{LT,RT,LD,RD}Pnt       corner points
//   DualCamAlign_NewMeasureSquareLength           side lengths
//
// and once after both DualCamAlign_CoordinateTransfer and DualCamAlign_FirstResultJudgement.
//
// Planes are 8-bit, row-major, row stride equal to the width; grey planes hold intensities, binary planes 0
// (dark) and 255 (bright). A picture has sides of 1 to 65535 pixels and at most 2^31 - 1 pixels. Pixel
// convention: (0, 0) is the centre of the first pixel, x to the right, y down, angles in degrees. Every
// buffer stays its owner's; a stage frees its own scratch memory. A stage that is handed a null pointer or an
// unusable size, or that finds no memory, ends with its first failure status.
#ifndef ORVEX_ALIGNMENT_STAGES_H
#define ORVEX_ALIGNMENT_STAGES_H

#include "Orvex_Alignment.h"

#include <cstdint>

// An image point: column, row.
struct _POINTPOSITION {
    std::int32_t x;
    std::int32_t y;
};

// Slots of corner arrays: left-top, left-down, right-top, right-down.
enum OrvexCorner { ORVEX_LT, ORVEX_LD, ORVEX_RT, ORVEX_RD, ORVEX_CORNERS };

// Slots of side arrays: left (LT-LD), top (LT-RT), right (RT-RD), bottom (LD-RD).
enum OrvexSide { ORVEX_LEFT, ORVEX_TOP, ORVEX_RIGHT, ORVEX_BOTTOM, ORVEX_SIDES };

// Every tunable; DualCamAlign_LoadParameters_ForAndroid holds the defaults.
struct DualCamAlignParam {
    double dBinaryRatio_Master; // threshold of the centre search over the mean grey of its corner patches
    double dBinaryRatio_Slave;
    std::int32_t nFrameMargin_Master; // px around the frame's edges, outward and inward
    double dFrameParam0_Master;       // dark fraction, top and bottom bands of the frame
    double dFrameParam1_Master;       // bright fraction, top and bottom bands
    double dFrameParam2_Master;       // dark fraction, left and right bands
    double dFrameParam3_Master;       // bright fraction, left and right bands
    double dFrameParam4_Master;       // threshold's place between dark and bright level
    std::int32_t nFrameMargin_Slave;
    double dFrameParam0_Slave;
    double dFrameParam1_Slave;
    double dFrameParam2_Slave;
    double dFrameParam3_Slave;
    double dFrameParam4_Slave;
    float fSlaveShift;           // px, the slave's chart against the master's along one axis
    std::uint8_t bShiftAlongY;   // 1: along y, 0: along x
    std::uint8_t bUseSlaveShift; // 1: the slave's first search window follows the shift
    double dPixelScaleX_Slave;   // pixel scale of the top and bottom sides
    double dPixelScaleY_Slave;   // pixel scale of the left and right sides
    double dPixelScaleX_Master;
    double dPixelScaleY_Master;
    std::int32_t nChartDistance;    // cameras to chart, chart units
    std::int32_t nParamState;       // read by no stage
    double dSearchWidthRatio_Slave; // search window over picture width
    double dSearchWidthRatio_Master;
    double dSearchHeightRatio_Slave; // search window over picture height
    double dSearchHeightRatio_Master;
    std::int32_t anReservedParam[4];  // read by no stage
    std::int32_t nFrameOffsetX_Slave; // px from the cross's centre to the start of the frame search
    std::int32_t nFrameOffsetX_Master;
    std::int32_t nFrameOffsetY_Slave;
    std::int32_t nFrameOffsetY_Master;
    std::int32_t nParamReserved0; // read by no stage
    std::int32_t nParamReserved1;
    double dChartHalfSpanX;            // half the distance of the frame's left and right sides, chart units
    double dChartHalfSpanY;            // half the distance of its top and bottom sides
    std::uint32_t nSensorWidth_Master; // sensor extents, px
    std::uint32_t nSensorHeight_Master;
    std::uint32_t nSensorWidth_Slave;
    std::uint32_t nSensorHeight_Slave;
};

// Every measurement of a run. Lengths and positions in px, angles in degrees; zero until its stage ran.
struct DualCamAlignData {
    double dRz;                          // result: slave's roll minus master's
    std::uint8_t bInitFlag0, bInitFlag1; // read by no stage
    double dCrossAngle_Master;           // roll of the cross, positive with its right end higher
    double dCrossAngle_Slave;
    float afTransferredCenter[2]; // the master's centre mapped into the slave's picture, x, y
    float afCrossCenter_Slave[2]; // sub-pixel centre of the cross, x, y
    float afCrossCenter_Master[2];
    float afFrameExtentCopy_Master[2]; // coordinate transfer: copy of afFrameExtent_Master
    double dFrameExtentNorm_Slave;     // coordinate transfer: lengths of both extents
    double dFrameExtentNorm_Master;
    double dTransferScale;        // slave's length over master's
    float afFrameExtent_Slave[2]; // mean width and height of the frame along its diagonals
    float afFrameExtent_Master[2];
    double dBinaryThreshold_Master; // grey threshold of the latest centre search
    double dBinaryThreshold_Slave;
    double adFrameThreshold_Master[ORVEX_CORNERS][2]; // grey threshold per corner; [0] top or bottom band,
    double adFrameThreshold_Slave[ORVEX_CORNERS][2];  // [1] left or right band
    float afCornerPoint_Master[ORVEX_CORNERS][2];     // x, y
    float afCornerPoint_Slave[ORVEX_CORNERS][2];
    double adSideLength_Master[ORVEX_SIDES];
    double adSideLength_Slave[ORVEX_SIDES];
    float afFrameDiagonal_Master[2]; // LT-RD, RT-LD
    float afFrameDiagonal_Slave[2];
    float fDiagonalRatio_Master; // first diagonal over second
    float fDiagonalRatio_Slave;
    double dTiltX_Master, dTiltY_Master; // each camera's own tilts
    double dTiltX_Slave, dTiltY_Slave;
    double dRx, dRy;                // results: slave's tilts minus master's
    std::int32_t nCrossSpanX_Slave; // columns of the horizontal bar in the search window
    std::int32_t nCrossSpanX_Master;
    double dCrossAux0_Slave, dCrossAux0_Master; // written by no stage
    double dCrossAux1_Slave, dCrossAux1_Master;
    double dCrossAux2_Slave, dCrossAux2_Master;
    std::uint8_t bInitFlag2, bInitFlag3; // read by no stage
    float afCrossCenterCopy_Master[2];   // the centres again, for the autofocus record
    float afCrossCenterCopy_Slave[2];
};

struct DualCamAlignView {
    std::uint32_t anViewOption[8]; // read by no stage
    unsigned char* pGreenBuffer;   // working buffer of the latest run: grey, binary and spare plane, each of
                                   // the larger picture's pixel count; valid until the next run begins; what
                                   // a run that failed early did not write may be an earlier run's
    std::int32_t nWidth_Master;
    std::int32_t nHeight_Master;
    std::int32_t nWidth_Slave;
    std::int32_t nHeight_Slave;
};

struct DualCamAlignTested {
    std::uint8_t aubTested[18]; // cleared by DualCamAlign_Initial, read by no stage
};

extern ORVEX_API DualCamAlignParam m_tDualCamAlignParam;
extern ORVEX_API DualCamAlignData m_tDualCamAlignData;
extern ORVEX_API DualCamAlignView m_pCMainView;
extern ORVEX_API DualCamAlignTested m_tTested;

// Loads every default into m_tDualCamAlignParam and returns its address; fields without default stay.
ORVEX_API DualCamAlignParam* DualCamAlign_LoadParameters_ForAndroid();

// Clears m_tDualCamAlignData and m_tTested and sets the flags and options that no stage reads.
ORVEX_API void DualCamAlign_Initial();

// Runs every stage on both pictures (sizes in m_pCMainView) and leaves the measurements in
// m_tDualCamAlignData. Returns 0 or the first failing stage's status after one line on standard output.
ORVEX_API unsigned int DualCamAlign_Calculation(unsigned char* pMasterRGB, unsigned char* pSlaveRGB);

// Computes the three angles and both cameras' tilts from m_tDualCamAlignData. Always 0; sides of no length
// give NaN.
ORVEX_API unsigned int DualCamAlign_FirstResultJudgement();

// Copies the first nWidth x nHeight bytes of the picture, as they stand, into the grey plane. The count is a
// 32-bit signed product; nothing is copied if it is not positive.
ORVEX_API void GetGValueFromRGB(unsigned char* pSrc, long nWidth, long nHeight, unsigned char* pDst);

// Binarises the search window around the picture's centre (bRefine false; the slave's follows fSlaveShift)
// or around pCenter (bRefine true); all else becomes white. dWidthRatio and dHeightRatio: window over
// picture. pPoints takes no part. Stores the camera's dBinaryThreshold. Returns 1, or 0 for unusable
// arguments or no memory.
ORVEX_API int DualCamAlign_BinaryImage(unsigned char* pImage, int nWidth, int nHeight, double dBinaryRatio,
                                       int (*pPoints)[2], unsigned char* pBinary, double dWidthRatio,
                                       double dHeightRatio, bool bMaster, unsigned short* pCenter,
                                       bool bRefine);

// Finds the cross in the binary plane's search window. First pass (bRefine false): writes the coarse centre,
// whole pixels x, y, to pCenter. Second pass: reads it and writes *pAngle (degrees), pCenterOut[2] (px),
// *pSpan (columns) and the camera's afCrossCenterCopy. pAux0 to pAux2 are left alone. Returns 0 or 0x1010006
// to 0x1010016.
ORVEX_API unsigned int DualCamAlign_CalculateIntersectionAndAngle(
    unsigned char* pBinary, unsigned char* pImage, int nWidth, int nHeight, double* pAngle, float* pCenterOut,
    int* pSpan, double* pAux0, double* pAux1, double* pAux2, double dWidthRatio, double dHeightRatio,
    bool bMaster, unsigned short* pCenter, bool bRefine);

// Sorts nCount values in descending order, equal values in their old order, and moves pIndex along.
ORVEX_API void bubblesort(double* pValues, unsigned short* pIndex, int nCount);

// Finds the frame's edges around the cross's centre and returns the outer and the inner rectangle between
// which they lie. nMaster: 1 master, 0 slave, any other value the slave's margin with the master's offsets.
// Returns 0, or 0x101001A to 0x101001D with the points untouched.
ORVEX_API int DualCamAlign_CalImageFrame(unsigned char* pGray, unsigned int nImageWidth,
                                         unsigned int nImageHeight, int nCenterX, int nCenterY,
                                         _POINTPOSITION* pOuterLT, _POINTPOSITION* pOuterRD,
                                         _POINTPOSITION* pInnerLT, _POINTPOSITION* pInnerRD, int nMaster);

// Thresholds the ring between the rectangles in eight pieces, blackens their dark pixels in the binary plane
// and stores the camera's adFrameThreshold (nMaster: 1 master, else slave). Returns 0 or 0x101001E, which
// leaves the pieces before the failing one written.
ORVEX_API int DualCamAlign_BinaryImageFrame(unsigned char* pGray, unsigned char* pBinary,
                                            unsigned int nImageWidth, unsigned int nImageHeight, int nCenterX,
                                            int nCenterY, _POINTPOSITION ptOuterLT, _POINTPOSITION ptOuterRD,
                                            _POINTPOSITION ptInnerLT, _POINTPOSITION ptInnerRD, int nMaster);

// One corner each: fits the two sides that meet there and stores their crossing in the camera's
// afCornerPoint (nMaster: 0 slave, else master). Both cameras are measured with the master's frame
// thresholds, on purpose. Returns 0, 0x101001F (LT, or a failed stripe at any corner), 0x1010020 (RT),
// 0x1010021 (LD) or 0x1010022 (RD); the corner is then left as it was.
ORVEX_API unsigned int DualCamAlign_NewMeasureLTPnt(unsigned char* pBinary, unsigned char* pGray,
                                                    unsigned int nImageWidth, unsigned int nImageHeight,
                                                    int nCenterX, int nCenterY, _POINTPOSITION ptOuterLT,
                                                    _POINTPOSITION ptOuterRD, _POINTPOSITION ptInnerLT,
                                                    _POINTPOSITION ptInnerRD, int nMaster);
ORVEX_API unsigned int DualCamAlign_NewMeasureRTPnt(unsigned char* pBinary, unsigned char* pGray,
                                                    unsigned int nImageWidth, unsigned int nImageHeight,
                                                    int nCenterX, int nCenterY, _POINTPOSITION ptOuterLT,
                                                    _POINTPOSITION ptOuterRD, _POINTPOSITION ptInnerLT,
                                                    _POINTPOSITION ptInnerRD, int nMaster);
ORVEX_API unsigned int DualCamAlign_NewMeasureRDPnt(unsigned char* pBinary, unsigned char* pGray,
                                                    unsigned int nImageWidth, unsigned int nImageHeight,
                                                    int nCenterX, int nCenterY, _POINTPOSITION ptOuterLT,
                                                    _POINTPOSITION ptOuterRD, _POINTPOSITION ptInnerLT,
                                                    _POINTPOSITION ptInnerRD, int nMaster);
ORVEX_API unsigned int DualCamAlign_NewMeasureLDPnt(unsigned char* pBinary, unsigned char* pGray,
                                                    unsigned int nImageWidth, unsigned int nImageHeight,
                                                    int nCenterX, int nCenterY, _POINTPOSITION ptOuterLT,
                                                    _POINTPOSITION ptOuterRD, _POINTPOSITION ptInnerLT,
                                                    _POINTPOSITION ptInnerRD, int nMaster);

// Side lengths, diagonals and their ratio from the camera's corner points; pfExtent[2] receives the mean
// width and height. Always 0.
ORVEX_API unsigned int DualCamAlign_NewMeasureSquareLength(float* pfExtent, bool bMaster);

// Maps nCount points, consecutive x, y pairs, from the master's picture into the slave's: scaled about the
// picture centres by the frames' sizes, then moved by fSlaveShift. Updates the scale even without points.
ORVEX_API void DualCamAlign_CoordinateTransfer(float* pfSrc, float* pfDst, int nCount);

#endif
