#include "containers/Flv.h"

#include "containers/ContainerConstants.h"
#include "carve/audio/StreamOut.h"
#include "rebuild/LogReader.h"
#include "repair/BufferedReader.h"
#include "repair/RepairLine.h"
#include "repair/ThreadVideoRepair.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <memory>

namespace flv {

namespace {

constexpr int kCopied = int(std::size(kMetaEntries));
constexpr int kDoubleBytes = 8;
constexpr QFileDevice::Permissions kResultPermissions =
    QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadGroup | QFileDevice::ReadOther;
using Values = quint8[kCopied][kDoubleBytes];

quint32 be24(const quint8 *p) { return quint32(p[0]) << 16 | quint32(p[1]) << 8 | p[2]; }

int binaryDigits(quint8 b)
{
    int n = 0;
    for (unsigned v = b; v; v >>= 1)
        ++n;
    return n;
}

bool opensRun(quint8 firstDataByte)
{
    for (int digits : kStartDigits)
        if (binaryDigits(firstDataByte) == digits)
            return true;
    return false;
}

// The data size D of a whole tag at `at`, one whose trailing size is D + 11
// and lies inside the file; -1 otherwise. `head` receives its first bytes.
qint64 wholeTag(BufferedReader &src, quint64 at, quint8 (&head)[kTagHead + 1])
{
    const quint64 size = src.size();
    if (at > size || size - at < kMinTag)
        return -1;
    src.readAt(at, head, sizeof head);
    const quint64 d = be24(head + kSizeAt);
    if (d > size - at - kMinTag || src.be32(at + kTagHead + d) != d + kTagHead)
        return -1;
    return qint64(d);
}

// The next position from `from` on that holds a sound or video type byte;
// the file's size when there is none.
quint64 nextCandidate(BufferedReader &src, quint64 from)
{
    const quint64 size = src.size();
    for (quint64 p = from; p < size;) {
        size_t len = 0;
        const quint8 *b = src.span(p, &len);
        if (!b)
            break;
        for (size_t i = 0; i < len; ++i)
            if (b[i] == kSoundTag || b[i] == kVideoTag)
                return p + i;
        p += len;
    }
    return size;
}

// Lists the whole tags from the first key frame on, and copies each listed
// tag to `copies` (when given) as it goes; false when the log refused a line.
bool scanTags(BufferedReader &src, QFile &log, const std::atomic<bool> &stop, StageProgress *progress, Result &r,
              StreamOut *copies)
{
    const quint64 size = src.size(), step = qMax<quint64>(1, size / kProgressSteps);
    quint64 shown = 0;
    bool keySeen = false, stamped = false, logged = true;
    quint32 first = 0, last = 0;
    RepairLine cipher;
    for (quint64 o = 0; !stop.load(std::memory_order_relaxed);) {
        if (progress && o >= shown + step) {
            shown = o;
            progress->setValue(qint64(o));
        }
        o = nextCandidate(src, o);
        quint8 head[kTagHead + 1];
        const qint64 d = o < size ? wholeTag(src, o, head) : -1;
        if (d < 0) {
            if (size - o < kMinTag)
                break;
            ++o;
            continue;
        }
        const quint64 whole = quint64(d) + kMinTag;
        const bool video = head[0] == kVideoTag;
        if (video && !keySeen) {
            r.videoSeen = true;
            keySeen = opensRun(head[kTagHead]);
        }
        if (keySeen) {
            logged = rebuild::WritePairLine(log, cipher, o, whole - kTrailer) && logged;
            if (copies)
                copies->copy(src, o, whole);
            ++(video ? r.videoTags : r.soundTags);
            r.tagBytes += whole;
            const quint32 t = be24(head + kTimeAt);
            if (!stamped)
                first = t;
            stamped = true;
            last = t;
        } else {
            ++r.passedTags;
        }
        o += whole;
    }
    if (last > first)
        r.duration = double((last - first) / kMsPerSecond);
    return logged;
}

// The first position in [from, end) where `name` stands whole; end when none.
quint64 findName(BufferedReader &src, quint64 from, quint64 end, const char *name)
{
    const size_t n = std::strlen(name);
    for (quint64 p = from; p < end && end - p >= n;) {
        size_t len = 0;
        const quint8 *b = src.span(p, &len);
        if (!b)
            break;
        const void *hit = std::memchr(b, name[0], size_t(qMin<quint64>(len, end - p)));
        if (!hit) {
            p += qMin<quint64>(len, end - p);
            continue;
        }
        p += quint64(static_cast<const quint8 *>(hit) - b);
        const quint8 *q = end - p >= n ? src.peek(p, n) : nullptr;
        if (q && std::memcmp(q, name, n) == 0)
            return p;
        ++p;
    }
    return end;
}

// The copied values from the damaged file's own script tag, when a whole one
// starts near the head of the file; false when there is none.
bool oldMetadata(BufferedReader &src, Values &values)
{
    const quint64 size = src.size(), end = qMin(kScriptSearchEnd, size);
    for (quint64 s = 0; s < end; ++s) {
        quint8 head[kTagHead + 1];
        if (src.u8(s) != kScriptTag || wholeTag(src, s, head) < 0)
            continue;
        const quint64 dataEnd = s + kTagHead + be24(head + kSizeAt);
        for (int i = 0; i < kCopied; ++i) {
            if (kMetaEntries[i].value != MetaValue::Copied)
                continue;
            const quint64 n = std::strlen(kMetaEntries[i].name);
            const quint64 at = findName(src, s + kValueSearchFrom, dataEnd, kMetaEntries[i].name);
            if (at < dataEnd && dataEnd - at - n >= 1 + kDoubleBytes)
                src.readAt(at + n + 1, values[i], kDoubleBytes);
        }
        return true;
    }
    return false;
}

void appendBe(QByteArray &out, quint64 v, int bytes)
{
    for (int i = bytes - 1; i >= 0; --i)
        out += char(quint8(v >> (8 * i)));
}

QByteArray fileHead(bool full, double duration, const Values &values)
{
    QByteArray out(reinterpret_cast<const char *>(kFileHead), int(sizeof kFileHead));
    const quint32 dataSize = MetaDataSize(full);
    out += char(kScriptTag);
    appendBe(out, dataSize, 3);
    out.append(int(kStampBytes), '\0');
    out.append(reinterpret_cast<const char *>(kMetaOpen), int(sizeof kMetaOpen));
    for (int i = 0; i < kCopied; ++i) {
        const MetaEntry &e = kMetaEntries[i];
        if (e.value == MetaValue::Copied && !full)
            continue;
        const int n = int(std::strlen(e.name));
        appendBe(out, quint64(n), 2);
        out.append(e.name, n);
        out += char(kNumberType);
        if (e.value == MetaValue::Copied) {
            out.append(reinterpret_cast<const char *>(values[i]), kDoubleBytes);
        } else {
            quint64 bits = 0;
            const double v = e.value == MetaValue::Duration ? duration : 0.0;
            std::memcpy(&bits, &v, sizeof bits);
            appendBe(out, bits, kDoubleBytes);
        }
    }
    out.append(reinterpret_cast<const char *>(kMetaClose), int(sizeof kMetaClose));
    appendBe(out, dataSize + kTagHead, int(kTrailer));
    return out;
}

bool sameFile(const QString &a, const QString &b)
{
    const QString ca = QFileInfo(a).canonicalFilePath();
    return !ca.isEmpty() && ca == QFileInfo(b).canonicalFilePath();
}

// The repaired file, written while the scan lists its tags: the tags go
// behind the room the new head takes, which is written last. It is made
// under a temporary name and takes its own only when whole.
class Output
{
public:
    Output(const QString &outPath, quint64 headSize) : m_file(outPath + QStringLiteral(".XXXXXX")), m_outPath(outPath)
    {
        if (m_file.open())
            m_tags.reset(new StreamOut(&m_file, true, headSize));
    }
    StreamOut *tags() { return m_tags.get(); }
    // The error, empty when the file is whole under its name.
    QString finish(const QByteArray &head, bool *written)
    {
        if (!m_tags)
            return m_file.errorString();
        m_tags->detach();
        if (m_tags->error())
            return m_tags->errorText();
        if (!m_file.seek(0) || m_file.write(head) != head.size() || !m_file.flush())
            return m_file.errorString();
        m_file.setPermissions(kResultPermissions);
        if (::rename(QFile::encodeName(m_file.fileName()).constData(), QFile::encodeName(m_outPath).constData()) != 0)
            return QString::fromLocal8Bit(std::strerror(errno));
        m_file.setAutoRemove(false);
        *written = true;
        return QString();
    }

private:
    QTemporaryFile m_file; // removed with this object unless renamed
    const QString m_outPath;
    std::unique_ptr<StreamOut> m_tags;
};

} // namespace

quint32 MetaDataSize(bool full)
{
    quint32 n = sizeof kMetaOpen + sizeof kMetaClose;
    for (const MetaEntry &e : kMetaEntries)
        if (full || e.value != MetaValue::Copied)
            n += quint32(2 + std::strlen(e.name) + 1 + kDoubleBytes);
    return n;
}

Result Repair(BufferedReader &src, QFile &log, const QString &outPath, const std::atomic<bool> &stop,
              StageProgress *progress)
{
    Result r;
    if (!src.isOpen())
        return r;
    if (!log.isOpen()) {
        r.error = QStringLiteral("the work log could not be opened");
        return r;
    }
    if (progress)
        progress->setRange(qint64(src.size()));
    Values values = {};
    r.fullMeta = oldMetadata(src, values);
    const bool replaces = sameFile(outPath, src.path());
    // The head's size doesn't depend on what the scan finds: the tags are
    // copied behind it while the scan goes on.
    std::unique_ptr<Output> out(replaces ? nullptr : new Output(outPath, quint64(fileHead(r.fullMeta, 0, values).size())));
    const bool logged = scanTags(src, log, stop, progress, r, out ? out->tags() : nullptr) && log.flush();
    log.close();
    // No output for a file without a key frame to start from, too short a
    // file, or a stop.
    if (!r.videoSeen || r.videoTags == 0 || src.size() < kMinFileSize || stop.load())
        return r;
    if (!logged) {
        r.error = QStringLiteral("the work log could not be written");
        return r;
    }
    if (replaces) {
        r.error = QStringLiteral("the output would replace the damaged file");
        return r;
    }
    r.error = out->finish(fileHead(r.fullMeta, r.duration, values), &r.written);
    return r;
}

} // namespace flv

void ThreadVideoRepair::RepairFlvFile(const QString &fileName)
{
    RepairState &s = pApp;
    s.bMuxedResult = false;
    ThreadProgress progress(*this);
    const QString outPath = strRepairedDir + "/" + fileName;
    const flv::Result r = flv::Repair(pSource, hLog, outPath, s.bStopRepair, &progress);
    s.carve.videoUnits = r.videoTags;
    s.carve.soundFrames = r.soundTags;
    s.carve.mediaBytes = pSource.size();
    s.carve.claimedBytes = r.tagBytes;
    if (!r.error.isEmpty()) {
        s.carve.failReason = r.error;
        s.carve.fail(outcome::Why::WriteFailed, r.error);
    } else if (!r.written && !s.bStopRepair) {
        s.carve.fail(outcome::Why::NothingFound, r.videoSeen ? QStringLiteral("no FLV key frame, or too short a file")
                                                             : QStringLiteral("no whole FLV video tags"));
    }
    if (!r.written)
        return;
    s.lstRepairedFiles << outPath;
    s.bMoovParsed = true;
    if (!s.bStopRepair)
        Q_EMIT WriteStatus(true, hasVideo_Strh, fileName, false);
}
