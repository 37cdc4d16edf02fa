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

// The stream scanners of 3GP, ProRes and Motion JPEG recordings: what each
// walk looks for, as data. A pattern is four bytes with a mask; a position is
// only tested where four bytes of the file are left.
namespace streamscan {

struct Pattern
{
    quint8 bytes[4];
    quint8 mask[4];
};
// A tag compared whole, and a picture start with its last bytes free.
#define VM_TAG(t) {{quint8(t[0]), quint8(t[1]), quint8(t[2]), quint8(t[3])}, {0xFF, 0xFF, 0xFF, 0xFF}}

// 3GP: atoms stepped over by their size, the one that ends the scan, and the
// starts of a video frame: an MPEG-4 picture, or an H.263 picture start code
// (22 bits, then the picture's number).
constexpr Pattern k3gpAtoms[] = {VM_TAG("ftyp"), VM_TAG("wide"), VM_TAG("free"), VM_TAG("pict"),
                                 VM_TAG("meta"), VM_TAG("meco"), VM_TAG("uuid"), VM_TAG("pdin")};
constexpr Pattern kMoov = VM_TAG("moov");
constexpr Pattern k3gpFrameStarts[] = {{{0x00, 0x00, 0x01, 0xB6}, {0xFF, 0xFF, 0xFF, 0xFF}},
                                       {{0x00, 0x00, 0x80, 0x00}, {0xFF, 0xFF, 0xFC, 0x00}}};
// AMR frames by their first byte, in the order a frame's end is looked for
// behind the next picture (0x24 is given 41 bytes, not the 20 of its mode).
struct AmrFrame
{
    quint8 head;
    quint32 size;
};
constexpr AmrFrame kAmrFrames[] = {{0x0C, 14}, {0x3C, 32}, {0x1C, 18}, {0x24, 41}};

// ProRes: every frame carries this tag behind its 32-bit size. Behind a
// frame, this many bytes are looked at for zero padding (stepped in fours)
// before the next frame or a run of sound.
constexpr Pattern kProResFrame = VM_TAG("icpf");
constexpr quint64 kProResFrameTagAt = 4;
constexpr quint32 kProResMinFrame = 8; // size and tag
constexpr quint64 kProResLook = 10000;

// Motion JPEG: atoms stepped over by size + 5, the openings of a frame, its
// end marker. The first two frames are searched for their end 5000 bytes on,
// the later ones 0.88 of the second's size on, so that a smaller frame isn't
// jumped over.
constexpr Pattern kJpegAtoms[] = {VM_TAG("udta"), VM_TAG("moov"), VM_TAG("ftyp"), VM_TAG("tkhd")};
constexpr quint64 kJpegAtomStep = 5;
constexpr Pattern kJpegOpenings[] = {{{0xFF, 0xD8, 0xFF, 0xDB}, {0xFF, 0xFF, 0xFF, 0xFF}},
                                     {{0xFF, 0xD8, 0xFF, 0xE0}, {0xFF, 0xFF, 0xFF, 0xFF}},
                                     {{0xFF, 0xD8, 0xFF, 0xE1}, {0xFF, 0xFF, 0xFF, 0xFF}}};
constexpr Pattern kJpegEnd = {{0xFF, 0xD9, 0, 0}, {0xFF, 0xFF, 0, 0}};
constexpr quint64 kJpegEndSize = 2;
constexpr quint64 kJpegFirstSkip = 5000;
constexpr int kJpegSkipFrame = 2;           // its size becomes the skip
constexpr int kJpegShrinkFrame = 3;         // where the skip shrinks, once
constexpr quint64 kJpegShrinkPercent = 88;

#undef VM_TAG

// The progress bar's range: the file size, at most this.
constexpr quint64 kRangeCap = 0xFFFFFFFFULL, kJpegRangeCap = 0x40000000ULL;

} // namespace streamscan

