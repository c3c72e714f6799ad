/* libOrvex_Alignment: entry points.
 *
 * One call, getAlign, measures the alignment chart (a dark cross inside a dark rectangular frame) in a
 * master and a slave picture and returns the slave camera's rotation against the master's.
 *
 * Pictures are 8-bit planes, row-major, rows top to bottom, row stride equal to the width.
 * Pixel convention: (0, 0) is the centre of the first pixel, x to the right, y down, angles in degrees.
 *
 * All state is global: one measurement at a time in a process, the host serialises its calls. Every call
 * starts from cleared state, so calls do not depend on one another. Nothing throws across this boundary.
 *
 * getAlign, getVersion and the globals can be used from C and bound by name; the other functions carry the
 * decorated names of their C++ signatures. The stages behind them are in Orvex_Alignment_Stages.h.
 */
#ifndef ORVEX_ALIGNMENT_H
#define ORVEX_ALIGNMENT_H

#define ORVEX_API __attribute__((visibility("default")))

#ifdef __cplusplus
extern "C" {
#endif

/* Status of a measurement, 32 bits. The first stage that fails ends the run and its status is returned
 * unchanged; which camera it was is told by the line on standard output. */
enum OrvexAlignmentStatus {
    ORVEX_OK = 0,

    /* Centre search: working memory or picture buffer unusable. Master, slave. */
    ORVEX_CENTRE_SEARCH_MASTER = 0x1010004,
    ORVEX_CENTRE_SEARCH_SLAVE = 0x1010005,

    /* Centre cross, horizontal bar. */
    ORVEX_CROSS_NO_COLUMN_RUN = 0x1010006,      /* no dense run of columns, a blank picture, or no memory */
    ORVEX_CROSS_NO_COLUMN_START = 0x1010007,    /* the run has no start; 0x1010006 is met first */
    ORVEX_CROSS_NO_ROW_BAND = 0x1010008,        /* no row near the centre holds more than 20 dark pixels */
    ORVEX_CROSS_COLUMNS_OFF_CENTRE = 0x1010009, /* the centre lies beside the run of columns */
    ORVEX_CROSS_LEFT_SAMPLE = 0x101000A,        /* a column near the bar's left end has no dark pixel */
    ORVEX_CROSS_RIGHT_SAMPLE = 0x101000B,       /* likewise near the right end */
    ORVEX_CROSS_NO_COLUMN_SAMPLES = 0x101000C,  /* no column to sample; earlier tests exclude it */
    ORVEX_CROSS_COLUMNS_COINCIDE = 0x101000D,   /* both means at one column; earlier tests exclude it */
    ORVEX_CROSS_ROW_BAR_OUTSIDE = 0x101000E,    /* a mean of the horizontal bar is negative */

    /* Centre cross, vertical bar. */
    ORVEX_CROSS_NO_ROW_RUN = 0x101000F,         /* no dense run of dark rows */
    ORVEX_CROSS_NO_ROW_START = 0x1010010,       /* the run has no start; 0x101000F is met first */
    ORVEX_CROSS_NO_COLUMN_BAND = 0x1010011,     /* no column near the centre holds more than 20 */
    ORVEX_CROSS_ROWS_OFF_CENTRE = 0x1010012,    /* the centre lies above or below the run of rows */
    ORVEX_CROSS_UPPER_SAMPLE = 0x1010013,       /* a row near the bar's upper end has no dark pixel */
    ORVEX_CROSS_LOWER_SAMPLE = 0x1010014,       /* likewise near the lower end */
    ORVEX_CROSS_NO_ROW_SAMPLES = 0x1010015,     /* no row to sample; earlier tests exclude it */
    ORVEX_CROSS_COLUMN_BAR_OUTSIDE = 0x1010016, /* a mean of the vertical bar is negative */

    /* Frame location: no edge found from the search's start point in one quadrant. */
    ORVEX_FRAME_UPPER_LEFT = 0x101001A,
    ORVEX_FRAME_LOWER_LEFT = 0x101001B,
    ORVEX_FRAME_UPPER_RIGHT = 0x101001C,
    ORVEX_FRAME_LOWER_RIGHT = 0x101001D,

    /* Frame binarisation: a piece of the ring around the frame is empty, leaves the picture or has no
     * threshold. */
    ORVEX_FRAME_THRESHOLD = 0x101001E,

    /* Corner points. A failed stripe gives 0x101001F at every corner. */
    ORVEX_CORNER_LEFT_TOP = 0x101001F,
    ORVEX_CORNER_STRIPE = 0x101001F,
    ORVEX_CORNER_RIGHT_TOP = 0x1010020,
    ORVEX_CORNER_LEFT_DOWN = 0x1010021,
    ORVEX_CORNER_RIGHT_DOWN = 0x1010022,

    /* Entry. */
    ORVEX_ENTRY_NULL_POINTER = 0x1020001, /* a picture, angle, calibration or record pointer is null */
    ORVEX_ENTRY_PICTURE_SIZE = 0x1020002, /* a side below 1 or above 65535, or over 2^31 - 1 pixels */
    ORVEX_ANGLE_OUT_OF_RANGE = 0x1020015, /* getAlign: an angle outside [-2.0, 2.0] after rescaling */

    /* Record reader (Orvex_SpecialAFDataTransform). */
    ORVEX_RECORD_NOT_DECRYPTED = 0x3010001,
    ORVEX_RECORD_CHECKSUM = 0x3010002,
    ORVEX_RECORD_OTHER_MODULE = 0x3010003
};

/* Sizes in pixels of the two pictures that getAlign measures. The host may set them before a call. */
extern ORVEX_API int nWidth;        /* 1728 */
extern ORVEX_API int nHeight;       /*  972 */
extern ORVEX_API int nWidth_Slave;  /* 1728 */
extern ORVEX_API int nHeight_Slave; /*  972 */

/* Exported for hosts that expect them; no function reads or writes them. */
extern ORVEX_API double Rx, Ry, Rz;

/* "v1313.47.10.02" with its terminating zero. */
extern ORVEX_API const char g_Orvex_Alignment_VERSION[15];

/* Version of the autofocus record: major, minor. */
extern ORVEX_API const unsigned char AF_ProtectVersion[2];

/* Bytes that the caller's pOutFile must hold: two version bytes and up to 500 bytes of container. */
#define ORVEX_OUT_FILE_CAPACITY 502

/* Calibration memory image: at least this many bytes. */
#define ORVEX_CALIBRATION_SIZE 2915

/* Measures one pair.
 *
 *   pMasterRGB, pSlaveRGB  pictures from malloc; getAlign takes ownership and frees both on every path. The
 *                          first width x height bytes are the 8-bit plane that is measured. Both may be
 *                          one buffer: a picture measured against itself.
 *   pRx, pRy, pRz          out: slave's rotation against the master, degrees, rescaled: with t the angle
 *                          truncated to an integer, angles with t = 0 (magnitude below 1.0) are kept, all
 *                          others are compressed toward +-0.2 by the factor 1.8 / 2.3. Written on success
 *                          and with 0x1020015.
 *   pCalibData             calibration memory, at least ORVEX_CALIBRATION_SIZE bytes; not kept.
 *   pOutFile               out, may be null: the bytes of the record file, up to ORVEX_OUT_FILE_CAPACITY;
 *                          a record made now has 194. Untouched if the record cannot be encrypted.
 *
 * Also writes "/sdcard/AFProtect.txt" (on failure an encrypted record of zeros; a full disk can leave a cut
 * one, which the reader refuses), one line to the Android log (tag "Test", priority 4; a second one of
 * priority 5 if the file could not be written) and diagnostic lines to standard output. Returns ORVEX_OK or
 * any status above but the record reader's. */
ORVEX_API unsigned int getAlign(unsigned char* pMasterRGB, unsigned char* pSlaveRGB, double* pRx, double* pRy,
                                double* pRz, unsigned char* pCalibData, unsigned short* pOutFile);

/* The library's version in a new 16-byte buffer from malloc that the caller frees; null without memory. */
ORVEX_API char* getVersion(void);

#ifdef __cplusplus
} /* extern "C" */

