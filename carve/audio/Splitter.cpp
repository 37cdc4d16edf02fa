// The splitters: one walk over the damaged file that sends video units to the
// video stream file and audio frames to the audio file. One state machine,
// driven by a row per member.

#include "carve/audio/Adts.h"
#include "carve/audio/AudioConstants.h"
#include "carve/audio/HeadLearning.h"
#include "carve/audio/HeadList.h"
#include "carve/audio/MediaWalk.h"
#include "carve/audio/Av1Splitter.h"
#include "carve/audio/Mpeg4Splitter.h"
#include "carve/audio/PositionSplitter.h"
#include "carve/audio/Mp3Frame.h"
#include "carve/audio/StreamOut.h"
#include "carve/video/CarveConstants.h"
#include "carve/video/CarveStages.h"
#include "carve/video/WorkFiles.h"
#include "repair/RepairState.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QSet>
#include <QtDebug>
#include <atomic>
#include <cstring>

using namespace carve;

namespace {

enum class AudioKind { AdtsHeads, Mp3Frames };

struct SplitterRow
{
    Splitter id;
    const char *name;
    NalSet run;           // a unit, and what must follow it
    NalSet first;         // the first unit of the file
    NalSet gap;           // a unit that ends an audio gap
    NalSet videoOnly;     // the branch for a sample without sound
    NalSet videoOnlyDji;  // the same for a sample with the "DJI." tag
    AudioKind audio;
    bool makerRecords = false; // HEVC recorders' records behind units (see kHevcMakerSteps)
};

const SplitterRow &rowOf(Splitter id)
{
    static const SplitterRow kRows[] = {
        {Splitter::H264Aac, "SplitH264Aac", FrameTestOf(Chain::Aac).run, FrameTestOf(Chain::Aac).run,
         FrameTestOf(Chain::Aac).first, FrameTestOf(Chain::AacVideoOnly).run, FrameTestOf(Chain::AacVideoOnlyDji).run,
         AudioKind::AdtsHeads},
        {Splitter::H264Mp3, "SplitH264Mp3", FrameTestOf(Chain::Mp3).run, FrameTestOf(Chain::Mp3).first,
         FrameTestOf(Chain::Mp3).first, FrameTestOf(Chain::Mp3).run, FrameTestOf(Chain::Mp3).run,
         AudioKind::Mp3Frames},
        // HEVC: one set for every test, b5 (the header's second byte) included.
        {Splitter::HevcAac, "SplitHevcAac", FrameTestOf(Chain::HevcAac).run, FrameTestOf(Chain::HevcAac).run,
         FrameTestOf(Chain::HevcAac).run, FrameTestOf(Chain::HevcAac).run, FrameTestOf(Chain::HevcAac).run,
         AudioKind::AdtsHeads, true},
    };
    for (const SplitterRow &r : kRows)
        if (r.id == id)
            return r;
    return kRows[0];
}

bool isTagIn(BufferedReader &f, quint64 p, std::initializer_list<const char *> tags)
{
    for (const char *t : tags)
        if (f.tagAt(p, t))
            return true;
    return false;
}

// The first position from p on where the byte at p (at0) or at p + 4 (at4)
// is worth a look; every position before it would be passed over by the
// byte-by-byte walk anyway. Stays inside the window, and short of the last
// 128 bytes of the file, where the walk looks at shorter reads.
quint64 passPlain(BufferedReader &f, quint64 p, quint64 size, const bool *at0, const bool *at4)
{
    if (p + carve::kPaddingInner > size)
        return p;
    size_t len = 0;
    const quint8 *b = f.span(p, &len);
    if (!b || len < size_t(carve::kPaddingInner))
        return p;
    const size_t n = size_t(qMin<quint64>(len - carve::kPaddingInner + 1, size - carve::kPaddingInner + 1 - p));
    size_t i = 0;
    if (at4)
        while (i < n && !at0[b[i]] && !at4[b[i + 4]])
            ++i;
    else
        while (i < n && !at0[b[i]])
            ++i;
    return p + i;
}

// How far a recorder's record at p moves the walk on; 0 where none stands.
quint64 makerStep(BufferedReader &f, quint64 p, quint64 size)
{
    quint8 t[8];
    const quint8 *b = carve::BytesAt(f, p, t, 8);
    for (const audio::HevcMakerStep &m : audio::kHevcMakerSteps) {
        if (std::memcmp(b, m.bytes, size_t(m.length)) != 0)
            continue;
        const quint64 step = m.sized ? quint64(f.be32(p)) + m.step : m.step;
        return qBound<quint64>(1, step, size - qMin(p, size));
    }
    return 0;
}

bool makerConfirms(BufferedReader &f, quint64 p)
{
    quint8 t[8];
    const quint8 *b = carve::BytesAt(f, p, t, 8);
    for (const audio::HevcMakerConfirm &c : audio::kHevcMakerConfirms)
        if (std::memcmp(b, c.bytes, size_t(c.length)) == 0)
            return true;
    return false;
}

} // namespace

