// Transport streams: the MTS filter, the demultiplexer of a transport stream
// in an atom file, and the thread members that run them.

#include "containers/Ts.h"

#include "carve/audio/StreamOut.h"
#include "carve/video/WorkFiles.h"
#include "containers/ContainerConstants.h"
#include "containers/ContainerOutput.h"
#include "mux/MuxStages.h"
#include "repair/BufferedReader.h"
#include "repair/StageProgress.h"
#include "repair/ThreadVideoRepair.h"

#include <QFile>
#include <QFileInfo>
#include <QtDebug>
#include <algorithm>
#include <cstring>
#include <memory>

namespace ts {

namespace {

const MtsPattern *mtsClass(const quint8 *b)
{
    if (b[0] != kSync)
        return nullptr;
    for (const MtsPattern &p : kMtsClasses)
        if (p.bytes[1] == b[1] && p.bytes[2] == b[2] && (p.length == 3 || p.bytes[3] == b[3]))
            return &p;
    return nullptr;
}

// Writes the MTS output: packets that follow each other in the damaged file
// go as one copy, written by a thread of its own while the filter reads on
// (straight from the reader's window when it holds them, else by the kernel
// file to file); fixed packets go between them in order. A run is held back until a packet lies elsewhere, a fixed packet
// goes between, or it has grown to kRunLimit.
class MtsOut
{
public:
    MtsOut(QFile &file, BufferedReader &src)
        : m_file(file), m_src(src), m_size(src.size()), m_out(&file, true, file.flush() ? quint64(file.pos()) : 0)
    {
    }
    // Takes `len` bytes at `pos`, or what of them the file holds; returns how many.
    quint64 take(quint64 pos, quint64 len)
    {
        if (pos >= m_size)
            return 0;
        len = qMin(len, m_size - pos);
        if (pos != m_end || m_end - m_begin >= kRunLimit) {
            flush();
            m_begin = pos;
        }
        m_end = pos + len;
        return len;
    }
    // One fixed packet, filled up with FF.
    template <size_t N>
    void fixed(const quint8 (&bytes)[N])
    {
        static_assert(N <= size_t(kMtsPacket), "a fixed packet fits in 192 bytes");
        flush();
        quint8 packet[kMtsPacket];
        std::memset(packet, 0xFF, sizeof packet);
        std::memcpy(packet, bytes, N);
        m_out.write(packet, sizeof packet);
    }
    // Waits for every copy; the file then stands at its end.
    void finish()
    {
        flush();
        m_out.flush();
        m_error = m_out.error();
        m_file.seek(qint64(m_out.end()));
    }
    bool failed() const { return m_error != 0 || m_file.error() != QFileDevice::NoError; }
    QString errorString() const { return m_error ? QString::fromLocal8Bit(std::strerror(m_error)) : m_file.errorString(); }

private:
    void flush()
    {
        if (m_end > m_begin)
            m_out.copy(m_src, m_begin, m_end - m_begin);
        m_begin = m_end;
    }