// AVI: the tags the repair looks for, where a stream header keeps its fields,
// and the fixed values of the main header it writes. All numbers in the file
// are little-endian.
namespace avi {

constexpr char kRiff[] = "RIFF", kAviForm[] = "AVI ", kList[] = "LIST", kHdrl[] = "hdrl", kAvih[] = "avih";
constexpr char kStrl[] = "strl", kStrh[] = "strh", kStrf[] = "strf", kStrn[] = "strn", kMovi[] = "movi";
constexpr char kIdx1[] = "idx1", kVids[] = "vids", kAuds[] = "auds";
constexpr char kVideoChunk[] = "00dc", kVideoChunkRaw[] = "00db", kSoundChunk[] = "01wb";
// What may follow a stream's format chunk, and so confirms it.
constexpr const char *kConfirmingTags[] = {"LIST", "JUNK", "strn", "vprp", "IDIT", "indx", "strd", "vedt", "ISFT"};
constexpr quint32 kStrhSizes[] = {56, 64};

// Offsets from a stream list's "strl" tag (B) and from B plus its strh size (F).
constexpr quint64 kStreamTypeAt = 12;  // "vids" or "auds"
constexpr quint64 kFormatTagAt = 12;   // F + 12: "strf"
constexpr quint64 kFormatSizeAt = 16;  // F + 16
constexpr quint64 kFormatAt = 20;      // F + 20: the format itself
constexpr quint64 kFrameSizeAt = 24;   // F + 24: width and height of the picture

// The main header's fixed values.
constexpr quint32 kAvihSize = 56;
constexpr quint32 kMicroSecPerFrame = 41666;
constexpr quint32 kMaxBytesPerSec = 3241472;
constexpr quint32 kPaddingGranularity = 0;
constexpr quint32 kAvihFlags = 0x110; // has an index, interleaved
constexpr quint32 kSuggestedBuffer = 633600;
constexpr quint32 kStrhWritten = 56;
constexpr quint32 kKeyFlag = 0x10;    // idx1: a key frame
constexpr quint32 kKeyEvery = 1024;   // video chunk 1 and every 1024th after are marked key
constexpr quint32 kMinVideoFormat = 40; // a BITMAPINFOHEADER
constexpr quint32 kMovieStart = 4;    // chunk offsets count from the "movi" tag
constexpr quint64 kChunkHead = 8;
constexpr quint64 kIndexEntry = 16;
// Sizes a chunk tag may stand before by chance: false hits gave them, so a
// chunk of such a size isn't taken, nor one of a quarter of the file or more.
constexpr quint32 kFalseChunkSizes[] = {0, 2, 16, 18};
constexpr quint64 kMaxChunkShare = 4;
constexpr int kSearchShare = 10;      // headers and sound chunks are sought in the first tenth
constexpr qint64 kProgressRange = 500000, kProgressSearch = 400000;
constexpr char kIndexName[] = "Index.avi";

} // namespace avi
// FLV: a chain of tags, each a head, its data and then the size of head and
// data. A repair copies the whole tags behind a new file head and a new
// metadata script tag.
namespace flv {

constexpr quint8 kSoundTag = 8, kVideoTag = 9, kScriptTag = 18;
constexpr quint64 kTagHead = 11;   // type, 3-byte data size, timestamp, stream id
constexpr quint64 kSizeAt = 1;     // the 3-byte data size D
constexpr quint64 kTimeAt = 4;     // the low 3 bytes of the timestamp, in ms
constexpr quint64 kTrailer = 4;    // the tag size P behind the data: D + 11
constexpr quint64 kMinTag = kTagHead + kTrailer;
// The first data byte of a video tag, written in binary, has this many
// digits when the tag opens a run the copy may start with.
constexpr int kStartDigits[] = {5, 7};
constexpr quint32 kMsPerSecond = 1000;

// The new file's head: signature, version 1, sound and video, head size 9,
// and the zero size of the tag before the first.
constexpr quint8 kFileHead[] = {'F', 'L', 'V', 0x01, 0x05, 0x00, 0x00, 0x00, 0x09, 0x00, 0x00, 0x00, 0x00};
// The script tag's data opens with the name string and an array of 15.
constexpr quint8 kMetaOpen[] = {0x02, 0x00, 0x0A, 'o', 'n', 'M', 'e', 't', 'a', 'D', 'a', 't', 'a',
                                0x08, 0x00, 0x00, 0x00, 0x0F};
constexpr quint8 kMetaClose[] = {0x00, 0x00, 0x00, 0x09};
constexpr quint8 kNumberType = 0x00; // an entry's type byte: an 8-byte big-endian double
constexpr quint64 kStampBytes = 7;   // timestamp and stream id of the script tag: zero

// The entries of the new script tag, in order; the copied ones only when the
// damaged file's own script tag is whole.
enum class MetaValue { Duration, Zero, Copied };
struct MetaEntry
{
    const char *name;
    MetaValue value;
};
constexpr MetaEntry kMetaEntries[] = {
    {"duration", MetaValue::Duration},     {"starttime", MetaValue::Zero},
    {"width", MetaValue::Copied},          {"height", MetaValue::Copied},
    {"videodatarate", MetaValue::Copied},  {"framerate", MetaValue::Copied},
    {"videocodecid", MetaValue::Copied},   {"audiodatarate", MetaValue::Copied},
    {"audiocodecid", MetaValue::Copied},
};

// Files shorter than this get no output. The old script tag is looked for
// at offsets below kScriptSearchEnd; its values from kValueSearchFrom bytes
// into it.
constexpr quint64 kMinFileSize = 15001;
constexpr quint64 kScriptSearchEnd = 15000;
constexpr quint64 kValueSearchFrom = 45;

// The scan reports progress about this many times.
constexpr quint64 kProgressSteps = 1024;

} // namespace flv
// ASF (WMV) files: objects by their GUIDs, bytes as they stand in the file;
// sizes and fields are little-endian.
namespace asf {

struct Guid
{
    quint8 b[16];
};
constexpr Guid kHeaderObject = {{0x30, 0x26, 0xB2, 0x75, 0x8E, 0x66, 0xCF, 0x11, 0xA6, 0xD9, 0x00, 0xAA, 0x00, 0x62, 0xCE, 0x6C}};
constexpr Guid kDataObject = {{0x36, 0x26, 0xB2, 0x75, 0x8E, 0x66, 0xCF, 0x11, 0xA6, 0xD9, 0x00, 0xAA, 0x00, 0x62, 0xCE, 0x6C}};
constexpr Guid kFileProperties = {{0xA1, 0xDC, 0xAB, 0x8C, 0x47, 0xA9, 0xCF, 0x11, 0x8E, 0xE4, 0x00, 0xC0, 0x0C, 0x20, 0x53, 0x65}};
constexpr Guid kStreamProperties = {{0x91, 0x07, 0xDC, 0xB7, 0xB7, 0xA9, 0xCF, 0x11, 0x8E, 0xE6, 0x00, 0xC0, 0x0C, 0x20, 0x53, 0x65}};
constexpr Guid kContentDescription = {{0x33, 0x26, 0xB2, 0x75, 0x8E, 0x66, 0xCF, 0x11, 0xA6, 0xD9, 0x00, 0xAA, 0x00, 0x62, 0xCE, 0x6C}};
constexpr Guid kExtContentDescription = {{0x40, 0xA4, 0xD0, 0xD2, 0x07, 0xE3, 0xD2, 0x11, 0x97, 0xF0, 0x00, 0xA0, 0xC9, 0x5E, 0xA8, 0x50}};
constexpr Guid kCodecList = {{0x40, 0x52, 0xD1, 0x86, 0x1D, 0x31, 0xD0, 0x11, 0xA3, 0xA4, 0x00, 0xA0, 0xC9, 0x03, 0x48, 0xF6}};
constexpr Guid kHeaderExtension = {{0xB5, 0x03, 0xBF, 0x5F, 0x2E, 0xA9, 0xCF, 0x11, 0x8E, 0xE3, 0x00, 0xC0, 0x0C, 0x20, 0x53, 0x65}};
constexpr Guid kReserved1 = {{0x11, 0xD2, 0xD3, 0xAB, 0xBA, 0xA9, 0xCF, 0x11, 0x8E, 0xE6, 0x00, 0xC0, 0x0C, 0x20, 0x53, 0x65}};
constexpr Guid kAudioMedia = {{0x40, 0x9E, 0x69, 0xF8, 0x4D, 0x5B, 0xCF, 0x11, 0xA8, 0xFD, 0x00, 0x80, 0x5F, 0x5C, 0x44, 0x2B}};
constexpr Guid kVideoMedia = {{0xC0, 0xEF, 0x19, 0xBC, 0x4D, 0x5B, 0xCF, 0x11, 0xA8, 0xFD, 0x00, 0x80, 0x5F, 0x5C, 0x44, 0x2B}};

// What the header scan does with an object it meets: where it keeps it and
// how far it steps. An object that is smaller than minSize or runs past the
// end of the file is no object: the scan steps one byte on.
enum class Slot { Data, FileProperties, Content, ExtContent, Stream, CodecList };
enum class Step {
    DataHeader, // over the Data Object's fixed part, whose 26 bytes behind the size are kept
    SizeLess2,  // the object size less 2
    Size,       // the whole object
};
struct ObjectRow
{
    const Guid *guid;
    Slot slot;
    Step step;
    quint64 minSize;
};
constexpr quint64 kObjectHeader = 24; // GUID and 64-bit size
constexpr quint64 kSizeAt = 16;
constexpr quint64 kDataHeader = 50;   // GUID, size, file ID, packet count, 2 reserved bytes
constexpr quint64 kDataIdAt = 24, kDataIdBytes = 26;
constexpr quint64 kFilePropertiesMin = 104;
constexpr quint64 kMediaTypeAt = 24, kStreamMin = 40;
constexpr ObjectRow kObjects[] = {
    {&kDataObject, Slot::Data, Step::DataHeader, kDataHeader},
    {&kFileProperties, Slot::FileProperties, Step::SizeLess2, kFilePropertiesMin},
    {&kContentDescription, Slot::Content, Step::Size, kObjectHeader},
    {&kExtContentDescription, Slot::ExtContent, Step::Size, kObjectHeader},
    {&kStreamProperties, Slot::Stream, Step::Size, kStreamMin},
    {&kCodecList, Slot::CodecList, Step::Size, kObjectHeader},
};
constexpr quint64 kScanLimit = 0x100000; // the header must start within this

// File Properties fields, from the object's start.
constexpr quint64 kPacketCountAt = 56, kPlayDurationAt = 64, kMaxPacketSizeAt = 96;

// The rebuilt file: Header Object (GUID, size, count, two reserved bytes),
// File Properties, an empty Header Extension, the kept objects, the Data Object.
constexpr quint32 kHeaderCount = 7;
constexpr quint8 kHeaderReserved[2] = {0x01, 0x02};
constexpr quint64 kHeaderObjectFixed = 30;
constexpr quint64 kHeaderSizeAt = 16;
constexpr quint64 kOutPlayDurationAt = kHeaderObjectFixed + kPlayDurationAt; // 94
constexpr quint64 kEmptyExtensionSize = 46; // GUID, size, reserved GUID, 6 as 16 bits, 0 data bytes
constexpr quint16 kExtensionReserved2 = 6;

// A data packet opens with 82 00 00 or 82 00 01, and the next one, a packet
// size on, with 82. Its send time (milliseconds) is read 5 bytes in.
constexpr quint8 kPacketLead = 0x82;
constexpr quint8 kPacketThird[2] = {0x00, 0x01};
constexpr quint64 kSendTimeAt = 5;
constexpr quint64 kMinPacket = kSendTimeAt + 4;
constexpr quint64 kSendTimeTo100ns = 10000;

// Progress range of the packet scan: this for files below the bound, else the bound.
constexpr quint64 kSmallRange = 5000000, kLargeRange = 0x6400000;
constexpr quint64 kCopyBlock = 0x100000;
constexpr quint32 kDefaultFps = 30;

} // namespace asf

