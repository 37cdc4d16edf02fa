#pragma once
// ASF and WMV files. The header scan keeps the objects a fresh file needs
// (File Properties, one audio and one video Stream Properties, Codec List,
// the content descriptions, the Data Object's fixed fields); the rebuild
// writes a new header from them and appends every whole data packet of the
// damaged file; the join puts a remuxed file's header in front of the
// damaged file's packets. Each is a function over a reader, an output path,
// a progress and a stop flag; ThreadVideoRepair wraps them.

#include <QByteArray>
#include <QString>
#include <QtGlobal>
#include <atomic>

class BufferedReader;
class StageProgress;

namespace asf {

struct Headers
{
    QByteArray fileProperties, content, extContent, audio, video, codecList;
    QByteArray dataId; // the 26 bytes behind the Data Object's size
    quint32 packetSize = 0;
    quint64 packetCount = 0, playDuration = 0; // duration in 100 ns
    // Position of the Data Object (0 when none was found; it never stands at 0).
    quint64 dataPos = 0;

    bool complete() const { return !fileProperties.isEmpty() && dataPos != 0 && !video.isEmpty(); }
    // The count over the duration in seconds, or 30 when either is unknown.
    quint32 frameRate() const;
    // The objects go; the packet size and the figures stay.
    void freeObjects();
};

// Scans `file` from its start, a byte at a time, for the objects, up to 1 MiB
// in or the end of the file; stops once File Properties, Data Object and a
// video stream are found. Only objects that lie wholly in the file are read.
Headers ReadHeaders(BufferedReader &file, const std::atomic<bool> &stop);

// True when a packet of packetSize starts at pos: its opening bytes, the
// whole packet in the file, and the next packet's opening or the file's end
// behind it.
bool PacketAt(BufferedReader &file, quint64 pos, quint64 packetSize);
// The first position from `from` on that passes PacketAt; the file size when none.
quint64 FirstPacket(BufferedReader &file, quint64 from, quint64 packetSize, const std::atomic<bool> &stop);

struct Rebuilt
{
    bool written = false; // the file is complete on the disk
    quint64 packets = 0, packetBytes = 0;
    quint64 headerSize = 0, dataSize = 0;
    quint32 maxSendTime = 0;
};

// Writes outPath: the header from h, then each whole packet of `damaged`,
// with the header size, the play duration and the data size filled in. A
// failed write, a stop or a file without packets leaves no file.
Rebuilt WriteFresh(const Headers &h, BufferedReader &damaged, const QString &outPath, StageProgress *progress,
                   const std::atomic<bool> &stop);

// Writes outPath: what precedes the first packet of `remuxed` (which must
// hold a Data Object), then `damaged` from its first packet of packetSize to
// its end. False, and no file, when there is nothing to join or a write fails.
bool Join(BufferedReader &remuxed, BufferedReader &damaged, quint64 packetSize, const QString &outPath,
          const std::atomic<bool> &stop);

} // namespace asf
