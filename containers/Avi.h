#pragma once
// AVI repair: find the stream headers (in the damaged file or a sample),
// list every movie chunk a byte scan finds, and write a fresh RIFF file with
// a new header, the chunks in file order and a new idx1. No muxer.
//
// The chunk list goes to the ciphered work log, one "offset size" line per
// chunk, and the index entries to a work file, so a long recording costs no
// memory.

#include <QString>
#include <QtGlobal>
#include <atomic>

class BufferedReader;
class QIODevice;
class RepairLine;
class StageProgress;

namespace avi {

// Where one stream's headers stand: B is its "strl" tag, H its strh size.
struct StreamPlace
{
    bool found = false;    // "strl" "strh" with a format chunk behind it
    bool complete = false; // and a known tag behind the format
    quint64 strl = 0;
    quint32 strhSize = 0;
    quint32 formatSize = 0;
};

struct Headers
{
    StreamPlace video, sound;
    // Video found and complete; with sound chunks, sound too.
    bool meets(bool withSound) const;
};

// "01wb" anywhere in the first tenth of the file.
bool HasSoundChunks(BufferedReader &file, quint64 size, StageProgress *progress);

// The stream headers in the first tenth of `file`; the search ends once every
// stream it needs is complete.
Headers FindHeaders(BufferedReader &file, quint64 size, bool withSound, StageProgress *progress,
                    const std::atomic<bool> &stop);

struct ChunkList
{
    quint32 videoChunks = 0, soundChunks = 0;
    quint64 soundBytes = 0;
    quint64 moviSize = 0; // from the "movi" tag to the end of the last chunk
    bool written = true;  // false when the log or the index refused a line
};

// Lists the chunks of `file` to `log` ("offset size", ciphered) and their
// index entries to `index`, until "idx1", the end of the file or a stop.
ChunkList ListChunks(BufferedReader &file, quint64 size, QIODevice &log, RepairLine &cipher, QIODevice &index,
                     StageProgress *progress, const std::atomic<bool> &stop);

// The stream headers come from `headerFile` for video and sound alike.
struct Sources
{
    BufferedReader *videoHeader, *videoFormat, *soundHeader, *soundFormat;
};

// Writes the new file at outPath: the header, the chunks the log lists, read
// from `media`, and the index. Returns an empty string on success, else what
// went wrong; the partial file is then removed.
QString WriteFile(const QString &outPath, const Headers &h, const Sources &from, BufferedReader &media,
                  const ChunkList &chunks, bool withSound, const QString &logPath, const QString &indexPath,
                  const std::atomic<bool> &stop);

} // namespace avi
