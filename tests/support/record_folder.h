#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace support {

inline const std::filesystem::path tFolder = "/sdcard";
inline const std::filesystem::path tRecordFile = tFolder / "AFProtect.txt";

inline std::vector<unsigned char> RecordBytes() {
    std::ifstream t(tRecordFile, std::ios::binary);
    return {std::istreambuf_iterator<char>(t), {}};
}

// The record file's folder for one test; nothing of it is left behind.
class RecordFolder {
public:
    RecordFolder() : m_bCreated(std::filesystem::create_directory(tFolder, m_tError)) {}
    ~RecordFolder() {
        std::filesystem::remove_all(tRecordFile, m_tError);
        if (m_bCreated)
            std::filesystem::remove(tFolder, m_tError);
    }
    RecordFolder(const RecordFolder&) = delete;
    RecordFolder& operator=(const RecordFolder&) = delete;

    bool IsWritable() const {
        return std::filesystem::is_directory(tFolder) && std::ofstream(tRecordFile, std::ios::app).good();
    }

private:
    std::error_code m_tError;
    bool m_bCreated;
};

} // namespace support
