#include "containers/Asf.h"

#include "containers/ContainerConstants.h"
#include "rebuild/RebuildConstants.h"
#include "rebuild/RebuildOutput.h"
#include "repair/BufferedReader.h"
#include "repair/StageProgress.h"
#include "repair/ThreadVideoRepair.h"
#include "carve/video/WorkFiles.h"

#include <QFile>
#include <QFileInfo>
#include <QtDebug>
#include <climits>
#include <cstring>
#include <memory>

namespace asf {

namespace {

bool guidAt(BufferedReader &file, quint64 pos, const Guid &g)
{
    const quint8 *p = file.peek(pos, sizeof g.b);
    return p && std::memcmp(p, g.b, sizeof g.b) == 0;
}

quint64 le64(BufferedReader &file, quint64 pos) { return quint64(file.le32(pos + 4)) << 32 | file.le32(pos); }

const ObjectRow *objectAt(BufferedReader &file, quint64 pos)
{
    for (const ObjectRow &row : kObjects)
        if (guidAt(file, pos, *row.guid))
            return &row;
    return nullptr;
}

QByteArray readBytes(BufferedReader &file, quint64 pos, quint64 n)
{
    QByteArray b(int(n), Qt::Uninitialized);
    file.readAt(pos, b.data(), size_t(n));
    return b;
}

// The output file, removed again unless it was finished.
class OutFile
{
public:
    explicit OutFile(const QString &path) : m_file(path), m_out(m_file)
    {
        m_open = m_file.open(QIODevice::WriteOnly | QIODevice::Truncate);
    }
    ~OutFile()
    {
        if (!m_done && m_open) {
            m_file.close();
            m_file.remove();
        }
    }
    bool ok() const { return m_open && !m_out.failed(); }
    void write(const void *p, quint64 n) { m_out.write(p, size_t(n)); }
    template <typename T>
    void writeLe(T v)
    {
        quint8 b[sizeof(T)];
        for (size_t i = 0; i < sizeof(T); ++i)
            b[i] = quint8(quint64(v) >> (8 * i));
        write(b, sizeof b);
    }
    void write(const QByteArray &b) { write(b.constData(), quint64(b.size())); }
    void copy(BufferedReader &src, quint64 from, quint64 n, const std::atomic<bool> &stop)
    {
        if (!m_buffer)
            m_buffer.reset(new quint8[rebuild::kCopyBuffer]);
        m_out.copyFrom(src, from, n, m_buffer.get(), stop);
    }
    template <typename T>
    void patchLe(quint64 at, T v)
    {
        const quint64 back = m_out.pos();
        if (m_out.seek(at))
            writeLe(v);
        m_out.seek(back);
    }
    quint64 pos() const { return m_out.pos(); }
    // Flushes and closes; true when every byte got to the disk.
    bool finish()
    {
        if (!ok() || !m_file.flush()) {
            qWarning().noquote() << "Cannot write" << m_file.fileName() << ":" << m_out.errorString();
            return false;
        }
        m_file.close();
        m_done = m_file.error() == QFileDevice::NoError;
        return m_done;
    }

private:
    QFile m_file;
    rebuild::Output m_out;
    std::unique_ptr<quint8[]> m_buffer;
    bool m_open = false;
    bool m_done = false;
};

// Appends packets, copying each run of neighbouring ones in one piece.
class PacketRun
{
public:
    PacketRun(OutFile &out, BufferedReader &src, const std::atomic<bool> &stop) : m_out(out), m_src(src), m_stop(stop) {}
    void add(quint64 pos, quint64 n)
    {
        if (m_len && pos != m_start + m_len)
            flush();
        if (!m_len)
            m_start = pos;
        m_len += n;
        if (m_len >= kFlushBytes)
            flush();
    }
    void flush()
    {
        if (m_len)
            m_out.copy(m_src, m_start, m_len, m_stop);
        m_len = 0;
    }

private:
    static constexpr quint64 kFlushBytes = quint64(64) << 20;
    OutFile &m_out;
    BufferedReader &m_src;
    const std::atomic<bool> &m_stop;
    quint64 m_start = 0, m_len = 0;
};

} // namespace

quint32 Headers::frameRate() const
{
    const quint64 seconds = playDuration / 10000000;
    if (packetCount == 0 || seconds == 0)
        return kDefaultFps;
    const quint64 fps = packetCount / seconds;
    return fps == 0 || fps > 0xFFFFFFFFULL ? kDefaultFps : quint32(fps);
}

void Headers::freeObjects()
{
    for (QByteArray *b : {&fileProperties, &content, &extContent, &audio, &video, &codecList, &dataId})
        *b = QByteArray();
}

Headers ReadHeaders(BufferedReader &file, const std::atomic<bool> &stop)
{
    Headers h;
    const quint64 size = file.size();
    const quint64 end = qMin(size, kScanLimit);
    bool lead[256] = {};
    for (const ObjectRow &row : kObjects)
        lead[row.guid->b[0]] = true;
    for (quint64 pos = 0; pos < end && !h.complete() && !stop;) {
        const ObjectRow *row = lead[file.u8(pos)] ? objectAt(file, pos) : nullptr;
        const quint64 objSize = row && row->slot != Slot::Data ? le64(file, pos + kSizeAt) : row ? kDataHeader : 0;
        if (!row || objSize < row->minSize || objSize > size - pos) {
            ++pos;
            continue;
        }
        QByteArray *keep = nullptr;
        switch (row->slot) {
        case Slot::Data:
            if (!h.dataPos) {
                h.dataPos = pos;
                h.dataId = readBytes(file, pos + kDataIdAt, kDataIdBytes);
            }
            break;
        case Slot::FileProperties:
            keep = &h.fileProperties;
            if (keep->isEmpty()) {
                h.packetSize = file.le32(pos + kMaxPacketSizeAt);
                h.packetCount = le64(file, pos + kPacketCountAt);
                h.playDuration = le64(file, pos + kPlayDurationAt);
            }
            break;
        case Slot::Content: keep = &h.content; break;
        case Slot::ExtContent: keep = &h.extContent; break;
        case Slot::CodecList: keep = &h.codecList; break;
        case Slot::Stream:
            if (guidAt(file, pos + kMediaTypeAt, kVideoMedia))
                keep = &h.video;
            else if (guidAt(file, pos + kMediaTypeAt, kAudioMedia))
                keep = &h.audio;
            break; // a stream of another kind is passed over
        }
        // One of each kind is kept; QByteArray holds at most 2 GiB.
        if (keep && keep->isEmpty() && objSize < quint64(INT_MAX))
            *keep = readBytes(file, pos, objSize);
        pos += row->step == Step::DataHeader ? kDataHeader : row->step == Step::SizeLess2 ? objSize - 2 : objSize;
    }
    return h;
}

bool PacketAt(BufferedReader &file, quint64 pos, quint64 packetSize)
{
    const quint64 size = file.size();
    if (packetSize < kMinPacket || pos >= size || packetSize > size - pos)
        return false;
    const quint8 *b = file.peek(pos, 3);
    if (!b || b[0] != kPacketLead || b[1] != 0 || (b[2] != kPacketThird[0] && b[2] != kPacketThird[1]))
        return false;
    return pos + packetSize == size || file.u8(pos + packetSize) == kPacketLead;
}

quint64 FirstPacket(BufferedReader &file, quint64 from, quint64 packetSize, const std::atomic<bool> &stop)
{
    const quint64 size = file.size();
    for (quint64 pos = from; pos < size && !stop;) {
        if (PacketAt(file, pos, packetSize))
            return pos;
        // On to the next opening byte.
        size_t len = 0;
        const quint8 *p = file.span(pos + 1, &len);
        if (!p)
            break;
        const void *hit = std::memchr(p, kPacketLead, len);
        pos = hit ? pos + 1 + quint64(static_cast<const quint8 *>(hit) - p) : pos + 1 + len;
    }
    return size;
}

Rebuilt WriteFresh(const Headers &h, BufferedReader &damaged, const QString &outPath, StageProgress *progress,
                   const std::atomic<bool> &stop)
{
    Rebuilt r;
    OutFile out(outPath);
    if (!out.ok())
        return r;
    // The header, its size known only at the end.
    out.write(kHeaderObject.b, sizeof kHeaderObject.b);
    out.writeLe(quint64(0));
    out.writeLe(kHeaderCount);
    out.write(kHeaderReserved, sizeof kHeaderReserved);
    out.write(h.fileProperties);
    out.write(kHeaderExtension.b, sizeof kHeaderExtension.b);
    out.writeLe(kEmptyExtensionSize);
    out.write(kReserved1.b, sizeof kReserved1.b);
    out.writeLe(kExtensionReserved2);
    out.writeLe(quint32(0));
    for (const QByteArray *b : {&h.content, &h.audio, &h.codecList, &h.video, &h.extContent})
        out.write(*b);
    r.headerSize = out.pos();
    out.write(kDataObject.b, sizeof kDataObject.b);
    const quint64 dataSizeAt = out.pos();
    out.writeLe(quint64(0));
    out.write(h.dataId);

    const quint64 size = damaged.size();
    const quint64 range = size < kLargeRange ? kSmallRange : kLargeRange;
    if (progress)
        progress->setRange(qint64(range));
    quint64 shown = 0;
    PacketRun run(out, damaged, stop);
    for (quint64 pos = FirstPacket(damaged, 0, h.packetSize, stop); pos < size && !stop && out.ok();
         pos = FirstPacket(damaged, pos, h.packetSize, stop)) {
        run.add(pos, h.packetSize);
        ++r.packets;
        r.packetBytes += h.packetSize;
        r.maxSendTime = qMax(r.maxSendTime, damaged.le32(pos + kSendTimeAt));
        if (progress && pos < range && (pos >= shown + range / 1024 || !shown)) {
            shown = qMax<quint64>(pos, 1);
            progress->setValue(qint64(pos));
        }
        pos += h.packetSize;
    }
    run.flush();
    if (stop || r.packets == 0)
        return r;
    r.dataSize = kDataHeader + r.packetBytes;
    out.patchLe(kHeaderSizeAt, r.headerSize);
    out.patchLe(kOutPlayDurationAt, quint64(r.maxSendTime) * kSendTimeTo100ns);
    out.patchLe(dataSizeAt, r.dataSize);
    r.written = out.finish();
    return r;
}

bool Join(BufferedReader &remuxed, BufferedReader &damaged, quint64 packetSize, const QString &outPath,
          const std::atomic<bool> &stop)
{
    const Headers own = ReadHeaders(remuxed, stop);
    if (!own.dataPos)
        return false; // a remux without a Data Object has no header to lend
    quint64 head = FirstPacket(remuxed, own.dataPos + kDataHeader, own.packetSize, stop);
    if (head >= remuxed.size())
        head = qMin(remuxed.size(), own.dataPos + kDataHeader);
    const quint64 from = FirstPacket(damaged, 0, packetSize, stop);
    if (stop || from >= damaged.size())
        return false;
    OutFile out(outPath);
    out.copy(remuxed, 0, head, stop);
    out.copy(damaged, from, damaged.size() - from, stop);
    return !stop && out.finish();
}

} // namespace asf