namespace carve {

bool SplitterBuilt(Splitter id)
{
    return id == Splitter::H264Aac || id == Splitter::H264Mp3 || id == Splitter::HevcAac || id == Splitter::Mpeg4Aac ||
           id == Splitter::Av1Aac || PositionSplitterBuilt(id);
}

Split SplitStreams(Splitter id, CarverArgs &args, Env &env, HeadList *headsIn)
{
    if (PositionSplitterBuilt(id))
        return SplitByPosition(id, args, env);
    if (id == Splitter::Mpeg4Aac)
        return SplitMpeg4(args, env);
    if (id == Splitter::Av1Aac)
        return SplitAv1(args, env);
    if (!SplitterBuilt(id)) {
        Split out;
        out.outcome = Split::NotBuilt;
        return out;
    }
    const SplitterRow &row = rowOf(id);
    RepairState &s = env.state;
    workfiles::EnsureWorkFolderIn(s.strWorkBase);

    QByteArray paramSets;
    {
        QFile idx(args.strIndexing);
        if (!args.strIndexing.isEmpty() && idx.open(QIODevice::ReadOnly)) {
            s.nIndexingSize = quint64(idx.size());
            idx.seek(qint64(s.nIndexingPos));
            paramSets = idx.readAll();
        }
    }
    int nChains = 0, nAudioRuns = -1;
    BufferedReader &f = OpenSplit(args, s, workfiles::kVideoH264);
    const quint64 size = s.ullFileSize;
    const bool withSound = s.bSampleHasAudio;
    s.bMediaFound = s.bAudioFirst = false;

    StreamOut video(args.fpVideo.get(), !env.plainWalk);
    auto bytesAt = [&](quint64 p, quint8 *tmp, size_t n) { return BytesAt(f, p, tmp, n); };
    auto test = [&](const NalSet &set, quint64 p) {
        quint8 tmp[6];
        return set.test(bytesAt(p, tmp, 6));
    };
    auto padding = [&](quint64 p, int n) { return IsPadding(f, p, n); };
    auto writeUnit = [&](quint64 p, quint64 len) {
        if (p >= size)
            return;
        len = qMin<quint64>(len, size - p - qMin<quint64>(size - p, 4)); // never past the file
        video.unit(f, p, len);
        ++s.carve.videoUnits;
        s.carve.claimedBytes += len + 4;
    };
    PercentProgress progress(env.progress, size, false); // the range is set where the walk with sound begins
    auto finishFiles = [&] {
        video.detach();
        args.fpVideo.reset();
        args.fpAudio.reset();
        args.fpAudioUnique.reset();
        args.fpSource.reset();
        s.bSampleHasAudio = false;
    };
    // A stream that lost bytes on the way to the disk makes no result: the
    // work files go, the reason is noted, and ffmpeg isn't asked.
    auto writesFailed = [&](const StreamOut *audioStream) { return StreamsFailed(&video, audioStream, s, env.fileName); };

    // An atom met in the walk counts only when its size keeps it inside the
    // atom around it (the media data) or the file; else its tag is a chance
    // pattern in the media and the walk goes on over its bytes.
    MediaSpan span;
    span.end = span.fileSize = size;
    auto fits = [&](quint64 at, quint64 sz) { return span.fits(at, sz); };
    auto topWalk = [&](bool videoOnlyBranch) { return TopLevelWalk(f, span, videoOnlyBranch, s.bStopRepair); };

    if (!withSound) {
        // The branch for a sample without sound: units alone, confirmed by the next.
        const NalSet &set = s.bSampleHasDjiTag ? row.videoOnlyDji : row.videoOnly;
        quint64 pos = topWalk(true);
        s.carve.mediaBytes = size - qMin(pos, size);
        bool found = false, blockStream = false;
        auto blockRecord = [&](quint64 p) {
            quint8 tmp[5];
            return row.makerRecords && audio::IsHevcBlockRecord(bytesAt(p, tmp, 5));
        };
        auto seek = [&](quint64 from, quint64 step) {
            for (quint64 q = from; q < size && !s.bStopRepair;) {
                if (padding(q, carve::kPaddingOuter)) {
                    q += step;
                    continue;
                }
                if (test(set, q)) {
                    const quint32 L = f.be32(q);
                    if (L && test(set, q + 4 + L)) {
                        pos = q;
                        return true;
                    }
                    if (L && !blockStream && blockRecord(q + 4 + L)) {
                        // The stream carries the recorder's blocks: the walk
                        // below drops them from here on.
                        blockStream = true;
                        pos = q;
                        return true;
                    }
                }
                ++q;
                if ((q & 0xFFFFF) == 0)
                    progress(q);
            }
            return false;
        };
        found = seek(pos, carve::kPaddingOuter);
        while (found && pos < size && !s.bStopRepair) {
            const quint32 L = f.be32(pos);
            const quint64 next = pos + 4 + L;
            writeUnit(pos, L);
            progress(pos);
            if (L && test(set, next)) {
                pos = next;
                continue;
            }
            if (L && blockStream && blockRecord(next)) {
                pos = next + audio::kHevcBlockSize;
                if (!test(set, pos))
                    found = seek(pos, carve::kPaddingOuter + 1);
                continue;
            }
            // The last unit of a run is written; look for the next run, a blank
            // block moving the walk on by 513 bytes.
            found = seek(L ? next : pos + 1, carve::kPaddingOuter + 1);
        }
        finishFiles();
        Split out;
        out.withSound = 0;
        if (writesFailed(nullptr))
            out.outcome = Split::WriteFailed;
        return out;
    }

    // With sound.
    if (row.audio == AudioKind::AdtsHeads && !adts::BuildAdtsHeader(s, 0)) {
        finishFiles();
        s.bMoovParsed = false;
        s.bCarveFailed = true;
        s.bKeepLogHandle = true;
        Split out;
        out.outcome = Split::Refused;
        return out;
    }
    if (args.strAudio.isEmpty())
        args.strAudio = workfiles::PathIn(s.strWorkBase, workfiles::kAudioAac);
    if (!args.fpAudio) {
        args.fpAudio.reset(new QFile(args.strAudio));
        args.fpAudio->open(QIODevice::ReadWrite);
    }
    StreamOut audioOut(args.fpAudio.get(), !env.plainWalk);
    QByteArray records;
    {
        QFile list(args.strAudioUnique);
        if (!args.strAudioUnique.isEmpty() && list.open(QIODevice::ReadOnly))
            records = list.readAll();
    }
    QByteArray videoHeads;
    {
        QFile videoList(args.strVideoUnique);
        if (!args.strVideoUnique.isEmpty() && videoList.open(QIODevice::ReadOnly))
            videoHeads = videoList.readAll();
    }
    if (row.audio == AudioKind::AdtsHeads && env.learnHeads) {
        // Heads the damaged file itself shows behind its units join the
        // sample's list, so sound of other loudness or content is still told.
        BufferedReader learnFrom;
        learnFrom.open(args.strSource);
        QElapsedTimer clock;
        clock.start();
        const LearnedHeads learned =
            LearnHeadsBehindUnits(learnFrom, topWalk(false), row.run, videoHeads, &s.bStopRepair);
        const double seconds = double(clock.nsecsElapsed()) / 1e9;
        records.truncate(records.size() - records.size() % audio::kRecord);
        auto key = [](const char *r) {
            return quint32(quint8(r[0])) << 16 | quint32(quint8(r[1])) << 8 | quint8(r[2]);
        };
        QSet<quint32> known;
        for (int k = 0; k + audio::kRecord <= records.size(); k += audio::kRecord)
            known.insert(key(records.constData() + k));
        int added = 0;
        for (int i = 0; i + audio::kRecord <= learned.records.size(); i += audio::kRecord) {
            const char *r = learned.records.constData() + i;
            if (!known.contains(key(r))) {
                known.insert(key(r));
                records.append(r, audio::kRecord);
                ++added;
            }
        }
        qDebug().noquote() << QStringLiteral("Learned heads: %1 new of %2 recurring at least %3 times; %4 units looked "
                                             "behind; %5 MB/s")
                                  .arg(added).arg(learned.records.size() / audio::kRecord).arg(learned.threshold)
                                  .arg(learned.candidates).arg(seconds > 0 ? double(size) / 1e6 / seconds : 0.0, 0, 'f', 0);
        if (added && !args.strAudioUnique.isEmpty()) {
            QFile list(args.strAudioUnique);
            if (list.open(QIODevice::WriteOnly | QIODevice::Truncate))
                list.write(records);
        }
    }
    std::unique_ptr<HeadList> ownHeads;
    HeadList *heads = headsIn;
    if (!heads && env.plainWalk) {
        ownHeads.reset(new DiskHeadList(args.strAudioUnique));
        heads = ownHeads.get();
    }
    if (!heads) {
        ownHeads.reset(new MemoryHeadList(records));
        heads = ownHeads.get();
    }
    // Bytes that make a position worth a look: the first bytes of the heads,
    // blank fill, length prefixes (00), "moov"; in the audio state also the
    // first letters of the tags looked for at position + 4.
    bool walkLook[256] = {}, audioLook[256] = {}, tagLook[256] = {};
    walkLook[0x00] = walkLook[0xFF] = walkLook[quint8('m')] = true;
    if (row.makerRecords)
        for (const audio::HevcMakerStep &m : audio::kHevcMakerSteps)
            walkLook[m.bytes[0]] = true;
    audioLook[0x00] = audioLook[0xFF] = true;
    if (row.audio == AudioKind::AdtsHeads)
        for (int i = 0; i < records.size(); i += 3)
            walkLook[quint8(records[i])] = audioLook[quint8(records[i])] = true;
    for (char c : {'f', 'w', 'p', 'm', 'u', 's'})
        tagLook[quint8(c)] = true;
    s.ullAudioHeadsSize = heads->size();
    s.nAudioHeadPos = 0;
    if (env.progress)
        env.progress->setRange(100);

    auto audioAt = [&](quint64 p) -> int {
        quint8 tmp[4];
        const quint8 *b = bytesAt(p, tmp, 4);
        if (row.audio == AudioKind::Mp3Frames) {
            const int len = Mp3FrameSize(b);
            return len > 0 ? len : 0;
        }
        // The whole list is asked each time: walking on from the last match
        // passed over a head met again and lost or merged its frame.
        heads->reset();
        return heads->match(b) ? 1 : 0;
    };
    // A unit that opens as the sample's units do (NAL header and the byte
    // behind), followed by sound that opens with two of the three bytes of a
    // known head: a frame of sound of a loudness no list has seen. Which byte
    // carries the loudness depends on the kind of sound (the second in mono
    // AAC, the third in stereo), so any two of the three will do.
    std::vector<bool> opening(1 << 16, false), headPairs[3];
    for (std::vector<bool> &pairs : headPairs)
        pairs.assign(1 << 16, false);
    bool headFirst[256] = {};
    for (int i = 0; i + audio::kRecord <= videoHeads.size(); i += audio::kRecord)
        opening[quint32(quint8(videoHeads[i])) << 8 | quint8(videoHeads[i + 1])] = true;
    auto pairKeys = [](const quint8 *h, quint32 keys[3]) {
        keys[0] = quint32(h[0]) << 8 | h[1];
        keys[1] = quint32(h[0]) << 8 | h[2];
        keys[2] = quint32(h[1]) << 8 | h[2];
    };
    for (int i = 0; i + audio::kRecord <= records.size(); i += audio::kRecord) {
        const quint8 *r = reinterpret_cast<const quint8 *>(records.constData() + i);
        quint32 keys[3];
        pairKeys(r, keys);
        for (int k = 0; k < 3; ++k)
            headPairs[k][keys[k]] = true;
        // A frame of quiet sound opens with the first byte of an opening this
        // sound has shown (the sample's or the file's); the built-in openings
        // of other cameras' sound (mono ones open with 00) split frames of
        // stereo sound at their zero tails.
        if (!IsBuiltInHead(r))
            headFirst[r[0]] = true;
    }
    auto unitBeforeNewSound = [&](quint64 p, quint32 L) {
        if (row.audio != AudioKind::AdtsHeads || p + 4 + L + audio::kRecord > size)
            return false;
        quint8 a[6], b[audio::kRecord];
        const quint8 *u = bytesAt(p, a, 6);
        if (!opening[quint32(u[4]) << 8 | u[5]])
            return false;
        quint32 keys[3];
        pairKeys(bytesAt(p + 4 + L, b, audio::kRecord), keys);
        return headPairs[0][keys[0]] || headPairs[1][keys[1]] || headPairs[2][keys[2]];
    };
    // A frame of quiet sound ends in zero bits, its end element (three ones)
    // and the zero bits that align it: the last two bytes are 7 shifted left.
    // Behind them, the first byte of a known head (the kind of element)
    // opens the next frame, whatever the loudness in the bytes behind says.
    auto quietFrameStart = [&](quint64 start, quint64 p) {
        if (row.audio != AudioKind::AdtsHeads || p < start + audio::kMinFrame || p + 2 > size)
            return false;
        quint8 tmp[4];
        const quint8 *b = bytesAt(p - 2, tmp, 4);
        if (!headFirst[b[2]])
            return false;
        quint32 tail = quint32(b[0]) << 8 | b[1];
        while (tail && !(tail & 1))
            tail >>= 1;
        if (tail != 7)
            return false;
        // Mono frames open with 00, as lengths do: a unit whose length leads
        // to a unit or a known head is the unit.
        if (test(row.gap, p)) {
            const quint32 L = f.be32(p);
            if (L && p + 4 + L + 6 <= size && (test(row.run, p + 4 + L) || audioAt(p + 4 + L)))
                return false;
        }
        return true;
    };
    // Quiet AAC frames end in runs of zero bits: their last four bytes read as
    // a short length, and the head of the next frame as a NAL header. Where
    // the bytes behind a length are the head of a sound frame, they are sound.
    auto soundBehindLength = [&](quint64 p) {
        if (row.audio != AudioKind::AdtsHeads || p + 4 + audio::kRecord > size)
            return false;
        quint8 tmp[audio::kRecord];
        heads->reset();
        return heads->match(bytesAt(p + 4, tmp, audio::kRecord));
    };
    // Sound leaves off where a unit is confirmed by the next; inside quiet
    // sound, zero bytes make such pairs by chance, so the next unit must be
    // confirmed in its turn (by a unit, a head, or the end of the file).
    auto chainHolds = [&](quint64 q) {
        const quint32 L = f.be32(q);
        const quint64 next = q + 4 + L;
        return L && (next + 6 > size || test(row.run, next) || audioAt(next) || unitBeforeNewSound(q, L));
    };
    // Every AAC frame ends with its end element (three one bits) and the
    // zero bits that align it. A known head whose bytes before don't end so
    // stands inside a frame: a chance pattern in the sound, not a new frame.
    auto endsFrame = [&](quint64 start, quint64 p) {
        if (row.audio != AudioKind::AdtsHeads)
            return true;
        if (p < start + 2)
            return false;
        quint8 tmp[2];
        const quint8 *b = bytesAt(p - 2, tmp, 2);
        quint32 tail = quint32(b[0]) << 8 | b[1];
        while (tail && !(tail & 1))
            tail >>= 1;
        return (tail & 7) == 7;
    };
    // A frame of sound that began at `start` and would end at p, where a
    // unit of length L seems to begin: if a known head stands inside that
    // unit, no further than frames reach, the frame goes on and the unit is
    // a chance pattern in the sound.
    auto frameGoesOn = [&](quint64 start, quint64 p, quint32 L) {
        if (row.audio != AudioKind::AdtsHeads)
            return false;
        const quint64 frame = s.nAvgAudioFrame && s.nAvgAudioFrame <= audio::kMaxAdtsPayload ? s.nAvgAudioFrame
                                                                                                 : audio::kTypicalFrame;
        const quint64 reach = qMin<quint64>(qMin<quint64>(p + 4 + L, start + 2 * frame), size);
        for (quint64 h = p + 4; h + audio::kRecord <= reach; ++h) {
            quint8 tmp[audio::kRecord];
            heads->reset();
            if (heads->match(bytesAt(h, tmp, audio::kRecord)) && endsFrame(start, h))
                return true;
        }
        return false;
    };
    auto frameLength = [&](quint64 n) {
        // A run longer than an ADTS frame can hold is cut to the sample's mean.
        if (n > audio::kMaxAdtsPayload) {
            n = s.nAvgAudioFrame;
            if (n > audio::kMaxAdtsPayload)
                n = audio::kFallbackFrame;
        }
        return n;
    };
    auto writeAdts = [&](quint64 start, quint64 n) {
        WriteAdtsFrame(audioOut, f, start, frameLength(n), s, int(adts::Variant::H264Hevc));
    };

    enum class State { First, Video, Audio, Choice, End };
    State state = State::First;
    quint64 pos = topWalk(false);
    s.carve.mediaBytes = size - qMin(pos, size);
    // Parameter sets written and no unit since: they aren't written again.
    // Each pass that loses a byte would otherwise add a copy, so a damaged
    // stretch would grow the stream by some forty times its own size.
    bool paramsFresh = false;

    while (state != State::End && !s.bStopRepair) {
        switch (state) {
        case State::First: {
            state = State::End;
            while (pos < size && !s.bStopRepair) {
                const quint8 *b = f.peek(pos, carve::kPaddingOuter);
                const bool plain = b && b[0] != 0 && b[0] != 0xFF && b[0] != 'm' && b[0] != 't';
                if (plain) {
                    // Neither blank, nor a fragment tag, nor a length prefix: only sound can start here.
                    if (audioAt(pos)) {
                        s.bAudioFirst = true;
                        state = State::Audio;
                        break;
                    }
                    ++pos;
                    continue;
                }
                if (padding(pos, carve::kPaddingOuter)) {
                    pos += carve::kPaddingOuter;
                    progress(pos);
                    continue;
                }
                if (isTagIn(f, pos, {"moov", "moof", "traf", "trun"}) && pos >= 4 && fits(pos - 4, f.be32(pos - 4))) {
                    pos += f.be32(pos - 4);
                    continue;
                }
                if (test(row.first, pos) && !soundBehindLength(pos)) {
                    const quint32 L = f.be32(pos);
                    // Departure: a first unit with a known sound head right behind it counts
                    // too; a key frame alone in its chunk otherwise loses its whole group.
                    const quint64 next = pos + 4 + L;
                    if (L && (test(row.run, next) || (row.makerRecords && makerConfirms(f, next)) ||
                              (row.audio == AudioKind::AdtsHeads && next < size &&
                               (audioAt(next) || unitBeforeNewSound(pos, L))))) {
                        s.bMediaFound = true;
                        state = State::Video;
                        break;
                    }
                    ++pos;
                    continue;
                }
                if (audioAt(pos)) {
                    s.bAudioFirst = true;
                    state = State::Audio;
                    break;
                }
                ++pos;
            }
            break;
        }
        case State::Choice: {
            // After a lost position: step over a top-level atom met here.
            if (IsSkipTag(f, pos + 4) && fits(pos, f.be32(pos)))
                pos += f.be32(pos);
            else if (f.tagAt(pos + 4, "mdat"))
                pos += f.be32(pos) == 1 ? 12 : 8;
            state = State::Video;
            break;
        }
        case State::Video: {
            if ((nChains != 0 || nAudioRuns + 1 >= 2) && !paramsFresh) {
                video.write(paramSets.constData(), size_t(paramSets.size()));
                paramsFresh = true;
            }
            state = State::End;
            while (pos < size && !s.bStopRepair) {
                if (!test(row.run, pos)) {
                    ++pos;
                    state = State::Choice;
                    break;
                }
                const quint32 L = f.be32(pos);
                if (L == 0) {
                    ++pos;
                    continue;
                }
                const quint64 next = pos + 4 + L;
                if (next <= size && test(row.run, next)) {
                    writeUnit(pos, L);
                    paramsFresh = false;
                    pos = next;
                    f.moveTo(pos);
                    continue;
                }
                // A length that runs past the end of the file is no unit: what
                // looked like one (a mono AAC frame opens with 00 too) is looked
                // at again from its first byte. Otherwise something else lies
                // behind this unit: look for what comes next.
                const bool isUnit = next <= size;
                auto writeUnitIfAny = [&] {
                    if (isUnit)
                        writeUnit(pos, L);
                };
                quint64 q = isUnit ? next : pos;
                bool decided = false;
                // Sound of a loudness no list knows, right behind the unit.
                if (isUnit && q < size && unitBeforeNewSound(pos, L)) {
                    writeUnitIfAny();
                    pos = q;
                    state = State::Audio;
                    decided = true;
                }
                while (q < size && !s.bStopRepair && !decided) {
                    const quint64 plain = env.plainWalk ? q : passPlain(f, q, size, walkLook, nullptr);
                    if (plain != q) {
                        heads->reset();
                        q = plain;
                    }
                    if (audioAt(q)) {
                        writeUnitIfAny();
                        pos = q;
                        state = State::Audio;
                        decided = true;
                        break;
                    }
                    // A recorder's record behind the unit: stepped over.
                    if (row.makerRecords) {
                        if (const quint64 step = makerStep(f, q, size)) {
                            q += step;
                            continue;
                        }
                    }
                    // No length prefix (00), blank (00/FF) or moov can start here.
                    if (const quint8 *b = f.peek(q, carve::kPaddingInner)) {
                        if (b[0] != 0 && b[0] != 0xFF && b[0] != 'm') {
                            ++q;
                            continue;
                        }
                    }
                    if (test(row.run, q) && !soundBehindLength(q)) {
                        const quint32 L2 = f.be32(q);
                        if (L2) {
                            if (test(row.run, q + 4 + L2) && chainHolds(q + 4 + L2)) {
                                ++nChains;
                                writeUnitIfAny();
                                pos = q;
                                state = State::Video;
                                decided = true;
                                break;
                            }
                            if (audioAt(q + 4 + L2) || unitBeforeNewSound(q, L2)) {
                                // A single unit between gaps, confirmed by the audio behind it.
                                writeUnitIfAny();
                                writeUnit(q, L2);
                                pos = q + 4 + L2;
                                state = State::Audio;
                                decided = true;
                                break;
                            }
                        }
                    }
                    if (padding(q, carve::kPaddingInner)) {
                        q += carve::kPaddingInner;
                        continue;
                    }
                    if (f.tagAt(q, "moov") && q >= 4 && fits(q - 4, f.be32(q - 4))) {
                        q += f.be32(q - 4);
                        continue;
                    }
                    ++q;
                }
                if (!decided) {
                    writeUnitIfAny();
                    pos = q;
                    state = State::End;
                }
                paramsFresh = false;
                progress(pos);
                break;
            }
            break;
        }
        case State::Audio: {
            state = State::End;
            if (row.audio == AudioKind::Mp3Frames) {
                // MPEG audio frames say their own length: copy them whole.
                bool behindFrame = false;
                while (pos < size && !s.bStopRepair) {
                    quint8 tmp[4];
                    const int len = Mp3FrameSize(bytesAt(pos, tmp, 4));
                    if (len > 0) {
                        audioOut.copy(f, pos, quint64(qMin<quint64>(quint64(len), size - pos)));
                        ++s.carve.soundFrames;
                        s.carve.soundBytes += quint64(len);
                        s.carve.claimedBytes += quint64(len);
                        pos += quint64(len);
                        behindFrame = true;
                        continue;
                    }
                    if (behindFrame && test(row.run, pos)) {
                        // The frames led exactly here: a unit whose chain holds
                        // ends the gap, whatever its header (P and B slices too).
                        const quint32 L = f.be32(pos);
                        const quint64 next = pos + 4 + L;
                        if (L && next + 4 <= size && (test(row.run, next) || audioAt(next))) {
                            nAudioRuns += test(row.run, next) ? 1 : 0;
                            state = State::Video;
                            break;
                        }
                    }
                    behindFrame = false;
                    if (test(row.gap, pos)) {
                        // A unit confirmed by the next unit, or by a frame of sound behind it.
                        const quint32 L = f.be32(pos);
                        if (L && test(row.run, pos + 4 + L)) {
                            ++nAudioRuns;
                            state = State::Video;
                            break;
                        }
                        if (L && pos + 4 + L < size && audioAt(pos + 4 + L)) {
                            state = State::Video;
                            break;
                        }
                    }
                    if (padding(pos, carve::kPaddingInner)) {
                        pos += carve::kPaddingInner;
                        continue;
                    }
                    ++pos;
                }
                progress(pos);
                break;
            }
            quint64 start = pos;
            quint64 p = pos + 1;
            bool toVideo = false;
            while (p < size && !s.bStopRepair) {
                const quint64 plain = env.plainWalk ? p : passPlain(f, p, size, audioLook, tagLook);
                if (plain != p) {
                    heads->reset(); // where the walk of the list ended at each of them
                    p = plain;
                }
                // One look at the bytes here decides for most positions: no head,
                // no length prefix (00), no blank (00/FF) and no tag behind.
                const quint8 *b = f.peek(p, carve::kPaddingInner);
                const bool head = ((b ? (heads->reset(), heads->match(b)) : audioAt(p) != 0) && endsFrame(start, p)) ||
                                  quietFrameStart(start, p);
                if (!head && b && b[0] != 0 && b[0] != 0xFF) {
                    switch (b[4]) {
                    case 'f': case 'w': case 'p': case 'm': case 'u': case 's':
                        break;
                    default:
                        ++p;
                        continue;
                    }
                }
                if (head) {
                    quint64 n = p - start;
                    writeAdts(start, n >= audio::kMaxAdtsPayload + 1 ? s.nAvgAudioFrame : n);
                    start = p;
                    ++p;
                    progress(p);
                    continue;
                }
                if (test(row.gap, p) && !soundBehindLength(p)) {
                    const quint32 L = f.be32(p);
                    if (L && !frameGoesOn(start, p, L)) {
                        if (test(row.run, p + 4 + L) && chainHolds(p + 4 + L)) {
                            writeAdts(start, p - start);
                            heads->reset();
                            ++nAudioRuns;
                            toVideo = true;
                            break;
                        }
                        if (audioAt(p + 4 + L) || unitBeforeNewSound(p, L)) {
                            writeAdts(start, p - start);
                            toVideo = true;
                            break;
                        }
                    }
                }
                if (IsSkipTag(f, p + 4) && fits(p, f.be32(p))) {
                    p += f.be32(p);
                    continue;
                }
                if (f.tagAt(p + 4, "moof") && fits(p, f.be32(p))) {
                    writeAdts(start, p - start);
                    p += quint64(f.be32(p)) + 4;
                    toVideo = true;
                    break;
                }
                if (padding(p, carve::kPaddingInner)) {
                    p += carve::kPaddingInner;
                    continue;
                }
                ++p;
            }
            if (toVideo) {
                pos = p;
                state = State::Video;
            } else {
                // The file ends inside an audio run: its last frame still counts.
                if (start < size)
                    writeAdts(start, qMin(p, size) - start);
                pos = p;
            }
            break;
        }
        case State::End:
            break;
        }
    }

    if (row.audio == AudioKind::AdtsHeads && QFileInfo(args.strAudioHeads).size() == 0) {
        const quint8 fill[audio::kAdtsHeaderBytes] = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};
        audioOut.write(fill, sizeof fill);
    }
    audioOut.detach();
    finishFiles();
    Split out;
    if (writesFailed(&audioOut))
        out.outcome = Split::WriteFailed;
    return out;
}

const char *SplitterName(Splitter id)
{
    static const char *const kNames[] = {
        "SplitH264Aac", "SplitHevcAac", "SplitMpeg4Aac", "SplitAv1Aac", "SplitAc3", "SplitH264Lpcm",
        "SplitHevcLpcm", "BuildImaWav", "BuildOpusWav", "SplitH264Mp3", "BuildAlawWav", "BuildUlawWav",
        "BuildHevcAlawWav", "BuildHevcUlawWav", "SplitH264Sowt", "SplitH264Twos", "SplitHevcTwos",
    };
    static_assert(sizeof kNames / sizeof kNames[0] == size_t(Splitter::Count), "a name per splitter");
    return kNames[int(id)];
}
} // namespace carve
