// Throughput of the transport-stream paths (no ffmpeg) and the peak memory
// of the process: the MTS filter on a 1 GB AVCHD-style file through the
// repair thread, and the demultiplexer on a 1 GB transport stream named .mov
// writing both work files. The files are made once from a 20 s clip looped
// with stream copy, and cached in FOLDER.

#include "bench/BenchSupport.h"
#include "containers/Ts.h"
#include "repair/BufferedReader.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstdio>
#include <sys/resource.h>
#include <unistd.h>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QString dir = bench::folderArgument(argc, argv, "vm-bench-ts");
    if (dir.isEmpty())
        return 2;
    const QString mtsClip = dir + "/ts-clip.MTS", tsClip = dir + "/ts-clip.ts";
    const QString bigMts = dir + "/bench-ts-1g.MTS", bigTs = dir + "/bench-ts-1g.mov";
    const QStringList source = {"-f", "lavfi", "-i", "testsrc2=size=1280x720:rate=25:duration=20", "-f", "lavfi",
                                "-i", "anoisesrc=d=20:c=pink:a=0.2:r=48000", "-c:v", "libx264", "-preset", "ultrafast",
                                "-g", "50"};
    if ((!QFile::exists(mtsClip)
         && !bench::ffmpeg(source + QStringList{"-c:a", "ac3", "-f", "mpegts", "-mpegts_m2ts_mode", "1", mtsClip}))
        || (!QFile::exists(tsClip) && !bench::ffmpeg(source + QStringList{"-c:a", "aac", "-f", "mpegts", tsClip})))
        return 1;
    if (!bench::loopToGigabyte(mtsClip, bigMts, {"-f", "mpegts", "-mpegts_m2ts_mode", "1"})
        || !bench::loopToGigabyte(tsClip, bigTs, {"-f", "mpegts"}))
        return 1;

    bench::startLikeCatCopy({dir + "/Repaired", dir + "/video.h264", dir + "/audio.aac"});
    double secs = bench::timedRepair(bigMts, QString(), dir), mb = QFileInfo(bigMts).size() / 1e6;
    const QString result = dir + "/Repaired/" + QFileInfo(bigMts).fileName();
    std::printf("mts filter: %.1f MB in %.2f s = %.0f MB/s, peak memory %ld MB, result %.1f MB\n", mb, secs,
                mb / secs, bench::peakMemoryMb(), QFileInfo(result).size() / 1e6);

    BufferedReader src;
    QFile video(dir + "/video.h264"), audio(dir + "/audio.aac");
    bench::startLikeCatCopy({result});
    if (!src.open(bigTs) || !video.open(QIODevice::WriteOnly | QIODevice::Truncate)
        || !audio.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return 1;
    const std::atomic<bool> stop{false};
    QElapsedTimer clock;
    clock.start();
    const ts::DemuxResult r = ts::Demux(src, &video, &audio, stop, nullptr);
    video.close();
    audio.close();
    secs = clock.nsecsElapsed() / 1e9;
    mb = src.size() / 1e6;
    std::printf("ts demux: %.1f MB in %.2f s = %.0f MB/s, peak memory %ld MB, video %.1f MB, %llu ADTS frames\n", mb,
                secs, mb / secs, bench::peakMemoryMb(), r.videoBytes / 1e6, static_cast<unsigned long long>(r.audioFrames));
    return 0;
}