namespace {

bool sameFile(const QString &a, const QString &b)
{
    const QString ca = QFileInfo(a).canonicalFilePath();
    return !ca.isEmpty() && ca == QFileInfo(b).canonicalFilePath();
}

// Runs AsfRemux on `in` into "1_" + name; when that made a file, `in` goes
// and the "1_" file takes the file's own name in the work folder.
void asfRemux(ThreadVideoRepair &t, const QString &in)
{
    CarverArgs args;
    args.strSource = in;
    const QString alt = "1_" + t.strFileName;
    t.RunMuxRow(QStringLiteral("AsfRemux"), args, alt);
    const QString dir = workfiles::OutputFolder();
    const QString made = dir + "/" + alt, target = dir + "/" + t.strFileName;
    if (QFileInfo(made).size() <= 0) {
        QFile::remove(made);
        return;
    }
    if (sameFile(target, t.strAsfSource))
        return; // the damaged file is never replaced
    if (!sameFile(in, t.strAsfSource))
        QFile::remove(in);
    QFile::remove(target);
    if (!QFile::rename(made, target))
        qWarning().noquote() << "Cannot rename" << made << "to" << target;
}

} // namespace

void ThreadVideoRepair::ReadAsfHeaders()
{
    RepairState &s = pApp;
    ullFileLeft = s.ullFileSize;
    s.bAsfHeadersFound = false;
    asfHeaders = asf::ReadHeaders(pSource, s.bStopRepair);
    if (!asfHeaders.complete()) {
        s.carve.fail(s.bSampleRun ? outcome::Why::WrongSample : outcome::Why::NoSample,
                     QStringLiteral("no ASF header with a video stream in the first MiB"));
        return;
    }
    s.bMoovParsed = true;
    s.bAsfHeadersFound = true;
}

