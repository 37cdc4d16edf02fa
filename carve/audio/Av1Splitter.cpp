// The AV1 splitter: OBU after OBU by their LEB128 sizes, a temporal delimiter
// written in front of each group (the file form leaves it out). The sound of
// an AV1 recording is never carved: the result is the pictures alone.

#include "carve/audio/Av1Splitter.h"

#include "carve/audio/AudioConstants.h"
#include "carve/audio/MediaWalk.h"
#include "carve/audio/StreamOut.h"
#include "carve/video/CarveConstants.h"
#include "carve/video/WorkFiles.h"
#include "repair/RepairState.h"

#include <QFile>
#include <QtDebug>

namespace carve {

Split SplitAv1(CarverArgs &args, Env &env)
{
    RepairState &s = env.state;
    const std::atomic<bool> &stop = s.bStopRepair;
    // Cleared before it is asked: the route without sound always runs.
    s.bSampleHasAudio = false;
    BufferedReader &f = OpenSplit(args, s, workfiles::kVideoAv1);
    const quint64 size = s.ullFileSize;
    PercentProgress progress(env.progress, size);
    StreamOut video(args.fpVideo.get(), !env.plainWalk);
    auto delimiter = [&] { video.write(kAv1Delimiter, sizeof kAv1Delimiter); };
    // The OBU at p, whole: header, LEB128 size, payload. What runs past the end
    // of the file is copied as far as the file goes, then zeros, never more in
    // all than the file holds.
    auto copyObu = [&](quint64 p) {
        quint64 payload = 0;
        int sizeBytes = 0;
        for (; sizeBytes < kLeb128MaxBytes; ++sizeBytes) {
            const quint8 b = f.u8(p + 1 + quint64(sizeBytes));
            payload |= quint64(b & 0x7F) << (7 * sizeBytes);
            if (!(b & 0x80)) {
                ++sizeBytes;
                break;
            }
        }
        const quint64 whole = 1 + quint64(sizeBytes) + payload;
        qDebug().noquote() << "OBU header:" << QStringLiteral("0x%1").arg(f.u8(p), 2, 16, QLatin1Char('0'))
                           << "LEB128 size bytes:" << sizeBytes << "Payload size:" << payload << "bytes";
        video.copy(f, p, qMin(whole, size));
        ++s.carve.videoUnits;
        s.carve.claimedBytes += qMin(whole, size - qMin(p, size));
        progress(p);
        return p + whole < p ? size : p + whole; // a size that wraps ends the walk
    };
    auto twoBytes = [&](quint64 p, quint8 a, quint8 b) { return f.u8(p) == a && f.u8(p + 1) == b; };

    MediaSpan span;
    span.end = span.fileSize = size;
    quint64 pos = TopLevelWalk(f, span, true, stop);
    s.carve.mediaBytes = size - qMin(pos, size);
    auto atomAt = [&](quint64 p) { return AtomStep(f, span, p); };
    // Where the OBU at p ends (its LEB128 size read), or 0 past the file.
    auto obuEnd = [&](quint64 p) -> quint64 {
        quint64 payload = 0;
        for (int i = 0; i < kLeb128MaxBytes; ++i) {
            const quint8 b = f.u8(p + 1 + quint64(i));
            payload |= quint64(b & 0x7F) << (7 * i);
            if (!(b & 0x80))
                return payload <= size ? p + 2 + quint64(i) + payload : 0;
        }
        return 0;
    };
    auto obuHeader = [](quint8 b) {
        return b == kObuSequenceHeader || b == kAv1Delimiter[0] || b == kObuFrameHeader || b == kObuFrame;
    };
    // The first OBU: a sequence header, or a temporal delimiter. Departure: it
    // must lead to another OBU header; a 0A anywhere in sound before the
    // pictures took the whole file for one OBU.
    enum { None, Sequence, Group } first = None;
    for (; pos < size && !stop; ++pos) {
        if (IsPadding(f, pos, kPaddingInner)) {
            pos += kPaddingInner - 1;
            continue;
        }
        const quint64 end = f.u8(pos) == kObuSequenceHeader ? obuEnd(pos) : 0;
        if (end && end < size && obuHeader(f.u8(end))) {
            first = Sequence;
            break;
        }
        if (twoBytes(pos, kAv1Delimiter[0], kAv1Delimiter[1]) && obuHeader(f.u8(pos + 2))) {
            first = Group;
            break;
        }
    }
    s.bMediaFound = first != None;
    if (first == Sequence) {
        while (const quint64 atom = atomAt(pos))
            pos += atom;
        // The delimiter is written until the byte is a sequence header or a
        // delimiter, which it is here: once.
        delimiter();
        pos = copyObu(pos);
        while (pos < size && f.u8(pos) == kObuFrame)
            pos = copyObu(pos);
        if (twoBytes(pos, kObuFrameHeader, 0x01)) {
            video.copy(f, pos, 3);
            pos += 3;
        }
    }
    // Group after group, each opened by a delimiter in the file.
    while (first != None && pos < size && !stop) {
        if (const quint64 atom = atomAt(pos)) {
            pos += atom;
            continue;
        }
        if (twoBytes(pos, kAv1Delimiter[0], kAv1Delimiter[1])) {
            delimiter();
            pos += 2;
            const quint8 b = f.u8(pos);
            if (b == kObuSequenceHeader || b == kObuFrame) {
                pos = copyObu(pos);
                while (pos < size && f.u8(pos) == kObuFrame)
                    pos = copyObu(pos);
            } else if (twoBytes(pos, kObuFrameHeader, 0x01)) {
                video.copy(f, pos, 3);
                pos += 3;
            }
            continue;
        }
        if (IsPadding(f, pos, kPaddingInner)) {
            pos += kPaddingInner;
            continue;
        }
        ++pos;
    }
    progress(size);
    video.detach();
    args.fpVideo.reset();
    args.fpAudio.reset();
    args.fpAudioUnique.reset();
    args.fpSource.reset();
    Split out;
    out.withSound = 0;
    if (StreamsFailed(&video, nullptr, s, env.fileName))
        out.outcome = Split::WriteFailed;
    return out;
}

} // namespace carve
