#include "containers/StreamScan.h"

#include "carve/video/CarveStages.h"
#include "containers/ContainerConstants.h"
#include "rebuild/PlacedPieces.h"
#include "repair/BufferedReader.h"
#include "repair/RepairLine.h"
#include "repair/ThreadVideoRepair.h"

#include <QIODevice>
#include <cstring>
#include <iterator>

namespace streamscan {

namespace {

constexpr quint64 kNone = ~quint64(0);
constexpr int kLogFlushBytes = 64 << 10;

bool matches(const quint8 *b, const Pattern &p)
{
    for (int i = 0; i < 4; ++i)
        if ((b[i] ^ p.bytes[i]) & p.mask[i])
            return false;
    return true;
}

// The patterns one search looks for, in the order they are tested at a
// position; a match is reported by its index in that order.
class PatternSet
{
public:
    PatternSet &add(const Pattern &p)
    {
        m_patterns[m_count++] = &p;
        for (int b = 0; b < 256; ++b)
            if (((b ^ p.bytes[0]) & p.mask[0]) == 0)
                m_lead[b] = true;
        m_oneLead = -1;
        int leads = 0;
        for (int b = 0; b < 256; ++b)
            if (m_lead[b] && ++leads == 1)
                m_oneLead = b;
        if (leads != 1)
            m_oneLead = -1;
        return *this;
    }
    template <size_t N>
    PatternSet &add(const Pattern (&ps)[N])
    {
        for (const Pattern &p : ps)
            add(p);
        return *this;
    }
    int match(const quint8 *b) const
    {
        if (!m_lead[b[0]])
            return -1;
        for (int i = 0; i < m_count; ++i)
            if (matches(b, *m_patterns[i]))
                return i;
        return -1;
    }
    bool lead(quint8 b) const { return m_lead[b]; }
    int oneLead() const { return m_oneLead; } // the only first byte, or -1

private:
    const Pattern *m_patterns[16] = {};
    int m_count = 0;
    bool m_lead[256] = {};
    int m_oneLead = -1;
};

// The walk skeleton the three scanners share: reads through the buffered
// reader, writes the ciphered lines, reports progress and tests the stop.
class Walk
{
public:
    Walk(BufferedReader &f, QIODevice *log, const std::atomic<bool> &stop, StageProgress *progress,
         quint64 rangeCap, rebuild::PlacedPieces *pieces)
        : m_file(f), m_size(f.size()), m_log(log && log->isOpen() ? log : nullptr), m_stop(stop),
          m_progress(progress), m_range(qMin(m_size, rangeCap)), m_pieces(pieces)
    {
        if (m_progress)
            m_progress->setRange(qint64(m_range));
    }
    ~Walk() { flush(); }

    quint64 size() const { return m_size; }
    bool stopped() const { return m_stop.load(std::memory_order_relaxed); }
    quint8 u8(quint64 pos) { return m_file.u8(pos); }
    // The 32-bit size in front of a tag at pos (0 where there is none).
    quint64 sizeBefore(quint64 pos) { return pos >= 4 ? m_file.be32(pos - 4) : 0; }
    quint32 be32(quint64 pos) { return m_file.be32(pos); }
    bool at(quint64 pos, const Pattern &p)
    {
        const quint8 *b = testable(pos) ? m_file.peek(pos, 4) : nullptr;
        return b && matches(b, p);
    }

    // The first position from `from` on where one of the set matches, with
    // its index in *which; kNone at the end of the file or on a stop.
    quint64 find(quint64 from, const PatternSet &set, int *which)
    {
        for (quint64 p = from; testable(p);) {
            if (stopped())
                return kNone;
            size_t len = 0;
            const quint8 *b = m_file.span(p, &len);
            if (!b)
                return kNone;
            // Positions whose four bytes all lie in this window.
            const size_t n = size_t(qMin<quint64>(len >= 4 ? len - 3 : 0, m_size - 3 - p));
            if (n == 0) {
                const quint8 *q = m_file.peek(p, 4);
                if (q && (*which = set.match(q)) >= 0)
                    return p;
                ++p;
                continue;
            }
            size_t i = 0;
            while (i < n) {
                if (set.oneLead() >= 0) {
                    const void *hit = std::memchr(b + i, set.oneLead(), n - i);
                    if (!hit)
                        break;
                    i = size_t(static_cast<const quint8 *>(hit) - b);
                } else if (!set.lead(b[i])) {
                    ++i;
                    continue;
                }
                if ((*which = set.match(b + i)) >= 0)
                    return p + i;
                ++i;
            }
            p += n;
        }
        return kNone;
    }

