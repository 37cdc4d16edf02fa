// The mux stages run for real: elementary streams made by ffmpeg go through
// each stage, and the output is probed for its streams and frame count.

#include "carve/video/WorkFiles.h"
#include "mux/MuxStages.h"
#include "repair/ThreadVideoRepair.h"
#include "support/MediaCompare.h"

#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>
#include <array>

using namespace mux;
using fixtures::probe;

namespace {
// Frames in the elementary streams of the fixtures: 2 s at 25 per second.
constexpr int kFrames = 50;

// Each stage with the streams it takes under their work-file names, and the
// sound streams of its result (Opus never muxes its sound; Ts encodes anew).
using namespace workfiles;
struct StageRow { const char *stage, *video, *videoName, *audio, *audioName; int audioStreams; };
const StageRow kStages[] = {
    {"H264Aac", "es.h264", kVideoH264, "es.aac", kAudioAac, 1}, {"HevcAac", "es.hevc", kVideoHevc, "es.aac", kAudioAac, 1},
    {"Av1", "es.obu", kVideoAv1, "es.aac", kAudioAac, 1}, {"H264Ac3", "es.h264", kVideoH264, "es.ac3", kAudioAc3, 1},
    {"Ts", "es.h264", kVideoH264, "es.aac", kAudioAac, 1}, {"H264Alaw", "es.h264", kVideoH264, "es.wav", kAudioWavFull, 1},
    {"H264Ulaw", "es.h264", kVideoH264, "es.wav", kAudioWavFull, 1}, {"HevcAlaw", "es.hevc", kVideoHevc, "es.wav", kAudioWavFull, 1},
    {"HevcUlaw", "es.hevc", kVideoHevc, "es.wav", kAudioWavFull, 1}, {"H264Opus", "es.h264", kVideoH264, "es.wav", kAudioWavFull, 0},
    {"H264Ima", "es.h264", kVideoH264, "es.wav", kAudioWavFull, 1}, {"H264Sowt", "es.h264", kVideoH264, "es.wav", kAudioWavFull, 1},
    {"H264Lpcm", "es.h264", kVideoH264, "es_s24le.pcm", kAudioPcmGaps, 1},
    {"HevcLpcm", "es.hevc", kVideoHevc, "es_s16le.pcm", kAudioPcmGaps, 1},
    {"H264Twos", "es.h264", kVideoH264, "es_s16be.pcm", kAudioPcm, 1}, {"HevcTwos", "es.hevc", kVideoHevc, "es_s16be.pcm", kAudioPcm, 1},
    {"H264Mp3", "es.h264", kVideoH264, "es.mp3", kAudioAac, 1}, {"Mpeg4", "es.m4v", kVideoM4v, "es.aac", kAudioAac, 1},
    {"MpegPs", "es.h264", kVideoHevc, "es.aac", kAudioAac, 1}, {"Mkv", "es.h264", kVideoH264, "es.aac", kAudioAac, 1},
};
} // namespace

class TestMux : public QObject
{
    Q_OBJECT
    QScopedPointer<QTemporaryDir> m_base;

    // A fresh work base with the given streams under their work-file names.
    CarverArgs prepare(const QString &videoFixture, const char *videoName, const QString &audioFixture,
                       const char *audioName)
    {
        m_base.reset(new QTemporaryDir);
        pApp.reset();
        pApp.strWorkBase = m_base->path();
        workfiles::EnsureWorkFolder();
        CarverArgs a;
        a.strSource = m_base->filePath("clip.mov");
        if (!videoFixture.isEmpty()) {
            a.strVideo = workfiles::Path(videoName);
            QFile::copy(fixtures::healthy(videoFixture), a.strVideo);
        }
        if (!audioFixture.isEmpty()) {
            a.strAudio = workfiles::Path(audioName);
            QFile::copy(fixtures::healthy(audioFixture), a.strAudio);
        }
        pApp.bSampleHasAudio = true;
        pApp.nSampleFrames = kFrames;
        pApp.nSampleDuration = 2000;
        pApp.nSampleTimeScale = 1000;
        return a;
    }
    QString out(const QString &name) const { return workfiles::OutputFolder() + "/" + name; }

private Q_SLOTS:
    void initTestCase()
    {
        if (mux::FindFfmpeg().isEmpty() || QStandardPaths::findExecutable("ffprobe").isEmpty())
            QSKIP("ffmpeg and ffprobe are needed");
        for (const char *f : {"es.h264", "es.hevc", "es.m4v", "es.obu", "es.aac", "es.ac3", "es.wav",
                              "es_s16le.pcm", "es_s16be.pcm", "es_s24le.pcm", "es.mp3"})
            QVERIFY2(!fixtures::healthy(f).isEmpty(), f);
    }

