#pragma once
// Tags, sizes and limits of the atom walk, the scans and the moov parsers.
// Tags are compared as 4 bytes in file order.

#include <QtGlobal>

namespace tag {
constexpr char ftyp[] = "ftyp", wide[] = "wide", free_[] = "free", meta[] = "meta", uuid[] = "uuid";
constexpr char mdat[] = "mdat", moov[] = "moov", mvhd[] = "mvhd", trak[] = "trak";
constexpr char vmhd[] = "vmhd", smhd[] = "smhd", gmhd[] = "gmhd", nmhd[] = "nmhd";
constexpr char mdhd[] = "mdhd", tkhd[] = "tkhd", stsd[] = "stsd", stts[] = "stts", stsc[] = "stsc";
constexpr char ctts[] = "ctts", stsz[] = "stsz", stco[] = "stco", co64[] = "co64";
constexpr char jpeg[] = "jpeg", es26[] = "es26", mp4v[] = "mp4v", hvc1[] = "hvc1", hev1[] = "hev1";
constexpr char av01[] = "av01";
constexpr char apch[] = "apch", apcn[] = "apcn", apcs[] = "apcs", apco[] = "apco", ap4h[] = "ap4h";
constexpr char twos[] = "twos", sowt[] = "sowt", lpcm[] = "lpcm", Opus[] = "Opus", ac_3[] = "ac-3";
constexpr char alaw[] = "alaw", ulaw[] = "ulaw", mp4a[] = "mp4a", esds[] = "esds";
constexpr char imaMs[] = "ms\x00\x11"; // IMA ADPCM sample entry, 6D 73 00 11
constexpr char IMKH[] = "IMKH";
constexpr char packStart[] = "\x00\x00\x01\xBA"; // MPEG program stream pack header
constexpr char tsPatHeader[] = "\x47\x40\x00\x10"; // TS packet carrying the PAT
} // namespace tag

namespace walk {
constexpr int kProbeBlock = 1000;      // bytes looked at for a TS packet at each walk position
constexpr int kTsPacket = 188;
constexpr quint8 kTsSync = 0x47;
constexpr int kTsStreamH264 = 27, kTsStreamAac = 15;

constexpr qint64 kRangeSmall = 5000, kRangeLarge = 50000, kRangeHuge = 500000;

// Tail scan of a damaged file.
constexpr quint64 kSmallFile = 0x300000;
constexpr quint64 kTailStart1 = 0x400000, kTailSteps1 = 0x500000;
constexpr quint64 kHeadScanEnd = 0x100000;
constexpr quint64 kTailStart2 = 0xA00000, kTailSteps2 = 0xA00000;

// Window scans of a sample: start back from the end, and the step count that ends each.
constexpr quint64 kHugeSample = 0x80000000ULL;
constexpr quint64 kSampleWin1Huge = 0x600000, kSampleWin1 = 0x300000, kSampleWin1Steps = 0x600000;
constexpr quint64 kSampleHeadEnd = 0x100001;
struct SampleWindow { quint64 back; quint64 steps; };
constexpr SampleWindow kSampleWindows[] = {
    {0xB00000, 0xB00000}, {0xF00000, 0xF00000}, {0x2100000, 0x2100000},
    {0x2C00000, 0x4400000}, {0x4400000, 0x4400000},
};
} // namespace walk

namespace moovparse {
constexpr quint64 kMvhdToBody = 24;
constexpr quint32 kMaxVideoStsdDamaged = 1000; // larger stsd of a damaged file isn't saved
constexpr quint32 kMaxSoundStsd = 670;
constexpr int kEsdsLook = 75;
} // namespace moovparse
