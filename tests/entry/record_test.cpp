#include "core/to_integer.h"
#include "entry/autofocus_record.h"
#include "entry/record_container.h"
#include "entry/record_key.h"
#include "support/get_align.h"

#include <cmath>
#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

using namespace orvex;
using Bytes = std::vector<unsigned char>;
using Sizes = std::initializer_list<std::size_t>;

namespace {

Bytes FromHex(const std::string& str) {
    Bytes a;
    for (std::size_t i = 0; i + 1 < str.size(); i += 2)
        a.push_back(static_cast<unsigned char>(std::stoi(str.substr(i, 2), nullptr, 16)));
    return a;
}

std::optional<Bytes> Decrypted(const Bytes& aKey, const Bytes& aContainer, int nCapacity = nMostPlainBytes) {
    Bytes aPlain(nMostPlainBytes);
    int nPlain = nCapacity;
    if (!OAES_Decrypt(aKey.data(), static_cast<int>(aKey.size()), aContainer.data(),
                      static_cast<int>(aContainer.size()), aPlain.data(), &nPlain))
        return std::nullopt;
    aPlain.resize(static_cast<std::size_t>(nPlain));
    return aPlain;
}

Bytes Encrypted(const Bytes& aKey, const Bytes& aPlain) {
    Bytes aContainer(700);
    int nLength = static_cast<int>(aContainer.size());
    EXPECT_TRUE(OAES_Encrypt(aKey.data(), static_cast<int>(aKey.size()), aPlain.data(),
                             static_cast<int>(aPlain.size()), aContainer.data(), &nLength));
    aContainer.resize(static_cast<std::size_t>(nLength));
    return aContainer;
}

// A record file of a plain text that need not be a valid record.
Bytes RecordFile(const Bytes& aCalibration, const Bytes& aPlain) {
    Bytes aKey(nRecordKeyBytes);
    EXPECT_TRUE(Orvex_GenerateKey(aCalibration.data(), aKey.data()));
    Bytes aFile = {1, 0};
    const Bytes aContainer = Encrypted(aKey, aPlain);
    aFile.insert(aFile.end(), aContainer.begin(), aContainer.end());
    return aFile;
}

struct ReadResult {
    int nResult, nStatus, nLength;
    Bytes aRecord;
};

ReadResult Read(Bytes aCalibration, Bytes aFile) {
    ReadResult t = {-1, -1, -1, Bytes(2 + nMostPlainBytes)};
    t.nResult =
        Orvex_SpecialAFDataTransform(aCalibration.data(), 0, aFile.data(), static_cast<int>(aFile.size()),
                                     t.aRecord.data(), &t.nLength, &t.nStatus);
    return t;
}

Bytes ValidPlain(const Bytes& aCalibration) {
    const float afMaster[] = {864.5f, 486.0f}, afSlave[] = {870.9f, 461.2f};
    const _AFPROTECT t = MakeRecord(afMaster, afSlave, aCalibration.data());
    Bytes a(nPlainBytes);
    std::memcpy(a.data(), reinterpret_cast<const unsigned char*>(&t) + nVersionBytes, a.size());
    return a;
}

} // namespace

TEST(Container, DecryptsForeignContainersAndRefusesEveryFault) {
    std::ifstream tFile(ORVEX_TEST_DATA "/record_containers.json");
    const nlohmann::json tSamples = nlohmann::json::parse(tFile).at("samples");
    ASSERT_EQ(tSamples.size(), 4u);
    for (const auto& tSample : tSamples) {
        const Bytes aKey = FromHex(tSample.at("key")), aPlain = FromHex(tSample.at("plain"));
        const Bytes aContainer = FromHex(tSample.at("container"));
        EXPECT_EQ(Decrypted(aKey, aContainer), aPlain);
        EXPECT_EQ(Decrypted(aKey, aContainer, static_cast<int>(aPlain.size())), aPlain);
        EXPECT_FALSE(Decrypted(aKey, aContainer, static_cast<int>(aPlain.size()) - 1)) << "capacity";

        // Every single bit of the header but the two that carry no meaning.
        for (std::size_t nBit = 0; nBit < 16 * 8; ++nBit) {
            Bytes a = aContainer;
            a[nBit / 8] ^= static_cast<unsigned char>(1u << nBit % 8);
            const bool bMeaningless = nBit == 6 * 8 + 2 || nBit == 6 * 8 + 3;
            const bool bPaddingFlag = nBit == 8 * 8; // a whole block's content may look like padding, or not
            if (bMeaningless) {
                EXPECT_EQ(Decrypted(aKey, a), aPlain) << "bit " << nBit;
            } else if (!bPaddingFlag || aPlain.size() % 16 == 0) {
                EXPECT_FALSE(Decrypted(aKey, a)) << "bit " << nBit;
            }
        }
        for (const std::size_t nLength : Sizes{0, 15, 32, 47}) {
            const Bytes a(aContainer.begin(), aContainer.begin() + static_cast<std::ptrdiff_t>(nLength));
            EXPECT_FALSE(Decrypted(aKey, a)) << nLength << " bytes";
        }
        // One byte more; whole blocks beyond the longest container.
        for (const std::size_t nLength : Sizes{aContainer.size() + 1, 672, 65536}) {
            Bytes a = aContainer;
            a.resize(nLength);
            EXPECT_FALSE(Decrypted(aKey, a)) << nLength << " bytes";
        }
        if (aPlain.size() % 16 != 0) {
            // A change in the last but one block flips the same bits of the padding.
            for (std::size_t nFromEnd = 1; nFromEnd <= 16 - aPlain.size() % 16; ++nFromEnd) {
                Bytes a = aContainer;
                a[a.size() - 16 - nFromEnd] ^= 0x40;
                EXPECT_FALSE(Decrypted(aKey, a)) << "padding byte " << nFromEnd << " from the end";
            }
            Bytes aOtherKey = aKey;
            aOtherKey[0] ^= 1;
            EXPECT_NE(Decrypted(aOtherKey, aContainer), aPlain);
        }
    }
}

