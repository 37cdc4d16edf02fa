#pragma once
// Tags, offsets and limits of the container readers.

#include <QtGlobal>
#include <cstddef>

namespace mp4info {

// Atoms the track reader descends into, and the ones it reads.
namespace tag {
constexpr char moov[] = "moov", trak[] = "trak", mdia[] = "mdia", minf[] = "minf", stbl[] = "stbl";
constexpr char mdat[] = "mdat", hdlr[] = "hdlr", mdhd[] = "mdhd", stsd[] = "stsd", stts[] = "stts";
constexpr char vide[] = "vide", soun[] = "soun", vmhd[] = "vmhd", smhd[] = "smhd";
} // namespace tag

// Atoms a QuickTime or MP4 file may begin with.
constexpr const char *kTopLevel[] = {"ftyp", "moov", "mdat", "free", "skip", "wide", "pnot", "uuid", "PICT"};

constexpr int kMaxDepth = 8;           // moov/trak/mdia/minf/stbl and a little room
constexpr quint64 kAtomHeader = 8;
constexpr quint64 kLargeAtomHeader = 16;
// Offsets inside a sample entry (from its size field).
constexpr quint64 kEntryWidth = 32, kEntryHeight = 34;
constexpr quint64 kEntryChannels = 24, kEntrySampleRate = 32;
// A rate above this is no camera's: a broken stts.
constexpr quint32 kMaxFramesPerSecond = 1000;

// The NAL codec probe: how far it reads, how long a unit may be, how far
// after a unit the next one may start (sound between frames), and how many
// linked units make a verdict.
constexpr quint64 kNalProbeBytes = quint64(32) << 20;
constexpr quint32 kMaxNalUnit = quint32(8) << 20;
constexpr quint64 kNalGap = 16384;
constexpr int kMinLinkedUnits = 24;
constexpr size_t kNalLook = 9; // length, header and the start of a slice header
constexpr int kWinFactor = 4;

} // namespace mp4info
