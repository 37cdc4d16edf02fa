#pragma once
// MPEG program streams that lost their start: the pack, system and sequence
// headers are taken from the file's own first bytes or from a sample, and a
// new file is written with a fresh start and the rest of the stream behind it.

#include <QByteArray>
#include <QString>
#include <QtGlobal>
#include <atomic>

class BufferedReader;

namespace mpegps {

constexpr quint64 kNone = ~quint64(0);

// The first position in [from, end) of a 4-byte start code, or kNone.
quint64 FindCode(BufferedReader &f, quint64 from, quint64 end, const char *code, const std::atomic<bool> &stop);

struct Headers
{
    bool systemCounts = false;  // a system header whose first entry is one of the known
    quint8 rates[6] = {};       // its rate fields
    quint8 size[3] = {};        // width and height behind an elementary stream's header
    QByteArray sequence;        // the sequence header kept: 12 or 76 bytes
};

// The sequence header of an elementary stream in the first eighth of `size`: its 3 size bytes.
bool ReadElementaryHeader(BufferedReader &f, quint64 size, Headers &h, const std::atomic<bool> &stop);
// The system header in the first eighth of `limit`.
bool ReadSystemHeader(BufferedReader &f, quint64 limit, Headers &h, const std::atomic<bool> &stop);
// The first sequence header in the first eighth of `size` whose length the
// code behind it tells.
bool ReadSequenceHeader(BufferedReader &f, quint64 size, Headers &h, const std::atomic<bool> &stop);

struct WriteResult
{
    bool written = false; // false with no error: no pack header or group start, no file
    QString error;        // a write that failed; the file is gone
};

// Writes `path` from `src`: with `packed` the pack, a system header where
// none follows it, the stretch up to the damaged sequence header, the kept
// one and the rest from the group start; without, the elementary stream's new
// header and the rest from its group start in the first half of `fileLeft`.
WriteResult WriteMpegFile(BufferedReader &src, quint64 fileLeft, const QString &path, bool packed,
                          const Headers &h, const std::atomic<bool> &stop);

} // namespace mpegps