TEST(Container, WritesWhatItReadsUnderAFreshVector) {
    const Bytes aKey(32, 0x5C);
    for (const std::size_t nPlain : Sizes{1, 15, 16, 17, 149, 620}) {
        const Bytes aPlain(nPlain, 0xA7);
        const Bytes a = Encrypted(aKey, aPlain), aAgain = Encrypted(aKey, aPlain);
        EXPECT_EQ(a.size(), 32 + (nPlain + 15) / 16 * 16);
        const Bytes aHeader = {'O', 'A', 'E', 'S', 1, 2, 2, 0, static_cast<unsigned char>(nPlain % 16 != 0)};
        EXPECT_TRUE(std::equal(aHeader.begin(), aHeader.end(), a.begin()));
        EXPECT_EQ(Decrypted(aKey, a), aPlain);
        EXPECT_FALSE(std::equal(a.begin() + 16, a.begin() + 32, aAgain.begin() + 16)) << "vector used twice";
    }
    const Bytes aPlain(621, 0xA7);
    for (const auto& [nPlain, nCapacity] : {std::pair{0, 700}, {621, 700}, {149, 191}}) {
        Bytes aContainer(700);
        int nLength = nCapacity;
        EXPECT_FALSE(OAES_Encrypt(aKey.data(), 32, aPlain.data(), nPlain, aContainer.data(), &nLength));
        EXPECT_EQ(aContainer, Bytes(700)) << nPlain << " bytes into " << nCapacity;
    }
}

TEST(RecordReader, AcceptsItsOwnAndNamesWhatDiffers) {
    const Bytes aCalibration = support::Calibration(), aPlain = ValidPlain(aCalibration);
    const ReadResult tGood = Read(aCalibration, RecordFile(aCalibration, aPlain));
    EXPECT_EQ(tGood.nResult, 1);
    EXPECT_EQ(tGood.nStatus, 0);
    EXPECT_EQ(tGood.nLength, 151);
    EXPECT_TRUE(std::equal(aPlain.begin(), aPlain.end(), tGood.aRecord.begin() + 2));

    const auto ExpectRefused = [&](const Bytes& aFile, int nStatus, const char* szCase) {
        const ReadResult t = Read(aCalibration, aFile);
        EXPECT_EQ(t.nResult, 0) << szCase;
        EXPECT_EQ(t.nStatus, nStatus) << szCase;
        EXPECT_EQ(t.nLength, nStatus == 0x3010001 ? -1 : 151) << szCase;
    };
    Bytes aOther = aCalibration;
    aOther[0] ^= 1;
    // Noise ends like padding once in 256 times; then the checksum or the floats refuse it.
    const int nOther = Read(aCalibration, RecordFile(aOther, aPlain)).nStatus;
    EXPECT_TRUE(nOther >= 0x3010001 && nOther <= 0x3010003) << "another module's key: " << nOther;
    ExpectRefused({}, 0x3010001, "empty");
    ExpectRefused({1, 0}, 0x3010001, "version only");
    ExpectRefused(RecordFile(aCalibration, Bytes(aPlain.begin(), aPlain.end() - 1)), 0x3010001,
                  "short record");
    Bytes aDamaged = aPlain;
    aDamaged[5] ^= 1;
    ExpectRefused(RecordFile(aCalibration, aDamaged), 0x3010002, "checksum");
    for (const std::size_t nFloat : Sizes{4, 8, 12, 16}) {
        aDamaged = aPlain; // 2.0 more or less, the checksum kept by a counter-change
        float f;
        std::memcpy(&f, &aDamaged[nFloat], 4);
        f += 2.0f;
        std::memcpy(&aDamaged[nFloat], &f, 4);
        aDamaged[20] = RecordChecksum(aDamaged.data());
        ExpectRefused(RecordFile(aCalibration, aDamaged), 0x3010003, "a float of another module");
        f -= 2.0f + (f - 2.0f - std::trunc(f - 2.0f)) / 2; // within the same whole number
        std::memcpy(&aDamaged[nFloat], &f, 4);
        aDamaged[20] = RecordChecksum(aDamaged.data());
        EXPECT_EQ(Read(aCalibration, RecordFile(aCalibration, aDamaged)).nStatus, 0) << "below one unit";
    }
    Bytes aLong = aPlain;
    aLong.resize(nMostPlainBytes);
    EXPECT_EQ(Read(aCalibration, RecordFile(aCalibration, aLong)).nLength, 622);
    Bytes aMemory = aCalibration, aFile = RecordFile(aCalibration, aPlain), aRecord(622);
    for (int nNull = 0; nNull < 5; ++nNull) {
        int nLength = 0, nStatus = 0;
        const auto Unless = [&](int n, auto* p) { return n == nNull ? nullptr : p; };
        EXPECT_EQ(Orvex_SpecialAFDataTransform(Unless(0, aMemory.data()), 0, Unless(1, aFile.data()),
                                               static_cast<int>(aFile.size()), Unless(2, aRecord.data()),
                                               Unless(3, &nLength), Unless(4, &nStatus)),
                  0);
        EXPECT_EQ(nStatus, nNull == 4 ? 0 : 0x3010001) << "null pointer " << nNull;
    }
}
