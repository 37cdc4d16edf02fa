#pragma once
// Byte patterns of the video carve: start codes, the access unit delimiter,
// the skip tags of the media walk, and the sets of NAL header bytes by which
// each chain tells a frame. The sets differ from chain to chain on purpose.

#include <QtGlobal>
#include <initializer_list>

namespace carve {

constexpr quint8 kStartCode[4] = {0, 0, 0, 1};
constexpr quint8 kAudPrefix[4] = {0, 0, 0, 2}; // a NAL of length 2 ...
constexpr quint8 kAudHeader = 0x09;           // ... that is an access unit delimiter

constexpr int kPaddingOuter = 512; // blank blocks skipped at once
constexpr quint64 kAtomHeader = 8; // size and tag: no atom is smaller
constexpr int kPaddingInner = 128;
constexpr quint64 kHvcCArrays = 27;    // from the "hvcC" tag to its first array
constexpr quint64 kHvcCSearch = 4096;  // how far the search for SPS and PPS openings goes
constexpr quint64 kEsdsSearch = 65536; // how far the esds's object headers are looked for
// MPEG-4 Visual start codes that open a frame: a VOP, a group of VOPs.
constexpr quint8 kVopStart[4] = {0, 0, 1, 0xB6};
constexpr quint8 kGovStart[4] = {0, 0, 1, 0xB3};
// AV1 OBU headers (with a size field) and the temporal delimiter written before each group.
constexpr quint8 kObuSequenceHeader = 0x0A, kObuFrameHeader = 0x1A, kObuFrame = 0x32;
constexpr quint8 kAv1Delimiter[2] = {0x12, 0x00};
constexpr int kLeb128MaxBytes = 8;
// MPEG program stream start codes (00 00 01 and this byte): pack, video and audio packets.
constexpr quint8 kPackStart = 0xBA, kVideoPes = 0xE0, kAudioPes = 0xC0;
constexpr quint64 kPsLook = 65536; // how far in the first pack is looked for

// Top-level atoms the media walk steps over by their size.
constexpr const char *kSkipTags[] = {"free", "wide", "pict", "meta", "meco", "uuid", "pdin", "moov", "ftyp", "skip"};
// Fragment atoms the first-unit search steps over (size read 4 bytes back).
constexpr const char *kFragmentTags[] = {"moov", "moof", "traf", "trun"};

// A set of fifth bytes (NAL headers behind a 4-byte length) with the
// conditions some members put on the byte behind.
struct NalSet
{
    quint8 member[256] = {};
    qint16 notFollowedBy[256];   // header byte h counts only if b5 != notFollowedBy[h] (-1: any)
    qint16 onlyFollowedBy[256];  // header byte h counts only if b5 == onlyFollowedBy[h] (-1: any)
    bool delimiter = true;       // 00 00 00 02 09 counts as well

    quint8 b5Low[256], b5High[256]; // header byte h counts only with b5 in [low, high]
    bool zeroHeader = false;        // 00 counts when b1 is 00, or b1 is 01, b2 under FF and b5 01

    NalSet(std::initializer_list<int> bytes)
    {
        for (int i = 0; i < 256; ++i) {
            notFollowedBy[i] = onlyFollowedBy[i] = -1;
            b5Low[i] = 0;
            b5High[i] = 0xFF;
        }
        for (int b : bytes)
            member[b] = 1;
    }
    // Header bytes that count only with b5 (the second byte of an HEVC header) in [low, high].
    NalSet &b5Between(std::initializer_list<int> headers, int low, int high)
    {
        for (int h : headers) {
            member[h] = 1;
            b5Low[h] = quint8(low);
            b5High[h] = quint8(high);
        }
        return *this;
    }
    NalSet &withZeroHeader()
    {
        zeroHeader = true;
        return *this;
    }
    NalSet &butNotBefore(int header, int next) { notFollowedBy[header] = qint16(next); return *this; }
    NalSet &onlyBefore(int header, int next)
    {
        member[header] = 1;
        onlyFollowedBy[header] = qint16(next);
        return *this;
    }