/* The autofocus record: 151 bytes, byte-packed, numbers little-endian. */
struct __attribute__((packed)) _AFPROTECT {
    unsigned char ubVersionMajor;
    unsigned char ubVersionMinor;
    short swShiftX; /* slave's chart centre minus the master's, whole pixels */
    short swShiftY;
    float fAFSlope1; /* from calibration bytes 13 to 16 */
    float fAFOffset1;
    float fAFSlope2; /* from calibration bytes 2911 to 2914 */
    float fAFOffset2;
    unsigned char ubCheckSum; /* sum of bytes 2 to 21 modulo 256 */
    unsigned char aubReserved[128];
};

/* One measurement without file, log, rescaling and range check: what getAlign runs inside.
 *
 * The pictures stay the caller's. Sizes in pixels. The angles (raw, degrees) and the record are written on
 * success only. Returns ORVEX_OK, ORVEX_ENTRY_NULL_POINTER, ORVEX_ENTRY_PICTURE_SIZE or a stage's status. */
ORVEX_API unsigned int Orvex_Alignment_ForAndroid(unsigned char* pMasterRGB, unsigned char* pSlaveRGB,
                                                  int nMasterWidth, int nMasterHeight, int nSlaveWidth,
                                                  int nSlaveHeight, double* pRx, double* pRy, double* pRz,
                                                  unsigned char* pCalibData, _AFPROTECT* pAFRecord);

/* Copies the 15 bytes of g_Orvex_Alignment_VERSION and returns 15, or -1 for a null pointer. */
ORVEX_API int Orvex_Alignment_VersionInfo_Get(char* pszVersion);

/* Copies the older version "v1313.40.9.1": its 13 bytes if nSize > 13, otherwise its first nSize bytes (no
 * terminator is added below 13, nothing is copied below 1 or to a null pointer). The two versions differ on
 * purpose. */
ORVEX_API void Orvex_GetVersion(char* pszVersion, int nSize);

/* Reads a record file back.
 *
 *   pCalibData   calibration memory, at least ORVEX_CALIBRATION_SIZE bytes; nCalibSize takes no part
 *   pInFile      the file's nInLen bytes
 *   pOutRecord   out: version bytes and record, at most 622 bytes (151 for a record made here)
 *   pOutLen      out: bytes written to pOutRecord
 *   pStatus      out: 0, or ORVEX_RECORD_NOT_DECRYPTED (too short, no container, other key; a null pointer),
 *                ORVEX_RECORD_CHECKSUM, ORVEX_RECORD_OTHER_MODULE (floats that are not this module's)
 *
 * Returns 1 if the record is accepted, else 0. pOutRecord and pOutLen are written whenever the container
 * decrypts. */
ORVEX_API int Orvex_SpecialAFDataTransform(unsigned char* pCalibData, int nCalibSize, unsigned char* pInFile,
                                           int nInLen, unsigned char* pOutRecord, int* pOutLen, int* pStatus);
#endif

#endif