    void video(quint64 pos, quint64 size)
    {
        ++found.videoPieces;
        found.videoBytes += size;
        line("AVC(Vide)", pos, size);
    }
    void sound(quint64 pos, quint64 size)
    {
        ++found.soundPieces;
        found.soundBytes += size;
        line("AAC(soun)", pos, size);
    }
    // At most about a thousand values a walk: a file of small frames would
    // otherwise flood the window with them.
    void progress(quint64 pos)
    {
        if (!m_progress || pos >= m_range || (pos < m_shown + m_range / 1024 && m_shown))
            return;
        m_shown = pos;
        m_progress->setValue(qint64(pos));
    }

    Found found;

private:
    bool testable(quint64 pos) const { return m_size >= 4 && pos <= m_size - 4; }
    void line(const char *label, quint64 pos, quint64 size)
    {
        if (!m_log)
            return;
        if (m_pieces)
            m_pieces->add(pos, size);
        m_pending += m_cipher.EncryptLine(QStringLiteral("%1 at = %2 Size = %3")
                                              .arg(QLatin1String(label)).arg(pos).arg(size)).toLatin1();
        m_pending += "\r\n";
        if (m_pending.size() >= kLogFlushBytes)
            flush();
    }
    void flush()
    {
        if (m_log && !m_pending.isEmpty())
            m_log->write(m_pending);
        m_pending.clear();
    }

    BufferedReader &m_file;
    const quint64 m_size;
    QIODevice *m_log;
    const std::atomic<bool> &m_stop;
    StageProgress *m_progress;
    const quint64 m_range;
    rebuild::PlacedPieces *m_pieces;
    quint64 m_shown = 0;
    RepairLine m_cipher;
    QByteArray m_pending;
};

quint32 amrFrameSize(quint8 head)
{
    for (const AmrFrame &a : kAmrFrames)
        if (a.head == head)
            return a.size;
    return 0;
}

// 3GP: a picture runs to the next picture start (or to "moov", or the end of
// the file), less the AMR frames in front of that start; those follow as
// sound pieces.
void Walk3gp(Walk &w)
{
    constexpr int kAtoms = int(std::size(k3gpAtoms));
    PatternSet outer, next;
    outer.add(kMoov).add(k3gpAtoms).add(k3gpFrameStarts);
    next.add(kMoov).add(k3gpFrameStarts);
    int which = 0;
    for (quint64 p = 0; (p = w.find(p, outer, &which)) != kNone;) {
        if (which == 0)
            break;
        if (which <= kAtoms) {
            const quint64 size = w.sizeBefore(p);
            p += size >= 8 ? size : 1;
            continue;
        }
        const quint64 start = p;
        const quint64 found = w.find(start + 1, next, &which);
        if (w.stopped())
            break;
        quint64 end = found == kNone ? w.size() : found;
        if (found != kNone && which == 0)
            end = end - start > 4 ? end - 4 : start + 1; // "moov" stands 4 bytes into its atom
        // Back over the sound frames in front of the next picture, one at a
        // time, the sizes tried in table order; never into the picture's start.
        quint64 cut = end;
        for (bool stepped = true; stepped;) {
            stepped = false;
            for (const AmrFrame &a : kAmrFrames) {
                if (cut - start > a.size && w.u8(cut - a.size) == a.head) {
                    cut -= a.size;
                    stepped = true;
                    break;
                }
            }
        }
        w.video(start, cut - start);
        for (quint32 n; cut < end && (n = amrFrameSize(w.u8(cut))) != 0 && n <= end - cut; cut += n)
            w.sound(cut, n);
        w.progress(end);
        if (found == kNone || which == 0)
            break;
        p = found;
    }
}

// ProRes: each frame says its size. Behind it come zero padding, the next
// frame, or a run of sound up to the next frame (or "moov").
void WalkProRes(Walk &w)
{
    PatternSet frame, runEnd;
    frame.add(kProResFrame);
    runEnd.add(kProResFrame).add(kMoov);
    int which = 0;
    for (quint64 p = 0; (p = w.find(p, frame, &which)) != kNone;) {
        w.progress(p);
        const quint64 size = w.sizeBefore(p);
        const quint64 start = p - qMin(p, kProResFrameTagAt);
        // Too small to hold its own header, or cut by the end of the file:
        // no frame; the search goes on behind the tag.
        if (p < kProResFrameTagAt || size < kProResMinFrame || size > w.size() - start) {
            p += 4;
            continue;
        }
        w.video(start, size);
        quint64 q = start + size;
        const quint64 lookEnd = qMin(q + kProResLook, w.size());
        while (q + 4 <= lookEnd && w.be32(q) == 0)
            q += 4;
        if (w.at(q + kProResFrameTagAt, kProResFrame)) {
            p = q + kProResFrameTagAt;
            continue;
        }
        const quint64 r = w.find(q, runEnd, &which);
        if (r == kNone)
            break; // sound cut by the end of the file
        // Both tags stand 4 bytes into their atom.
        if (r - q > 4)
            w.sound(q, r - 4 - q);
        if (which == 1)
            break;
        p = r;
    }
}

// Motion JPEG: a frame's end is looked for a skip on from its start: its
// end marker, or the next frame's opening.
void WalkMotionJpeg(Walk &w)
{
    constexpr int kAtoms = int(std::size(kJpegAtoms));
    PatternSet outer, frameEnd;
    outer.add(kJpegAtoms).add(kJpegOpenings);
    frameEnd.add(kJpegEnd).add(kJpegOpenings);
    quint64 skip = kJpegFirstSkip;
    int frames = 0, which = 0;
    for (quint64 p = 0; (p = w.find(p, outer, &which)) != kNone;) {
        if (which < kAtoms) {
            p += w.sizeBefore(p) + kJpegAtomStep;
            continue;
        }
        const quint64 start = p;
        if (++frames == kJpegShrinkFrame)
            skip = skip * kJpegShrinkPercent / 100;
        const quint64 e = w.find(start + skip, frameEnd, &which);
        if (e == kNone)
            break; // cut by the end of the file
        const quint64 size = (which == 0 ? e + kJpegEndSize : e) - start;
        w.video(start, size);
        if (frames == kJpegSkipFrame)
            skip = size;
        w.progress(start);
        p = start + size;
    }
}

} // namespace

Found Scan(Family family, BufferedReader &file, QIODevice *log, const std::atomic<bool> &stop,
           StageProgress *progress, rebuild::PlacedPieces *pieces)
{
    Walk w(file, log, stop, progress, family == Family::MotionJpeg ? kJpegRangeCap : kRangeCap, pieces);
    switch (family) {
    case Family::ThreeGp: Walk3gp(w); break;
    case Family::ProRes: WalkProRes(w); break;
    case Family::MotionJpeg: WalkMotionJpeg(w); break;
    }
    return w.found;
}

const char *FamilyName(Family family)
{
    switch (family) {
    case Family::ThreeGp: return "3GP";
    case Family::ProRes: return "ProRes";
    case Family::MotionJpeg: return "Motion JPEG";
    }
    return "";
}

} // namespace streamscan