    void frameRateRule()
    {
        // Frames, duration, time scale and the rate: 1.9 s counts as 1, 3.9 s as 3;
        // under a second, nothing, no scale or a non-whole rate give 30.
        for (const auto &c : {std::array<quint32, 4>{57, 1900, 1000, 57}, {119, 3900, 1000, 39}, {24, 900, 1000, 30},
                              {0, 2000, 1000, 30}, {50, 0, 1000, 30}, {50, 2000, 0, 30}, {300, 10010, 1000, 30}})
            QCOMPARE(FrameRate(c[0], c[1], c[2]), c[3]);
        // 25 to 32 are usual; 0 is not (unsigned: 0 - 25 wraps round).
        for (const quint32 r : {24u, 25u, 32u, 33u, 0u})
            QCOMPARE(RateOutsideUsual(r), r < 25 || r > 32);
    }

    void argumentsAreTheRowsText()
    {
        Values v;
        v.video = "/w/Repaired/video.h264";
        v.audio = "/w/Repaired/audio.aac";
        // Hostile names stay one argument and can't pass for an option or a protocol.
        for (const char *raw : {"--clip.mov", "-a-b.mov", "my clip.mov", "a\"b.mov", "-y.mov", "clip ü.mov",
                                "http:x.mov"}) {
            const QString name = QString::fromUtf8(raw);
            v.out = name;
            const QStringList a = BuildArguments(RowOf(RowId::H264AacVideoOnly), v);
            QCOMPARE(a.size(), 7);
            QVERIFY(!a.last().startsWith('-'));
            QVERIFY(a.last().endsWith(name));
            QVERIFY(a.last() == name || a.last() == "./" + name);
        }
        // The PCM description, and the empty format an unknown depth gives.
        QCOMPARE(DescribePcm(0, 0, 0).fmt, QString("s24le"));
        QVERIFY(DescribePcm(16, 44100, 1).rate == 44100 && DescribePcm(16, 44100, 1).channels == 1);
        QCOMPARE(DescribePcm(32, 0, 6).channels, 2u);
        QVERIFY(DescribePcm(8, 0, 2).fmt.isEmpty() && DescribePcm(8, 0, 2).rate == 48000);
        // The sample's exact rate is the rate of every raw video input, once,
        // right before it, and nothing else.
        v.exactRate = "30000/1001";
        v.source = "/w/src.mov";
        for (const QString &n : RowNames()) {
            const QString text = QString::fromLatin1(RowByName(n)->arguments);
            const QStringList a = BuildArguments(*RowByName(n), v);
            const bool raw = text.contains("-i {video}");
            QCOMPARE(a.count("30000/1001"), raw ? 1 : 0);
            if (raw)
                QCOMPARE(a.at(a.indexOf("30000/1001") + 1), QString("-i"));
            QCOMPARE(GivesRawVideoARate(*RowByName(n)), raw);
        }
    }

    void everyStageWrapsItsStreams()
    {
        for (const StageRow &r : kStages) {
            const QString stage = r.stage;
            CarverArgs a = prepare(r.video, r.videoName, r.audio, r.audioName);
            const Stage *st = StageByName(stage);
            QVERIFY(st);
            ThreadVideoRepair t;
            t.strFileName = "clip.mov";
            pApp.strAudioWavPath = a.strAudio;
            if (stage == "H264Lpcm") {
                pApp.nSoundBits = 24;
                pApp.nSoundSampleRate = 48000;
                pApp.nSoundChannels = 2;
            } else if (stage == "HevcLpcm") {
                pApp.nSoundBits = 16;
            } else if (stage == "Mkv") {
                t.strFileName = "clip.mkv"; // written as clip.mov
                pApp.strProbedFps = "25";
            } else if (stage == "Av1") {
                t.strFileName = "clip.mp4"; // ffmpeg puts AV1 in MP4 only
            }
            t.RunMuxStage(st->id, a);
            const QString result = out(stage == "Av1" ? "clip.mp4" : "clip.mov");
            QVERIFY2(QFileInfo(result).size() > 2048, qPrintable(result));
            const fixtures::Streams p = probe(result);
            // Ts encodes anew.
            QVERIFY2((stage == "Ts" ? p.video > 0 : p.video == kFrames) && p.audioStreams == r.audioStreams, r.stage);
            QVERIFY2(pApp.bMuxedResult && !pApp.bInMuxStage, r.stage);
            // The stage's work files are gone; the result stays.
            for (const char *name : st->removes)
                QVERIFY2(!QFile::exists(workfiles::Path(name)), name);
            QVERIFY(!QFile::exists(out("1_clip.mov")));
        }
    }

