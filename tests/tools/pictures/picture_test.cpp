#include "support/program.h"

#include <png.h>
#include <turbojpeg.h>

namespace program {
namespace {

constexpr int nColumns = 1728, nRows = 972;

void Append(png_structp pPng, png_bytep pBytes, std::size_t nBytes) {
    static_cast<std::string*>(png_get_io_ptr(pPng))->append(reinterpret_cast<char*>(pBytes), nBytes);
}

// With strPixels empty only the header is written.
std::string PngOf(int nSide, int nBits, int nColours, int nInterlace, const std::string& strPixels) {
    std::string strPng;
    png_structp pPng = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop pInfo = png_create_info_struct(pPng);
    png_set_write_fn(pPng, &strPng, Append, nullptr);
    const bool bHeaderOnly = strPixels.empty();
    const auto nUnsigned = [](int n) { return static_cast<png_uint_32>(n); };
    png_set_IHDR(pPng, pInfo, nUnsigned(bHeaderOnly ? nSide : nColumns),
                 nUnsigned(bHeaderOnly ? nSide : nRows), nBits, nColours, nInterlace, 0, 0);
    png_set_gAMA(pPng, pInfo, 0.7); // must not matter
    png_write_info(pPng, pInfo);
    std::vector<png_bytep> ap;
    for (std::size_t i = 0; !bHeaderOnly && i < nRows; ++i)
        ap.push_back(reinterpret_cast<png_bytep>(
            const_cast<char*>(strPixels.data() + i * png_get_rowbytes(pPng, pInfo))));
    if (bHeaderOnly) {
        png_write_chunk(pPng, reinterpret_cast<png_const_bytep>("IDAT"), nullptr, 0);
    } else {
        png_write_image(pPng, ap.data());
        png_write_end(pPng, pInfo);
    }
    png_destroy_write_struct(&pPng, &pInfo);
    return strPng;
}

std::string JpegOf(int nPixelFormat, int nSampling, const std::string& strPixels, int nHeight = nRows) {
    tjhandle p = tjInitCompress();
    unsigned char* pJpeg = nullptr;
    unsigned long nJpeg = 0;
    EXPECT_EQ(tjCompress2(p, reinterpret_cast<const unsigned char*>(strPixels.data()), nColumns, 0, nHeight,
                          nPixelFormat, &pJpeg, &nJpeg, nSampling, 100, 0),
              0);
    const std::string strJpeg(reinterpret_cast<char*>(pJpeg), nJpeg);
    tjFree(pJpeg);
    tjDestroy(p);
    return strJpeg;
}

// Every grey value nChannels times, the last time as nLast unless it is negative.
std::string Spread(const std::string& strGrey, std::size_t nChannels, int nLast = -1) {
    std::string str;
    for (const char c : strGrey)
        str.append(nChannels - 1, c) += nLast < 0 ? c : static_cast<char>(nLast);
    return str;
}

class Pictures : public Program {
protected:
    Pictures() {
        Render("--rx 0.8 --ry -0.5 --noise 2");
        const std::string str = Read("slave.pgm");
        m_strGrey = str.substr(str.size() - nColumns * nRows);
    }
    std::string m_strGrey;
};

} // namespace

TEST_F(Pictures, OfEveryFormatMeasureAsTheSamePlaneDoes) {
    const Json tPlain = MeasureAsJson("master.pgm slave.pgm")["slave"];
    constexpr int kGrey = PNG_COLOR_TYPE_GRAY, kRgb = PNG_COLOR_TYPE_RGB, kRgba = PNG_COLOR_TYPE_RGBA,
                  kGreyAlpha = PNG_COLOR_TYPE_GRAY_ALPHA, kAdam7 = PNG_INTERLACE_ADAM7;
    const std::tuple<const char*, std::string, double> aCases[] = {
        {"PNG grey", PngOf(0, 8, kGrey, 0, m_strGrey), 0},
        {"PNG grey, interlaced", PngOf(0, 8, kGrey, kAdam7, m_strGrey), 0},
        {"PNG colour, interlaced", PngOf(0, 8, kRgb, kAdam7, Spread(m_strGrey, 3)), 0},
        {"PNG colour, half transparent", PngOf(0, 8, kRgba, 0, Spread(m_strGrey, 4, 99)), 0},
        {"PNG grey, transparent", PngOf(0, 8, kGreyAlpha, 0, Spread(m_strGrey, 2, 0)), 0},
        {"JPEG grey", JpegOf(TJPF_GRAY, TJSAMP_GRAY, m_strGrey), 0.02},
        {"JPEG colour", JpegOf(TJPF_RGB, TJSAMP_420, Spread(m_strGrey, 3)) + "trailer", 0.02},
    };
    for (const auto& [szCase, strBytes, dTolerance] : aCases) { // px and deg
        SCOPED_TRACE(szCase);
        Write("picture.pgm", strBytes); // the name must not matter
        const Json tFlat = MeasureAsJson("master.pgm picture.pgm")["slave"].flatten();
        for (const auto& [strPath, tValue] : tFlat.items())
            if (tValue.is_number()) {
                EXPECT_NEAR(tValue.get<double>(), tPlain.flatten()[strPath].get<double>(), dTolerance)
                    << strPath;
            }
    }
}

TEST_F(Pictures, ThatAreDamagedOrUnfitAreRefusedWithTheReason) {
    const std::string strPng = PngOf(0, 8, PNG_COLOR_TYPE_GRAY, 0, m_strGrey),
                      strJpeg = JpegOf(TJPF_GRAY, TJSAMP_GRAY, m_strGrey);
    std::string strFlipped = strPng, strHuge = strJpeg;
    strFlipped[strPng.size() / 2] ^= 1;
    strHuge.replace(strHuge.find("\xFF\xC0") + 5, 4, "\xEA\x60\xEA\x60");
    const std::pair<std::string, std::vector<std::string>> aCases[] = {
        {strPng.substr(0, strPng.size() / 2), {"PNG", "cut off or damaged (the file ends too early)"}},
        {strPng.substr(0, strPng.size() - 12), {"ends too early"}},
        {strPng.substr(0, 10), {"ends too early"}},
        {strFlipped, {"PNG", "CRC error"}},
        {PngOf(0, 16, PNG_COLOR_TYPE_GRAY, 0, Spread(m_strGrey, 2)), {"16 bits per channel"}},
        {PngOf(60000, 8, PNG_COLOR_TYPE_GRAY, 0, ""), {"60000 x 60000 px", "400000000"}},
        {PngOf(65536, 1, PNG_COLOR_TYPE_GRAY, 0, ""), {"65536 x 65536 px", "1 to 65535"}},
        {strJpeg.substr(0, strJpeg.size() / 2), {"JPEG", "damaged or of a rare kind (Premature end"}},
        {strJpeg.substr(0, 30), {"JPEG", "ends before its size"}},
        {strHuge, {"60000 x 60000 px"}},
        {JpegOf(TJPF_RGB, TJSAMP_420, Spread(m_strGrey, 3), 400),
         {"is 1728 x 400 px, but the slave must be at least 906 x 406 px"}},
        {JpegOf(TJPF_CMYK, TJSAMP_444, Spread(m_strGrey, 4)), {"CMYK"}},
    };
    for (const auto& [strBytes, aTold] : aCases) {
        Write("bad.png", strBytes);
        ExpectRefused(3, {"measure master.pgm bad.png --calibration calibration.bin", aTold});
        const std::string strMessage = Read("err");
        EXPECT_TRUE(strMessage.starts_with("orvex-align: bad.png: ")) << strMessage;
        EXPECT_EQ(std::count(strMessage.begin(), strMessage.end(), '\n'), 2) << "the fact, the advice";
    }
    const std::string strPair = "measure master.pgm master.pgm --calibration calibration.bin ";
    ExpectRefused(3, {strPair + "--raw 1728x973", {"master.pgm: is too short", "1679632", "1681344"}});
    ExpectRefused(3, {strPair + "--raw 1728x972", {"master.pgm: is a PGM picture and no raw plane"}});
    ExpectRefused(64, {strPair + "--raw 1728x", {"--raw: \"1728x\" is not a width x height"}});
    ExpectRefused(64, {strPair + "--raw-slave 2x2", {"--raw-slave requires --raw"}});
}

} // namespace program
