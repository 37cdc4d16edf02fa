// H.264 recordings whose sound is told by where it stands (sowt, twos and
// lpcm PCM, A-law, mu-law, IMA ADPCM, Opus) or by its own frames (AC-3):
// whole repairs against samples of other pictures and sound, the carved
// sound against the recording's own, the WAV headers, and bad input.

#include "carve/audio/PositionSplitter.h"
#include "carve/audio/WavBuild.h"
#include "carve/video/CarveStages.h"
#include "repair/RepairState.h"
#include "support/Fixtures.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Kind
{
    const char *name, *ext;
    QStringList audio;  // the encoder's arguments
    bool p61;           // P slices rewritten to NAL header 61 (the sowt and Opus sets know no 41)
    const char *rawFmt; // ffmpeg's name of the carved sound's form, for the comparison
    const char *carved; // the work file with the carved sound
    int prefix;         // bytes in front of the sound in that file
    int perSecond;      // sound packets a second, for the camera layout
};

const Kind kKinds[] = {
    {"pcm_sowt", "mov", {"-c:a", "pcm_s16le", "-ac", "2"}, true, "s16le", "audio.wav", 0, 47},
    {"pcm_twos", "mov", {"-af", "asetnsamples=n=24024", "-c:a", "pcm_s16be", "-ac", "2"}, false, "s16be", "audio.pcm", 0, 47},
    {"pcm_lpcm", "mov", {"-c:a", "pcm_s24le", "-ar", "96000", "-ac", "2"}, false, "s24le", "Audio.pcm", 0, 94},
    {"pcm_alaw", "mov", {"-c:a", "pcm_alaw", "-ar", "8000", "-ac", "1"}, false, "alaw", "audio.wav", 14, 8},
    {"pcm_ulaw", "mov", {"-c:a", "pcm_mulaw", "-ar", "8000", "-ac", "1"}, false, "mulaw", "audio.wav", 14, 8},
    {"pcm_ima", "mov", {"-c:a", "adpcm_ima_wav", "-ac", "2"}, false, nullptr, "audio.wav", 0, 47},
    {"pcm_opus", "mp4", {"-c:a", "libopus", "-ac", "2"}, true, nullptr, "audio.wav", 14, 50},
    {"pcm_ac3", "mp4", {"-c:a", "ac3", "-ac", "2"}, false, "ac3", "audio.ac3", 0, 31},
    {"pcm_ac3_44k", "mp4", {"-c:a", "ac3", "-ar", "44100", "-ac", "2"}, false, "ac3", "audio.ac3", 0, 29},
};

bool run(const QStringList &args, QByteArray *out = nullptr)
{
    QProcess p;
    p.start(fixtures::ffmpeg(), QStringList{"-nostdin", "-v", "error", "-y"} + args);
    const bool ok = p.waitForFinished(120000) && p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
    if (out)
        *out = p.readAllStandardOutput();
    return ok;
}

// The recording (4 s of moving pictures, loud noise) or its sample (3 s of
// bars, a quiet tone), made once: 30 fps, no B-frames.
QString recording(const Kind &k, bool sample)
{
    const QString path = fixtures::dir() + QStringLiteral("/%1%2.%3").arg(k.name, sample ? "_sample" : "", k.ext);
    if (QFileInfo(path).size() > 0)
        return path;
    const QString video = sample ? "smptebars=size=320x240:rate=30:duration=3" : "testsrc2=size=320x240:rate=30:duration=4";
    const QString sound = sample ? "aevalsrc=0.05*sin(2*PI*523*t):c=stereo:s=48000:d=3"
                                 : "anoisesrc=d=4:c=pink:a=0.2:r=48000:seed=1";
    const QStringList x264{"-c:v", "libx264", "-preset", "veryfast", "-crf", "28", "-g", "30", "-bf", "0", "-pix_fmt", "yuv420p"};
    const QString tmp = path + ".part." + k.ext;
    QStringList videoIn{"-f", "lavfi", "-i", video};
    QStringList codec = x264;
    if (k.p61) {
        // The stream made first, its P slices (header 41) turned into 61.
        const QString es = path + ".h264";
        if (!run(videoIn + x264 + QStringList{"-bsf:v", "h264_mp4toannexb", "-f", "h264", es}))
            return QString();
        QFile f(es);
        if (!f.open(QIODevice::ReadWrite))
            return QString();
        QByteArray d = f.readAll();
        for (int i = d.indexOf(QByteArray("\0\0\1", 3)); i >= 0 && i + 3 < d.size(); i = d.indexOf(QByteArray("\0\0\1", 3), i + 3))
            if (d[i + 3] == 0x41)
                d[i + 3] = 0x61;
        f.seek(0);
        f.write(d);
        f.close();
        videoIn = QStringList{"-framerate", "30", "-i", es};
        codec = QStringList{"-c:v", "copy"};
    }
    if (!run(videoIn + QStringList{"-f", "lavfi", "-i", sound} + codec + k.audio + QStringList{"-shortest", tmp}))
        return QString();
    return QFile::rename(tmp, path) ? path : QString();
}

struct Outcome
{
    QString status;
    int frames = 0;
    double videoSeconds = 0, audioSeconds = 0;
};

Outcome repair(const QString &file, const QString &sample, const QString &work, bool keep = false)
{
    QProcess p;
    QStringList args{"repair", "--work", work};
    if (keep)
        args << "--keep-work-files";
    if (!sample.isEmpty())
        args << "--sample" << sample;
    p.start(VM_CLI_PATH, args << "--" << file);
    p.waitForFinished(300000);
    const QStringList f = QString::fromUtf8(p.readAllStandardOutput()).trimmed().split('\t');
    Outcome o;
    o.status = f.value(0);
    if (o.status == "Completed") {
        const fixtures::Streams s = fixtures::probe(f.value(2));
        o.frames = qMax(0, s.video);
        o.videoSeconds = s.videoSeconds;
        o.audioSeconds = s.audioSeconds;
    }
    return o;
}

QByteArray readAll(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

} // namespace

class TestPcmCarve : public QObject
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
        for (const Kind &k : kKinds) {
            VM_FIXTURE(healthy, recording(k, false));
            VM_FIXTURE(sample, recording(k, true));
            const int frames = fixtures::probe(healthy).video;
            const QString layouts[] = {healthy, fixtures::cameraLayout(healthy, 0.5, k.perSecond),
                                       fixtures::cameraLayout(healthy, 1.0, k.perSecond)};
            for (const QString &laid : layouts) {
                const QString damaged = fixtures::moovRemoved(laid);
                const QByteArray before = fixtures::digest(damaged) + fixtures::digest(sample);
                QTemporaryDir work;
                const Outcome first = repair(damaged, QString(), work.path());
                const Outcome o = repair(damaged, sample, work.path());
                qInfo("%s %s: first %s, then %s, %d of %d frames, video %.2f s, sound %.2f s", k.name,
                      qPrintable(QFileInfo(damaged).fileName()), qPrintable(first.status), qPrintable(o.status),
                      o.frames, frames, o.videoSeconds, o.audioSeconds);
                QCOMPARE(fixtures::digest(damaged) + fixtures::digest(sample), before);
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestPcmCarve)
#include "tst_pcmcarve.moc"