    static constexpr quint64 kRunLimit = 8 << 20;
    QFile &m_file;
    BufferedReader &m_src;
    const quint64 m_size;
    quint64 m_begin = 0, m_end = 0;
    int m_error = 0;
    StreamOut m_out;
};

// Emits a value only when it is new and inside the range.
class Progress
{
public:
    Progress(StageProgress *p, qint64 range) : m_p(p), m_range(range)
    {
        if (m_p)
            m_p->setRange(range);
    }
    void operator()(qint64 v)
    {
        if (m_p && v != m_last && v < m_range)
            m_p->setValue(m_last = v);
    }

private:
    StageProgress *m_p;
    qint64 m_range, m_last = -1;
};

} // namespace

MtsResult FilterMts(BufferedReader &src, QFile &file, const std::atomic<bool> &stop, StageProgress *progress)
{
    MtsResult r;
    const quint64 size = src.size();
    Progress shown(progress, size < kMtsSmallFile ? kMtsRangeSmall : kMtsRangeLarge);
    quint8 at[4];
    src.readAt(kMtsOwnPatAt, at, 4);
    const bool ownPat = std::memcmp(at, kMtsOwnPat, 3) == 0;
    src.readAt(kMtsOwnPcrAt, at, 4);
    r.ownTables = ownPat && std::memcmp(at, kMtsOwnPcr, 4) == 0;

    MtsOut runs(file, src);
    if (r.ownTables) {
        // Packets are read from a running offset of their own, not from
        // where they were found: a stretch of damage shifts what is copied.
        quint64 from = 0;
        for (quint64 p = kMtsOwnPatAt; p + 4 <= size && !stop.load(std::memory_order_relaxed);) {
            if (!mtsClass(src.peek(p, 4))) {
                ++p;
                continue;
            }
            r.bytes += runs.take(from, kMtsPacket);
            from += kMtsPacket;
            ++r.packets;
            shown(qint64(r.bytes));
            p += kMtsPacket;
        }
    } else {
        runs.fixed(kMtsPat);
        runs.fixed(kMtsPmt);
        runs.fixed(kMtsSit);
        runs.fixed(kMtsPcr);
        r.bytes = 4 * kMtsPacket;
        int starts = 0, tables = 0;
        // The first four packets are where a camera's own tables stand; the
        // fixed ones above take their place.
        for (quint64 p = kMtsFilterFrom; p + 4 <= size && !stop.load(std::memory_order_relaxed); ++p) {
            const MtsPattern *c = mtsClass(src.peek(p, 4));
            if (!c)
                continue;
            if (c->cls == MtsClass::Table) {
                p += kMtsTableSkip; // not copied; with the step below the filter moves on by 191
                continue;
            }
            r.bytes += runs.take(p - kMtsHeader, kMtsPacket);
            ++r.packets;
            shown(qint64(r.bytes));
            p += kMtsPacket - 1;
            if (c->start && ++starts == kMtsStartsPerTables) {
                starts = 0;
                runs.fixed(kMtsPat);
                runs.fixed(kMtsPmt);
                if (++tables == kMtsTablesPerSit) {
                    tables = 0;
                    runs.fixed(kMtsSit);
                    runs.fixed(kMtsPcr);
                }
            }
        }
    }
    runs.finish();
    r.failed = runs.failed();
    if (r.failed)
        r.errorText = runs.errorString();
    return r;
}

quint64 FindSync(BufferedReader &src, quint64 from)
{
    const quint64 size = src.size();
    const quint64 run = quint64(kSyncRun - 1) * kPacket;
    for (quint64 p = from; p < size && size - p > run;) {
        size_t len = 0;
        const quint8 *b = src.span(p, &len);
        if (!b)
            break;
        const void *hit = std::memchr(b, kSync, len);
        if (!hit) {
            p += len;
            continue;
        }
        const quint64 x = p + quint64(static_cast<const quint8 *>(hit) - b);
        bool all = size - x > run;
        for (int k = 1; k < kSyncRun && all; ++k)
            all = src.u8(x + quint64(k) * kPacket) == kSync;
        if (all)
            return x;
        p = x + 1;
    }
    return size;
}

namespace {

// ADTS frames out of the sound payloads; holds at most one partial frame.
class AdtsAssembler
{
public:
    explicit AdtsAssembler(StreamOut *out) : m_out(out) {}
    void add(const quint8 *p, size_t n, DemuxResult &r)
    {
        std::memcpy(m_buf + m_len, p, n);
        m_len += n;
        size_t i = 0;
        while (i < m_len) {
            if (m_buf[i] != 0xFF) {
                ++i;
                continue;
            }
            if (m_len - i < 2)
                break;
            if (m_buf[i + 1] != 0xF1 && m_buf[i + 1] != 0xF9) {
                ++i;
                continue;
            }
            if (m_len - i < size_t(kAdtsHead))
                break;
            const size_t frame = size_t(m_buf[i + 3] & 3) << 11 | size_t(m_buf[i + 4]) << 3 | m_buf[i + 5] >> 5;
            if (frame < size_t(kAdtsMinFrame)) {
                ++i;
                continue;
            }
            if (m_len - i < frame)
                break;
            if (m_out)
                m_out->write(m_buf + i, frame);
            ++r.audioFrames;
            r.audioBytes += frame;
            i += frame;
        }
        std::memmove(m_buf, m_buf + i, m_len - i);
        m_len -= i;
    }

private:
    StreamOut *m_out;
    quint8 m_buf[kAdtsMaxFrame + kPacket];
    size_t m_len = 0;
};

// Where the PES payload starts, behind a header of `off`; 0 when the header
// doesn't fit in the packet.
int pesPayload(const quint8 *pkt, int off)
{
    if (off + kPesHeadLengthAt >= kPacket)
        return 0;
    const int at = off + kPesFixedHead + pkt[off + kPesHeadLengthAt];
    return at < kPacket ? at : 0;
}

std::unique_ptr<StreamOut> sinkFor(QFile *f)
{
    return f && f->isOpen() ? std::make_unique<StreamOut>(f, false) : nullptr;
}

} // namespace

DemuxResult Demux(BufferedReader &src, QFile *videoFile, QFile *audioFile, const std::atomic<bool> &stop,
                  StageProgress *progress)
{
    DemuxResult r;
    const quint64 size = src.size();
    if (progress)
        progress->setRange(100);
    int shown = -1;
    std::unique_ptr<StreamOut> video = sinkFor(videoFile), audio = sinkFor(audioFile);
    AdtsAssembler adts(audio.get());
    int pmtPid = -1, videoPid = -1, soundPid = -1;
    quint8 copy[kPacket];
    quint64 pos = FindSync(src, 0);
    r.synced = pos < size;
    while (pos < size && size - pos >= quint64(kPacket) && !stop.load(std::memory_order_relaxed)) {
        const quint8 *pkt = src.peek(pos, kPacket);
        if (!pkt) {
            src.readAt(pos, copy, kPacket);
            pkt = copy;
        }
        if (pkt[0] != kSync) {
            // Lost: on from just behind where the packet should have begun.
            pos = FindSync(src, pos + 1);
            continue;
        }
        pos += kPacket;
        if (++r.packets % kProgressPackets == 0 && progress && size) {
            const int pc = int(pos * 100 / size);
            if (pc != shown)
                progress->setValue(shown = pc);
        }
        const int pid = (pkt[1] & 0x1F) << 8 | pkt[2];
        const bool unitStart = pkt[1] & 0x40;
        if (pid == 0) {
            pmtPid = (pkt[kPatPmtPidAt] & 0x1F) << 8 | pkt[kPatPmtPidAt + 1];
            continue;
        }
        if (pid == pmtPid) {
            // The first two entries; one that runs past the packet is skipped.
            int e = kPmtFirstEntry + pkt[kPmtInfoLengthAt];
            for (int k = 0; k < 2 && e + kPmtEntryHead <= kPacket; ++k) {
                const int esPid = (pkt[e + 1] & 0x1F) << 8 | pkt[e + 2];
                if (pkt[e] == kStreamH264)
                    videoPid = esPid;
                else if (pkt[e] == kStreamAac)
                    soundPid = esPid;
                e += kPmtEntryHead + pkt[e + 4];
            }
            continue;
        }
        if (pid != videoPid && pid != soundPid)
            continue;
        const int control = pkt[3] >> 4 & 3;
        if (control == 2)
            continue; // adaptation field only
        int off = control == 3 ? kPayloadAt + 1 + pkt[kPayloadAt] : kPayloadAt;
        if (off >= kPacket)
            continue;
        if (unitStart) {
            const int at = pesPayload(pkt, off);
            if (!at || (pid == videoPid && std::memcmp(pkt + off, kPesVideo, 4) != 0))
                continue;
            off = at;
        }
        const size_t n = size_t(kPacket - off);
        if (pid == videoPid) {
            if (video)
                video->write(pkt + off, n);
            ++r.videoPackets;
            r.videoBytes += n;
        } else {
            adts.add(pkt + off, n, r);
        }
    }
    for (StreamOut *s : {video.get(), audio.get()}) {
        if (!s)
            continue;
        s->detach();
        if (s->error() && !r.error) {
            r.error = s->error();
            r.errorText = s->errorText();
        }
    }
    return r;
}

} // namespace ts

