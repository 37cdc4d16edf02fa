// The carve rows beyond H.264 with AAC: H.264 recordings whose sound is told
// by where it stands (sowt, twos and lpcm PCM, A-law, mu-law, IMA ADPCM,
// Opus) or by its own frames (AC-3), and HEVC recordings: whole repairs
// against samples of other pictures and sound, the carved sound against the
// recording's own, the WAV headers, and bad input.

#include "carve/audio/PositionSplitter.h"
#include "carve/audio/WavBuild.h"
#include "carve/video/CarveStages.h"
#include "carve/video/WorkFiles.h"
#include "repair/RepairState.h"
#include "rebuild/LogReader.h"
#include "repair/StageProgress.h"
#include "support/AnnexB.h"
#include "support/Fixtures.h"
#include "support/MediaCompare.h"
#include "support/MovBuilder.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

namespace {

using namespace media;

struct Kind
{
    const char *name, *ext;
    QStringList audio;  // the encoder's arguments
    bool p61;           // P slices rewritten to NAL header 61 (the sowt and Opus sets know no 41)
    const char *carved; // the work file with the carved sound
    int prefix;         // bytes in front of the sound in that file
    QStringList video;  // the encoder, one key frame a second
    const char *sampleSound = "aevalsrc=0.05*sin(2*PI*523*t):c=stereo:s=48000:d=3"; // quieter, other sound
};

const QStringList kX264{"-c:v", "libx264", "-preset", "veryfast", "-crf", "28", "-g", "30", "-pix_fmt", "yuv420p"};
const QStringList kNoB = kX264 + QStringList{"-bf", "0"};
const QStringList kX265 = {"-c:v", "libx265", "-preset", "ultrafast", "-x265-params", "log-level=error:bframes=0:open-gop=0",
                           "-g", "30", "-pix_fmt", "yuv420p"};
// libx265's defaults: B-frames, and their non-reference slices as TRAIL_N (header 00 01).
const QStringList kX265Defaults = {"-c:v", "libx265", "-preset", "ultrafast", "-x265-params", "log-level=error", "-g", "30",
                                   "-pix_fmt", "yuv420p", "-tag:v", "hvc1"};
const Kind kKinds[] = {
    {"pcm_sowt", "mov", {"-c:a", "pcm_s16le", "-ac", "2"}, true, "audio.wav", 0, kNoB},
    {"pcm_twos", "mov", {"-af", "asetnsamples=n=24024", "-c:a", "pcm_s16be", "-ac", "2"}, false, "audio.pcm", 0, kNoB},
    {"pcm_lpcm", "mov", {"-c:a", "pcm_s24le", "-ar", "96000", "-ac", "2"}, false, "Audio.pcm", 0, kNoB},
    {"pcm_lpcm_aud", "mov", {"-c:a", "pcm_s24le", "-ar", "96000", "-ac", "2"}, false, "Audio.pcm", 0,
     kNoB + QStringList{"-x264-params", "aud=1"}},
    {"pcm_alaw", "mov", {"-c:a", "pcm_alaw", "-ar", "8000", "-ac", "1"}, false, "audio.wav", 14, kNoB},
    {"pcm_ulaw", "mov", {"-c:a", "pcm_mulaw", "-ar", "8000", "-ac", "1"}, false, "audio.wav", 14, kNoB},
    {"pcm_ima", "mov", {"-c:a", "adpcm_ima_wav", "-ac", "2"}, false, "audio.wav", 0, kNoB},
    {"pcm_opus", "mp4", {"-c:a", "libopus", "-ac", "2"}, true, "audio.wav", 14, kNoB},
    {"pcm_ac3", "mp4", {"-c:a", "ac3", "-ac", "2"}, false, "audio.ac3", 0, kNoB},
    // libx264's defaults: B-frames, and P slices as 41, which the sowt and Opus sets lack.
    {"pcm_sowt_x264", "mov", {"-c:a", "pcm_s16le", "-ac", "2"}, false, "audio.wav", 0, kX264},
    {"pcm_alaw_x264", "mov", {"-c:a", "pcm_alaw", "-ar", "8000", "-ac", "1"}, false, "audio.wav", 14, kX264},
    {"pcm_ac3_x264", "mp4", {"-c:a", "ac3", "-ac", "2"}, false, "audio.ac3", 0, kX264},
    // HEVC without B-frames, key frames as IDR.
    {"x265_aac", "mp4", {"-c:a", "aac", "-b:a", "128k", "-ac", "2"}, false, "audio.aac", 0, kX265 + QStringList{"-tag:v", "hvc1"}},
    {"x265_aac_hev1", "mp4", {"-c:a", "aac", "-b:a", "128k", "-ac", "2"}, false, "audio.aac", 0, kX265 + QStringList{"-tag:v", "hev1"}},
    {"x265_lpcm", "mov", {"-c:a", "pcm_s24le", "-ar", "96000", "-ac", "2"}, false, "Audio.pcm", 0, kX265 + QStringList{"-tag:v", "hvc1"}},
    {"x265_alaw", "mov", {"-c:a", "pcm_alaw", "-ar", "8000", "-ac", "1"}, false, "audio.wav", 14, kX265 + QStringList{"-tag:v", "hvc1"}},
    // MPEG-4 Visual: frames end where an opening of the sample's sound stands.
    {"m4v_aac", "mp4", {"-c:a", "aac", "-b:a", "128k", "-ac", "2"}, false, "audio.aac", 0, {"-c:v", "mpeg4", "-q:v", "5", "-g", "30"},
     "anoisesrc=d=3:c=pink:a=0.15:r=48000:seed=7"},
    {"m4v_aac_tone", "mp4", {"-c:a", "aac", "-b:a", "128k", "-ac", "2"}, false, "audio.aac", 0, {"-c:v", "mpeg4", "-q:v", "5", "-g", "30"}},
    // AV1 (its sound is never carved).
    {"av1_aac", "mp4", {"-c:a", "aac", "-b:a", "128k", "-ac", "2"}, false, "audio.aac", 0,
     {"-c:v", "libsvtav1", "-preset", "12", "-g", "30", "-pix_fmt", "yuv420p"}},
    {"x265_aac_default", "mp4", {"-c:a", "aac", "-b:a", "128k", "-ac", "2"}, false, "audio.aac", 0, kX265Defaults},
    {"x265_lpcm_default", "mov", {"-c:a", "pcm_s24le", "-ar", "96000", "-ac", "2"}, false, "Audio.pcm", 0, kX265Defaults},
    {"x265_twos", "mov", {"-af", "asetnsamples=n=48048", "-c:a", "pcm_s16be", "-ac", "2"}, false, "audio.pcm", 0,
     kX265 + QStringList{"-tag:v", "hvc1"}},
};
// The recording laid out in chunks of `seconds` (packets of its sound a second from its 4 s).
QString cameraLayout(const QString &healthy, double seconds)
{
    return fixtures::cameraLayout(healthy, seconds, fixtures::packets(healthy).value(1).size() / 4);
}

const Kind &kind(const char *name)
{
    for (const Kind &k : kKinds)
        if (qstrcmp(k.name, name) == 0)
            return k;
    return kKinds[0];
}

// The recording (4 s of moving pictures, loud noise) or its sample (3 s of
// bars, a quiet tone), made once: 30 fps, no B-frames.
QString recording(const Kind &k, bool sample)
{
    const QString name = QStringLiteral("%1%2.%3").arg(k.name, sample ? "_sample" : "", k.ext);
    QStringList videoIn{"-f", "lavfi", "-i", sample ? "smptebars=size=320x240:rate=30:duration=3" : "testsrc2=size=320x240:rate=30:duration=4"};
    QStringList codec = k.video;
    if (k.p61 && !QFileInfo::exists(fixtures::dir() + "/" + name)) {
        // The stream made first, its P slices (header 41) turned into 61.
        const QString es = fixtures::dir() + "/" + name + ".h264";
        if (!ffmpeg(videoIn + k.video + QStringList{"-bsf:v", "h264_mp4toannexb", "-f", "h264", es}) || !annexb::PSlicesAs61(es))
            return QString();
        videoIn = QStringList{"-framerate", "30", "-i", es};
        codec = QStringList{"-c:v", "copy"};
    }
    const QString sound = sample ? k.sampleSound : "anoisesrc=d=4:c=pink:a=0.2:r=48000:seed=1";
    return made(name, videoIn + QStringList{"-f", "lavfi", "-i", sound} + codec + k.audio + QStringList{"-shortest"});
}

struct Repaired
{
    QString status, result;
    int frames = 0;
    double videoSeconds = 0, audioSeconds = 0;
};

// What the decoder says of a file, pictures and sound: nothing when it is clean.
QByteArray decodeErrors(const QString &path)
{
    QProcess p;
    p.start(fixtures::ffmpeg(), {"-nostdin", "-v", "error", "-i", path, "-f", "null", "-"});
    p.waitForFinished(120000);
    return p.readAllStandardError();
}

Repaired cliRepair(const QString &file, const QString &sample, const QString &work, bool keep = false)
{
    const media::Outcome r = repairIn(file, work, sample, keep ? QStringList{"--keep-work-files"} : QStringList());
    const fixtures::Streams s = r.status == "Completed" ? fixtures::probe(r.output) : fixtures::Streams();
    return {r.status, r.output, qMax(0, s.video), s.videoSeconds, s.audioSeconds};
}

// A unit: its length, the header byte, then filler that holds no 00.
QByteArray unit(quint8 header, int size)
{
    return mov::be32(quint32(size)) + char(header) + QByteArray(size - 1, '\x11');
}

// Two-byte HEVC headers: b4, then 01.
QByteArray hevc(quint8 b4, int size)
{
    return mov::be32(quint32(size)) + char(b4) + char(1) + QByteArray(size - 2, '\x11');
}

// A state of its own working in `dir`, the carve's environment on it, and the carver's arguments.
struct Job
{
    RepairState s;
    carve::Env env;
    CarverArgs a;
    Job(const QString &dir, const char *name) : env{s, nullptr, name} { s.strWorkBase = dir; }
};

struct Carved
{
    QByteArray video, sound;
    carve::Split split;
};

// One splitter on a file of these bytes behind an ftyp and an mdat header,
// without a sample (no parameter sets, no lists), in a folder of its own.
Carved carveBytes(carve::Splitter id, const QByteArray &media, const QString &dir, const QByteArray &videoHeads = {},
                  int stopAfter = -1, bool withSound = true, QIODevice *workLog = nullptr)
{
    const QString file = dir + "/rec.mov";
    mov::write(file, mov::ftyp() + mov::atom("mdat", media));
    QDir(dir + "/Repaired").removeRecursively();
    RepairState s;
    s.strWorkBase = dir;
    s.bSampleHasAudio = withSound;
    s.nSoundSampleRate = 8000;
    struct Stop : StageProgress
    {
        RepairState &s;
        int left;
        Stop(RepairState &st, int n) : s(st), left(n) {}
        void setRange(qint64) override {}
        void setValue(qint64) override { s.bStopRepair = s.bStopRepair || --left == 0; }
    } stop(s, stopAfter);
    carve::Env env{s, &stop, "rec.mov"};
    env.workLog = workLog;
    CarverArgs a;
    a.strSource = file;
    workfiles::EnsureWorkFolderIn(dir);
    if (!videoHeads.isEmpty()) {
        a.strVideoUnique = workfiles::PathIn(dir, workfiles::kVideoUnique);
        mov::write(a.strVideoUnique, videoHeads);
    }
    Carved c;
    c.split = carve::SplitStreams(id, a, env);
    c.video = readAll(a.strVideo);
    // The sound as carved, before any header step.
    c.sound = readAll(a.strAudio.endsWith("AudioWAV.wav") ? workfiles::PathIn(dir, workfiles::kAudioWav) : a.strAudio);
    return c;
}
} // namespace

