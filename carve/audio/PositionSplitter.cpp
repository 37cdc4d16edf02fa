// The splitters whose sound is told by where it stands rather than by heads
// learned from the sample: raw PCM, A-law, mu-law, IMA ADPCM and Opus lie
// between video chains; AC-3 frames carry their own syncword and length.
// One walk, a row per member.

#include "carve/audio/PositionSplitter.h"

#include "carve/audio/AudioConstants.h"
#include "carve/audio/ByteSet.h"
#include "carve/audio/HeadList.h"
#include "carve/audio/MediaWalk.h"
#include "carve/audio/StreamOut.h"
#include "carve/audio/WavBuild.h"
#include "carve/video/CarveConstants.h"
#include "carve/video/WorkFiles.h"
#include "rebuild/RebuildConstants.h"
#include "repair/RepairLine.h"
#include "repair/RepairState.h"

#include <QFile>
#include <QFileInfo>
#include <QtDebug>
#include <cstring>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace carve {

namespace {

enum class Told {
    Gaps, // everything between two chains of units is sound
    Ac3,  // frames from syncword to syncword; what isn't a frame is looked through
};

enum class RunRule {
    Any,  // every run as it is
    Sowt, // runs up to kSowtMaxRun, longer ones only at the sizes cameras write
    Twos, // the run sizes of twos recorders, jumped over before the look for video
    HevcTwos, // HEVC twos recorders: runs of 192192 and 184320 bytes, no other
};

struct PositionRow
{
    Splitter id;
    Chain chain;           // the frame test: run, and first (which also ends a gap)
    Told told;
    bool videoHeads;       // a unit opens a chain only with a head of "/VideoUNIQUEfile.txt"
    RunRule runs;
    quint64 jump;          // bytes passed over behind a chain before the look for video
    const char *videoFile; // the stream the units go to
    const char *audioFile; // the sound as carved
    WavForm wav;           // the header step behind the walk
    bool strictWav;        // the header step stops at a missing or empty sound file
    bool opusWords;        // its message for an unreadable sound file
    int paramsFrom;        // parameter sets go in front of each chain from this one on
    const audio::MakerBlock *blocks;
    int blockCount;
    bool logsSpans = false; // a ciphered work-log line per unit, run of sound and blank block
};

using namespace workfiles;
const PositionRow kRows[] = {
    {Splitter::H264Lpcm, Chain::Lpcm, Told::Gaps, true, RunRule::Any, 0, kVideoH264, kAudioPcmGaps, WavForm::None, false, false, 2,
     nullptr, 0},
    {Splitter::H264Twos, Chain::TwosPcm, Told::Gaps, false, RunRule::Twos, audio::kTwosJump, kVideoH264, kAudioPcm, WavForm::None,
     false, false, 3, audio::kTwosBlocks, int(std::size(audio::kTwosBlocks))},
    {Splitter::H264Sowt, Chain::SowtPcm, Told::Gaps, false, RunRule::Sowt, 0, kVideoH264, kAudioWav, WavForm::Sowt, false, false,
     3, audio::kSowtBlocks, int(std::size(audio::kSowtBlocks))},
    {Splitter::AlawWav, Chain::AlawUlaw, Told::Gaps, false, RunRule::Any, 0, kVideoH264, kAudioWav, WavForm::Alaw, false, false, 3,
     nullptr, 0},
    {Splitter::UlawWav, Chain::AlawUlaw, Told::Gaps, false, RunRule::Any, 0, kVideoH264, kAudioWav, WavForm::Alaw, false, false, 3,
     nullptr, 0},
    {Splitter::ImaWav, Chain::ImaAdpcm, Told::Gaps, false, RunRule::Any, 0, kVideoH264, kAudioWav, WavForm::Ima, true, false, 3,
     nullptr, 0},
    // Opus sound is carved and wrapped, and its mux stage leaves it out.
    {Splitter::OpusWav, Chain::Opus, Told::Gaps, false, RunRule::Any, 0, kVideoH264, kAudioWav, WavForm::Alaw, true, true, 3,
     nullptr, 0},
    {Splitter::HevcLpcm, Chain::HevcLpcm, Told::Gaps, true, RunRule::Any, 0, kVideoHevc, kAudioPcmGaps, WavForm::None,
     false, false, 2, nullptr, 0, true},
    {Splitter::HevcTwos, Chain::HevcTwos, Told::Gaps, false, RunRule::HevcTwos, audio::kHevcTwosJump, kVideoHevc, kAudioPcm,
     WavForm::None, false, false, 3, nullptr, 0},
    {Splitter::HevcAlawWav, Chain::HevcAlawUlaw, Told::Gaps, false, RunRule::Any, 0, kVideoHevc, kAudioWav, WavForm::Alaw,
     false, false, 3, nullptr, 0},
    {Splitter::HevcUlawWav, Chain::HevcAlawUlaw, Told::Gaps, false, RunRule::Any, 0, kVideoHevc, kAudioWav, WavForm::Alaw,
     false, false, 3, nullptr, 0},
    {Splitter::Ac3, Chain::Ac3, Told::Ac3, false, RunRule::Any, 0, kVideoH264, kAudioAc3, WavForm::None, false, false, 3, nullptr,
     0},
};

const PositionRow *rowOf(Splitter id)
{
    for (const PositionRow &r : kRows)
        if (r.id == id)
            return &r;
    return nullptr;
}

QByteArray readWhole(const QString &path, quint64 from = 0)
{
    QFile f(path);
    if (path.isEmpty() || !f.open(QIODevice::ReadOnly))
        return QByteArray();
    f.seek(qint64(from));
    return f.readAll();
}

} // namespace

