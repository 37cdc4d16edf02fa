#pragma once
// Tags, templates and limits of the rebuilt MOV file.
//
// The fixed atoms are byte tables made at compile time from their fields, so
// each atom's size field is its table's length; the static_asserts below check
// that the fixed parts of each level add up to the constants the size patches
// use.

#include "carve/video/WorkFiles.h"

#include <QtGlobal>
#include <array>
#include <cstddef>

namespace rebuild {

// --- Byte tables ---
template <size_t N>
using Bytes = std::array<quint8, N>;

constexpr Bytes<2> u16(quint16 v) { return {{quint8(v >> 8), quint8(v)}}; }
constexpr Bytes<4> u32(quint32 v) { return {{quint8(v >> 24), quint8(v >> 16), quint8(v >> 8), quint8(v)}}; }
constexpr Bytes<4> fourcc(const char (&t)[5]) { return {{quint8(t[0]), quint8(t[1]), quint8(t[2]), quint8(t[3])}}; }
template <size_t N>
constexpr Bytes<N> zeros() { return {}; }

template <size_t... N>
constexpr Bytes<(N + ... + 0)> cat(const Bytes<N> &...parts)
{
    Bytes<(N + ... + 0)> out{};
    size_t at = 0;
    auto put = [&](const auto &part) {
        for (quint8 b : part)
            out[at++] = b;
    };
    (put(parts), ...);
    return out;
}

// An atom whose size field is its length.
template <size_t... N>
constexpr auto atom(const char (&t)[5], const Bytes<N> &...body)
{
    return cat(u32(quint32(8 + (N + ... + 0))), fourcc(t), body...);
}
// The header of an atom whose size is patched once its contents are known.
constexpr Bytes<8> head(const char (&t)[5]) { return cat(u32(0), fourcc(t)); }

template <size_t N>
constexpr quint32 sizeField(const Bytes<N> &a)
{
    return quint32(a[0]) << 24 | quint32(a[1]) << 16 | quint32(a[2]) << 8 | a[3];
}

// --- Tags the log and the file are read by ---
constexpr char kFtypTag[] = "ftyp";
constexpr char kVideoLabel[] = "AVC(Vide)";
constexpr char kSoundLabel[] = "AAC(soun)";
constexpr char kBlankLabel[] = "Zero(Zero)"; // blank bytes a splitter passed over

// --- The templates ---
constexpr quint32 kFixedOne = 0x00010000; // 1.0 as 16.16
constexpr auto kMatrix = cat(u32(kFixedOne), zeros<12>(), u32(kFixedOne), zeros<12>(), u32(0x40000000));

// ftyp put in front when the damaged file has none of its own.
constexpr auto kFtyp = atom("ftyp", fourcc("qt  "), u32(0x20050300), fourcc("qt  "), zeros<12>());
// mdat with a 64-bit size, patched at kMdatSizeAt.
constexpr auto kMdatHead = cat(u32(1), fourcc("mdat"), zeros<8>());
constexpr quint64 kMdatSizeAt = 8;
constexpr auto kMoovHead = head("moov");
constexpr auto kMvhd = atom("mvhd", zeros<4>(), zeros<8>(), zeros<4>(), zeros<4>(), u32(kFixedOne), u16(0x0100),
                            zeros<10>(), kMatrix, zeros<24>(), u32(2));
constexpr quint64 kMvhdTimeScaleAt = 20, kMvhdDurationAt = 24;

constexpr auto kTrakHead = head("trak");
// Flags: enabled, in movie, in preview, in poster.
constexpr auto kTkhd = atom("tkhd", u32(0x0F), zeros<8>(), u32(0), zeros<4>(), u32(0), zeros<8>(), zeros<8>(),
                            kMatrix, zeros<8>());
constexpr quint64 kTkhdTrackIdAt = 20, kTkhdDurationAt = 28, kTkhdWidthAt = 84, kTkhdHeightAt = 88;
constexpr auto kEdts = atom("edts", atom("elst", zeros<4>(), u32(1), zeros<4>(), zeros<4>(), u32(kFixedOne)));
constexpr quint64 kEdtsDurationAt = 24;
constexpr auto kMdiaHead = head("mdia");
// Language "eng" packed.
constexpr auto kMdhd = atom("mdhd", zeros<4>(), zeros<8>(), zeros<4>(), zeros<4>(), u16(0x15C7), zeros<2>());
constexpr quint64 kMdhdTimeScaleAt = 20, kMdhdDurationAt = 24;
constexpr auto kHdlrVideo = atom("hdlr", zeros<4>(), fourcc("mhlr"), fourcc("vide"), zeros<12>(), zeros<2>());
constexpr auto kHdlrSound = atom("hdlr", zeros<4>(), fourcc("mhlr"), fourcc("soun"), zeros<12>(), zeros<2>());
constexpr auto kMinfHead = head("minf");
// Media header, data handler and data reference of each kind of track.
constexpr auto kDataHandler = cat(atom("hdlr", zeros<4>(), fourcc("dhlr"), fourcc("alis"), zeros<12>(), zeros<2>()),
                                  atom("dinf", atom("dref", zeros<4>(), u32(1), atom("alis", u32(1)))));
constexpr auto kVideoMediaBlock =
    cat(atom("vmhd", u32(1), u16(0x0040), u16(0x8000), u16(0x8000), u16(0x8000)), kDataHandler);
constexpr auto kSoundMediaBlock = cat(atom("smhd", zeros<4>(), zeros<4>()), kDataHandler);
constexpr auto kStblHead = head("stbl");
constexpr auto kStts = atom("stts", zeros<4>(), u32(1), zeros<4>(), zeros<4>());
constexpr quint64 kSttsCountAt = 16, kSttsDeltaAt = 20;
// Table heads: the entry count sits at 12 (at 16 in stsz, behind the sample size).
constexpr auto kCttsHead = atom("ctts", zeros<4>(), zeros<4>());
constexpr auto kStscHead = atom("stsc", zeros<4>(), zeros<4>());
constexpr auto kStszHead = atom("stsz", zeros<4>(), zeros<4>(), zeros<4>());
constexpr auto kCo64Head = atom("co64", zeros<4>(), zeros<4>());
constexpr quint64 kCountAt = 12, kStszSizeAt = 12, kStszCountAt = 16;
constexpr quint32 kStscEntry = 12, kCttsEntry = 8, kStszEntry = 4, kCo64Entry = 8;

// The fixed part of each level of a track, by which its size is patched.
constexpr quint32 kVideoStblFixed = quint32(kStblHead.size() + kStts.size() + kCo64Head.size());
constexpr quint32 kVideoMinfFixed = quint32(kMinfHead.size() + kVideoMediaBlock.size());
constexpr quint32 kMdiaFixed = quint32(kMdiaHead.size() + kMdhd.size() + kHdlrVideo.size());
constexpr quint32 kVideoTrakFixed = quint32(kTrakHead.size() + kTkhd.size() + kEdts.size());
constexpr quint32 kMoovFixed = quint32(kMoovHead.size() + kMvhd.size());
constexpr quint32 kSoundStblFixed = quint32(kStblHead.size() + kStts.size());
constexpr quint32 kSoundMinfFixed = quint32(kMinfHead.size() + kSoundMediaBlock.size());
constexpr quint32 kSoundTrakFixed = quint32(kTrakHead.size() + kTkhd.size());
static_assert(kVideoStblFixed == 48 && kVideoMinfFixed == 98 && kMdiaFixed == 74 && kVideoTrakFixed == 136
                  && kMoovFixed == 116 && kSoundStblFixed == 32 && kSoundMinfFixed == 94 && kSoundTrakFixed == 100,
              "the templates no longer add up to the fixed sizes of the track levels");
static_assert(kFtyp.size() == 32 && kMvhd.size() == 108 && kTkhd.size() == 92 && kEdts.size() == 36
                  && kMdhd.size() == 32 && kHdlrSound.size() == kHdlrVideo.size() && kStts.size() == 24
                  && sizeField(kMvhd) == 108 && sizeField(kCo64Head) == 16,
              "template sizes");

// --- Limits ---
// A damaged file's ftyp at least this long isn't copied: the mdat starts
// behind its size all the same, leaving a hole of zeros.
constexpr quint32 kMaxCopiedFtyp = 50;
// A lead size of 0 stands for the template when chunk offsets are worked out.
constexpr quint32 kTemplateLead = quint32(kFtyp.size());
// A saved stsd this long or longer isn't written (its size still counts).
constexpr quint32 kMaxStsd = 700;
// Files above this size set the progress range to kProgressRange.
constexpr quint64 kBigFile = 0x9600000;
constexpr qint64 kProgressRange = 500000;
// Media pieces go through one buffer of this size.
constexpr size_t kCopyBuffer = size_t(1) << 20;
// The window through which the log is read.
constexpr size_t kLogWindow = size_t(4) << 20;
// No line of a piece is longer; longer lines are passed over unread.
constexpr size_t kMaxLogLine = 4096;
// The log's lines are the piece lines and plain lines ending in "\r\n".
constexpr char kLineEnd = '\n';

// --- Sound timing by format code ---
enum class SoundDelta : quint8 {
    Fixed,      // `delta` a sample
    SampleRate, // the sample rate of the stsd a line: each line is a second
    AmrFrame,   // `delta` samples at kAmrRate, scaled to the track's time scale
};
struct SoundTimingRow
{
    quint32 code;
    quint32 pcmFrameBytes; // non-zero: samples are PCM frames of this many bytes
    SoundDelta kind;
    quint32 delta;
};
constexpr quint32 kAmrRate = 8000;

// Sound sample entries inside a saved stsd atom: where the first entry
// starts, the sizes of its versions 0, 1 and 2, and the PCM fourccs with the
// bytes of one sample (0: the entry's sample size says).
constexpr int kStsdEntryAt = 16;
constexpr int kSoundEntryV0 = 36, kSoundEntryV1 = 52, kSoundEntryV2 = 64;
struct PcmType
{
    const char *fourcc;
    quint32 bytes;
};
constexpr PcmType kPcmTypes[] = {{"sowt", 0}, {"twos", 0}, {"raw ", 1}, {"in24", 3}, {"in32", 4},
                                 {"fl32", 4}, {"fl64", 8}, {"lpcm", 0}};
constexpr SoundTimingRow kSoundTimings[] = {
    {5, 4, SoundDelta::Fixed, 1},
    {11, 4, SoundDelta::Fixed, 1},
    {16, 0, SoundDelta::SampleRate, 0},
    // One AMR frame holds 20 ms of sound, 160 samples at 8 kHz, not an AAC frame's 1024.
    {14, 0, SoundDelta::AmrFrame, 160},
};
// Every other code: one AAC frame a line.
constexpr SoundTimingRow kAacTiming = {0, 0, SoundDelta::Fixed, 1024};

// The work files that the linear-PCM chain leaves for the rebuild to remove.
constexpr const char *kLpcmWorkFiles[] = {workfiles::kVideoH264,   workfiles::kVideoHevc, workfiles::kAudioPcmGaps,
                                          workfiles::kVideoHeads,  workfiles::kAudioHeads, workfiles::kIndexing,
                                          workfiles::kVideoUnique, workfiles::kAudioUnique};
constexpr quint32 kLpcmCode = 12;

} // namespace rebuild
