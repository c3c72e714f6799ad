#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tools {

// Of the record file that a measurement leaves: two version bytes, the container's 32 bytes of header and
// vector, and the rest of the record in whole blocks of 16.
constexpr std::size_t kRecordFileBytes = 2 + 32 + 160;

// The container's header, behind the version bytes, as a measurement writes it: its name, version and kind,
// then cipher block chaining and a padded last block.
constexpr std::size_t kHeaderAt = 2;
constexpr std::string_view kMeasuredHeader{"OAES\1\2\2\0\1\0\0\0\0\0\0\0", 16};

// Whether the bytes begin as a record file does, with its container behind the version.
bool IsRecordFile(const std::string& strBytes);

// A record's version, major and minor.
struct RecordVersion {
    int nMajor, nMinor;
    bool operator==(const RecordVersion&) const = default;
};

// As this library writes it.
RecordVersion WrittenVersion();

// A decrypted record. A focus line gives the lens code at a position: offset + slope x position.
struct RecordFields {
    RecordVersion tVersion;
    int nShiftX, nShiftY; // slave's cross minus master's, px
    double dSlope1, dOffset1, dSlope2, dOffset2;
    int nCheckSum;
    int nSumOfBytes; // what the checksum should be: of the bytes between version and checksum, modulo 256
    std::string strReserved;
    std::string strFurther; // bytes behind the known fields
    bool bAllZero;          // with the reserved bytes: a failed measurement leaves such a record
};

// How far the library's reader came.
enum class RecordAnswer { kAccepted, kNotDecrypted, kWrongChecksum, kOtherModule, kRefused };

// What the library's reader says of a record file.
struct RecordReading {
    std::string strFile;
    std::size_t nFileBytes;
    bool bRecordFile;      // begins as one
    std::string strHeader; // the container's, as far as the file goes
    unsigned int nStatus;
    RecordAnswer tAnswer;
    std::optional<RecordFields> oRecord; // what was decrypted, even if a check behind it refused it
};

// Reads a record file under a module's calibration memory of at least ORVEX_CALIBRATION_SIZE bytes. Throws
// ToolError.
RecordReading ReadRecord(const std::string& strFile, const std::string& strCalibration);

} // namespace tools
