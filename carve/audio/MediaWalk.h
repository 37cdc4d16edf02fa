#pragma once
// What every splitter does before and around its own tests: the top-level
// atoms stepped over before the media data, blank blocks, and the check that
// an atom met in the media data really encloses what its size says.

#include "carve/video/CarveConstants.h"
#include "carve/video/CarverArgs.h"
#include "repair/BufferedReader.h"
#include "repair/StageProgress.h"

#include <atomic>

struct RepairState;
class StreamOut;

namespace carve {

// The media data found by the top-level walk: atoms met inside it must stay
// inside it; elsewhere inside the file.
struct MediaSpan
{
    quint64 begin = 0, end = 0;
    bool fits(quint64 at, quint64 size) const
    {
        const quint64 limit = at >= begin && at < end ? end : fileSize;
        return size >= kAtomHeader && at <= limit && size <= limit - at;
    }
    quint64 fileSize = 0;
};

// True where the four bytes at p + 4 are one of the top-level tags stepped over.
bool IsSkipTag(BufferedReader &f, quint64 p);
// Whether an atom's tag (one stepped over, or "mdat") can open with c: scans
// that ask at every byte look at this first.
constexpr bool MayOpenTag(quint8 c)
{
    return c == 'f' || c == 'w' || c == 'p' || c == 'm' || c == 'u' || c == 's';
}

// The top-level atoms before the media data; returns where the scan starts.
// "mdat" of size 1 moves on by 16 in the branch for video alone, by size + 15
// (so 15 or 16) elsewhere.
quint64 TopLevelWalk(BufferedReader &f, MediaSpan &span, bool videoOnlyBranch, const std::atomic<bool> &stop);

// The size of the top-level atom whose tag stands at p + 4 ("mdat": its
// header only, 8 or 16 bytes), or 0 where none that fits stands.
quint64 AtomStep(BufferedReader &f, const MediaSpan &span, quint64 p);

// The n bytes at p all 0 or all 0xFF (n at most kPaddingOuter).
bool IsPadding(BufferedReader &f, quint64 p, int n);

// The bytes at p, through the window where it holds them, else copied into tmp.
inline const quint8 *BytesAt(BufferedReader &f, quint64 p, quint8 *tmp, size_t n)
{
    if (const quint8 *b = f.peek(p, n))
        return b;
    f.readAt(p, tmp, n);
    return tmp;
}

// The plumbing every splitter shares: the video work file (named `videoFile`
// unless a stage before named it) and the damaged file opened, the progress
// in percent, and the verdict on streams that lost bytes on the way to disk.
BufferedReader &OpenSplit(CarverArgs &args, RepairState &s, const char *videoFile);

class PercentProgress
{
public:
    PercentProgress(StageProgress *progress, quint64 size, bool setRange = true) : m_progress(progress), m_size(size)
    {
        if (m_progress && setRange)
            m_progress->setRange(100);
    }
    void operator()(quint64 pos)
    {
        const int pc = m_size ? int(qMin(pos, m_size) * 100 / m_size) : 100;
        if (pc != m_last && m_progress)
            m_progress->setValue(m_last = pc);
    }

private:
    StageProgress *m_progress;
    quint64 m_size;
    int m_last = -1;
};

// An AAC frame of n bytes from `from`, behind the ADTS header of the variant
// for that length; counted in the state's report. False when the sample's
// rate has no ADTS index.
bool WriteAdtsFrame(StreamOut &out, BufferedReader &f, quint64 from, quint64 n, RepairState &s, int variant);

// True, with the reason noted, when the video or the sound stream (either
// may be null) lost bytes: such streams make no result.
bool StreamsFailed(const StreamOut *video, const StreamOut *sound, RepairState &s, const QString &fileName);

} // namespace carve
