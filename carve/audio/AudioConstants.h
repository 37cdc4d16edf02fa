#pragma once
// Sizes and byte patterns of the audio side of a carve.

#include <QtGlobal>

#include <cstddef>

namespace audio {

// The window of the splitters' reader: the walk looks at the bytes it
// loads while they are still in the processor's cache, and the writer
// thread writes units straight from it.
constexpr size_t kSplitWindow = size_t(1) << 20;
constexpr int kAdtsHeaderBytes = 7;
constexpr quint32 kMaxAdtsPayload = 8184; // 13-bit frame length less the header
constexpr quint32 kDefaultRate = 48000;
constexpr quint32 kUnsetRate = 1000;      // a sample that says 1000 Hz means "unknown"
constexpr quint32 kFallbackFrame = 2000;  // when even the sample's mean is no ADTS size
constexpr quint32 kTypicalFrame = 400;    // an AAC frame's size when the sample gives none
constexpr quint32 kMinFrame = 8;          // no AAC frame of sound is shorter
constexpr int kRecord = 3;                // one head record
constexpr quint8 kEmptyAudioFill = 0xFF;  // seven of these stand for "no audio found"
// AC-3 (ATSC A/52): the syncword, and the frame sizes in bytes by sample
// rate code (48, 44.1, 32 kHz) and frame size code (Table 5.18, in bytes).
constexpr quint8 kAc3Sync[2] = {0x0B, 0x77};
constexpr int kAc3Rates = 3;
constexpr int kAc3SizeCodes = 38;
constexpr qint32 kAc3FrameBytes[kAc3Rates][kAc3SizeCodes] = {
    {128, 128, 160, 160, 192, 192, 224, 224, 256, 256, 320, 320, 384, 384, 448, 448, 512, 512, 640,
     640, 768, 768, 896, 896, 1024, 1024, 1280, 1280, 1536, 1536, 1792, 1792, 2048, 2048, 2304, 2304, 2560, 2560},
    {138, 140, 174, 176, 208, 210, 242, 244, 278, 280, 348, 350, 416, 418, 486, 488, 556, 558, 696,
     698, 834, 836, 974, 976, 1114, 1116, 1392, 1394, 1670, 1672, 1950, 1952, 2228, 2230, 2506, 2508, 2786, 2788},
    {192, 192, 240, 240, 288, 288, 336, 336, 384, 384, 480, 480, 576, 576, 672, 672, 768, 768, 960,
     960, 1152, 1152, 1344, 1344, 1536, 1536, 1920, 1920, 2304, 2304, 2688, 2688, 3072, 3072, 3456, 3456, 3840, 3840},
};

// Raw sound between video chains.
constexpr quint64 kSowtMaxRun = 100000;           // a longer run of sowt sound is written only at ...
constexpr quint64 kSowtLongRuns[] = {0x2eec0, 0x2d060}; // ... these sizes
constexpr quint64 kTwosJump = 90000;              // bytes a twos run is jumped over before the look for video
constexpr quint64 kTwosRun = 0x17760;             // 96096: a run of twos sound ...
constexpr quint64 kTwosRunShort = 0x16800;        // 92160: ... or this
constexpr quint64 kTwosRunBlock = 96000;          // also kept whole in front of a maker's block
constexpr quint64 kTwosBlockTrim = 48;            // what a run in front of a maker's block loses otherwise
constexpr quint64 kHevcTwosJump = 180000;         // the same for HEVC recorders, ...
constexpr quint64 kHevcTwosRun = 0x2eec0;         // ... which write runs of 192192 ...
constexpr quint64 kHevcTwosRunShort = 0x2d000;    // ... or 184320 bytes

// Blocks some recorders put between units: a head, a label 8 bytes on, and a
// size that is the sum of the 16-bit numbers at +0, +4 and +6.
struct MakerBlock
{
    quint8 head[4];
    quint8 label[4];
};
constexpr MakerBlock kTwosBlocks[] = {
    {{0x00, 0x1C, 0x01, 0x00}, {0xF0, 0x01, 0x00, 0x10}}, {{0x00, 0x1C, 0x01, 0x00}, {0x06, 0x0E, 0x2B, 0x34}},
    {{0x00, 0x08, 0x01, 0x00}, {0xF0, 0x01, 0x00, 0x10}}, {{0x00, 0x08, 0x01, 0x00}, {0x06, 0x0E, 0x2B, 0x34}},
    {{0x00, 0x60, 0x01, 0x00}, {0xF0, 0x01, 0x00, 0x10}}, {{0x00, 0x60, 0x01, 0x00}, {0x06, 0x0E, 0x2B, 0x34}},
};
constexpr MakerBlock kSowtBlocks[] = {{{0x00, 0x1C, 0x01, 0x00}, {0xF0, 0x01, 0x00, 0x10}}};
constexpr int kMakerLabelAt = 8;

// Records some HEVC recorders put behind their units. Behind a unit, each
// moves the walk on: by a fixed step, or by the 32-bit size at its place plus
// a little; the first ones also confirm the first unit of a file.
struct HevcMakerStep
{
    quint8 bytes[8];
    int length;     // bytes compared
    bool sized;     // the step is the 32-bit size at the place plus `step`
    quint64 step;
};
// A GPS text record ("$G:2" behind a 16-bit length and two blanks): its bytes
// are walked over one at a time, and a unit followed by one is confirmed.
#define VM_GPS_RECORD {0x00, 0x36, 0x20, 0x20, '$', 'G', ':', '2'}
constexpr HevcMakerStep kHevcMakerSteps[] = {
    {{0x47, 0x50}, 2, false, 16},
    {{0x00, 0x00, 0x01, 0xA6, 0x7C, 0x01}, 6, true, 4},
    {{0x01, 0x62, 0x61, 0x08}, 4, false, 1}, {{0x01, 0x52, 0x51, 0x08}, 4, false, 1},
    {{0x01, 0x54, 0x53, 0x08}, 4, false, 1}, {{0x01, 0x51, 0x50, 0x08}, 4, false, 1},
    {{0x01, 0x60, 0x5F, 0x08}, 4, false, 1}, {{0x01, 0x61, 0x60, 0x08}, 4, false, 1},
    {{0x01, 0x53, 0x52, 0x08}, 4, false, 1},
    {{0x00, 0x00, 0x02, 0x70, 0x00, 0x00}, 6, true, 0}, {{0x00, 0x00, 0x00, 0x64, 0x00, 0x00}, 6, true, 0},
    {{0x00, 0x00, 0x02, 0x90, 0x00, 0x00}, 6, true, 0},
    {VM_GPS_RECORD, 8, false, 1},
};
struct HevcMakerConfirm
{
    quint8 bytes[8];
    int length;
};
constexpr HevcMakerConfirm kHevcMakerConfirms[] = {
    {{0x47, 0x50, 0x05, 0x00}, 4}, {{0x47, 0x50, 0x04, 0x00}, 4}, {{0x47, 0x50, 0x00, 0x03}, 4},
    {{0x47, 0x50, 0x00, 0x02}, 4}, {{0x47, 0x50, 0x00, 0x01}, 4}, {VM_GPS_RECORD, 8},
};
#undef VM_GPS_RECORD

// Streams of HEVC recorders that follow some units with a record 1A xx 02 0A,
// then 07 (xx 95, 97, 98) or 08 (xx 98, 9A to EF), opening a block of their
// own of this many bytes, which is dropped.
constexpr quint8 kHevcBlockHead[] = {0x1A, 0x00, 0x02, 0x0A};
constexpr quint64 kHevcBlockSize = 13201;
constexpr bool IsHevcBlockRecord(const quint8 *b)
{
    if (b[0] != kHevcBlockHead[0] || b[2] != kHevcBlockHead[2] || b[3] != kHevcBlockHead[3])
        return false;
    if (b[4] == 0x07)
        return b[1] == 0x95 || b[1] == 0x97 || b[1] == 0x98;
    return b[4] == 0x08 && (b[1] == 0x98 || (b[1] >= 0x9A && b[1] <= 0xEF));
}
} // namespace audio