    void refusedSoundFallsBackToThePicture()
    {
        CarverArgs a = prepare("es.h264", kVideoH264, QString(), kAudioAac);
        a.strAudio = workfiles::Path(kAudioAac);
        QVERIFY(media::writeAll(a.strAudio, media::noise(20000, 5)));
        // An unusual sample rate (24 per second) would also write "1_clip.mov";
        // with the sound refused that half is removed as well.
        pApp.nSampleFrames = 48;
        ThreadVideoRepair t;
        t.strFileName = "clip.mov";
        t.MuxH264Aac(a);
        const fixtures::Streams p = probe(out("clip.mov"));
        QVERIFY(p.video == kFrames && p.audioStreams == 0);
        QVERIFY(!QFile::exists(out("1_clip.mov")) && pApp.nMuxFps == 24u);
    }

    void unusualRateKeepsBothResults()
    {
        CarverArgs a = prepare("es.h264", kVideoH264, "es.aac", kAudioAac);
        pApp.nSampleFrames = 48; // 24 per second
        ThreadVideoRepair t;
        t.strFileName = "clip.mov";
        t.MuxH264Aac(a);
        QCOMPARE(probe(out("clip.mov")).audioStreams, 1);
        QCOMPARE(probe(out("1_clip.mov")).audioStreams, 1);

        // 30 per second: only the one result. An old result is replaced, not kept.
        a = prepare("es.h264", kVideoH264, "es.aac", kAudioAac);
        QVERIFY(media::writeAll(out("clip.mov"), "stale"));
        pApp.nSampleFrames = 60;
        t.MuxH264Aac(a);
        QCOMPARE(probe(out("clip.mov")).video, kFrames);
        QVERIFY(!QFile::exists(out("1_clip.mov")));
    }

    void rsvSourcesGiveMp4()
    {
        CarverArgs a = prepare("es.h264", kVideoH264, "es_s16be.pcm", kAudioPcm);
        a.strSource = m_base->filePath("movie.RSV");
        ThreadVideoRepair t;
        t.strFileName = "movie.RSV";
        t.MuxH264Twos(a);
        QCOMPARE(t.strFileName, QString("movie.mp4"));
        QCOMPARE(probe(out("movie.mp4")).audioStreams, 1);
        QVERIFY(a.strSource.isEmpty()); // the stage clears the record's first paths
    }

    void hostileNamesStayInTheWorkFolder()
    {
        for (const char *raw : {"--clip.mov", "-a-b.mov", "my clip.mov", "a\"b.mov", "-y.mov", "clip ü.mov"}) {
            const QString name = QString::fromUtf8(raw);
            CarverArgs a = prepare("es.h264", kVideoH264, "es.aac", kAudioAac);
            const QStringList before = QDir(m_base->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
            ThreadVideoRepair t;
            t.strFileName = name;
            t.MuxH264Aac(a);
            QVERIFY2(QFileInfo(out(name)).size() > 2048, qPrintable(name));
            QCOMPARE(probe(out(name)).audioStreams, 1);
            QCOMPARE(QDir(m_base->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), before);
            // Nothing but the result is left in the work folder.
            QCOMPARE(QDir(workfiles::OutputFolder()).entryList(QDir::Files), QStringList{name});
        }
    }

    void missingFfmpegEndsQuietly()
    {
        CarverArgs a = prepare("es.h264", kVideoH264, "es.aac", kAudioAac);
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", "");
        ThreadVideoRepair t;
        t.strFileName = "clip.mov";
        t.MuxH264Aac(a);
        QVERIFY(!t.RunMuxRow("RemuxVideoOnly", a));
        qputenv("PATH", path);
        QVERIFY(!QFile::exists(out("clip.mov")));
        QVERIFY(!QFile::exists(a.strVideo) && !QFile::exists(a.strAudio)); // the row's work files go all the same
    }

    void sourceRemuxRowsByName()
    {
        VM_FIXTURE(src, fixtures::healthy("h264_aac.mov"));
        CarverArgs a = prepare(QString(), nullptr, QString(), nullptr);
        a.strSource = src;
        ThreadVideoRepair t;
        t.strFileName = "clip.mov";
        QVERIFY(t.RunMuxRow("RemuxCopyAudio", a));
        QVERIFY(probe(out("clip.mov")).video == kFrames && probe(out("clip.mov")).audioStreams == 1);
        QVERIFY(t.RunMuxRow("RemuxVideoOnly", a, "v.mp4"));
        QCOMPARE(probe(out("v.mp4")).video, kFrames);
        QVERIFY(!t.RunMuxRow("NoSuchRow", a));
    }
};

QTEST_GUILESS_MAIN(TestMux)
#include "tst_mux.moc"