namespace {

// The pieces go to the work log for the rebuild; what the scan used is the
// file's report.
void RunScan(ThreadVideoRepair &t, streamscan::Family family)
{
    RepairState &s = pApp;
    s.bMuxedResult = false;
    ThreadProgress progress(t);
    // The rebuild's copy of the pieces starts now, beside the scan.
    t.pPlaced.reset(rebuild::PlacedPieces::Enabled() ? new rebuild::PlacedPieces : nullptr);
    if (t.pPlaced && !t.pPlaced->start(t.strRepairedDir + "/" + t.strFileName, t.pSource, s.ullFileSize))
        t.pPlaced.reset();
    const streamscan::Found found =
        streamscan::Scan(family, t.pSource, &t.hLog, s.bStopRepair, &progress, t.pPlaced.get());
    s.carve.carved = true;
    s.carve.videoUnits = found.videoPieces;
    s.carve.soundFrames = found.soundPieces;
    s.carve.mediaBytes = t.pSource.size();
    s.carve.claimedBytes = found.videoBytes + found.soundBytes;
    if (found.videoPieces == 0 && !s.bStopRepair)
        s.carve.fail(outcome::Why::NothingFound,
                     QStringLiteral("no %1 frames in the file").arg(QLatin1String(streamscan::FamilyName(family))));
}

} // namespace

void ThreadVideoRepair::Repair3gpStream(CarverArgs &)
{
    pApp.bSampleHasAudio = false;
    RunScan(*this, streamscan::Family::ThreeGp);
}

void ThreadVideoRepair::RepairProResStream(CarverArgs &) { RunScan(*this, streamscan::Family::ProRes); }

void ThreadVideoRepair::RepairMotionJpeg(CarverArgs &) { RunScan(*this, streamscan::Family::MotionJpeg); }
