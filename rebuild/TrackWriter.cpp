// The trak atoms of the rebuilt file: one writer, a row per track.
//
// The fixed atoms come from the templates; stsd is the sample's saved copy;
// the sample tables are worked out by reading the log again for each of them,
// so that no table of a long recording is held in memory, only the chunk
// runs. Pieces that follow each other in the log with the same label form
// one chunk.

#include "containers/Mp4Info.h"
#include "rebuild/LogReader.h"
#include "rebuild/RebuildConstants.h"
#include "rebuild/RebuildOutput.h"
#include "rebuild/RebuildStages.h"
#include "repair/RepairState.h"

#include <QtDebug>

namespace rebuild {

namespace {

struct TrackRow
{
    PieceKind kind;           // the lines whose pieces are its samples
    quint32 trackId;
    bool frameSize;           // tkhd carries the picture's size
    bool movieTiming;         // an edit list over the track; the movie's time scale and duration are the track's
    bool tkhdDuration;        // tkhd carries the track's duration
    bool ctts;                // composition offsets when the stream reorders frames
    bool oneChunkUnlessMixed; // a log without a change to sound is one chunk; the first chunk always stands
    const Bytes<kHdlrVideo.size()> *handler;
    const quint8 *mediaBlock;
    quint32 mediaBlockSize;
    quint32 RepairState::*stsdSize;
    quint32 RepairState::*timeScale;
    quint32 stblFixed, minfFixed, trakFixed; // co64's header is in stblFixed
};

const TrackRow kVideoTrack = {PieceKind::Video, 1, true, true, false, true, true, &kHdlrVideo,
                              kVideoMediaBlock.data(), quint32(kVideoMediaBlock.size()),
                              &RepairState::nVideoStsdSize, &RepairState::nTimeScaleVideo,
                              kVideoStblFixed, kVideoMinfFixed, kVideoTrakFixed};
const TrackRow kSoundTrack = {PieceKind::Sound, 2, false, false, true, false, false, &kHdlrSound,
                              kSoundMediaBlock.data(), quint32(kSoundMediaBlock.size()),
                              &RepairState::nSoundStsdSize, &RepairState::TimeScaleSound,
                              kSoundStblFixed + quint32(kCo64Head.size()), kSoundMinfFixed, kSoundTrakFixed};

const SoundTimingRow &soundTiming(quint32 code)
{
    for (const SoundTimingRow &row : kSoundTimings)
        if (row.code == code)
            return row;
    return kAacTiming;
}

// Bytes of one PCM frame (all channels of one sample time) from the sound
// track's stsd atom; 0 when its first entry isn't plain PCM this can read.
quint32 pcmFrameBytes(const QByteArray &stsd)
{
    const int e = kStsdEntryAt;
    if (stsd.size() < e + kSoundEntryV0)
        return 0;
    auto be16 = [&](int at) { return quint32(quint8(stsd[at])) << 8 | quint8(stsd[at + 1]); };
    auto be32 = [&](int at) { return be16(at) << 16 | be16(at + 2); };
    const QByteArray type = stsd.mid(e + 4, 4);
    const quint32 version = be16(e + 16), channels = be16(e + 24), bits = be16(e + 26);
    quint32 bytes = 0;
    if (version == 2 && stsd.size() >= e + kSoundEntryV2) {
        const quint32 packet = be32(e + 56), frames = be32(e + 60);
        return frames ? packet / frames : 0;
    }
    if (version == 1 && stsd.size() >= e + kSoundEntryV1)
        return be32(e + 44); // bytes per frame
    for (const PcmType &t : kPcmTypes)
        if (type == t.fourcc)
            bytes = t.bytes ? t.bytes : bits / 8;
    return bytes && channels ? bytes * channels : 0;
}

// What the table passes found, and the sizes that stbl adds up.
struct Tables
{
    quint64 samples = 0; // stts count
    quint32 delta = 0;   // stts delta
    bool mixed = false;  // a video run ended in sound
    quint64 stsd = 0, ctts = 0, stsc = 0, stsz = 0, chunks = 0;
};

// Counts the video lines and fills both run lists: a run enters its list
// when a line of the other kind ends it, so the last run of each list (the
// one the log ends in) is never in it.
quint64 countRuns(Env &env, const QString &logPath, bool &mixed)
{
    env.videoRuns.clear();
    env.soundRuns.clear();
    quint32 videoRun = 0, soundRun = 0;
    quint64 videoLines = 0;
    LogReader log(logPath);
    Piece p;
    while (log.next(p)) {
        if (p.kind == PieceKind::Video) {
            ++videoRun;
            ++videoLines;
            if (soundRun != 0)
                env.soundRuns << soundRun;
            soundRun = 0;
        } else {
            if (videoRun != 0) {
                env.videoRuns << videoRun;
                mixed = true;
            }
            videoRun = 0;
            ++soundRun;
        }
    }
    return videoLines;
}

// A first run leaves a time scale 0 (its parse passes mdhd by): it is read from the damaged file's own moov.
void fillTimeScale(Env &env, const TrackRow &row)
{
    quint32 &scale = env.state.*row.timeScale;
    if (scale != 0 || !env.source.isOpen())
        return;
    const mp4info::Info info = mp4info::Read(env.source);
    scale = row.kind == PieceKind::Video ? info.video.timeScale : info.sound.timeScale;
}

// The saved stsd, unless it is kMaxStsd bytes or longer: then it is left
// out, and its size still counts in stbl. The copy is freed.
quint64 writeStsd(Output &out, QByteArray &saved, quint32 size)
{
    if (size != 0 && size < kMaxStsd) {
        static const quint8 pad[kMaxStsd] = {};
        const quint32 have = qMin(size, quint32(saved.size()));
        out.write(saved.constData(), have);
        out.write(pad, size - have);
    }
    saved = QByteArray();
    return size;
}

// One entry of sample count 1 a video sample, the offsets cycling through the
// three of the sample's pattern. With a first offset the cycle runs whole
// before the count is tested; with a first offset 0 it is tested behind the
// first and the third entry. Either way the last cycle may overshoot.
quint64 writeCtts(Output &out, const RepairState &s, quint64 samples)
{
    const quint64 at = out.pos();
    out.put(kCttsHead);
    const quint32 pattern[3] = {s.nCttsOffset1, s.nCttsOffset2, s.nCttsOffset3};
    quint64 entries = 0;
    auto entry = [&](int i) {
        out.put32(1);
        out.put32(pattern[i]);
        ++entries;
    };
    if (s.nCttsOffset1 != 0) {
        while (entries < samples) {
            entry(0);
            entry(1);
            entry(2);
        }
    } else {
        for (;;) {
            entry(0);
            if (entries >= samples)
                break;
            entry(1);
            entry(2);
            if (entries >= samples)
                break;
        }
    }
    const quint64 size = kCttsHead.size() + entries * kCttsEntry;
    out.patch32(at, quint32(size));
    out.patch32(at + kCountAt, quint32(entries));
    return size;
}

// Sample-to-chunk: chunk i takes the samples of run i of the track's list.
// The last run of a list gets no entry: players give the chunks behind the
// last entry its count. PCM sound takes the samples of each piece in turn,
// as many entries as the video list has runs (and no more than pieces).
quint64 writeStsc(Output &out, Env &env, const QString &logPath, const TrackRow &row,
                  const SoundTimingRow &timing, Tables &t)
{
    const quint64 at = out.pos();
    out.put(kStscHead);
    quint64 entries = 0;
    auto entry = [&](quint64 first, quint32 samples) {
        out.put32(quint32(first));
        out.put32(samples);
        out.put32(1);
        ++entries;
    };
    const bool video = row.kind == PieceKind::Video;
    if (video && !t.mixed) {
        entry(1, quint32(t.samples));
    } else if (!video && timing.pcmFrameBytes != 0) {
        LogReader log(logPath);
        Piece p;
        quint64 pieces = 0;
        while (log.next(p)) {
            if (p.kind != PieceKind::Sound)
                continue;
            const quint64 frames = p.size / timing.pcmFrameBytes;
            t.samples += frames;
            if (++pieces <= quint64(env.videoRuns.size()))
                entry(pieces, quint32(frames));
        }
    } else {
        const QList<quint32> &runs = video ? env.videoRuns : env.soundRuns;
        for (int i = 1; i < runs.size(); ++i)
            entry(quint64(i), runs[i - 1]);
    }
    if (!video)
        env.soundRuns.clear();
    const quint64 size = kStscHead.size() + entries * kStscEntry;
    out.patch32(at, quint32(size));
    out.patch32(at + kCountAt, quint32(entries));
    return size;
}

// Sample sizes: each piece of the track, or one fixed size for PCM frames.
quint64 writeStsz(Output &out, const QString &logPath, const TrackRow &row, const SoundTimingRow &timing,
                  Tables &t)
{
    Bytes<kStszHead.size()> head = kStszHead;
    if (row.kind == PieceKind::Sound && timing.pcmFrameBytes != 0) {
        set32(head, kStszSizeAt, timing.pcmFrameBytes);
        set32(head, kStszCountAt, quint32(t.samples));
        out.put(head);
        return head.size();
    }
    const quint64 at = out.pos();
    out.put(head);
    quint64 count = 0;
    LogReader log(logPath);
    Piece p;
    while (log.next(p)) {
        if (p.kind == row.kind) {
            out.put32(quint32(p.size));
            ++count;
        }
    }
    if (row.kind == PieceKind::Sound)
        t.samples = count;
    const quint64 size = kStszHead.size() + count * kStszEntry;
    out.patch32(at, quint32(size));
    out.patch32(at + kStszCountAt, quint32(count));
    return size;
}

// Chunk offsets in the new mdat: a chunk starts where a line of the track
// follows a line of the other one. The video track's first chunk stands at
// the start of the data; a sound run at the very start gets no chunk.
quint64 writeCo64(Output &out, Env &env, const QString &logPath, const TrackRow &row, const Tables &t)
{
    const RepairState &s = env.state;
    const quint64 at = out.pos();
    out.put(kCo64Head);
    const quint64 first = quint64(s.nLeadAtomSize != 0 ? s.nLeadAtomSize : kTemplateLead) + kMdatHead.size();
    quint64 chunks = 0;
    if (row.oneChunkUnlessMixed) {
        out.put64(first);
        ++chunks;
    }
    if (!row.oneChunkUnlessMixed || t.mixed) {
        LogReader log(logPath);
        Piece p;
        quint64 offset = first;
        bool otherSeen = false;
        while (log.next(p)) {
            if (p.kind != row.kind) {
                otherSeen = true;
            } else if (otherSeen) {
                out.put64(offset);
                ++chunks;
                otherSeen = false;
            }
            offset += p.size;
        }
    }
    out.patch32(at, quint32(kCo64Head.size() + chunks * kCo64Entry));
    out.patch32(at + kCountAt, quint32(chunks));
    return chunks;
}

// Closes the output; a write that failed leaves no result to report.
void finish(Env &env, Output &out)
{
    RepairState &s = env.state;
    if (!env.output->flush() || out.failed()) {
        qWarning().noquote() << "Rebuild: writing" << env.output->fileName() << "failed:" << env.output->errorString();
        s.carve.fail(outcome::Why::WriteFailed, env.output->errorString());
        s.bCarveFailed = true;
    }
    const QString written = env.output->fileName();
    env.output->close();
    env.output.reset();
    if (s.nFormatCode != kLpcmCode || env.workBase.isEmpty())
        return;
    // The linear-PCM chain leaves its work files for the rebuild to remove.
    for (const char *name : kLpcmWorkFiles) {
        const QString path = workfiles::PathIn(env.workBase, name);
        if (path != written)
            QFile::remove(path);
    }
}

void buildTrack(Env &env, const QString &logPath, const TrackRow &row)
{
    if (!env.output)
        return;
    RepairState &s = env.state;
    Output out(*env.output);
    const bool video = row.kind == PieceKind::Video;
    SoundTimingRow timing = soundTiming(s.nFormatCode);
    // Departure from a second of sound a line: PCM runs of any length keep
    // their length when counted in frames of the sample entry's size.
    if (!video && timing.kind == SoundDelta::SampleRate)
        if (const quint32 frame = pcmFrameBytes(env.soundStsd))
            timing = {timing.code, frame, SoundDelta::Fixed, 1};
    fillTimeScale(env, row);

    out.seek(s.ullScanPos);
    const quint64 trak = out.pos();
    out.put(kTrakHead);
    const quint64 tkhd = out.pos();
    Bytes<kTkhd.size()> tkhdBytes = kTkhd;
    set32(tkhdBytes, kTkhdTrackIdAt, row.trackId);
    if (row.frameSize) {
        set32(tkhdBytes, kTkhdWidthAt, quint32(quint16(s.FrameWidth)) << 16);
        set32(tkhdBytes, kTkhdHeightAt, quint32(quint16(s.FrameHeight)) << 16);
    }
    out.put(tkhdBytes);
    const quint64 edts = out.pos();
    if (row.movieTiming)
        out.put(kEdts);
    const quint64 mdia = out.pos();
    out.put(kMdiaHead);
    const quint64 mdhd = out.pos();
    Bytes<kMdhd.size()> mdhdBytes = kMdhd;
    set32(mdhdBytes, kMdhdTimeScaleAt, s.*row.timeScale);
    out.put(mdhdBytes);
    out.put(*row.handler);
    const quint64 minf = out.pos();
    out.put(kMinfHead);
    out.write(row.mediaBlock, row.mediaBlockSize);
    const quint64 stbl = out.pos();
    out.put(kStblHead);

    Tables t;
    t.stsd = writeStsd(out, video ? env.videoStsd : env.soundStsd, s.*row.stsdSize);
    const quint64 stts = out.pos();
    out.put(kStts);
    if (video)
        t.samples = countRuns(env, logPath, t.mixed);
    if (row.ctts) {
        t.ctts = s.bHasCtts ? writeCtts(out, s, t.samples) : 0;
        s.nCttsAtomSize = quint32(t.ctts);
    }
    t.stsc = writeStsc(out, env, logPath, row, timing, t);
    t.stsz = writeStsz(out, logPath, row, timing, t);
    t.chunks = writeCo64(out, env, logPath, row, t);
    s.ullScanPos = out.pos();

    // Sizes from the inside out.
    const quint64 stblSize = t.stsz + t.chunks * kCo64Entry + t.stsc + t.ctts + t.stsd + row.stblFixed;
    const quint64 minfSize = stblSize + row.minfFixed;
    const quint64 mdiaSize = minfSize + kMdiaFixed;
    const quint64 trakSize = mdiaSize + row.trakFixed;
    out.patch32(stbl, quint32(stblSize));
    out.patch32(minf, quint32(minfSize));
    out.patch32(mdia, quint32(mdiaSize));
    out.patch32(trak, quint32(trakSize));
    // The moov's declared size: mvhd and the video trak, then the sound trak too.
    s.nMoovSize = quint32(video ? kMoovFixed + trakSize : s.nMoovSize + trakSize);
    out.patch32(s.ullMoovPos, s.nMoovSize);

    // Timing.
    if (video) {
        t.delta = s.nVideoDelta;
    } else if (timing.kind == SoundDelta::SampleRate) {
        t.delta = s.nSoundSampleRate;
    } else if (timing.kind == SoundDelta::AmrFrame && s.TimeScaleSound != 0) {
        t.delta = quint32(quint64(timing.delta) * s.TimeScaleSound / kAmrRate);
    } else {
        t.delta = timing.delta;
    }
    const quint32 duration = quint32(t.samples * t.delta);
    out.patch32(stts + kSttsCountAt, quint32(t.samples));
    out.patch32(stts + kSttsDeltaAt, t.delta);
    out.patch32(mdhd + kMdhdDurationAt, duration);
    if (row.tkhdDuration)
        out.patch32(tkhd + kTkhdDurationAt, duration);
    if (row.movieTiming) {
        out.patch32(edts + kEdtsDurationAt, duration);
        out.patch32(s.ullMoovPos + kMoovHead.size() + kMvhdDurationAt, duration);
        out.patch32(s.ullMoovPos + kMoovHead.size() + kMvhdTimeScaleAt, s.*row.timeScale);
    }
    out.seek(s.ullScanPos);
    if (!video || !s.bInSoundTrak)
        finish(env, out);
}

} // namespace

void BuildVideoTrak(Env &env, const QString &logPath) { buildTrack(env, logPath, kVideoTrack); }
void BuildSoundTrak(Env &env, const QString &logPath) { buildTrack(env, logPath, kSoundTrack); }

} // namespace rebuild