    // b: at least 6 bytes (b0..b3 the length, b4 the header, b5 behind it).
    bool test(const quint8 *b) const
    {
        if (delimiter && b[0] == 0 && b[1] == 0 && b[2] == 0 && b[3] == 2 && b[4] == kAudHeader)
            return true;
        if (b[0] != 0)
            return false;
        if (zeroHeader && b[4] == 0)
            return b[1] == 0 || (b[1] == 1 && b[2] < 0xFF && b[5] == 1);
        if (!member[b[4]] || b[5] < b5Low[b[4]] || b[5] > b5High[b[4]])
            return false;
        if (notFollowedBy[b[4]] >= 0 && b[5] == notFollowedBy[b[4]])
            return false;
        if (onlyFollowedBy[b[4]] >= 0 && b[5] != onlyFollowedBy[b[4]])
            return false;
        return true;
    }
};

// What the sample harvest takes for the start of a NAL unit (67 is not in it).
inline const NalSet &HarvestNalSet()
{
    static const NalSet s{0x01, 0x06, 0x0E, 0x21, 0x25, 0x27, 0x28, 0x41, 0x4E, 0x61, 0x65, 0x68, 0x6E};
    return s;
}

// The frame test of each chain: the fifth bytes that make a unit (and confirm
// the one before it), and the test that finds the first frame or ends a gap
// of sound where it differs. One row per chain; they differ on purpose.
enum class Chain {
    Lpcm, Aac, AacVideoOnly, AacVideoOnlyDji, Mp3, AlawUlaw, Ac3, ImaAdpcm, Opus, SowtPcm, TwosPcm,
    HevcLpcm, HevcAac, HevcAlawUlaw, HevcTwos, Count
};

struct FrameTest
{
    Chain chain;
    NalSet run;
    NalSet first;
    bool gapOnly = false; // `first` only ends a gap; the first unit of the file takes `run`
};

inline NalSet hevcAac()
{
    return NalSet{}.b5Between({0x02, 0x12, 0x26, 0x28, 0x2A, 0x4E, 0x46}, 1, 1).b5Between({0x10, 0x04}, 1, 2).b5Between({0x06}, 1, 3);
}
inline NalSet hevcTwos()
{
    return NalSet{0x0C, 0x0E, 0x28, 0x2A, 0x4E, 0x10, 0x12, 0x40, 0x42, 0x44, 0x46}.b5Between({0x02, 0x26}, 1, 1).withZeroHeader();
}

inline const FrameTest &FrameTestOf(Chain chain)
{
    static const FrameTest kTests[] = {
        {Chain::Lpcm, {0x01, 0x06, 0x21, 0x25, 0x27, 0x28, 0x41, 0x61, 0x65, 0x68},
         {0x01, 0x06, 0x21, 0x25, 0x27, 0x28, 0x41, 0x61, 0x65, 0x68}},
        // Inside gaps of sound 0E and 4E don't count, and 21 only when 1A doesn't
        // follow: 21 1A opens many AAC frames.
        {Chain::Aac, {0x01, 0x06, 0x0C, 0x0E, 0x21, 0x25, 0x27, 0x28, 0x41, 0x4E, 0x61, 0x65, 0x67, 0x68},
         NalSet{0x01, 0x06, 0x0C, 0x21, 0x25, 0x27, 0x28, 0x41, 0x61, 0x65, 0x67, 0x68}.butNotBefore(0x21, 0x1A), true},
        {Chain::AacVideoOnly,
         NalSet{0x01, 0x06, 0x21, 0x25, 0x27, 0x28, 0x40, 0x41, 0x42, 0x44, 0x46, 0x4E, 0x61, 0x65, 0x67, 0x68}
             .onlyBefore(0x02, 0x01),
         NalSet{0x01, 0x06, 0x21, 0x25, 0x27, 0x28, 0x40, 0x41, 0x42, 0x44, 0x46, 0x4E, 0x61, 0x65, 0x67, 0x68}
             .onlyBefore(0x02, 0x01)},
        {Chain::AacVideoOnlyDji, {0x46, 0x4E, 0x61, 0x65, 0x67, 0x68}, {0x46, 0x4E, 0x61, 0x65, 0x67, 0x68}},
        {Chain::Mp3, {0x01, 0x06, 0x21, 0x25, 0x41, 0x61, 0x65, 0x67, 0x68}, {0x06, 0x61, 0x65, 0x67, 0x68}},
        {Chain::AlawUlaw, {0x01, 0x06, 0x21, 0x25, 0x27, 0x28, 0x41, 0x45, 0x61, 0x65, 0x67, 0x68},
         {0x21, 0x25, 0x27, 0x28, 0x41, 0x45, 0x65, 0x67}, true},
        {Chain::Ac3, {0x01, 0x06, 0x21, 0x25, 0x41, 0x65, 0x68}, {0x01, 0x06, 0x21, 0x25, 0x41, 0x65, 0x68}},
        {Chain::ImaAdpcm, {0x06, 0x21, 0x25, 0x27, 0x28, 0x41, 0x61, 0x65, 0x67, 0x68},
         {0x06, 0x21, 0x25, 0x27, 0x28, 0x41, 0x61, 0x65, 0x67, 0x68}},
        {Chain::Opus, {0x06, 0x10, 0x21, 0x25, 0x61, 0x65, 0x67, 0x68, 0x69}, {0x06, 0x21, 0x25, 0x61, 0x65, 0x67, 0x69}, true},
        {Chain::SowtPcm, {0x01, 0x06, 0x21, 0x25, 0x27, 0x28, 0x41, 0x61, 0x65, 0x67, 0x68},
         {0x21, 0x25, 0x27, 0x28, 0x61, 0x65, 0x67, 0x68}},
        {Chain::TwosPcm, {0x01, 0x06, 0x21, 0x25, 0x27, 0x28, 0x41, 0x65, 0x68}, {0x06, 0x21, 0x25, 0x41, 0x65}, true},
        // HEVC: b4 and b5 are the two header bytes. The H.264 delimiter pattern
        // counts here too, though HEVC's own delimiter is 46 01.
        {Chain::HevcLpcm, {0x02, 0x10, 0x12, 0x26, 0x28, 0x2A, 0x46, 0x4E}, {0x02, 0x10, 0x12, 0x26, 0x28, 0x2A, 0x46, 0x4E}},
        {Chain::HevcAac, hevcAac(), hevcAac()},
        {Chain::HevcAlawUlaw, {0x02, 0x10, 0x12, 0x26, 0x28, 0x2A, 0x40, 0x42, 0x44, 0x46, 0x4E},
         {0x02, 0x10, 0x12, 0x26, 0x28, 0x2A, 0x40, 0x42, 0x44, 0x46, 0x4E}},
        {Chain::HevcTwos, hevcTwos(), hevcTwos()},
    };
    static_assert(sizeof kTests / sizeof kTests[0] == size_t(Chain::Count), "one frame test per chain");
    return kTests[int(chain)];
}

} // namespace carve
