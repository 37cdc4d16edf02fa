#pragma once
// Transport streams. An AVCHD recording (.MTS: 192-byte packets, a 4-byte
// time header in front of each, fixed PIDs) is filtered packet by packet into
// a clean file with its tables in front. A transport stream inside a file of
// the atom path is taken apart into its H.264 and ADTS streams.

#include <QString>
#include <QtGlobal>
#include <atomic>

class BufferedReader;
class QFile;
class StageProgress;

namespace ts {

struct MtsResult
{
    bool ownTables = false; // copied as it stands, behind its own tables
    quint64 packets = 0;    // packets taken from the file
    quint64 bytes = 0;      // bytes written, fixed packets included
    bool failed = false;    // a write failed
    QString errorText;
};

// Writes the packets of `src` to `out`, which must be open for writing.
MtsResult FilterMts(BufferedReader &src, QFile &out, const std::atomic<bool> &stop, StageProgress *progress);

struct DemuxResult
{
    bool synced = false;    // a run of packets was found
    quint64 packets = 0;
    quint64 videoPackets = 0, videoBytes = 0;
    quint64 audioFrames = 0, audioBytes = 0;
    int error = 0;
    QString errorText;
};

// The first position at or after `from` where kSyncRun sync bytes stand a
// packet apart; the file's size when there is none.
quint64 FindSync(BufferedReader &src, quint64 from);

// Video PES payloads to `video`, whole ADTS frames to `audio`; a null or
// closed sink gets nothing.
DemuxResult Demux(BufferedReader &src, QFile *video, QFile *audio, const std::atomic<bool> &stop,
                  StageProgress *progress);

} // namespace ts
