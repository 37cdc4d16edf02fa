#pragma once
// FLV repair: a scan lists the whole tags of the damaged file in the work
// log ("offset size" lines, size being the trailing tag size P), from the
// first key frame on; the output is a new file head and metadata script tag,
// then each listed tag copied with its trailing size.

#include <QString>
#include <QtGlobal>
#include <atomic>

class BufferedReader;
class QFile;
class StageProgress;

namespace flv {

struct Result
{
    bool videoSeen = false;  // a whole video tag was met, taken or not
    quint64 videoTags = 0;   // tags listed and copied
    quint64 soundTags = 0;
    quint64 passedTags = 0;  // whole tags before the first key frame
    quint64 tagBytes = 0;    // bytes of the listed tags, trailing sizes included
    double duration = 0;     // whole seconds between the first and last tag taken
    bool fullMeta = false;   // the old script tag was whole; its values were copied
    bool written = false;    // the output is complete at its path
    QString error;           // why the output could not be written
};

// Scans `src`, lists the tags in `log` (left closed afterwards) and writes
// `outPath`. No output (written false) for a file without whole video tags,
// one of fewer than kMinFileSize bytes, a stop, an output that would be the
// source itself, or a failed write; then nothing is left at outPath.
Result Repair(BufferedReader &src, QFile &log, const QString &outPath, const std::atomic<bool> &stop,
              StageProgress *progress);

// The size written in the new script tag's head: its data, head excluded.
quint32 MetaDataSize(bool full);

} // namespace flv