class TestCarveRows : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        if (fixtures::ffmpeg().isEmpty())
            QSKIP("no ffmpeg");
    }

    void repairsEachSoundFromItsSample()
    {
        // Layouts: a frame or two a chunk as ffmpeg writes, and half-second and
        // one-second chunks as cameras write. Sound: what the result holds
        // against its pictures.
        enum Layout { Ffmpeg, Half, Second };
        enum Sound { Matches, Lasts, None, HalfOfIt, Any };
        const struct { const char *kind; Layout layout; int cut, frames; Sound sound; } rows[] = {
            // Camera layouts: every frame and all the sound.
            {"pcm_sowt", Half, 0, 120, Matches}, {"pcm_twos", Half, 0, 120, Matches}, {"pcm_lpcm", Half, 0, 120, Matches},
            {"pcm_alaw", Half, 0, 120, Matches}, {"pcm_ulaw", Half, 0, 120, Matches}, {"pcm_ima", Half, 0, 120, Matches},
            {"pcm_ac3", Half, 0, 120, Matches},
            {"pcm_lpcm_aud", Ffmpeg, 0, 120, Matches}, {"pcm_twos", Ffmpeg, 0, 120, Matches}, {"pcm_ac3", Ffmpeg, 0, 120, Matches},
            // Opus: the pictures alone, always.
            {"pcm_opus", Half, 0, 120, None},
            // Cut at 70 %: the frames before the cut; the sound goes as far as the cut.
            {"pcm_alaw", Half, 70, 90, Any}, {"pcm_twos", Ffmpeg, 70, 75, Any}, {"pcm_ac3", Ffmpeg, 70, 80, Any},
            // Run-size rules: one-second runs of sowt (192 kB) are dropped; of twos,
            // each gives its first 96096 bytes.
            {"pcm_sowt", Second, 0, 120, None}, {"pcm_twos", Second, 0, 120, HalfOfIt},
            // A P frame of one unit with sound right behind it is not confirmed by a
            // unit: in ffmpeg's layout only frames of two units or more come back
            // (LPCM with delimiters above has two a frame).
            {"pcm_lpcm", Ffmpeg, 0, 1, Any}, {"pcm_alaw", Ffmpeg, 0, 1, Any}, {"pcm_ima", Ffmpeg, 0, 1, Any},
            {"pcm_sowt", Ffmpeg, 0, 4, Any},
            // libx264's defaults: B-frames, and P slices (41) that the sowt set lacks.
            {"pcm_sowt_x264", Half, 0, 4, Any}, {"pcm_alaw_x264", Half, 0, 113, Any}, {"pcm_ac3_x264", Ffmpeg, 0, 118, Matches},
            // HEVC.
            {"x265_aac", Half, 0, 120, Matches}, {"x265_aac_hev1", Second, 0, 120, Matches}, {"x265_lpcm", Half, 0, 120, Matches},
            {"x265_alaw", Half, 0, 120, Matches},
            // A key frame alone in its chunk with sound behind it that no list
            // knows yet (AAC) or that has no openings (PCM): its group of pictures is lost.
            {"x265_aac", Ffmpeg, 0, 90, Any}, {"x265_twos", Ffmpeg, 0, 90, Matches},
            // libx265's defaults: TRAIL_N (00 01) is in no HEVC set, so a frame of it ends a
            // chain: the AAC walk keeps the first frames of each half second (24 of 120),
            // the LPCM walk 47.
            {"x265_aac_default", Half, 0, 24, Any}, {"x265_lpcm_default", Half, 0, 47, Any},
            // 96 kHz LPCM in ffmpeg's layout: a unit a frame makes no chain, so
            // nothing is found (0: "Failed"); the sound's chance H.264 patterns,
            // more than the real HEVC chains, must not make the sample another
            // camera's.
            {"x265_lpcm", Ffmpeg, 0, 0, Any},
            // MPEG-4: every frame where the sample's sound opens as the recording's
            // does; with a sound of other openings frames end late and the sound is lost.
            {"m4v_aac", Ffmpeg, 0, 120, Lasts}, {"m4v_aac", Half, 0, 120, Lasts}, {"m4v_aac", Ffmpeg, 70, 84, Any},
            {"m4v_aac_tone", Half, 0, 105, None},
            // AV1 without delimiters: only the first group comes back, no sound.
            {"av1_aac", Ffmpeg, 0, 1, None},
        };
        for (const auto &row : rows) {
            const Kind &k = kind(row.kind);
            VM_FIXTURE(healthy, recording(k, false));
            VM_FIXTURE(sample, recording(k, true));
            const QString laid = row.layout == Ffmpeg ? healthy : cameraLayout(healthy, row.layout == Half ? 0.5 : 1.0);
            const QString damaged = row.cut ? fixtures::cutAt(laid, row.cut) : fixtures::moovRemoved(laid);
            const QByteArray before = fixtures::digest(damaged) + fixtures::digest(sample);
            QTemporaryDir work;
            const QString what = QStringLiteral("%1 %2").arg(row.kind, QFileInfo(damaged).fileName());
            QVERIFY2(cliRepair(damaged, QString(), work.path()).status == "Awaiting Action", qPrintable(what));
            const Repaired o = cliRepair(damaged, sample, work.path());
            const QString got = QStringLiteral("%1: %2, %3 frames, video %4 s, sound %5 s")
                                    .arg(what, o.status).arg(o.frames).arg(o.videoSeconds).arg(o.audioSeconds);
            if (row.frames == 0) {
                QVERIFY2(o.status == "Failed", qPrintable(got));
                continue;
            }
            QVERIFY2(o.status == "Completed" && o.frames >= row.frames, qPrintable(got));
            switch (row.sound) {
            case Matches:
                QVERIFY2(qAbs(o.audioSeconds - o.videoSeconds) <= 0.05 * o.videoSeconds, qPrintable(got));
                QVERIFY2(row.layout == Ffmpeg || decodeErrors(o.result).isEmpty(), qPrintable(got));
                break;
            case Lasts: QVERIFY2(qAbs(o.audioSeconds - o.videoSeconds) <= 0.05 * o.videoSeconds, qPrintable(got)); break;
            case None: QVERIFY2(o.audioSeconds < 0.1, qPrintable(got)); break;
            case HalfOfIt: QVERIFY2(qAbs(o.audioSeconds - o.videoSeconds / 2) <= 0.05 * o.videoSeconds, qPrintable(got)); break;
            case Any: break;
            }
            QCOMPARE(fixtures::digest(damaged) + fixtures::digest(sample), before);
        }
    }

    void carvedSoundIsTheRecordingsOwn()
    {
        // Half-second chunks without the moov: the carved sound, behind the
        // header bytes put in front of it, is the recording's own stream, whole.
        for (const Kind &k : kKinds) {
            // (HEVC twos keeps runs of a second only.)
            if (QByteArray(k.name).endsWith("_x264") || QByteArray(k.name).endsWith("_default") || k.carved == QLatin1String("audio.aac") || qstrcmp(k.name, "x265_twos") == 0)
                continue;
            VM_FIXTURE(healthy, recording(k, false));
            VM_FIXTURE(sample, recording(k, true));
            const QString damaged = fixtures::moovRemoved(cameraLayout(healthy, 0.5));
            QTemporaryDir work;
            QCOMPARE(cliRepair(damaged, sample, work.path(), true).status, QString("Completed"));
            QByteArray own;
            QVERIFY(ffmpeg({"-i", healthy, "-map", "0:a", "-c", "copy", "-f", "data", "-"}, &own));
            const QByteArray carved = readAll(work.filePath(QStringLiteral("Repaired/") + k.carved));
            QVERIFY2(carved.mid(k.prefix) == own, k.name);
        }
    }

    void workFileHeads()
    {
        // The parameter sets put in front of the HEVC stream are those the
        // bitstream filter writes, and the MPEG-4 stream's head tells its
        // frame size.
        for (const char *name : {"x265_aac", "x265_aac_hev1", "m4v_aac"}) {
            const Kind &k = kind(name);
            VM_FIXTURE(healthy, recording(k, false));
            VM_FIXTURE(sample, recording(k, true));
            QTemporaryDir work;
            QCOMPARE(cliRepair(fixtures::moovRemoved(cameraLayout(healthy, 0.5)), sample, work.path(), true).status,
                     QString("Completed"));
            if (QByteArray(name).startsWith("x265")) {
                QByteArray annexB;
                QVERIFY(ffmpeg({"-i", sample, "-map", "0:v", "-c", "copy", "-bsf:v", "hevc_mp4toannexb", "-f", "hevc", "-"}, &annexB));
                const QByteArray start("\0\0\0\1", 4);
                const int fourth = annexB.indexOf(start, annexB.indexOf(start, annexB.indexOf(start, 4) + 4) + 4);
                QCOMPARE(readAll(work.filePath("Repaired/Indexing")), annexB.left(fourth));
            } else {
                QCOMPARE(run("ffprobe", {"-v", "error", "-show_entries", "stream=width,height", "-of", "csv=p=0",
                                         work.filePath("Repaired/video.m4v")}).trimmed(), QString("320,240"));
            }
        }
    }

    void silentSampleGivesThePictures()
    {
        const Kind &k = kind("pcm_alaw");
        VM_FIXTURE(healthy, recording(k, false));
        const QString damaged = fixtures::moovRemoved(cameraLayout(healthy, 0.5));
        QTemporaryDir work;
        // A sample without sound: the pictures come back alone.
        const QString silent = work.filePath("silent.mov");
        QVERIFY(ffmpeg({"-f", "lavfi", "-i", "smptebars=size=320x240:rate=30:duration=3", "-c:v", "libx264", "-preset", "veryfast",
                     "-crf", "28", "-g", "30", "-bf", "0", "-pix_fmt", "yuv420p", silent}));
        const QByteArray before = fixtures::digest(damaged);
        const Repaired o = cliRepair(damaged, silent, work.path());
        QVERIFY2(o.status == "Completed" && o.frames >= 118 && o.audioSeconds == 0,
                 qPrintable(QStringLiteral("%1 %2 %3").arg(o.status).arg(o.frames).arg(o.audioSeconds)));
        QCOMPARE(fixtures::digest(damaged), before);
    }

    void makersBlocksAndTwosRunSizes()
    {
        using carve::Splitter;
        const quint8 heads[3][4] = {{0x00, 0x1C, 0x01, 0x00}, {0x00, 0x08, 0x01, 0x00}, {0x00, 0x60, 0x01, 0x00}};
        const QByteArray labels[2] = {QByteArray("\xF0\x01\x00\x10", 4), QByteArray("\x06\x0E\x2B\x34", 4)};
        // A block: head, 16-bit numbers summing to its size (at 0, 4, 6), label at 8.
        auto block = [&](int h, int l) {
            QByteArray b(reinterpret_cast<const char *>(heads[h]), 4);
            b += mov::be16(0x0010) + mov::be16(0x0020) + labels[l];
            return b + QByteArray(heads[h][1] + 0x10 + 0x20 - b.size(), '\x22');
        };
        QTemporaryDir dir;
        // Each head and label between two units: the chain goes on behind it.
        for (int h = 0; h < 3; ++h)
            for (int l = 0; l < 2; ++l) {
                const QByteArray media = unit(0x65, 300) + unit(0x41, 200) + block(h, l) + unit(0x41, 250) + unit(0x41, 260);
                const QByteArray v = carveBytes(Splitter::H264Twos, media, dir.path()).video;
                QCOMPARE(v.count(QByteArray("\0\0\0\1", 4)), 4);
            }
        // Runs of sound (bytes of 0x55, no 00) and what is kept of each: ended
        // by a unit, 96096 and 92160 whole, anything else 96096 bytes from its
        // start; ended by a block, 92160, 96096, 96000 whole, another size less
        // 48 when that gives one of them, else nothing.
        const struct { int run; bool byBlock; int kept; } rows[] = {
            {96096, false, 96096}, {92160, false, 92160}, {95000, false, 96096}, {100000, false, 96096},
            {96000, true, 96000}, {92160, true, 92160}, {96144, true, 96096}, {92208, true, 92160}, {95000, true, 0},
        };
        for (const auto &r : rows) {
            const QByteArray chain = unit(0x65, 300) + unit(0x41, 200);
            QByteArray media = chain + QByteArray(r.run, '\x55');
            media += r.byBlock ? block(0, 0) : QByteArray();
            media += chain + QByteArray(1000, '\x55');
            const Carved c = carveBytes(Splitter::H264Twos, media, dir.path());
            // The last run, at the end of the file, is kept as it is.
            QCOMPARE(c.sound.size(), r.kept + 1000);
            QVERIFY(c.sound.left(qMin(r.run, r.kept)) == QByteArray(qMin(r.run, r.kept), '\x55'));
        }
        // sowt: runs up to 100000 bytes, longer ones only at 192192 and 184416.
        for (int run : {4000, 100000, 100001, 0x2eec0, 0x2d060, 192000}) {
            const QByteArray media = unit(0x65, 300) + unit(0x61, 200) + QByteArray(run, '\x55') + unit(0x65, 300) + unit(0x61, 200);
            const bool kept = run <= 100000 || run == 0x2eec0 || run == 0x2d060;
            QCOMPARE(carveBytes(Splitter::H264Sowt, media, dir.path()).sound.size(), kept ? run : 0);
        }
    }

    void ac3FramesByTheirTable()
    {
        // A frame: syncword, CRC, then fscod and frmsizecod; filler without 00 or 0B.
        auto frame = [](int fscod, int code) {
            QByteArray f = QByteArray("\x0B\x77\x12\x34", 4) + char(fscod << 6 | code);
            const int size = qMax(8, carve::Ac3FrameSize(fscod, code));
            return f + QByteArray(size - f.size(), '\x33');
        };
        const QByteArray v = unit(0x65, 400) + unit(0x41, 300);
        QTemporaryDir dir;
        const struct { QByteArray media; int frames, units; } rows[] = {
            // 44.1 kHz frames of two sizes between chains: read per frame.
            {v + frame(1, 0) + frame(1, 1) + frame(1, 0) + v + frame(1, 1) + frame(1, 0), 5, 4},
            // The file opens with a frame right in front of a unit.
            {frame(0, 4) + v + frame(0, 4) + frame(0, 4) + v, 3, 4},
            // Reserved rate and a code past the table are no frames.
            {v + frame(3, 0) + frame(3, 0) + v + frame(0, 38) + frame(0, 38) + v, 0, 6},
            // A false syncword behind a chain (no frame where its size leads): looked past.
            {unit(0x65, 100) + unit(0x41, 50) + QByteArray("\x0B\x77\x00\x00\x00", 5) + unit(0x41, 60) + unit(0x41, 60)
                 + frame(2, 2) + frame(2, 2), 2, 4},
        };
        for (const auto &r : rows) {
            const Carved c = carveBytes(carve::Splitter::Ac3, r.media, dir.path());
            QCOMPARE(c.video.count(QByteArray("\0\0\0\1", 4)), r.units);
            int frames = 0;
            for (int at = 0; at + 5 <= c.sound.size(); ++frames)
                at += carve::Ac3FrameSize(quint8(c.sound[at + 4]) >> 6, quint8(c.sound[at + 4]) & 0x3F);
            QCOMPARE(frames, r.frames);
        }
    }

    void escapesFoundAcrossPieces()
    {
        // Byte by byte, the way a decoder's unescaping sees a payload.
        auto reference = [](const QByteArray &b) {
            int zeros = 0;
            for (char c : b) {
                if (c == 0) {
                    ++zeros;
                    continue;
                }
                if (zeros >= 2 && quint8(c) <= 2)
                    return false;
                zeros = 0;
            }
            return zeros < 3;
        };
        QRandomGenerator rng(11);
        const char alphabet[] = {0, 0, 0, 1, 2, 3, 0x41, char(0xFF)};
        for (int round = 0; round < 3000; ++round) {
            // Sparse zeros (as in coded pictures) and dense ones, fed in pieces of any size.
            const bool sparse = round % 2;
            QByteArray b(int(rng.bounded(1, 90)), 0);
            for (char &c : b)
                c = sparse ? (rng.bounded(40) ? char(0x41) : alphabet[rng.bounded(8)]) : alphabet[rng.bounded(8)];
            carve::EscapeCheck check;
            bool ok = true;
            for (int at = 0; at < b.size() && ok;) {
                const int n = qMin(b.size() - at, int(rng.bounded(1, 40)));
                ok = check.feed(reinterpret_cast<const quint8 *>(b.constData()) + at, size_t(n));
                at += n;
            }
            QVERIFY2((ok && check.finish()) == reference(b), b.toHex().constData());
        }
    }

    void wavHeadersAsTheMuxerTakesThem()
    {
        RepairState s;
        s.nSoundSampleRate = 8000;
        s.nSoundChannels = 2;
        s.nSoundSampleBits = 16;
        using carve::WavForm;
        // Each form around real sound decodes whole (2 s; the byte rates in the
        // headers mislead estimates, so samples are counted).
        QTemporaryDir dir;
        const struct { WavForm form; QStringList encode; quint32 rate, channels; } forms[] = {
            {WavForm::Alaw, {"-c:a", "pcm_alaw", "-ar", "8000", "-ac", "1"}, 8000, 1},
            {WavForm::Ima, {"-c:a", "adpcm_ima_wav", "-ar", "48000", "-ac", "2"}, 48000, 2},
            {WavForm::Sowt, {"-c:a", "pcm_s16le", "-ar", "48000", "-ac", "2"}, 48000, 2},
        };
        for (const auto &f : forms) {
            // The sound as ffmpeg's own WAV holds it, behind its "data" header.
            QByteArray sound;
            QVERIFY(ffmpeg(QStringList{"-f", "lavfi", "-i", "sine=d=2:r=48000"} + f.encode + QStringList{"-f", "wav", "-"}, &sound));
            sound = sound.mid(sound.indexOf("data") + 8);
            s.nSoundSampleRate = f.rate;
            s.nSoundChannels = f.channels;
            const QString raw = dir.filePath("audio.wav"), wav = dir.filePath("AudioWAV.wav");
            mov::write(raw, carve::WavSoundPrefix(f.form) + sound);
            QVERIFY(carve::BuildWav(f.form, raw, wav, s, false, false));
            QByteArray pcm;
            QVERIFY(ffmpeg({"-i", wav, "-f", "s16le", "-ac", "1", "-"}, &pcm));
            // A-law sound stands behind no size field; what reads as one is sound.
            QVERIFY2(qAbs(pcm.size() / 2.0 / f.rate - 2.0) < 0.05, qPrintable(QString::number(pcm.size())));
        }
        // An empty sound file: the A-law form is a header of size 20 and the mux
        // takes the pictures alone; IMA and Opus write nothing.
        const QString empty = dir.filePath("empty.wav"), out = dir.filePath("out.wav");
        mov::write(empty, QByteArray());
        s.bNoAudioForMux = false;
        QVERIFY(carve::BuildWav(WavForm::Alaw, empty, out, s, false, false));
        QCOMPARE(readAll(out).mid(4, 4), QByteArray("\x14\0\0\0", 4));
        QCOMPARE(readAll(out).size(), 28 + 20);
        QVERIFY(s.bNoAudioForMux);
        QFile::remove(out);
        QVERIFY(!carve::BuildWav(WavForm::Ima, empty, out, s, true, false));
        QVERIFY(!QFile::exists(out));
    }

    void hevcUnitsWithAlawBetween()
    {
        // Two-byte HEVC headers (26 01: an IDR slice, 02 01: a trailing one) in
        // half-second chains, A-law sound between: units to "/video.hevc".
        const QByteArray chain = hevc(0x26, 400) + hevc(0x02, 200) + hevc(0x02, 210);
        QTemporaryDir dir;
        const Carved c = carveBytes(carve::Splitter::HevcAlawWav, chain + QByteArray(4000, '\xD5') + chain + QByteArray(4000, '\xD5') + chain,
                                    dir.path());
        QVERIFY(QFile::exists(dir.filePath("Repaired/video.hevc")));
        QCOMPARE(c.video.count(QByteArray("\0\0\0\1", 4)), 9);
        QCOMPARE(c.sound, carve::WavSoundPrefix(carve::WavForm::Alaw) + QByteArray(8000, '\xD5'));
        // LPCM between them: the chains are known by the heads of the video
        // list, and each unit and run of sound is listed in the work log.
        QFile log(dir.filePath("log.txt"));
        QVERIFY(log.open(QIODevice::ReadWrite | QIODevice::Truncate));
        const QByteArray lpcm = QByteArray(4000, '\x35');
        const Carved l = carveBytes(carve::Splitter::HevcLpcm, chain + lpcm + chain, dir.path(),
                                    QByteArray("\x26\x01\x11\x02\x01\x11", 6), -1, true, &log);
        log.close();
        QCOMPARE(l.video.count(QByteArray("\0\0\0\1", 4)), 6);
        QCOMPARE(l.sound, lpcm);
        rebuild::LogReader lines(log.fileName());
        rebuild::Piece piece;
        QList<quint64> sizes;
        while (lines.next(piece))
            sizes << piece.size * (piece.kind == rebuild::PieceKind::Sound ? 1000 : 1);
        QCOMPARE(sizes, (QList<quint64>{404, 204, 214, 4000000, 404, 204, 214}));
    }

    void soundThatOpensLikeAUnitStaysSound()
    {
        // Quiet sound behind a chain opens with a length, a slice header and a
        // unit's header where that length leads: it stays sound, since its
        // silence (00 00 00) is nothing a unit can hold.
        QByteArray sound = mov::be32(1024) + char(0x61) + QByteArray(1023, '\0');
        sound += mov::be32(16) + char(0x61) + QByteArray(15, '\x07') + QByteArray(3000, '\0');
        const QByteArray chain = unit(0x65, 300) + unit(0x61, 200);
        QTemporaryDir dir;
        const Carved c = carveBytes(carve::Splitter::H264Sowt, chain + sound + chain + sound + chain, dir.path());
        QCOMPARE(c.video.count(QByteArray("\0\0\0\1", 4)), 6);
        QCOMPARE(c.sound, sound + sound);
    }

    void hevcConfigurationAndFirstRun()
    {
        using namespace mov;
        const QByteArray vps("\x40\x01\x0c", 3), sps("\x42\x01\x01\x60", 4), pps("\x44\x01\xc1", 3);
        auto array = [](quint8 type, const QList<QByteArray> &units) {
            QByteArray a = char(type) + be16(quint16(units.size()));
            for (const QByteArray &u : units)
                a += be16(quint16(u.size())) + u;
            return a;
        };
        // A recording: chunks of one unit each (b4 b5 given), a video track whose
        // table lists them, the hvcC given.
        QTemporaryDir dir;
        auto file = [&](const QByteArray &hvcC, const QList<QByteArray> &headers, quint32 countField) {
            QByteArray media;
            QList<quint32> offsets;
            const int mdatAt = ftyp().size() + 8;
            for (const QByteArray &h : headers) {
                offsets << quint32(mdatAt + media.size());
                media += be32(40) + h + QByteArray(38, '\x11');
            }
            QByteArray table = zeros(4) + be32(countField);
            for (quint32 o : offsets)
                table += be32(o);
            const QByteArray entry = atom("hvc1", zeros(6) + be16(1) + zeros(70) + atom("hvcC", hvcC));
            const QByteArray stbl = atom("stbl", stsd(entry) + stts(1000) + atom("stco", table));
                        const QString path = dir.filePath("h.mov");
            write(path, ftyp() + atom("mdat", media) + moov({trakAround(stbl)}));
            return path;
        };
        const QByteArray sc("\0\0\0\1", 4), fixed(22, '\x01');
        auto h = [](char b4, char b5) { return QByteArray(1, b4) + b5; };
        const QList<QByteArray> chunks = {h(0x26, 1), h(0x02, 1), h(0x02, 1)};
        // hvcC forms: the head of the stream is VPS (only a single one in the first
        // array), the first SPS and the first PPS.
        const struct { QByteArray hvcC, head; } forms[] = {
            {fixed + char(3) + array(0xA0, {vps}) + array(0xA1, {sps}) + array(0xA2, {pps}), sc + vps + sc + sps + sc + pps},
            {fixed + char(3) + array(0x20, {vps}) + array(0x21, {sps}) + array(0x22, {pps}), sc + vps + sc + sps + sc + pps},
            {fixed + char(3) + array(0xA0, {vps}) + array(0xA1, {sps, sps + "\x02"}) + array(0xA2, {pps, pps}), sc + vps + sc + sps + sc + pps},
            {fixed + char(3) + array(0xA0, {vps, vps}) + array(0xA1, {sps}) + array(0xA2, {pps}), sc + sps + sc + pps},
            {fixed + char(2) + array(0xA1, {sps}) + array(0xA2, {pps}), sc + sps + sc + pps},
        };
        for (const auto &form : forms) {
            Job j(dir.path(), "h.mov");
            j.a.strSample = j.a.strSource = file(form.hvcC, chunks, 3);
            carve::HarvestH264Sample(carve::HevcCarverRow(6), j.a, j.env);
            j.a.fpVideo.reset();
            QCOMPARE(readAll(j.a.strVideo), form.head);
            QVERIFY(j.a.strVideo.endsWith("video.hevc"));
            QCOMPARE(readAll(j.a.strIndexing), form.head);
        }
        // A configuration whose lengths run past the end of the file: no crash.
        Job bad(dir.path(), "h.mov");
        bad.a.strSample = bad.a.strSource = file(fixed + char(1) + char(0xA0) + be16(1) + be16(0xFFFF), chunks, 3);
        carve::HarvestH264Sample(carve::HevcCarverRow(6), bad.a, bad.env);
        // The first run judges every chunk: IDR, trailing and CRA-less sets, a bad
        // chunk in the middle, absurd counts. LPCM's set knows no 01 and no 00 01.
        const struct { quint32 code; QList<QByteArray> headers; quint32 count; bool remux; } runs[] = {
            {6, chunks, 3, true}, {12, chunks, 3, true}, {6, {h(0x26, 1), h(0x00, 1), h(0x02, 1)}, 3, true},
            {12, {h(0x26, 1), h(0x00, 1), h(0x02, 1)}, 3, false}, {6, {h(0x26, 1), h(0x2A, 1), h(0x02, 1)}, 3, false},
            {6, {h(0x26, 1), h(0x30, 1), h(0x02, 1)}, 3, false}, {6, chunks, 0, false}, {6, chunks, 0xFFFFFFFF, false},
        };
        for (const auto &r : runs) {
            Job j(dir.path(), "h.mov");
            j.a.strSource = file(fixed + char(0), r.headers, r.count);
            QCOMPARE(carve::H264FirstRunCheck(carve::HevcCarverRow(r.code), j.a, j.env) == carve::FirstRun::Remux, r.remux);
        }
    }

    void mpeg4FramesByStartCodes()
    {
        using carve::Splitter;
        // Frames open at VOP (B6) and group (B3) start codes; with sound they end
        // at an opening of the list, and the sound between is cut at the openings.
        const QByteArray vop("\0\0\1\xB6", 4), gov("\0\0\1\xB3", 4), head("\x21\x1a\x8f", 3);
        const QByteArray frame = vop + QByteArray(300, '\x11'), group = gov + QByteArray(200, '\x12');
        const QByteArray aac = head + QByteArray(150, '\x33');
        QTemporaryDir dir;
        QDir().mkpath(dir.filePath("Repaired"));
        const QString list = workfiles::PathIn(dir.path(), workfiles::kAudioUnique);
        auto carve = [&](const QByteArray &media, const QByteArray &heads, bool sound) {
            const QString file = dir.filePath("m.mp4");
            mov::write(file, mov::ftyp() + mov::atom("mdat", media));
            QFile::remove(dir.filePath("Repaired/video.m4v"));
            QFile::remove(dir.filePath("Repaired/audio.aac"));
            mov::write(list, heads);
            Job j(dir.path(), "m.mp4");
            j.s.bSampleHasAudio = sound;
            j.s.nSoundSampleRate = 48000;
            j.a.strSource = file;
            j.a.strAudioUnique = list;
            carve::SplitStreams(Splitter::Mpeg4Aac, j.a, j.env);
            return qMakePair(readAll(dir.filePath("Repaired/video.m4v")), readAll(dir.filePath("Repaired/audio.aac")));
        };
        const QByteArray media = frame + aac + aac + group + frame + aac + frame + aac;
        const auto withSound = carve(media, head, true);
        QCOMPARE(withSound.first, frame + group + frame + frame);
        QCOMPARE(withSound.second.size(), 4 * (7 + aac.size())); // the group and the frame behind it are one
        // No openings known: the first frame runs to the end of the file and isn't taken.
        QCOMPARE(carve(media, QByteArray(), true).first, QByteArray());
        // Without sound, start code to start code, the last to the end of the file.
        QCOMPARE(carve(frame + group + frame, QByteArray(), false).first, frame + group + frame);
    }

    void hevcRecordersRecordsBetweenUnits()
    {
        // Runs of HEVC units with a recorder's record behind each run: every
        // kind of record is stepped over and every unit comes out.
        const QByteArray run3 = hevc(0x02, 200) + hevc(0x02, 210) + hevc(0x02, 220);
        // Inside the sized records, a run of short "units" that a walk over them
        // would take. (00 00 01 A6 is 422, plus 4; 00 00 02 70 is 624.)
        const QByteArray fake = hevc(0x02, 2).repeated(4);
        const QByteArray records[] = {
            QByteArray("GP", 2) + QByteArray(14, '\x22'),
            QByteArray(2, '\0') + QByteArray("\x01\xA6\x7C\x01", 4) + fake + QByteArray(426 - 6 - fake.size(), '\x22'),
            QByteArray("\x01\x62\x61\x08", 4),
            QByteArray(2, '\0') + QByteArray("\x02\x70\0\0", 4) + fake + QByteArray(624 - 6 - fake.size(), '\x22'),
            QByteArray("\0\x36  $G:2", 8) + QByteArray(46, '\x22'),
        };
        QByteArray media = hevc(0x26, 300) + run3;
        for (const QByteArray &r : records)
            media += r + run3;
        QTemporaryDir dir;
        const Carved c = carveBytes(carve::Splitter::HevcAac, media, dir.path());
        QCOMPARE(c.video.count(QByteArray("\0\0\0\1", 4)), 1 + 3 * 6);
        // A first unit that a record confirms opens the walk.
        const Carved first = carveBytes(carve::Splitter::HevcAac, hevc(0x26, 300) + QByteArray("GP\x05\x00", 4) +
                                                                      QByteArray(12, '\x22') + run3, dir.path());
        QCOMPARE(first.video.count(QByteArray("\0\0\0\1", 4)), 4);
        // Without sound: a stream whose units may be followed by a record that
        // opens a block of 13201 bytes (its sized-looking "units" included):
        // the blocks are dropped, every unit is out, two in a row too.
        for (const char *rec : {"\x1A\x95\x02\x0A\x07", "\x1A\xC0\x02\x0A\x08"}) {
            const QByteArray block = QByteArray(rec, 5) + fake + QByteArray(13201 - 5 - fake.size(), '\x22');
            const QByteArray stream = hevc(0x26, 300) + block + hevc(0x02, 200) + block + hevc(0x02, 210)
                                      + hevc(0x02, 220) + block + hevc(0x02, 230);
            const Carved b = carveBytes(carve::Splitter::HevcAac, stream, dir.path(), {}, -1, false);
            QCOMPARE(b.video.count(QByteArray("\0\0\0\1", 4)), 5);
            QVERIFY(!b.video.contains(fake));
        }
    }

    void av1ObusAndFirstRun()
    {
        using namespace mov;
        QTemporaryDir dir;
        // OBUs: a sequence header, frames with one- and two-byte LEB128 sizes,
        // a frame header; groups behind delimiters; sound (no 0A, 12 or 32) between.
        auto obu = [](quint8 type, int payload) {
            QByteArray o(1, char(type));
            for (quint32 v = quint32(payload);;) {
                const quint8 b = v & 0x7F;
                v >>= 7;
                o += char(v ? b | 0x80 : b);
                if (!v)
                    break;
            }
            return o + QByteArray(payload, '\x44');
        };
        const QByteArray td("\x12\x00", 2), sound(300, '\x55');
        const QByteArray seq = obu(0x0A, 11), big = obu(0x32, 1000), small = obu(0x32, 40);
        const QByteArray media = sound + td + seq + big + sound + td + small + sound + td + big + small + sound;
        Job j(dir.path(), "a.mp4");
        CarverArgs &a = j.a;
        carve::Env &env = j.env;
        a.strSource = dir.filePath("a.mp4");
        write(a.strSource, ftyp() + atom("mdat", media));
        QCOMPARE(carve::SplitStreams(carve::Splitter::Av1Aac, a, env).withSound, 0);
        QCOMPARE(readAll(a.strVideo), td + seq + big + td + small + td + big + small);
        // An OBU whose size runs past the end: the file's bytes, then zeros, no
        // more in all than the file holds.
        const QByteArray cut = td + seq + obu(0x32, 5000).left(600);
        write(a.strSource, ftyp() + atom("mdat", cut));
        QDir(dir.filePath("Repaired")).removeRecursively();
        a = CarverArgs();
        a.strSource = dir.filePath("a.mp4");
        carve::SplitStreams(carve::Splitter::Av1Aac, a, env);
        QVERIFY(readAll(a.strVideo).startsWith(cut));
        QVERIFY(readAll(a.strVideo).size() <= QFileInfo(dir.filePath("a.mp4")).size() + 2 + seq.size());
        // The first run: one byte a chunk, every chunk but the last an OBU header.
        auto file = [&](const QList<char> &firstBytes, quint32 count) {
            QByteArray m;
            QByteArray table = zeros(4) + be32(count);
            for (char c : firstBytes) {
                table += be32(quint32(ftyp().size() + 8 + m.size()));
                m += QByteArray(1, c) + QByteArray(40, '\x44');
            }
            const QByteArray stbl = atom("stbl", stsd(sampleEntryVideo("av01")) + stts(1000) + atom("stco", table));
                        write(dir.filePath("f.mp4"), ftyp() + atom("mdat", m) + moov({trakAround(stbl)}));
            return dir.filePath("f.mp4");
        };
        const struct { QList<char> bytes; quint32 count; bool remux; } runs[] = {
            {{0x0A, 0x32, 0x32, 0x30}, 4, true}, {{0x12, 0x1A, 0x30, 0x32}, 4, false}, {{0x30, 0x32}, 0, true},
            {{0x0A}, 1, false}, {{0x0A, 0x32}, 0xFFFFFFFF, false},
        };
        for (const auto &r : runs) {
            CarverArgs f;
            f.strSource = file(r.bytes, r.count);
            QVERIFY2((carve::H264FirstRunCheck(carve::Av1CarverRow(), f, env) == carve::FirstRun::Remux) == r.remux, qPrintable(QString::number(r.count)));
        }
    }

    void programStreamUnderAMovName()
    {
        // MPEG-2 video and MP2 as a VOB, named .mov: the first run copies the
        // pictures; the sample run's streams hold every video payload (the
        // first run of them twice), so the video ends as ffmpeg's own copy does.
        const QString ps = fixtures::dir() + "/ps_in_mov.mov";
        if (!QFileInfo::exists(ps))
            QVERIFY(ffmpeg({"-f", "lavfi", "-i", "testsrc2=size=320x240:rate=25:duration=4", "-f", "lavfi", "-i",
                         "anoisesrc=d=4:c=pink:a=0.2:r=48000:seed=1", "-c:v", "mpeg2video", "-q:v", "4", "-c:a", "mp2", "-f",
                         "vob", ps}));
        QTemporaryDir work;
        const Repaired first = cliRepair(ps, QString(), work.path());
        QVERIFY2(first.status == "Completed" && first.frames == 100, qPrintable(first.status));
        Job j(work.path(), "ps_in_mov.mov");
        CarverArgs &a = j.a;
        a.strSource = ps;
        QCOMPARE(carve::SplitMpegPsInMov(a, j.env).outcome, carve::Split::Muxable);
        QByteArray own;
        QVERIFY(ffmpeg({"-i", ps, "-map", "0:v", "-c:v", "copy", "-f", "mpeg2video", "-"}, &own));
        const QByteArray video = readAll(a.strVideo);
        QVERIFY(video.size() > own.size() && video.endsWith(own.right(own.size() / 2)));
        QVERIFY(readAll(a.strAudio).size() > 90000); // 4 s of 192 kbit/s
    }

    void badInputEndsInTheFile()
    {
        const QByteArray noise = media::noise(1 << 20, 5);
        QRandomGenerator rng(5);
        QByteArray quiet(1 << 20, 0); // zeros and small lengths everywhere
        for (int i = 0; i < quiet.size(); i += 7)
            quiet[i] = char(rng.bounded(3));
        const QByteArray huge = mov::be32(0x7FFFFFFF) + QByteArray("\x65\x88", 2) + unit(0x41, 100);
        QTemporaryDir dir;
        using carve::Splitter;
        for (Splitter id : {Splitter::H264Lpcm, Splitter::H264Twos, Splitter::H264Sowt, Splitter::AlawWav, Splitter::UlawWav,
                            Splitter::ImaWav, Splitter::OpusWav, Splitter::Ac3, Splitter::HevcAlawWav, Splitter::HevcLpcm,
                            Splitter::HevcTwos, Splitter::HevcAac, Splitter::Mpeg4Aac, Splitter::Av1Aac}) {
            for (const QByteArray &media : {noise, quiet, QByteArray(1 << 20, '\0'), QByteArray(), huge.repeated(100)}) {
                const Carved c = carveBytes(id, media, dir.path(), noise.left(300));
                // Nothing larger than the file comes out (twos may pad a run once).
                QVERIFY(c.split.outcome == carve::Split::Muxable);
                QVERIFY2(c.video.size() + c.sound.size() <= 2 * media.size() + 96096 + 100, carve::SplitterName(id));
            }
            // A stop in the middle of the scan ends it there.
            QCOMPARE(carveBytes(id, noise, dir.path(), noise.left(300), 3).split.outcome, carve::Split::Muxable);
        }
    }
};

QTEST_GUILESS_MAIN(TestCarveRows)
#include "tst_carverows.moc"
