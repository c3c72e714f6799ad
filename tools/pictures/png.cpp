#include "pictures/formats.h"

#include "basics/tool_error.h"

#include <algorithm>
#include <csetjmp>
#include <new>
#include <png.h>
#include <vector>

namespace tools {
namespace {

constexpr int kDefaultWeight = -1;

// libpng leaves a failed step by longjmp. Each step therefore is a member function that returns false then
// and owns nothing that a destructor would have to free.
class Decoder {
public:
    explicit Decoder(std::string_view strBytes) : m_strRest(strBytes) {
        m_pPng = png_create_read_struct(PNG_LIBPNG_VER_STRING, this, Fail, Ignore);
        m_pInfo = m_pPng != nullptr ? png_create_info_struct(m_pPng) : nullptr;
        if (m_pInfo == nullptr) {
            png_destroy_read_struct(&m_pPng, nullptr, nullptr);
            throw std::bad_alloc();
        }
        png_set_read_fn(m_pPng, this, Supply);
    }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;
    ~Decoder() { png_destroy_read_struct(&m_pPng, &m_pInfo, nullptr); }

    bool ReadHeader() {
        if (setjmp(png_jmpbuf(m_pPng)) != 0)
            return false;
        png_set_user_limits(m_pPng, PNG_UINT_31_MAX, PNG_UINT_31_MAX); // the size is judged with words
        png_set_keep_unknown_chunks(m_pPng, PNG_HANDLE_CHUNK_NEVER, nullptr, -1); // all that only describe
        png_read_info(m_pPng, m_pInfo);
        return true;
    }

    // Rows of 8-bit grey.
    bool ReadRows(png_bytepp ppRows) {
        if (setjmp(png_jmpbuf(m_pPng)) != 0)
            return false;
        png_set_expand(m_pPng);
        png_set_strip_alpha(m_pPng);
        if ((png_get_color_type(m_pPng, m_pInfo) & PNG_COLOR_MASK_COLOR) != 0)
            png_set_rgb_to_gray_fixed(m_pPng, PNG_ERROR_ACTION_NONE, kDefaultWeight, kDefaultWeight);
        png_read_image(m_pPng, ppRows);
        png_read_end(m_pPng, nullptr);
        return true;
    }

    png_uint_32 Columns() const { return png_get_image_width(m_pPng, m_pInfo); }
    png_uint_32 Rows() const { return png_get_image_height(m_pPng, m_pInfo); }
    int Bits() const { return png_get_bit_depth(m_pPng, m_pInfo); }
    const std::string& Reason() const { return m_strReason; }

private:
    static Decoder& Of(void* p) { return *static_cast<Decoder*>(p); }

    static void Fail(png_structp pPng, png_const_charp szReason) {
        Of(png_get_error_ptr(pPng)).m_strReason = szReason;
        png_longjmp(pPng, 1);
    }

    static void Ignore(png_structp, png_const_charp) {}

    static void Supply(png_structp pPng, png_bytep pTo, std::size_t nBytes) {
        std::string_view& strRest = Of(png_get_io_ptr(pPng)).m_strRest;
        if (nBytes > strRest.size())
            png_error(pPng, "the file ends too early");
        std::copy_n(strRest.begin(), nBytes, pTo);
        strRest.remove_prefix(nBytes);
    }

    png_structp m_pPng;
    png_infop m_pInfo;
    std::string_view m_strRest; // not yet read
    std::string m_strReason;
};

ToolError Damaged(const std::string& strFile, const Decoder& tDecoder) {
    return {strFile, "is a PNG picture that is cut off or damaged (" + tDecoder.Reason() + ")",
            "Copy or record the picture again"};
}

void RequireEightBits(const std::string& strFile, int nBits) {
    if (nBits > 8)
        throw ToolError(strFile, "has " + std::to_string(nBits) + " bits per channel, measured are 8",
                        "Convert it to 8 bits per channel, as the module's own pictures have them");
}

std::vector<png_bytep> RowsOf(std::vector<unsigned char>& aGrey, PictureSize tSize) {
    std::vector<png_bytep> ap(static_cast<std::size_t>(tSize.nRows));
    png_bytep pRow = aGrey.data();
    for (png_bytep& p : ap) {
        p = pRow;
        pRow += tSize.nColumns;
    }
    return ap;
}

} // namespace

bool IsPng(std::string_view strBytes) {
    return strBytes.starts_with("\x89PNG");
}

Picture DecodePng(const std::string& strFile, std::string_view strBytes) {
    Decoder tDecoder(strBytes);
    if (!tDecoder.ReadHeader())
        throw Damaged(strFile, tDecoder);
    const PictureSize tSize = DecodableSize(strFile, tDecoder.Columns(), tDecoder.Rows());
    RequireEightBits(strFile, tDecoder.Bits());
    std::vector<unsigned char> aGrey(PixelsOf(tSize));
    if (!tDecoder.ReadRows(RowsOf(aGrey, tSize).data()))
        throw Damaged(strFile, tDecoder);
    return {strFile, tSize.nColumns, tSize.nRows, std::move(aGrey)};
}

std::string EncodePng(const Picture& picture) {
    png_image tImage = {};
    tImage.version = PNG_IMAGE_VERSION;
    tImage.width = static_cast<png_uint_32>(picture.nColumns);
    tImage.height = static_cast<png_uint_32>(picture.nRows);
    tImage.format = PNG_FORMAT_GRAY;
    tImage.flags = PNG_IMAGE_FLAG_FAST; // photographs hardly shrink further
    png_alloc_size_t nBytes = PNG_IMAGE_PNG_SIZE_MAX(tImage);
    std::string strPng(nBytes, '\0');
    if (png_image_write_to_memory(&tImage, strPng.data(), &nBytes, 0, picture.aGrey.data(), picture.nColumns,
                                  nullptr) == 0)
        throw ToolError(picture.strFile, std::string("cannot be written as PNG (") + tImage.message + ")",
                        "Use a picture of the sensor's own size");
    strPng.resize(nBytes);
    return strPng;
}

} // namespace tools
