#include "containers/Mkv.h"

#include "carve/audio/Adts.h"
#include "carve/audio/StreamOut.h"
#include "containers/ContainerConstants.h"
#include "rebuild/LogReader.h"
#include "rebuild/RebuildOutput.h"
#include "repair/BufferedReader.h"
#include "repair/RepairLine.h"
#include "repair/RepairState.h"
#include "repair/StageProgress.h"

#include <QFile>
#include <QLoggingCategory>
#include <algorithm>
#include <cstring>
#include <iterator>
#include <memory>

// The carve's per-block lines; off unless QT_LOGGING_RULES turns them on, since
// a long recording has hundreds of thousands of blocks.
Q_LOGGING_CATEGORY(lcMkvCarve, "videomend.mkv.carve", QtInfoMsg)

namespace mkv {

namespace {

bool bytesAt(BufferedReader &f, quint64 pos, const void *bytes, size_t n)
{
    quint8 b[16];
    const quint8 *p = f.peek(pos, n);
    if (!p) {
        f.readAt(pos, b, n);
        p = b;
    }
    return std::memcmp(p, bytes, n) == 0;
}

template <typename T, size_t N>
bool isOneOf(quint8 b, const T (&set)[N])
{
    return std::find(std::begin(set), std::end(set), b) != std::end(set);
}

struct FollowRow
{
    const char *const *tags;
    size_t count;
};
// In the order of Follows.
const FollowRow kFollowRows[] = {
    {kAfterHead, std::size(kAfterHead)},
    {kAfterHead, std::size(kAfterHead)},
    {kAfterCluster, std::size(kAfterCluster)},
};

// A work file of the carve. Pieces of the damaged file go to it no further
// than the file's end, a window of the reader at a time: nothing is read or
// allocated by a length. (The kernel's file-to-file copy was slower here:
// the pieces are NAL units of tens of kilobytes.)
// Where the carve writes a stream: a file goes through a writer thread with
// large buffers (chains of units copied by the kernel where it can), any
// other device through its own write().
class Sink
{
public:
    Sink(QIODevice &device, BufferedReader &src) : m_device(device), m_src(src)
    {
        QFile *file = qobject_cast<QFile *>(&device);
        if (file && file->handle() >= 0)
            m_stream.reset(new StreamOut(file));
    }
    ~Sink() { finish(); }
    void write(const void *bytes, qint64 n)
    {
        if (m_stream)
            m_stream->write(bytes, size_t(n));
        else if (m_device.write(static_cast<const char *>(bytes), n) != n)
            m_failed = true;
    }
    // A start code, then the unit of n bytes behind its length at pos;
    // returns the count of its bytes the file held.
    quint64 unit(quint64 pos, quint64 n, const std::atomic<bool> &stop)
    {
        const quint64 size = m_src.size();
        if (m_stream && pos + 4 <= size && n <= size - pos - 4) {
            m_stream->unit(m_src, pos, n);
            return n;
        }
        static const quint8 kStartCode[4] = {0, 0, 0, 1};
        write(kStartCode, 4);
        return copy(pos + 4, n, stop);
    }
    // Returns the count of bytes the file held.
    quint64 copy(quint64 pos, quint64 n, const std::atomic<bool> &stop)
    {
        const quint64 size = m_src.size();
        n = pos >= size ? 0 : std::min(n, size - pos);
        if (m_stream) {
            m_stream->copy(m_src, pos, n);
            return n;
        }
        for (quint64 left = n; left && !m_failed && !stop;) {
            size_t len = 0;
            const quint8 *p = m_src.span(pos, &len);
            if (!p || !len)
                break;
            const qint64 k = qint64(std::min<quint64>(left, len));
            write(p, k);
            pos += quint64(k);
            left -= quint64(k);
        }
        return n;
    }
    // Everything written out; the device then stands at its end.
    void finish()
    {
        if (!m_stream)
            return;
        m_stream->detach();
        m_failed = m_failed || m_stream->error() != 0;
        m_stream.reset();
        m_device.seek(m_device.size());
    }
    bool failed() const { return m_failed || (m_stream && m_stream->error() != 0); }

private:
    QIODevice &m_device;
    BufferedReader &m_src;
    std::unique_ptr<StreamOut> m_stream;
    bool m_failed = false;
};

class Percent
{
public:
    Percent(StageProgress *p, quint64 size) : m_progress(p), m_size(size ? size : 1) {}
    void at(quint64 pos)
    {
        const qint64 v = qint64(std::min<quint64>(pos, m_size) * quint64(kPercentRange) / m_size);
        if (m_progress && v != m_last)
            m_progress->setValue(v);
        m_last = v;
    }

private:
    StageProgress *m_progress;
    quint64 m_size;
    qint64 m_last = -1;
};

} // namespace

EbmlSize ReadEbmlSize(BufferedReader &file, quint64 pos)
{
    quint8 b[8];
    file.readAt(pos, b, 8);
    if (!b[0])
        return {};
    EbmlSize s;
    quint8 marker = 0x80;
    for (s.length = 1; !(b[0] & marker); ++s.length)
        marker >>= 1;
    s.value = b[0] & (marker - 1);
    for (int i = 1; i < s.length; ++i)
        s.value = s.value << 8 | b[i];
    return s;
}

bool NextElementFits(BufferedReader &file, quint64 pos, Follows row)
{
    quint8 b[4];
    if (file.readAt(pos, b, 4) == 0)
        return false;
    if (b[0] == kVoid)
        return true;
    const FollowRow &r = kFollowRows[int(row)];
    for (size_t i = 0; i < r.count; ++i)
        if (std::memcmp(b, r.tags[i], 4) == 0)
            return true;
    return false;
}

quint64 FindAvcCodecId(BufferedReader &file, quint64 limit, StageProgress *progress, const std::atomic<bool> &stop)
{
    limit = std::min(limit, file.size());
    Percent percent(progress, limit);
    for (quint64 pos = 0; pos < limit && !stop;) {
        size_t len = 0;
        const quint8 *p = file.span(pos, &len);
        if (!p)
            break;
        len = size_t(std::min<quint64>(len, limit - pos));
        const void *hit = std::memchr(p, kAvcCodecId[0], len);
        if (!hit) {
            pos += len;
            percent.at(pos);
            continue;
        }
        pos += quint64(static_cast<const quint8 *>(hit) - p);
        if (bytesAt(file, pos, kAvcCodecId, kAvcCodecIdLen))
            return pos;
        ++pos;
    }
    return kNotFound;
}

quint64 Heads::infoWritten() const { return kInfoHead + beforeLen + kDurationBytes + afterLen; }

Heads FindHeads(BufferedReader &file, quint64 size, const std::atomic<bool> &stop)
{
    Heads h;
    size = std::min(size, file.size());
    quint64 lastHit = 0;
    for (quint64 pos = 0; pos + 4 <= size && pos <= lastHit + kHeadSearchSteps && !stop && !h.found(); ++pos) {
        const quint8 first = file.u8(pos);
        if (first != quint8(kInfo[0]) && first != quint8(kTracks[0]))
            continue;
        const bool info = !h.info && file.tagAt(pos, kInfo);
        const bool tracks = !h.tracks && file.tagAt(pos, kTracks);
        if (!info && !tracks)
            continue;
        if (pos >= 3 && bytesAt(file, pos - 3, kSeekIdEntry, 3))
            continue; // a SeekHead entry naming it
        const EbmlSize s = ReadEbmlSize(file, pos + 4);
        const quint64 data = pos + 4 + quint64(s.length);
        if (!s.length || data > size || s.value > size - data)
            continue;
        const quint64 end = data + s.value;
        if (!NextElementFits(file, end, info ? Follows::Info : Follows::Tracks))
            continue;
        if (tracks) {
            h.tracks = true;
            h.tracksPos = pos;
            h.tracksLen = end - pos;
            lastHit = pos;
            continue;
        }
        // The Duration inside; without one, all of the data stands before it.
        quint64 before = s.value, afterPos = end;
        for (quint64 d = data; d + 2 < end; ++d) {
            if (file.u8(d) != kDuration[0] || file.u8(d + 1) != kDuration[1] || !isOneOf(file.u8(d + 2), kFloatSizes))
                continue;
            const quint64 behind = d + 3 + (file.u8(d + 2) & 0x0F);
            if (behind <= end) {
                before = d - data;
                afterPos = behind;
                break;
            }
        }
        // The new SeekHead gives the Tracks position in two bytes.
        if (before + (end - afterPos) + kTracksAfterInfo > 0xFFFF)
            continue;
        h.info = true;
        h.beforePos = data;
        h.beforeLen = before;
        h.afterPos = afterPos;
        h.afterLen = end - afterPos;
        lastHit = pos;
    }
    return h;
}

ClusterList ListClusters(BufferedReader &file, quint64 from, QIODevice &log, RepairLine &cipher,
                         StageProgress *progress, const std::atomic<bool> &stop)
{
    ClusterList list;
    const quint64 size = file.size();
    if (progress)
        progress->setRange(qint64(quint32(size)));
    bool listed = false;
    for (quint64 pos = from; pos + 4 <= size && !stop;) {
        // Behind a listed cluster the next one stands a few bytes on: a short
        // look there first spares reading the cluster's body.
        size_t len = kLookAhead;
        const quint8 *p = listed ? file.peek(pos, len) : nullptr;
        if (!p)
            p = file.span(pos, &len);
        listed = false;
        if (!p)
            break;
        const void *hit = std::memchr(p, kCluster[0], len);
        if (!hit) {
            pos += len;
            continue;
        }
        const quint64 at = pos + quint64(static_cast<const quint8 *>(hit) - p);
        pos = at + 1;
        if (!file.tagAt(at, kCluster))
            continue;
        if (bytesAt(file, at + 4, kSeekPosition, 2) && isOneOf(file.u8(at + 6), kSeekPositionSizes))
            continue; // the Cluster ID inside a SeekHead entry
        const EbmlSize s = ReadEbmlSize(file, at + 4);
        const quint64 data = at + 4 + quint64(s.length);
        if (!s.length || data >= size || s.value > size - data)
            continue;
        if (!NextElementFits(file, data + s.value, Follows::Cluster) || file.u8(data) != kTimecode)
            continue;
        const EbmlSize t = ReadEbmlSize(file, data + 1);
        quint64 timecode = 0;
        for (int i = 0; i < int(std::min<quint64>(t.value, 8)); ++i)
            timecode = timecode << 8 | file.u8(data + 1 + quint64(t.length) + quint64(i));
        if (!list.timecodes)
            list.firstTimecode = timecode;
        list.lastTimecode = timecode;
        list.timecodes = true;

        const quint64 length = quint64(s.length) + 4 + s.value;
        if (!rebuild::WritePairLine(log, cipher, at, length))
            list.written = false;
        ++list.clusters;
        list.bytes += length;
        if (progress)
            progress->setValue(qint64(list.bytes));
        pos = at + s.value + 1;
        listed = true;
    }
    return list;
}

QString WriteFile(const QString &outPath, const Heads &heads, BufferedReader &infoFile, BufferedReader &tracksFile,
                  BufferedReader &media, const QString &logPath, const ClusterList &clusters,
                  const std::atomic<bool> &stop)
{
    QFile file(outPath);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return file.errorString();
    rebuild::Output out(file);
    auto buffer = std::make_unique<quint8[]>(rebuild::kCopyBuffer);
    auto put = [&](const auto &bytes) { out.write(bytes, sizeof bytes); };
    auto put32 = [&](quint32 v) { out.put32(v); };

    put(kWebmHead);
    out.write(kSegment, 4);
    const quint64 sizeField = out.pos();
    out.put64(quint64(kEightByteSize) << 56); // patched once the clusters are in
    const quint64 segment = out.pos();
    put(kSeekHeadBytes);
    const quint64 tracksAt = heads.beforeLen + heads.afterLen + kTracksAfterInfo;
    const quint8 tracksPos[2] = {quint8(tracksAt >> 8), quint8(tracksAt)};
    put(tracksPos);
    put(kVoidHead);
    static const quint8 kZeros[kVoidZeros] = {};
    put(kZeros);

    out.write(kInfo, 4);
    out.put64(quint64(kEightByteSize) << 56 | (heads.infoWritten() - kInfoHead));
    out.copyFrom(infoFile, heads.beforePos, heads.beforeLen, buffer.get(), stop);
    put(kDurationHead);
    const float duration = float(clusters.lastTimecode - clusters.firstTimecode);
    quint32 bits = 0;
    std::memcpy(&bits, &duration, 4);
    put32(bits);
    out.copyFrom(infoFile, heads.afterPos, heads.afterLen, buffer.get(), stop);
    out.copyFrom(tracksFile, heads.tracksPos, heads.tracksLen, buffer.get(), stop);

    rebuild::LogReader log(logPath, rebuild::LineForm::Pair);
    rebuild::Piece piece;
    while (!stop && !out.failed() && log.next(piece)) {
        const quint64 left = media.size() - std::min(media.size(), piece.offset);
        out.copyFrom(media, piece.offset, std::min(piece.size, left), buffer.get(), stop);
    }
    out.patch64(sizeField, quint64(kEightByteSize) << 56 | (out.pos() - segment));
    file.flush();
    QString error;
    if (out.failed())
        error = out.errorString();
    else if (stop)
        error = QStringLiteral("stopped");
    file.close();
    if (!error.isEmpty())
        QFile::remove(outPath);
    return error;
}

QByteArray ParameterSets(BufferedReader &file, quint64 codecId)
{
    const quint64 end = std::min(file.size(), codecId + kCodecPrivateReach);
    quint64 c = codecId;
    while (c < end && file.u8(c) != kCodecPrivateByte)
        ++c;
    quint64 sps = c + 1;
    while (sps < end && !isOneOf(file.u8(sps), kSpsBytes))
        ++sps;
    if (sps >= end || sps < 2)
        return {};
    static const char kStart[] = {0, 0, 0, 1};
    QByteArray out;
    auto take = [&](quint64 at, quint64 len) {
        if (!len || len > kMaxParameterSet || at > file.size() || len > file.size() - at)
            return false;
        out.append(kStart, 4);
        const int from = out.size();
        out.resize(from + int(len));
        file.readAt(at, out.data() + from, size_t(len));
        return true;
    };
    const quint64 spsLen = file.be16(sps - 2);
    const quint64 ppsSize = sps + spsLen + 1; // behind the count of PPS
    if (!take(sps, spsLen) || !take(ppsSize + 2, file.be16(ppsSize)))
        return {};
    return out;
}

BlockSize BlockSizeOf(quint8 s)
{
    if (s & 0x80)
        return {1, quint8(s - 0x80), 2};
    if (s & 0x40)
        return {2, quint8(s - 0x40), 3};
    return {3, quint8(s >= 0x20 ? s - 0x20 : 0), 4};
}

Carved CarveBlocks(BufferedReader &file, QIODevice &video, QIODevice &audio, RepairState &state,
                   StageProgress *progress, const std::atomic<bool> &stop)
{
    Carved c;
    const quint64 size = file.size();
    if (progress)
        progress->setRange(kPercentRange);
    Percent percent(progress, size);
    Sink videoOut(video, file), audioOut(audio, file);
    // The next `byte` from `from`: runs of other bytes (blank or not) are
    // passed over a window at a time.
    auto next = [&](quint64 from, quint8 byte) {
        while (from < size && !stop) {
            size_t len = 0;
            const quint8 *p = file.span(from, &len);
            if (!p)
                break;
            if (const void *hit = std::memchr(p, byte, len))
                return from + quint64(static_cast<const quint8 *>(hit) - p);
            from += len;
            percent.at(from);
        }
        return size;
    };

    quint64 pos = next(0, quint8(kCluster[0]));
    while (pos < size && !stop && !file.tagAt(pos, kCluster))
        pos = next(pos + 1, quint8(kCluster[0]));
    while (pos < size && !stop && !videoOut.failed() && !audioOut.failed()) {
        if (file.u8(pos) != kSimpleBlock) {
            pos = next(pos + 1, kSimpleBlock);
            continue;
        }
        const quint64 block = pos;
        const quint8 s = file.u8(block + 1);
        qCDebug(lcMkvCarve) << "A3 byte size" << block << s;
        qCDebug(lcMkvCarve).noquote() << "Binary:" << QString::number(s, 2).rightJustified(8, '0');
        qCDebug(lcMkvCarve) << "MSB:" << (s >> 7);
        qCDebug(lcMkvCarve) << "Zero count (first 2 bits):" << (!(s & 0x80) + !(s & 0x40));
        const BlockSize bs = BlockSizeOf(s);
        const quint64 track = block + quint64(bs.trackAt);
        const quint8 t = file.u8(track);
        if (t == kVideoTrack) {
            pos = track + kBlockHead;
            while (pos < size && !stop) {
                quint8 b[8];
                file.readAt(pos, b, 8);
                if (std::memcmp(b, kAud, sizeof kAud) != 0 && (b[0] || !isOneOf(b[4], kNalHeads))) {
                    pos += std::memcmp(b, kClusterPrefix, 3) == 0 ? kClusterSkip : 1;
                    break;
                }
                const quint64 n = quint64(b[0]) << 24 | quint64(b[1]) << 16 | quint64(b[2]) << 8 | b[3];
                if (!n) {
                    ++pos; // a length of 0 would never move on
                    break;
                }
                c.videoBytes += videoOut.unit(pos, n, stop);
                ++c.videoUnits;
                pos += 4 + n;
                percent.at(pos);
                if (file.u8(pos) == kSimpleBlock)
                    break;
            }
        } else if (t == kAudioTrack) {
            quint64 v = bs.high;
            for (int i = 1; i < bs.width; ++i)
                v = v << 8 | file.u8(block + 1 + quint64(i));
            qCDebug(lcMkvCarve).noquote() << "Replaced Hex: 0x" + QString::number(v, 16).toUpper();
            qCDebug(lcMkvCarve).noquote() << "Hex string from bytes:" << QString::number(v, 16).toUpper();
            pos = track + kBlockHead;
            if (v < kBlockHead || file.u8(track + v) != kSimpleBlock) {
                ++pos; // the last block of a cluster, or no block
                continue;
            }
            quint64 n = v - kBlockHead;
            if (n >= kMaxAdtsPayload)
                n = kOversizeAudio;
            if (adts::BuildAdtsHeader(state, quint32(n), adts::Variant::Mkv)) {
                quint8 head[7];
                for (int i = 0; i < 7; ++i)
                    head[i] = quint8(state.nAdtsBytes[i]);
                audioOut.write(head, 7);
                c.audioBytes += audioOut.copy(pos, n, stop);
                ++c.audioFrames;
            }
            pos += n;
            percent.at(pos);
        } else {
            pos = track + 1;
        }
    }
    videoOut.finish();
    audioOut.finish();
    c.written = !videoOut.failed() && !audioOut.failed();
    return c;
}

} // namespace mkv