namespace mkv {

// Element IDs, bytes in file order.
constexpr char kEbmlHead[] = "\x1A\x45\xDF\xA3", kSegment[] = "\x18\x53\x80\x67", kSeekHead[] = "\x11\x4D\x9B\x74";
constexpr char kInfo[] = "\x15\x49\xA9\x66", kTracks[] = "\x16\x54\xAE\x6B", kCluster[] = "\x1F\x43\xB6\x75";
constexpr char kCues[] = "\x1C\x53\xBB\x6B", kTags[] = "\x12\x54\xC3\x67";
constexpr quint8 kDuration[2] = {0x44, 0x89};
constexpr quint8 kTimecode = 0xE7, kSimpleBlock = 0xA3, kVoid = 0xEC;
constexpr quint8 kCodecPrivateByte = 'c'; // 63 A2, CodecPrivate
// A SeekID of 4 bytes (53 AB 84) names the element behind it without being it;
// so does a SeekPosition (53 AC 82 / 53 AC 83) behind a Cluster ID.
constexpr quint8 kSeekIdEntry[3] = {0x53, 0xAB, 0x84};
constexpr quint8 kSeekPosition[2] = {0x53, 0xAC};
constexpr quint8 kSeekPositionSizes[] = {0x82, 0x83};
constexpr quint8 kFloatSizes[] = {0x84, 0x88}; // the Duration's size byte: 4 or 8

// The elements each kind may be followed by, to be taken; a Void (EC) always may.
constexpr const char *kAfterHead[] = {kTracks, kInfo, kCluster, kCues, kTags, kSegment};
constexpr const char *kAfterCluster[] = {kCluster, kCues};

constexpr char kAvcCodecId[] = "V_MPEG4/ISO/AVC";
constexpr size_t kAvcCodecIdLen = sizeof kAvcCodecId - 1;
constexpr quint64 kSmallFile = 0xA00000;      // up to this size the codec ID isn't sought
constexpr quint64 kCodecSearchShare = 100;    // the codec ID is sought in the first 1%
constexpr quint64 kHeadSearchSteps = 100000;  // Info and Tracks: steps past the last hit
constexpr quint64 kCodecPrivateReach = 0x200000;
constexpr quint8 kSpsBytes[] = {0x67, 0x27};
constexpr quint64 kMaxParameterSet = 0x1000;  // an SPS or PPS larger than this is no record

// The new file: its EBML head (WebM), the segment size field's first byte,
// a SeekHead naming Info and Tracks, and a Void.
constexpr quint8 kWebmHead[43] = {0x1A, 0x45, 0xDF, 0xA3, 0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
                                  0x1F, 0x42, 0x86, 0x81, 0x01, 0x42, 0xF7, 0x81, 0x01, 0x42, 0xF2,
                                  0x81, 0x04, 0x42, 0xF3, 0x81, 0x08, 0x42, 0x82, 0x84, 'w',  'e',
                                  'b',  'm',  0x42, 0x87, 0x81, 0x02, 0x42, 0x85, 0x81, 0x02};
constexpr quint8 kEightByteSize = 0x01;     // first byte of an 8-byte size field
// 33 bytes; the Tracks position (2 bytes, big-endian) follows.
constexpr quint8 kSeekHeadBytes[33] = {0x11, 0x4D, 0x9B, 0x74, 0x9E,                    // SeekHead, 30
                                       0x4D, 0xBB, 0x8C, 0x53, 0xAB, 0x84, 0x15, 0x49, // Seek: Info
                                       0xA9, 0x66, 0x53, 0xAC, 0x82, 0x00, 0xE5,       // at 229
                                       0x4D, 0xBB, 0x8C, 0x53, 0xAB, 0x84, 0x16, 0x54, // Seek: Tracks
                                       0xAE, 0x6B, 0x53, 0xAC, 0x82};
constexpr quint8 kVoidHead[9] = {0xEC, 0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xB9};
constexpr quint64 kVoidZeros = 185;
constexpr quint64 kSegmentPrefix = 229;     // SeekHead (35) and Void (194) before Info
constexpr quint64 kInfoHead = 12;           // Info ID and 8-byte size
constexpr quint64 kDurationBytes = 7;       // 44 89 84 and a 4-byte float
constexpr quint64 kTracksAfterInfo = kSegmentPrefix + kInfoHead + kDurationBytes; // 248 + Info stretches
constexpr quint8 kDurationHead[3] = {0x44, 0x89, 0x84};

// The block carve.
constexpr quint8 kVideoTrack = 0x81, kAudioTrack = 0x82;
constexpr quint64 kBlockHead = 4;           // track byte, 2-byte timecode, flags
constexpr quint8 kAud[5] = {0x00, 0x00, 0x00, 0x02, 0x09};
constexpr quint8 kNalHeads[] = {0x01, 0x06, 0x0C, 0x0E, 0x21, 0x25, 0x27, 0x28,
                                0x41, 0x4E, 0x61, 0x65, 0x67, 0x68};
constexpr quint8 kClusterPrefix[3] = {0x1F, 0x43, 0xB6};
constexpr quint64 kClusterSkip = 17;        // past a Cluster's ID, size and timecode
constexpr quint64 kMaxAdtsPayload = 8185;   // a block this large or larger...
constexpr quint64 kOversizeAudio = 300;     // ...gives only this many bytes
constexpr qint64 kPercentRange = 100;
constexpr size_t kLookAhead = 64;           // where the next cluster is sought first

} // namespace mkv

