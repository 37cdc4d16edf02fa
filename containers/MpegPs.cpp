// MPEG program streams: the header searches, the new file, and the thread
// member that runs them and gives the verdict.

#include "containers/MpegPs.h"

#include "carve/audio/StreamOut.h"
#include "containers/ContainerConstants.h"
#include "containers/ContainerOutput.h"
#include "repair/BufferedReader.h"
#include "repair/ThreadVideoRepair.h"

#include <QFile>
#include <cstring>

namespace mpegps {

namespace {

bool codeAt(BufferedReader &f, quint64 pos, const char *code) { return f.tagAt(pos, code); }

// The 4 bytes at pos - back; zeros before the start of the file.
bool codeBefore(BufferedReader &f, quint64 pos, quint64 back, const char *code)
{
    return pos >= back && codeAt(f, pos - back, code);
}

bool anyCodeAt(BufferedReader &f, quint64 pos, std::initializer_list<const char *> codes)
{
    for (const char *c : codes)
        if (codeAt(f, pos, c))
            return true;
    return false;
}

} // namespace

quint64 FindCode(BufferedReader &f, quint64 from, quint64 end, const char *code, const std::atomic<bool> &stop)
{
    end = qMin(end, f.size());
    for (quint64 pos = from; pos < end && end - pos >= 4 && !stop.load(std::memory_order_relaxed);) {
        size_t len = 0;
        const quint8 *p = f.span(pos, &len);
        if (!p)
            break;
        const quint64 n = qMin<quint64>(len, end - pos);
        if (n < 4) { // a code across the window's edge
            if (codeAt(f, pos, code))
                return pos;
            ++pos;
            continue;
        }
        if (const void *hit = memmem(p, size_t(n), code, 4))
            return pos + quint64(static_cast<const quint8 *>(hit) - p);
        pos += n - 3;
    }
    return kNone;
}

bool ReadElementaryHeader(BufferedReader &f, quint64 size, Headers &h, const std::atomic<bool> &stop)
{
    const quint64 s = FindCode(f, 0, size / kHeaderShare, kSequenceHeader, stop);
    if (s == kNone)
        return false;
    f.readAt(s + 4, h.size, kSizeBytes);
    return true;
}

bool ReadSystemHeader(BufferedReader &f, quint64 limit, Headers &h, const std::atomic<bool> &stop)
{
    const quint64 x = FindCode(f, 0, limit / kHeaderShare, kSystemHeader, stop);
    if (x == kNone)
        return false;
    quint8 entry[2];
    f.readAt(x + kSystemEntryAt, entry, 2);
    for (const auto &known : kSystemEntries)
        h.systemCounts = h.systemCounts || std::memcmp(entry, known, 2) == 0;
    f.readAt(x + kSystemRatesAt, h.rates, kSystemRates);
    return h.systemCounts;
}

bool ReadSequenceHeader(BufferedReader &f, quint64 size, Headers &h, const std::atomic<bool> &stop)
{
    const quint64 end = size / kHeaderShare;
    for (quint64 s = 0; (s = FindCode(f, s, end, kSequenceHeader, stop)) != kNone; ++s) {
        int length = 0;
        if (anyCodeAt(f, s + kShortNextAt[0], {kGroupStart, kUserData, kExtension}) ||
            codeAt(f, s + kShortNextAt[1], kGroupStart))
            length = kShortSequence;
        else if (anyCodeAt(f, s + kLongNextAt[0], {kGroupStart, kUserData, kExtension}) ||
                 codeAt(f, s + kLongNextAt[1], kGroupStart))
            length = kLongSequence;
        if (length) {
            h.sequence = QByteArray(length, '\0');
            f.readAt(s, h.sequence.data(), size_t(length));
            return true;
        }
    }
    return false;
}

WriteResult WriteMpegFile(BufferedReader &src, quint64 fileLeft, const QString &path, bool packed,
                          const Headers &h, const std::atomic<bool> &stop)
{
    WriteResult r;
    const quint64 size = src.size();
    quint64 pack = 0, group = kNone;
    if (packed) {
        pack = FindCode(src, 0, size, kPackHeader, stop);
        if (pack != kNone)
            group = FindCode(src, pack, size, kGroupStart, stop);
    } else {
        group = FindCode(src, 0, fileLeft / kGroupShare, kGroupStart, stop);
    }
    if (group == kNone || stop)
        return r; // nothing to start the new file with: no file

    QFile file(path);
    if (!containers::OpenNewOutput(file, src.path())) {
        r.error = file.errorString();
        return r;
    }
    {
        StreamOut out(&file, false);
        auto copy = [&](quint64 pos, quint64 len) {
            if (pos < size)
                out.copy(src, pos, qMin(len, size - pos));
        };
        if (packed) {
            copy(pack, kPackKept);
            if (!codeAt(src, pack + kPackKept, kSystemHeader) && !codeAt(src, pack + kPackKept + 1, kSystemHeader)) {
                out.write(kSystemHeader, 4);
                out.write(kSystemLength, sizeof kSystemLength);
                out.write(h.rates, sizeof h.rates);
                out.write(kSystemStreams, sizeof kSystemStreams);
            }
            // What lies between the pack and the damaged sequence header stays;
            // that header itself gives way to the kept one.
            quint64 cut = kCutNone;
            if (codeBefore(src, group, kShortSequence, kSequenceHeader))
                cut = kCutShort;
            else if (codeBefore(src, group, kLongSequence, kSequenceHeader))
                cut = kCutLong;
            if (group - pack > cut)
                copy(pack + kPackKept, group - pack - cut);
            out.write(h.sequence.constData(), size_t(h.sequence.size()));
        } else {
            out.write(kSequenceHeader, 4);
            out.write(h.size, kSizeBytes);
            out.write(kElementaryBlock, kElementaryBlockSize);
        }
        copy(group, size - group);
        out.detach();
        if (out.error())
            r.error = out.errorText();
    }
    file.close();
    if (!r.error.isEmpty() || stop) {
        file.remove(); // a file the disk didn't take whole is no result
        return r;
    }
    r.written = true;
    return r;
}

} // namespace mpegps

void ThreadVideoRepair::RepairMpegFile(quint64 found, BufferedReader &file, quint64 size)
{
    using namespace mpegps;
    RepairState &s = pApp;
    s.bMuxedResult = false;
    Q_EMIT SetProgressBarRange(kProgressRange);
    // The driver's search stops at the end of the file when it meets no packet start.
    const bool packed = found < ullFileLeft;
    Headers h;
    bool ready = false;
    if (!packed) {
        ready = ReadElementaryHeader(file, size, h, s.bStopRepair);
    } else {
        Q_EMIT setProgressvalue(kProgressSearch);
        const bool system = ReadSystemHeader(file, ullFileLeft, h, s.bStopRepair);
        ready = ReadSequenceHeader(file, size, h, s.bStopRepair) && system;
    }
    bool repaired = false;
    if (ready) {
        const QString path = strRepairedDir + "/" + strFileName;
        const WriteResult w = WriteMpegFile(pSource, ullFileLeft, path, packed, h, s.bStopRepair);
        repaired = w.written;
        if (repaired)
            s.lstRepairedFiles << path;
        else if (!w.error.isEmpty())
            s.carve.fail(outcome::Why::WriteFailed, w.error);
        else
            s.carve.fail(outcome::Why::NothingFound, QStringLiteral("no pack header or group start in the file"));
    }
    if (!s.bStopRepair)
        Q_EMIT WriteAVIFileStatus(repaired, strFileName);
}