namespace {
// The first k in [from, n - 1) with b[k] and b[k + 1] both zero; n if none.
// Pairs of zeros are rare in coded video, single ones are not: looking for
// pairs passes most of a payload 16 bytes at a time.
size_t findZeroPair(const quint8 *b, size_t from, size_t n)
{
    size_t k = from;
#if defined(__SSE2__)
    const __m128i zero = _mm_setzero_si128();
    for (; k + 17 <= n; k += 16) {
        const __m128i here = _mm_loadu_si128(reinterpret_cast<const __m128i *>(b + k));
        const __m128i next = _mm_loadu_si128(reinterpret_cast<const __m128i *>(b + k + 1));
        const int mask = _mm_movemask_epi8(_mm_cmpeq_epi8(_mm_or_si128(here, next), zero));
        if (mask)
            return k + size_t(__builtin_ctz(unsigned(mask)));
    }
#endif
    for (; k + 1 < n; ++k)
        if (b[k] == 0 && b[k + 1] == 0)
            return k;
    return n;
}
} // namespace

bool EscapeCheck::feed(const quint8 *b, size_t len)
{
    for (size_t i = 0; i < len;) {
        if (m_zeros == 0) {
            // A lone zero followed by anything resets the count: only a pair
            // can start a forbidden pattern.
            const size_t k = findZeroPair(b, i, len);
            if (k == len) {
                m_zeros = b[len - 1] == 0 ? 1 : 0;
                return true;
            }
            i = k;
        }
        if (b[i] == 0) {
            ++m_zeros;
        } else {
            if (m_zeros >= 2 && b[i] <= 2)
                return false;
            m_zeros = 0;
        }
        ++i;
    }
    return true;
}

int Ac3FrameSize(int fscod, int frmsizecod)
{
    if (fscod < 0 || fscod >= audio::kAc3Rates || frmsizecod < 0 || frmsizecod >= audio::kAc3SizeCodes)
        return -1;
    return audio::kAc3FrameBytes[fscod][frmsizecod];
}

bool PositionSplitterBuilt(Splitter id) { return rowOf(id) != nullptr; }