namespace ts {

constexpr int kPacket = 188;          // a transport packet
constexpr int kMtsPacket = 192;       // with the 4-byte time header in front
constexpr int kMtsHeader = 4;
constexpr quint8 kSync = 0x47;
constexpr int kSyncRun = 4;           // syncs in a row at packet distance that mark a stream

// The fixed packets an MTS gets in front and again between its packets:
// PAT, PMT (H.264 on 0x1011, AC-3 on 0x1100, "HDMV"), SIT and PCR. Each is
// filled up with FF to 192 bytes.
constexpr quint8 kMtsPat[] = {0x00, 0x00, 0x00, 0x00, 0x47, 0x40, 0x00, 0x10, 0x00, 0x00, 0xB0, 0x11, 0x00, 0x00,
                              0xC1, 0x00, 0x00, 0x00, 0x00, 0xE0, 0x1F, 0x00, 0x01, 0xE1, 0x00, 0x23, 0x5A, 0xAB, 0x82};
constexpr quint8 kMtsPmt[] = {
    0x00, 0x00, 0x00, 0x00, 0x47, 0x41, 0x00, 0x10, 0x00, 0x02, 0xB0, 0x39, 0x00, 0x01, 0xC1, 0x00, 0x00, 0xF0,
    0x01, 0xF0, 0x0C, 0x05, 0x04, 0x48, 0x44, 0x4D, 0x56, 0x88, 0x04, 0x0F, 0xFF, 0xFC, 0xFC, 0x1B, 0xF0, 0x11,
    0xF0, 0x0A, 0x05, 0x08, 0x48, 0x44, 0x4D, 0x56, 0xFF, 0x1B, 0x56, 0x3F, 0x81, 0xF1, 0x00, 0xF0, 0x0C, 0x05,
    0x04, 0x41, 0x43, 0x2D, 0x33, 0x81, 0x04, 0x04, 0x28, 0x05, 0x00, 0x95, 0x65, 0xB4, 0x0F};
constexpr quint8 kMtsSit[] = {0x00, 0x00, 0x00, 0x00, 0x47, 0x40, 0x1F, 0x10, 0x00, 0x7F, 0xF0, 0x19, 0xFF,
                              0xFF, 0xC1, 0x00, 0x00, 0xF0, 0x0A, 0x63, 0x08, 0xC0, 0xAF, 0xC8, 0xFF, 0xFF,
                              0xFF, 0xFF, 0xFF, 0x00, 0x01, 0x80, 0x00, 0xAE, 0xB4, 0x3A, 0x35};
constexpr quint8 kMtsPcr[] = {0x00, 0x00, 0x00, 0x00, 0x47, 0x10, 0x01, 0x20,
                              0xB7, 0x10, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00};

// MTS packet classes by their bytes at the sync. A packet start (payload
// unit start) of video or sound counts towards the tables written again.
enum class MtsClass : quint8 { None, Table, Video, Sound };
struct MtsPattern
{
    quint8 bytes[4];
    int length; // 3, or 4 for the PCR packet
    MtsClass cls;
    bool start;
};
constexpr MtsPattern kMtsClasses[] = {
    {{0x47, 0x40, 0x00}, 3, MtsClass::Table, false}, {{0x47, 0x41, 0x00}, 3, MtsClass::Table, false},
    {{0x47, 0x40, 0x1F}, 3, MtsClass::Table, false}, {{0x47, 0x10, 0x01, 0x20}, 4, MtsClass::Table, false},
    {{0x47, 0x10, 0x11}, 3, MtsClass::Video, false}, {{0x47, 0x50, 0x11}, 3, MtsClass::Video, true},
    {{0x47, 0x30, 0x11}, 3, MtsClass::Video, false}, {{0x47, 0x70, 0x11}, 3, MtsClass::Video, false},
    {{0x47, 0x31, 0x00}, 3, MtsClass::Sound, false}, {{0x47, 0x71, 0x00}, 3, MtsClass::Sound, true},
};
// A file with its own tables: PAT at the first sync, the PCR packet at the fourth.
constexpr quint64 kMtsOwnPatAt = 4, kMtsOwnPcrAt = 580;
constexpr char kMtsOwnPat[] = "\x47\x40\x00", kMtsOwnPcr[] = "\x47\x10\x01\x20";
constexpr quint64 kMtsFilterFrom = 750;  // behind the first four packets, where the fixed ones stand
constexpr quint64 kMtsTableSkip = 190;   // and 1 more: a table packet moves the filter on by 191
constexpr int kMtsStartsPerTables = 7;   // PAT and PMT again after this many packet starts
constexpr int kMtsTablesPerSit = 10;     // SIT and PCR after this many PAT+PMT pairs
constexpr quint64 kMtsSmallFile = 0x6400000;
constexpr qint64 kMtsRangeSmall = 50000, kMtsRangeLarge = 5000000;

// Transport stream inside a file of the atom path.
constexpr char kPatHeader[] = "\x47\x40\x00\x10"; // a packet with the PAT: ffmpeg reads the file as it is
constexpr int kRemuxLook = 1000;
constexpr int kPatPmtPidAt = 15;         // PMT PID in a PAT packet (13 bits at 15..16)
constexpr int kPmtInfoLengthAt = 16;     // program info length (low byte): L
constexpr int kPmtFirstEntry = 17;       // + L: stream type, PID (2), ES info length (2)
constexpr int kPmtEntryHead = 5;
constexpr quint8 kStreamH264 = 27, kStreamAac = 15;
constexpr int kPayloadAt = 4;
constexpr int kPesHeadLengthAt = 8;      // PES header data length; the payload starts 9 further
constexpr int kPesFixedHead = 9;
constexpr char kPesVideo[] = "\x00\x00\x01\xE0";
constexpr int kProgressPackets = 2000;
constexpr int kAdtsHead = 6;             // bytes needed to read a frame's length
constexpr int kAdtsMinFrame = 7;
constexpr int kAdtsMaxFrame = 8191;      // 13 bits

} // namespace ts

