// The MPEG-4 Visual splitter: frames open at a VOP or group-of-VOP start code
// and end where a known opening of the sample's sound stands (or, without
// sound, at the next frame's start code); the sound between frames is cut
// into AAC frames at those openings and given ADTS headers.

#include "carve/audio/Adts.h"
#include "carve/audio/AudioConstants.h"
#include "carve/audio/ByteSet.h"
#include "carve/audio/MediaWalk.h"
#include "carve/audio/Mpeg4Splitter.h"
#include "carve/audio/StreamOut.h"
#include "carve/video/CarveConstants.h"
#include "carve/video/WorkFiles.h"
#include "repair/RepairState.h"

#include <QFile>
#include <cstring>
#include <vector>

namespace carve {

namespace {
bool frameStart(const quint8 *b)
{
    return std::memcmp(b, kVopStart, 4) == 0 || std::memcmp(b, kGovStart, 4) == 0;
}
} // namespace

Split SplitMpeg4(CarverArgs &args, Env &env)
{
    RepairState &s = env.state;
    const std::atomic<bool> &stop = s.bStopRepair;
    BufferedReader &f = OpenSplit(args, s, workfiles::kVideoM4v);
    const quint64 size = s.ullFileSize;
    const bool withSound = s.bSampleHasAudio;
    if (args.strAudio.isEmpty())
        args.strAudio = workfiles::PathIn(s.strWorkBase, workfiles::kAudioAac);
    if (!args.fpAudio) {
        args.fpAudio.reset(new QFile(args.strAudio));
        args.fpAudio->open(QIODevice::ReadWrite);
    }
    StreamOut video(args.fpVideo.get(), !env.plainWalk), sound(args.fpAudio.get(), !env.plainWalk);

    // The openings of the sample's sound, whole records only, as a set of 2^24
    // bits; their first two bytes as a set of 2^16 bits that stays in the
    // cache and turns away most chance candidates first.
    std::vector<quint64> known(size_t(1) << 18, 0), knownPairs(size_t(1) << 10, 0);
    bool anyKnown = false;
    {
        QFile list(args.strAudioUnique);
        if (withSound && !args.strAudioUnique.isEmpty() && list.open(QIODevice::ReadOnly)) {
            const QByteArray r = list.readAll();
            for (int i = 0; i + 3 <= r.size(); i += 3) {
                const quint32 v = quint32(quint8(r[i])) << 16 | quint32(quint8(r[i + 1])) << 8 | quint8(r[i + 2]);
                known[v >> 6] |= quint64(1) << (v & 63);
                knownPairs[v >> 14] |= quint64(1) << ((v >> 8) & 63);
                anyKnown = true;
            }
        }
    }
    auto isKnown = [&](const quint8 *b) {
        const quint32 pair = quint32(b[0]) << 8 | b[1];
        if (!((knownPairs[pair >> 6] >> (pair & 63)) & 1))
            return false;
        const quint32 v = pair << 8 | b[2];
        return bool((known[v >> 6] >> (v & 63)) & 1);
    };
    PercentProgress progress(env.progress, size);
    auto writeAac = [&](quint64 from, quint64 n) {
        if (n > audio::kMaxAdtsPayload)
            n = s.nAvgAudioFrame <= audio::kMaxAdtsPayload ? s.nAvgAudioFrame : audio::kFallbackFrame;
        if (n)
            WriteAdtsFrame(sound, f, from, n, s, int(adts::Variant::Mpeg4));
    };
    // The first position from p where test holds for the bytes there; `size`
    // when none. Positions whose first byte can't start a match are passed over
    // inside the window; the last three of a window are read across its end.
    auto scan = [&](quint64 p, const ByteSet &first, const ByteSet *second, auto test) {
        while (p + 3 <= size && !stop) {
            size_t len = 0;
            const quint8 *b = f.span(p, &len);
            if (!b || !len)
                break;
            const size_t safe = len >= 4 ? len - 3 : 0;
            // An opening's first two bytes are both known: one pass finds such pairs.
            auto nextAt = [&](size_t from) { return from + first.findPairIn(*second, b + from, safe - from); };
            for (size_t i = nextAt(0); i < safe; i = nextAt(i + 1))
                if (test(b + i))
                    return p + i;
            for (size_t i = safe; i < len && p + i + 3 <= size; ++i) {
                quint8 t[4];
                const quint8 *c = BytesAt(f, p + i, t, 4);
                if (first.has(c[0]) && test(c))
                    return p + i;
            }
            p += len;
            progress(p);
        }
        return size;
    };
    ByteSet zero, knownFirst, knownSecond;
    zero.add(0);
    {
        QFile list(args.strAudioUnique);
        if (withSound && list.open(QIODevice::ReadOnly)) {
            const QByteArray r = list.readAll();
            for (int i = 0; i + 3 <= r.size(); i += 3) {
                knownFirst.add(quint8(r[i]));
                knownSecond.add(quint8(r[i + 1]));
            }
        }
    }

    MediaSpan span;
    span.end = span.fileSize = size;
    quint64 pos = TopLevelWalk(f, span, true, stop);
    s.carve.mediaBytes = size - qMin(pos, size);
    // The first frame; blank stretches are passed 512 bytes at a time.
    bool found = false;
    while (pos + 4 <= size && !stop) {
        if (IsPadding(f, pos, kPaddingOuter)) {
            pos += kPaddingOuter;
            continue;
        }
        quint8 t[4];
        if (frameStart(BytesAt(f, pos, t, 4))) {
            found = true;
            break;
        }
        ++pos;
    }
    s.bMediaFound = found;
    auto atomAt = [&](quint64 p) { return AtomStep(f, span, p); };
    while (found && pos < size && !stop) {
        if (const quint64 skip = atomAt(pos)) {
            pos += skip;
            continue;
        }
        quint8 t[4];
        if (!frameStart(BytesAt(f, pos, t, 4))) {
            ++pos;
            continue;
        }
        // The frame runs to the first known opening of sound (without sound, to
        // the next frame start).
        const quint64 end = withSound ? scan(pos + 1, knownFirst, &knownSecond, [&](const quint8 *b) { return isKnown(b); })
                                      : scan(pos + 1, zero, &zero, [](const quint8 *b) { return frameStart(b); });
        const quint64 length = end - pos;
        // A frame that runs to the end of the file isn't taken (no opening ended it).
        if (length != 0 && length < size - pos) {
            video.copy(f, pos, length);
            ++s.carve.videoUnits;
            s.carve.claimedBytes += length;
        } else if (!withSound && end >= size) {
            video.copy(f, pos, size - pos); // the last frame of a soundless file ends with it
            ++s.carve.videoUnits;
        }
        pos = end;
        progress(pos);
        if (!withSound || !anyKnown || pos >= size)
            continue;
        // The sound: AAC frames from opening to opening, up to the next frame start.
        quint64 frame = pos;
        quint64 p = pos + 1;
        while (p < size && !stop) {
            quint8 b8[8];
            const quint8 *b = BytesAt(f, p, b8, 8);
            if (frameStart(b))
                break;
            // Only a tag's first letter can start an atom, only 00 or FF a blank stretch.
            if (MayOpenTag(b[4]) && atomAt(p) > kAtomHeader)
                break;
            if ((b[0] == 0 || b[0] == 0xFF) && IsPadding(f, p, kPaddingInner)
                && IsPadding(f, p + kPaddingInner, kPaddingInner)) {
                p += 2 * kPaddingInner;
                continue;
            }
            if (knownFirst.has(b[0]) && isKnown(b)) {
                writeAac(frame, p - frame);
                frame = p;
            }
            ++p;
        }
        p = qMin(p, size);
        writeAac(frame, p - frame);
        pos = p;
    }
    progress(size);
    video.detach();
    sound.detach();
    args.fpVideo.reset();
    args.fpAudio.reset();
    args.fpSource.reset();
    Split out;
    out.withSound = withSound ? 1 : 0;
    s.bSampleHasAudio = false;
    if (StreamsFailed(&video, &sound, s, env.fileName))
        out.outcome = Split::WriteFailed;
    return out;
}

} // namespace carve