Split SplitByPosition(Splitter id, CarverArgs &args, Env &env)
{
    Split out;
    const PositionRow *rowPtr = rowOf(id);
    if (!rowPtr) {
        out.outcome = Split::NotBuilt;
        return out;
    }
    const PositionRow &row = *rowPtr;
    RepairState &s = env.state;
    // AC-3 with a sample that has no sound: the units alone, as the AAC walk finds them.
    if (row.told == Told::Ac3 && !s.bSampleHasAudio)
        return SplitStreams(Splitter::H264Aac, args, env);
    const std::atomic<bool> &stop = s.bStopRepair;
    const QString workDir = EnsureWorkFolderIn(s.strWorkBase);

    const QByteArray paramSets = readWhole(args.strIndexing, s.nIndexingPos);
    s.nIndexingSize = quint64(QFileInfo(args.strIndexing).size());

    // The sound goes to the row's own file, made anew.
    args.strAudio = PathIn(s.strWorkBase, row.audioFile);
    args.fpAudio.reset(new QFile(args.strAudio));
    args.fpAudio->open(QIODevice::ReadWrite | QIODevice::Truncate);
    BufferedReader &f = OpenSplit(args, s, row.videoFile);
    const quint64 size = s.ullFileSize;
    const bool withSound = s.bSampleHasAudio;
    s.bMediaFound = s.bAudioFirst = false;

    StreamOut video(args.fpVideo.get(), !env.plainWalk);
    StreamOut sound(args.fpAudio.get(), !env.plainWalk);
    std::unique_ptr<MemoryHeadList> videoHeads;
    ByteSet headFirst;
    if (row.videoHeads) {
        const QByteArray heads = readWhole(args.strVideoUnique);
        videoHeads.reset(new MemoryHeadList(heads));
        s.ullVideoHeadsSize = videoHeads->size();
        s.nVideoHeadPos = 0;
        for (int i = 0; i < heads.size(); i += 3)
            headFirst.add(quint8(heads[i]));
    }
    const FrameTest &test = FrameTestOf(row.chain);
    // The set that finds the first unit of the file; test.first ends a gap.
    const NalSet &firstSet = test.gapOnly ? test.run : test.first;
    PercentProgress progress(env.progress, size);

    auto nal = [&](const NalSet &set, quint64 p) {
        quint8 t[6];
        return p + 6 <= size && set.test(BytesAt(f, p, t, 6));
    };
    // The opening of a chain at p: for LPCM the three bytes behind the length
    // must stand in the video head list (walked from where it last stood).
    auto opens = [&](const NalSet &set, quint64 p) {
        if (!videoHeads)
            return nal(set, p);
        quint8 t[3];
        return videoHeads->match(BytesAt(f, p + 4, t, 3));
    };
    // A unit of length L at p, confirmed by the unit behind it.
    auto confirmed = [&](quint64 p, quint32 L) { return L && p + 4 + L <= size && nal(test.run, p + 4 + L); };
    // Raw sound opens like a unit all too often (quiet PCM is full of 00 bytes
    // and small numbers), and such a "unit" takes a length of up to 16 MB with
    // it. A unit's payload never holds 00 00 00, 00 00 01 or 00 00 02 (the
    // coder escapes them), while a stretch of sound and frames nearly always
    // does: every unit taken here passes that test too.
    quint64 checkedAt = ~quint64(0); // the unit whose bytes passed last
    auto couldBeUnit = [&](quint64 p, quint32 L) {
        if (p == checkedAt)
            return true;
        quint64 at = p + 4, end = qMin(size, at + L);
        EscapeCheck check;
        while (at < end) {
            size_t len = 0;
            const quint8 *b = f.span(at, &len);
            if (!b)
                break;
            len = size_t(qMin<quint64>(len, end - at));
            if (!check.feed(b, len))
                return false;
            at += len;
        }
        if (!check.finish())
            return false;
        checkedAt = p;
        return true;
    };
    RepairLine cipher;
    auto logSpan = [&](const char *label, quint64 at, quint64 n) {
        if (row.logsSpans && env.workLog)
            env.workLog->write(cipher.EncryptLine(QStringLiteral("%1 at = %2 Size = %3")
                                                      .arg(QLatin1String(label)).arg(at).arg(n)).toLatin1() + "\r\n");
    };
    auto writeUnit = [&](quint64 p, quint32 L) {
        logSpan(rebuild::kVideoLabel, p, quint64(L) + 4);
        video.unit(f, p, L);
        ++s.carve.videoUnits;
        s.carve.claimedBytes += quint64(L) + 4;
    };
    // A maker's block at p: its size, or 0.
    auto blockAt = [&](quint64 p) -> quint64 {
        if (!row.blockCount || p + audio::kMakerLabelAt + 4 > size)
            return 0;
        quint8 t[audio::kMakerLabelAt + 4];
        const quint8 *b = BytesAt(f, p, t, sizeof t);
        for (int i = 0; i < row.blockCount; ++i)
            if (std::memcmp(b, row.blocks[i].head, 4) == 0 &&
                std::memcmp(b + audio::kMakerLabelAt, row.blocks[i].label, 4) == 0)
                return quint64(f.be16(p)) + f.be16(p + 4) + f.be16(p + 6);
        return 0;
    };
    bool prefixWritten = false;
    auto copySound = [&](quint64 from, quint64 n) {
        if (!n)
            return;
        if (!prefixWritten) {
            const QByteArray prefix = WavSoundPrefix(row.wav);
            sound.write(prefix.constData(), size_t(prefix.size()));
            prefixWritten = true;
        }
        logSpan(rebuild::kSoundLabel, from, n);
        sound.copy(f, from, n); // zeros for what lies past the end of the file
        ++s.carve.soundFrames;
        s.carve.soundBytes += n;
        s.carve.claimedBytes += qMin(n, size - qMin(from, size));
    };
    // A run of sound from `from` to `to`, kept or cut as the row's rule says.
    auto writeRun = [&](quint64 from, quint64 to, bool byBlock, bool atEnd) {
        quint64 n = to - from;
        switch (row.runs) {
        case RunRule::Any:
            copySound(from, n);
            break;
        case RunRule::Sowt:
            if (n <= audio::kSowtMaxRun || n == audio::kSowtLongRuns[0] || n == audio::kSowtLongRuns[1])
                copySound(from, n);
            break;
        case RunRule::HevcTwos:
            qDebug() << "Audio Size" << n << "pApp.SoundFoundOffset" << from << "netx" << to;
            if (n == audio::kHevcTwosRun || n == audio::kHevcTwosRunShort || atEnd)
                copySound(from, n);
            break;
        case RunRule::Twos: {
            qDebug() << "Audio Size" << n << "pApp.SoundFoundOffset" << from << "netx" << to;
            auto known = [](quint64 k) {
                return k == audio::kTwosRun || k == audio::kTwosRunShort || k == audio::kTwosRunBlock;
            };
            if (!byBlock) {
                // The run the file ends in is taken as far as it goes, not padded out.
                copySound(from, n == audio::kTwosRun || n == audio::kTwosRunShort || (atEnd && n < audio::kTwosRun)
                                    ? n : audio::kTwosRun);
                break;
            }
            if (!known(n))
                n -= qMin(n, audio::kTwosBlockTrim);
            if (known(n))
                copySound(from, n);
            break;
        }
        }
    };

    MediaSpan span;
    span.end = span.fileSize = size;
    quint64 pos = TopLevelWalk(f, span, !withSound, stop);
    s.carve.mediaBytes = size - qMin(pos, size);

    // AC-3: a syncword at p whose frame is followed by another frame (true,
    // *videoNext false) or by a unit (true, *videoNext true).
    auto ac3Frame = [&](quint64 p, bool log, bool *videoNext) {
        quint8 t[6];
        const quint8 *b = BytesAt(f, p, t, 5);
        if (b[0] != audio::kAc3Sync[0] || b[1] != audio::kAc3Sync[1]) {
            if (log)
                qDebug() << "Invalid AC3 syncword";
            return false;
        }
        const int fscod = b[4] >> 6, frmsizecod = b[4] & 0x3F, bytes = Ac3FrameSize(fscod, frmsizecod);
        if (log) {
            qDebug() << "fscod      =" << fscod;
            qDebug() << "frmsizecod =" << frmsizecod;
            qDebug() << "Frame size =" << bytes << "bytes";
        }
        // A size of -1 puts the next frame one byte short of this one: no frame.
        s.ullNextFramePos = bytes < 0 ? p - 1 : p + quint64(bytes);
        if (bytes < 0)
            return false;
        const quint8 *n = BytesAt(f, s.ullNextFramePos, t, 6);
        if (s.ullNextFramePos + 2 <= size && n[0] == audio::kAc3Sync[0] && n[1] == audio::kAc3Sync[1]) {
            *videoNext = false;
            return true;
        }
        static const NalSet kBehindFrame{0x01, 0x06, 0x21, 0x25, 0x41, 0x65, 0x68};
        *videoNext = s.ullNextFramePos + 6 <= size && kBehindFrame.test(n);
        return *videoNext;
    };

    enum class State { First, Video, Audio, End };
    State state = State::First;
    int chains = 0;
    quint64 soundFrom = 0;
    if (!withSound) {
        // A sample without sound: units alone; the wrapped sound is left out.
        s.bNoAudioForMux = true;
    }

    while (state != State::End && !stop) {
        switch (state) {
        case State::First: {
            // The first unit, or for AC-3 also the first frame.
            state = State::End;
            while (pos < size && !stop) {
                if (IsPadding(f, pos, kPaddingOuter)) {
                    logSpan(rebuild::kBlankLabel, pos, kPaddingOuter);
                    pos += kPaddingOuter;
                    progress(pos);
                    continue;
                }
                bool fragment = false;
                for (const char *tag : kFragmentTags)
                    fragment = fragment || f.tagAt(pos, tag);
                if (fragment && pos >= 4 && span.fits(pos - 4, f.be32(pos - 4))) {
                    pos += f.be32(pos - 4);
                    continue;
                }
                if (const quint64 block = blockAt(pos)) {
                    pos += block;
                    continue;
                }
                if (opens(firstSet, pos) && confirmed(pos, f.be32(pos)) && couldBeUnit(pos, f.be32(pos))) {
                    s.bMediaFound = true;
                    state = State::Video;
                    break;
                }
                bool videoNext = false;
                if (row.told == Told::Ac3 && withSound && ac3Frame(pos, true, &videoNext)) {
                    s.bMediaFound = true;
                    if (videoNext) {
                        // One frame right in front of a unit.
                        copySound(pos, s.ullNextFramePos - pos);
                        pos = s.ullNextFramePos;
                        state = State::Video;
                    } else {
                        s.bAudioFirst = true;
                        state = State::Audio;
                    }
                    break;
                }
                ++pos;
            }
            break;
        }
        case State::Video: {
            if (++chains >= row.paramsFrom)
                video.write(paramSets.constData(), size_t(paramSets.size()));
            state = State::End;
            while (pos < size && !stop) {
                if (!nal(test.run, pos)) {
                    // AC-3: where a frame's syncword failed, the walk goes on a byte at a time.
                    ++pos;
                    if (IsSkipTag(f, pos + 4) && span.fits(pos, f.be32(pos)))
                        pos += f.be32(pos);
                    continue;
                }
                const quint32 L = f.be32(pos);
                const quint64 next = pos + 4 + L;
                if (L == 0 || next > size) {
                    // No unit here (a length past the end of the file is none).
                    ++pos;
                    continue;
                }
                // A clean chain: the frame test holds behind the unit.
                const quint32 L2 = f.be32(next);
                if (nal(test.run, next) && L2 != 0 && next + 4 + L2 <= size && couldBeUnit(next, L2)) {
                    writeUnit(pos, L);
                    progress(pos);
                    pos = next;
                    continue;
                }
                if (const quint64 block = blockAt(next)) {
                    // A maker's block behind a unit: the chain goes on behind it.
                    writeUnit(pos, L);
                    pos = next + block;
                    state = pos < size ? State::First : State::End;
                    break;
                }
                if (row.told == Told::Gaps || !withSound) {
                    // Whatever follows the chain up to the next one is sound.
                    const bool unit = couldBeUnit(pos, L);
                    if (unit)
                        writeUnit(pos, L);
                    pos = soundFrom = unit ? next : pos;
                    state = withSound ? State::Audio : State::First;
                    break;
                }
                // AC-3: look on for a frame, or a unit that a unit follows.
                quint64 q = next;
                bool decided = false;
                while (q < size && !stop && !decided) {
                    bool videoNext = false;
                    if (ac3Frame(q, false, &videoNext)) {
                        state = State::Audio;
                        decided = true;
                        break;
                    }
                    if (nal(test.run, q) && f.be32(q) && nal(test.run, q + 4 + f.be32(q))) {
                        state = State::Video;
                        decided = true;
                        break;
                    }
                    if (IsPadding(f, q, kPaddingInner)) {
                        q += kPaddingInner;
                        continue;
                    }
                    if (f.tagAt(q, "moov") && q >= 4 && span.fits(q - 4, f.be32(q - 4))) {
                        q += f.be32(q - 4);
                        continue;
                    }
                    ++q;
                }
                writeUnit(pos, L);
                pos = q;
                break;
            }
            break;
        }
        case State::Audio: {
            state = State::End;
            if (row.told == Told::Ac3) {
                // Frame after frame, each as long as its own header says.
                while (pos < size && !stop) {
                    if (IsPadding(f, pos, kPaddingInner)) {
                        pos += kPaddingInner;
                        continue;
                    }
                    quint8 t[5];
                    const quint8 *b = BytesAt(f, pos, t, 5);
                    const int bytes = b[0] == audio::kAc3Sync[0] && b[1] == audio::kAc3Sync[1]
                                          ? Ac3FrameSize(b[4] >> 6, b[4] & 0x3F) : -1;
                    if (bytes < 0)
                        break;
                    copySound(pos, qMin<quint64>(quint64(bytes), size - pos));
                    pos += quint64(bytes);
                    progress(pos);
                }
                state = pos < size ? State::Video : State::End;
                break;
            }
            // Raw sound up to the next unit that opens a chain.
            s.ullAudioRunPos = soundFrom;
            quint64 q = qMin(size, soundFrom + row.jump);
            quint64 block = 0;
            bool toVideo = false;
            while (q < size && !stop) {
                if (!videoHeads) {
                    // Units and blocks open with 00: nothing else needs a look.
                    size_t len = 0;
                    const quint8 *b = f.span(q, &len);
                    const void *zero = b ? std::memchr(b, 0, len) : nullptr;
                    if (b && !zero) {
                        q += len;
                        continue;
                    }
                    if (zero)
                        q += quint64(static_cast<const quint8 *>(zero) - b);
                    if (q >= size)
                        break;
                } else if (q + 4 + kPaddingInner <= size) {
                    // A head can only match where its first byte stands at q + 4.
                    // Each position passed would have missed and sent the list
                    // walk back to its start: one reset does the same.
                    size_t len = 0;
                    const quint8 *b = f.span(q + 4, &len);
                    const size_t i = b ? headFirst.findIn(b, len) : 0;
                    if (i) {
                        videoHeads->reset();
                        q += qMin<quint64>(i, size - q);
                        continue;
                    }
                }
                if ((block = blockAt(q)))
                    break;
                if (opens(test.first, q) && confirmed(q, f.be32(q)) && couldBeUnit(q, f.be32(q))) {
                    toVideo = true;
                    break;
                }
                ++q;
                if ((q & 0xFFFF) == 0)
                    progress(q);
            }
            q = qMin(q, size);
            writeRun(soundFrom, q, block != 0, !toVideo && !block);
            if (toVideo) {
                pos = q;
                state = State::Video;
            } else if (block) {
                pos = q + block;
                state = State::First;
            } else {
                pos = q;
            }
            break;
        }
        case State::End:
            break;
        }
    }
    progress(size);

    video.detach();
    sound.detach();
    args.fpVideo.reset();
    args.fpAudio.reset();
    args.fpAudioUnique.reset();
    args.fpSource.reset();
    s.bSampleHasAudio = false;
    out.withSound = withSound ? 1 : 0;
    if (StreamsFailed(&video, &sound, s, env.fileName)) {
        out.outcome = Split::WriteFailed;
        return out;
    }
    if (row.wav != WavForm::None && !stop) {
        const QString wav = PathIn(s.strWorkBase, kAudioWavFull);
        BuildWav(row.wav, args.strAudio, wav, s, row.strictWav, row.opusWords);
        s.strAudioWavPath = wav;
        args.strAudio = wav;
    }
    return out;
}

} // namespace carve