namespace mpegps {

// Start codes, bytes in file order.
constexpr char kPackHeader[] = "\x00\x00\x01\xBA", kSystemHeader[] = "\x00\x00\x01\xBB";
constexpr char kSequenceHeader[] = "\x00\x00\x01\xB3", kGroupStart[] = "\x00\x00\x01\xB8";
constexpr char kUserData[] = "\x00\x00\x01\xB2", kExtension[] = "\x00\x00\x01\xB5";
constexpr char kSoundPacket[] = "\x00\x00\x01\xC0", kVideoPacket[] = "\x00\x00\x01\xE0";

// A system header counts when its first stream entry (at + 12) is one of these.
constexpr quint64 kSystemEntryAt = 12, kSystemRatesAt = 6;
constexpr int kSystemRates = 6;
constexpr quint8 kSystemEntries[][2] = {{0xC0, 0xC0}, {0xE0, 0xE0}, {0xB9, 0xE0}};
// The system header written where a pack has none: code, length 12, the rate
// fields, then video E0 and sound C0 entries.
constexpr quint8 kSystemLength[] = {0x00, 0x0C};
constexpr quint8 kSystemStreams[] = {0xE0, 0xE0, 0x2E, 0xC0, 0xC0, 0x20};
constexpr quint64 kPackKept = 12;        // an MPEG-1 pack; of an MPEG-2 one the first 12 of 14
// The sequence header: 12 bytes, or 76 with a quantiser matrix. Where the
// next code stands tells which.
constexpr int kShortSequence = 12, kLongSequence = 76;
constexpr quint64 kShortNextAt[] = {12, 13}, kLongNextAt[] = {76, 140};
constexpr int kSizeBytes = 3;            // width and height behind the code
// Between the pack and the group start, the damaged header is dropped: the
// copy ends 24 (12-byte header) or 88 (76-byte) before the group start, else 12.
constexpr quint64 kCutShort = 24, kCutLong = 88, kCutNone = 12;
constexpr int kHeaderShare = 8;          // headers are sought in the first eighth
constexpr int kGroupShare = 2;           // a group start in the first half
constexpr qint64 kProgressRange = 500000, kProgressSearch = 400000;
// User data a decoder ignores, behind the size of an elementary stream's new header.
constexpr char kElementaryBlock[] =
    "\x15\xFF\xFF\xE0\x00\x00\x00\x01\xB2"
    "MPEG stream encoded by UCB Encoder (mpeg_encode) v1.5b on Tue Oct  9 12:23:31 2001\n.";
constexpr int kElementaryBlockSize = 93;
static_assert(sizeof kElementaryBlock - 1 == kElementaryBlockSize, "the block is 93 bytes");

} // namespace mpegps
