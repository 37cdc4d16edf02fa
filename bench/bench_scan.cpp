// Throughput of the stream scanners with the rebuild behind them (ffmpeg
// kept out of reach), and the peak memory of the process: a 1 GB ProRes
// recording without its moov, repaired with a sample, or a 1 GB Motion JPEG
// recording cut short with its moov in front. Both are made once from an
// ffmpeg clip looped with stream copy, and cached in the given folder.

#include "containers/StreamScan.h"
#include "repair/ThreadVideoRepair.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <cstdio>
#include <cstring>
#include <sys/resource.h>
#include <unistd.h>

#include "bench/BenchSupport.h"

namespace {
using bench::ffmpeg;
using bench::videoPackets;
constexpr qint64 kTarget = 1000000000;



// Where the top-level moov starts; 0 when there is none.
qint64 moovAt(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return 0;
    for (qint64 at = 0; at + 16 <= f.size();) {
        f.seek(at);
        const QByteArray h = f.read(16);
        quint64 size = 0;
        for (int i = 0; i < 4; ++i)
            size = size << 8 | quint8(h[i]);
        if (size == 1)
            for (int i = 8; i < 16; ++i)
                size = size << 8 | quint8(h[i]);
        if (h.mid(4, 4) == "moov")
            return at;
        if (size < 8)
            return 0;
        at += qint64(size);
    }
    return 0;
}

struct Kind
{
    const char *name;
    streamscan::Family family;
    QStringList clip;   // ffmpeg arguments of a 20 s clip
    QStringList sample; // of a 3 s sample, or empty for a first run
    bool faststart;     // moov in front, the file cut at kTarget; else moov cut off
};

const Kind kKinds[] = {
    {"prores", streamscan::Family::ProRes,
     {"-f", "lavfi", "-i", "testsrc2=size=1280x720:rate=25:duration=20", "-f", "lavfi", "-i",
      "anoisesrc=d=20:c=pink:a=0.2:r=48000", "-ac", "2", "-c:v", "prores_ks", "-profile:v", "0", "-c:a", "pcm_s24le"},
     {"-f", "lavfi", "-i", "smptebars=size=1280x720:rate=25:duration=3", "-f", "lavfi", "-i",
      "anoisesrc=d=3:c=pink:a=0.2:r=48000:seed=7", "-ac", "2", "-c:v", "prores_ks", "-profile:v", "0", "-c:a",
      "pcm_s24le"},
     false},
    {"mjpeg", streamscan::Family::MotionJpeg,
     {"-f", "lavfi", "-i", "testsrc2=size=640x480:rate=30:duration=20", "-f", "lavfi", "-i",
      "anoisesrc=d=20:c=pink:a=0.2:r=16000", "-ac", "1", "-c:v", "mjpeg", "-q:v", "5", "-pix_fmt", "yuvj420p", "-c:a",
      "pcm_u8"},
     {},
     true},
};

// The looped recording, damaged as its kind is; the loop count in *loops.
bool makeBig(const Kind &k, const QString &clip, const QString &big, int *loops)
{
    *loops = int((kTarget + QFileInfo(clip).size() - 1) / QFileInfo(clip).size()) + (k.faststart ? 1 : 0);
    if (QFileInfo::exists(big))
        return true;
    std::printf("Making %s (1 GB, once)...\n", qPrintable(big));
    const QString part = big + ".part.mov";
    QStringList args{"-stream_loop", QString::number(*loops - 1), "-i", clip, "-c", "copy"};
    if (k.faststart)
        args << "-movflags" << "+faststart";
    if (!ffmpeg(args << part))
        return false;
    QFile f(part);
    const qint64 cut = k.faststart ? kTarget : moovAt(part);
    return cut > 0 && f.resize(cut) && f.rename(big);
}
} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const Kind *kind = nullptr;
    for (const Kind &k : kKinds)
        if (argc == 3 && std::strcmp(argv[2], k.name) == 0)
            kind = &k;
    if (!kind) {
        std::fprintf(stderr, "usage: vm-bench-scan FOLDER prores|mjpeg\n");
        return 2;
    }
    const QString dir = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(dir);
    const QString base = dir + "/scan-" + kind->name;
    const QString clip = base + "-clip.mov", sample = kind->sample.isEmpty() ? QString() : base + "-sample.mov",
                  big = base + "-1g.mov";
    if (!QFile::exists(clip) && !ffmpeg(kind->clip + QStringList{clip}))
        return 1;
    if (!sample.isEmpty() && !QFile::exists(sample) && !ffmpeg(kind->sample + QStringList{sample}))
        return 1;
    int loops = 0;
    if (!makeBig(*kind, clip, big, &loops))
        return 1;
    const qint64 frames = qint64(videoPackets(clip) * double(QFileInfo(big).size()) / QFileInfo(clip).size());

    // The scan alone, its lines into a file, on a thread of its own as in a repair.
    {
        BufferedReader file;
        QFile log(dir + "/scan-only-log.txt");
        if (!file.open(big) || !log.open(QIODevice::WriteOnly))
            return 1;
        const std::atomic<bool> stop{false};
        QElapsedTimer clock;
        clock.start();
        QThread *scan = QThread::create([&] { streamscan::Scan(kind->family, file, &log, stop, nullptr); });
        scan->start();
        scan->wait();
        delete scan;
        std::printf("scan alone: %s %.0f MB/s\n", kind->name, file.size() / 1e6 / (clock.nsecsElapsed() / 1e9));
        log.remove();
    }

    bench::startLikeCatCopy({dir + "/Repaired"});
    // The rebuild needs no ffmpeg; nothing else may run it.
    const double secs = bench::timedRepair(big, sample, dir), mb = QFileInfo(big).size() / 1e6;
    struct rusage ru;
    getrusage(RUSAGE_SELF, &ru);
    const QString result = dir + "/Repaired/" + QFileInfo(big).fileName();
    std::printf("scan + rebuild: %s %.1f MB in %.2f s = %.0f MB/s, peak memory %ld MB, video pieces %llu of about %lld "
                "frames, sound pieces %llu, result %.1f MB\n",
                kind->name, mb, secs, mb / secs, ru.ru_maxrss / 1024, (unsigned long long)pApp.carve.videoUnits,
                frames, (unsigned long long)pApp.carve.soundFrames, QFileInfo(result).size() / 1e6);
    return 0;
}