void ThreadVideoRepair::RepairAsfFile(const QString &repairedDir)
{
    RepairState &s = pApp;
    const QString output = repairedDir + "/" + strFileName;
    const QString cleared = workfiles::OutputFolder() + "/" + strFileName; // the runner's output
    const QString mine = s.bSampleRun ? strAsfSample : QString();
    if (sameFile(output, strAsfSource) || sameFile(cleared, strAsfSource) || sameFile(output, mine) ||
        sameFile(cleared, mine)) {
        qWarning().noquote() << "The result would replace the damaged file or the sample: not repaired";
        s.bMoovParsed = false;
        s.bAsfMuxFailed = true;
        return;
    }
    if (!s.bSampleRun) {
        // The file's own header is whole: ffmpeg copies the streams.
        CarverArgs args;
        args.strSource = QFileInfo(strAsfSource).absoluteFilePath(); // ffmpeg runs in the work folder
        RunMuxRow(asfHeaders.audio.isEmpty() ? QStringLiteral("RemuxVideoOnly") : QStringLiteral("RemuxCopyAudio"),
                  args);
        const QString made = workfiles::OutputFolder() + "/" + strFileName;
        if (QFileInfo(made).size() <= 0) {
            QFile::remove(made);
            s.bMoovParsed = false;
            s.bAsfMuxFailed = true;
            s.carve.fail(outcome::Why::NothingFound, QStringLiteral("ffmpeg could not copy the streams"));
        }
        s.bMuxedResult = true;
        asfHeaders.freeObjects();
        return;
    }

    s.lstRepairedFiles << output;
    ThreadProgress progress(*this);
    const asf::Rebuilt r = asf::WriteFresh(asfHeaders, pSource, output, &progress, s.bStopRepair);
    asfHeaders.freeObjects();
    CloseLog();
    s.carve.mediaBytes = pSource.size();
    s.carve.claimedBytes = r.packetBytes;
    if (!r.written) {
        s.bAsfMuxFailed = true;
        if (!s.bStopRepair)
            s.carve.fail(r.packets ? outcome::Why::WriteFailed : outcome::Why::NothingFound,
                         r.packets ? QStringLiteral("the rebuilt file could not be written")
                                   : QStringLiteral("no data packet of the sample's size"));
        return;
    }
    asfRemux(*this, output);
    JoinAsfResult(output, strAsfSource);
    // The join wrote "1_" + name, which the runner clears as this command's
    // output before it starts: ffmpeg finds no input, and the first remux stays the result.
    asfRemux(*this, repairedDir + "/1_" + strFileName);
    s.nMuxFps = asfHeaders.frameRate(); // AsfRemux takes no rate
    if (!QFileInfo(output).isFile())
        s.bAsfMuxFailed = true;
}

void ThreadVideoRepair::JoinAsfResult(const QString &output, const QString &source)
{
    BufferedReader remuxed, damaged;
    if (pApp.bStopRepair || !remuxed.open(output) || !damaged.open(source))
        return;
    const QString joined = QFileInfo(output).absolutePath() + "/1_" + strFileName;
    asf::Join(remuxed, damaged, asfHeaders.packetSize, joined, pApp.bStopRepair);
}
