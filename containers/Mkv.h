#pragma once
// Matroska and WebM repair, as stages over a BufferedReader:
// - a search for the H.264 codec ID, which tells whether ffmpeg can remux the
//   file or, with a sample, its blocks are carved;
// - the carve: SPS and PPS from the sample, then every SimpleBlock of the
//   damaged file, picture by its NAL units, sound behind ADTS headers;
// - the rebuild: Info and Tracks found by a byte search (in the file or a
//   sample), clusters listed into the work log, and a new WebM file written
//   from a fixed head, those two elements and the clusters.
// The searches compare bytes at each position rather than walk the element
// tree, so that damage doesn't stop them.

#include <QByteArray>
#include <QString>
#include <QtGlobal>
#include <atomic>

class BufferedReader;
class QIODevice;
class RepairLine;
class StageProgress;
struct RepairState;

namespace mkv {

// An EBML size field: its length in bytes (1 to 8; 0 for a first byte of 0,
// which starts no size) and its value with the length marker cleared.
struct EbmlSize
{
    int length = 0;
    quint64 value = 0;
};
EbmlSize ReadEbmlSize(BufferedReader &file, quint64 pos);

// Which elements may stand behind an element for it to be taken.
enum class Follows { Info, Tracks, Cluster };
bool NextElementFits(BufferedReader &file, quint64 pos, Follows row);

constexpr quint64 kNotFound = ~quint64(0);

// Where "V_MPEG4/ISO/AVC" first stands before `limit`; kNotFound when not.
quint64 FindAvcCodecId(BufferedReader &file, quint64 limit, StageProgress *progress, const std::atomic<bool> &stop);

// Info and Tracks as the byte search found them. Info is noted as the stretch
// of its data before the Duration element and the stretch behind it (all of
// its data, when it has none).
struct Heads
{
    bool info = false, tracks = false;
    quint64 beforePos = 0, beforeLen = 0;
    quint64 afterPos = 0, afterLen = 0;
    quint64 tracksPos = 0, tracksLen = 0; // the whole element
    bool found() const { return info && tracks; }
    // Bytes the new file's Info takes: ID, size and Duration included.
    quint64 infoWritten() const;
};
// Searches from offset 0 until both are found, the end of `size`, or more
// than 100000 positions past the last hit.
Heads FindHeads(BufferedReader &file, quint64 size, const std::atomic<bool> &stop);

struct ClusterList
{
    quint64 clusters = 0;
    quint64 bytes = 0; // the listed clusters' lengths
    bool timecodes = false;
    quint64 firstTimecode = 0, lastTimecode = 0;
    bool written = true; // false when the log refused a line
};
// Lists every cluster of `file` from `from` as a ciphered "offset length"
// line in `log`.
ClusterList ListClusters(BufferedReader &file, quint64 from, QIODevice &log, RepairLine &cipher,
                         StageProgress *progress, const std::atomic<bool> &stop);

// Writes the new file at outPath: head, Segment, SeekHead, Void, Info (from
// `heads` in `infoFile`) with a Duration of last - first timecode, Tracks,
// then the clusters the log lists, copied from `media`; Tracks from `tracksFile`. Empty on success,
// else what went wrong; no partial file is left then.
QString WriteFile(const QString &outPath, const Heads &heads, BufferedReader &infoFile, BufferedReader &tracksFile,
                  BufferedReader &media, const QString &logPath, const ClusterList &clusters,
                  const std::atomic<bool> &stop);

// The SPS and PPS of the CodecPrivate behind the codec ID at `codecId`, each
// behind a start code; empty when none is there.
QByteArray ParameterSets(BufferedReader &file, quint64 codecId);

// Width of a SimpleBlock's size field by its first byte S, the value of that
// byte with the marker removed, and where the track byte stands from the A3.
struct BlockSize
{
    int width;
    quint8 high;
    int trackAt;
};
BlockSize BlockSizeOf(quint8 s);

struct Carved
{
    quint64 videoUnits = 0, videoBytes = 0;
    quint64 audioFrames = 0, audioBytes = 0;
    bool written = true; // false when a work file refused bytes
};
// Walks `file` from its first Cluster, writing each picture NAL unit behind a
// start code to `video` and each sound block behind an ADTS header (built on
// `state`, at 48000 Hz) to `audio`.
Carved CarveBlocks(BufferedReader &file, QIODevice &video, QIODevice &audio, RepairState &state,
                   StageProgress *progress, const std::atomic<bool> &stop);

} // namespace mkv