void ThreadVideoRepair::RepairMtsFile()
{
    RepairState &s = pApp;
    s.bMuxedResult = false;
    const QString path = strRepairedDir + "/" + strFileName;
    QFile out(path);
    if (!containers::OpenNewOutput(out, pSource.path())) {
        s.carve.fail(outcome::Why::WriteFailed, out.errorString());
        return;
    }
    ThreadProgress progress(*this);
    const ts::MtsResult r = ts::FilterMts(pSource, out, s.bStopRepair, &progress);
    out.close();
    if (r.failed || s.bStopRepair) {
        // A result the disk didn't take whole (or a stop cut short) is no result.
        out.remove();
        if (r.failed) {
            s.carve.fail(outcome::Why::WriteFailed, r.errorText);
            qWarning().noquote() << "Could not write" << path << r.errorText;
        }
    } else {
        s.lstRepairedFiles << path;
        s.bMoovParsed = true;
        s.bMtsRepaired = true; // an output without packets counts as repaired too
    }
    CloseLog();
}

void ThreadVideoRepair::RepairTsInMov(CarverArgs &args)
{
    RepairState &s = pApp;
    const QString dir = workfiles::EnsureWorkFolder();
    strOutputPath = dir + "/" + strFileName;
    s.lstMuxedFiles << strOutputPath;
    strBaseCopy = s.strWorkBase;
    args.fpSource.reset(new BufferedReader);
    BufferedReader &src = *args.fpSource;
    src.open(args.strSource);
    ullFileLeft = s.ullFileSize = src.size();

    quint8 head[ts::kRemuxLook];
    const size_t got = src.readAt(0, head, sizeof head);
    if (std::search(head, head + got, ts::kPatHeader, ts::kPatHeader + 4) != head + got) {
        // ffmpeg reads the stream as it is. Its result goes under "1_" and
        // then takes the file's own name.
        s.bMoovParsed = true;
        const QString alt = "1_" + strFileName;
        RunMuxRow(QStringLiteral("TsRemux"), args, alt);
        const QString from = workfiles::OutputFolder() + "/" + alt, to = workfiles::OutputFolder() + "/" + strFileName;
        if (QFileInfo(from).size() == 0) {
            QFile::remove(from);
        } else if (QFileInfo(to).canonicalFilePath() != QFileInfo(args.strSource).canonicalFilePath()) {
            QFile::remove(to);
            if (!QFile::rename(from, to))
                qWarning().noquote() << "Cannot rename" << from << "to" << to;
        }
        s.bMuxedResult = true;
        return;
    }

    // The streams are written only in a run with a sample.
    bool streams = false;
    if (s.bSampleRun) {
        args.strVideo = workfiles::Path(workfiles::kVideoH264);
        args.strAudio = workfiles::Path(workfiles::kAudioAac);
        args.fpVideo.reset(new QFile(args.strVideo));
        args.fpAudio.reset(new QFile(args.strAudio));
        streams = containers::OpenNewOutput(*args.fpVideo, args.strSource) &&
                  containers::OpenNewOutput(*args.fpAudio, args.strSource);
        if (!streams)
            s.carve.fail(outcome::Why::WriteFailed, QStringLiteral("cannot create the stream files"));
    }
    ThreadProgress progress(*this);
    const ts::DemuxResult r = ts::Demux(src, args.fpVideo.get(), args.fpAudio.get(), s.bStopRepair, &progress);
    args.fpVideo.reset();
    args.fpAudio.reset();
    s.carve.carved = true;
    s.carve.mediaBytes = src.size();
    s.carve.claimedBytes = r.videoBytes + r.audioBytes;
    s.carve.videoUnits = r.videoPackets;
    s.carve.soundFrames = r.audioFrames;
    if (s.bStopRepair)
        return;
    if (streams && !r.error && r.videoBytes > 0) {
        RunMuxStage(mux::StageId::Ts, args);
        return;
    }
    mux::RemoveWorkFiles(mux::StageId::Ts);
    s.bMuxedResult = true; // nothing for the rebuild either
    if (r.error)
        s.carve.fail(outcome::Why::WriteFailed, r.errorText);
    if (s.bSampleRun && r.synced) {
        // No muxer makes anything of empty streams: the file has no result.
        s.carve.fail(outcome::Why::NothingFound, QStringLiteral("no H.264 packets in the transport stream"));
        return;
    }
    if (s.bSampleRun) {
        // Not a transport stream at all: the sample's kind misled the run,
        // and the file waits for a sample that fits.
        s.carve.fail(outcome::Why::WrongSample, QStringLiteral("a transport stream as sample, none in the recording"));
        s.bCarveFailed = true;
        s.bMoovParsed = false;
        Q_EMIT WriteStatus(false, hasVideo_Strh, strFileName, false);
        return;
    }
    // Without a sample nothing was written: the file waits for one.
    s.carve.fail(outcome::Why::NoSample, QStringLiteral("the transport stream is taken apart with a sample"));
    s.bCarveFailed = true;
    s.bMoovParsed = false;
    Q_EMIT WriteStatus(false, hasVideo_Strh, strFileName, false);
}
