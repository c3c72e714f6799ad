// The container reader and the record reader: containers of any bytes, and well-formed ones of any content
// under the right key, whose last block may end like padding.

#include "Orvex_Alignment.h"
#include "entry/aes_cbc.h"
#include "entry/autofocus_record.h"
#include "entry/record_container.h"
#include "entry/record_key.h"
#include "input.h"
#include "require.h"
#include "support/get_align.h"

#include <algorithm>

using namespace fuzz;
using Bytes = std::vector<unsigned char>;

namespace {

constexpr int nHeader = 16;
constexpr unsigned char ubUntouched = 0xC3;

Bytes& Calibration() {
    static Bytes a = support::Calibration();
    return a;
}

Bytes KeyOfModule() {
    Bytes a(nRecordKeyBytes);
    Require(Orvex_GenerateKey(Calibration().data(), a.data()), "every memory has a key");
    return a;
}

// A plain record of this module without bytes, all of it then changed or replaced.
Bytes PlainText(Input& t) {
    if (t.OneIn(3)) { // of any length, however few bytes are at hand
        const int nBytes = t.Int(0, 700);
        Bytes a = t.Bytes(nBytes);
        a.resize(static_cast<std::size_t>(nBytes));
        return a;
    }
    const float afCentre[] = {864.0f, 486.0f};
    const _AFPROTECT tRecord = orvex::MakeRecord(afCentre, afCentre, Calibration().data());
    const auto* const pub = reinterpret_cast<const unsigned char*>(&tRecord);
    Bytes a(pub + orvex::nVersionBytes, pub + orvex::nRecordBytes);
    const int nBytes = orvex::nPlainBytes + t.Around0(40);
    a.resize(static_cast<std::size_t>(nBytes));
    for (int i = t.Int(0, 6); i > 0; --i)
        a[static_cast<std::size_t>(t.Int(0, static_cast<int>(a.size()) - 1))] = t.Byte();
    if (t.OneIn(2))
        a[static_cast<std::size_t>(20)] = orvex::RecordChecksum(a.data());
    return a;
}

// Padded as it should be, or by any number of bytes that count up from any value.
void Pad(Input& t, Bytes& a) {
    unsigned char ubNext = t.OneIn(4) ? t.Byte(1) : 1;
    while (a.empty() || a.size() % orvex::nAesBlock != 0)
        a.push_back(ubNext++);
}

Bytes Container(Input& t, const Bytes& aKey) {
    if (t.OneIn(4)) {
        Bytes a = t.Rest();
        return a;
    }
    Bytes aPlain = PlainText(t);
    const bool bPadded = aPlain.size() % orvex::nAesBlock != 0;
    Pad(t, aPlain);
    Bytes a = {'O', 'A', 'E', 'S', 1, 2, 2, 0, static_cast<unsigned char>(bPadded)};
    a.resize(static_cast<std::size_t>(nHeader + orvex::nAesBlock) + aPlain.size());
    Require(orvex::EncryptBlocks(aKey.data(), nRecordKeyBytes, aPlain.data(), static_cast<int>(aPlain.size()),
                                 a.data() + nHeader),
            "whole blocks are encrypted");
    for (int i = t.Int(0, 4); i > 0; --i)
        a[static_cast<std::size_t>(t.Int(0, nHeader - 1))] ^= t.Byte();
    if (t.OneIn(4))
        a.resize(static_cast<std::size_t>(t.Int(0, static_cast<int>(a.size()) + 20)));
    return a;
}

void Decrypt(const Bytes& aKey, const Bytes& aContainer, int nCapacity) {
    Bytes aPlain(static_cast<std::size_t>(nCapacity), ubUntouched);
    int nPlain = nCapacity;
    const bool bDecrypted = OAES_Decrypt(aKey.data(), static_cast<int>(aKey.size()), aContainer.data(),
                                         static_cast<int>(aContainer.size()), aPlain.data(), &nPlain);
    Require(bDecrypted ? nPlain > 0 && nPlain <= nCapacity : nPlain == nCapacity,
            "the length fits the buffer, or is left alone");
    const auto nWritten = bDecrypted ? nPlain : 0;
    Require(std::all_of(aPlain.begin() + nWritten, aPlain.end(),
                        [](unsigned char ub) { return ub == ubUntouched; }),
            "nothing behind the plain text is written");
}

// Also in place, as hosts do, and with lengths that no file has.
void ReadRecord(Input& t, Bytes aFile) {
    Bytes aRecord(nMostPlainBytes + orvex::nVersionBytes);
    const int nFile = t.OneIn(16) ? -t.Int(0, 65536) : static_cast<int>(aFile.size());
    const bool bInPlace = t.OneIn(4);
    if (bInPlace) {
        aFile.resize(std::max(aFile.size(), aRecord.size()));
        aRecord.swap(aFile);
    }
    int nLength = 0, nStatus = -1;
    const int nAccepted = Orvex_SpecialAFDataTransform(Calibration().data(), ORVEX_CALIBRATION_SIZE,
                                                       bInPlace ? aRecord.data() : aFile.data(), nFile,
                                                       aRecord.data(), &nLength, &nStatus);
    Require((nAccepted == 1) == (nStatus == 0), "accepted means status 0");
    Require(nStatus == 0 || (nStatus >= 0x3010001 && nStatus <= 0x3010003), "the status is documented");
    Require((nLength == 0) == (nStatus == ORVEX_RECORD_NOT_DECRYPTED), "what decrypts is handed out");
    Require(nLength == 0 || (nLength >= orvex::nRecordBytes && nLength <= static_cast<int>(aRecord.size())),
            "a record is whole");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes) {
    Input t(pBytes, nBytes);
    const int nCapacity = t.OneIn(4) ? t.Int(0, nMostPlainBytes) : nMostPlainBytes;
    Bytes aKey = KeyOfModule();
    const Bytes aContainer = Container(t, aKey);
    Bytes aFile = {1, 0};
    aFile.insert(aFile.end(), aContainer.begin(), aContainer.end());
    aFile.resize(t.OneIn(8) ? aFile.size() % 3 : aFile.size());
    if (t.OneIn(8))
        aKey.resize(static_cast<std::size_t>(t.Int(0, 40)));
    Decrypt(aKey, aContainer, nCapacity);
    ReadRecord(t, std::move(aFile));
    return 0;
}
