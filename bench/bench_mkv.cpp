// Throughput of the MKV stages that need no ffmpeg, on a 1 GB Matroska
// recording: the rebuild (Info and Tracks search, cluster list into a work
// log, new file) and the block carve into raw H.264 and ADTS streams; with
// the peak memory of the process after each. The file is made once from a
// 20 s clip looped with stream copy, and cached.

#include "bench/BenchSupport.h"
#include "containers/Mkv.h"
#include "repair/BufferedReader.h"
#include "repair/RepairLine.h"
#include "repair/RepairState.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstdio>
#include <sys/resource.h>
#include <unistd.h>

namespace {
void report(const char *what, double mb, double secs, qint64 written)
{
    std::printf("%s: %.1f MB in %.2f s = %.0f MB/s, peak memory %ld MB, written %.1f MB\n", what, mb, secs, mb / secs,
                bench::peakMemoryMb(), written / 1e6);
}
} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QString dir = bench::folderArgument(argc, argv, "vm-bench-mkv");
    if (dir.isEmpty())
        return 2;
    const QString clip = dir + "/mkv-clip.mkv", big = dir + "/bench-mkv-1g.mkv";
    if (!QFile::exists(clip)
        && !bench::ffmpeg({"-f", "lavfi", "-i", "testsrc2=size=1280x720:rate=25:duration=20", "-f", "lavfi", "-i",
                           "anoisesrc=d=20:c=pink:a=0.2:r=48000", "-c:v", "libx264", "-preset", "ultrafast", "-g",
                           "25", "-pix_fmt", "yuv420p", "-c:a", "aac", "-b:a", "128k", "-ac", "2", "-write_crc32",
                           "0", clip}))
        return 1;
    if (!bench::loopToGigabyte(clip, big, {"-write_crc32", "0"}))
        return 1;
    const QString logPath = dir + "/mkv-log.txt", out = dir + "/mkv-rebuilt.webm";
    bench::startLikeCatCopy({dir + "/mkv-video.h264", dir + "/mkv-audio.aac"});
    const double mb = QFileInfo(big).size() / 1e6;
    const std::atomic<bool> stop{false};
    BufferedReader file;
    if (!file.open(big))
        return 1;

    QElapsedTimer clock;
    clock.start();
    const mkv::Heads heads = mkv::FindHeads(file, file.size(), stop);
    QFile log(logPath);
    if (!heads.found() || !log.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return 1;
    RepairLine cipher;
    const mkv::ClusterList clusters = mkv::ListClusters(file, 0, log, cipher, nullptr, stop);
    log.close();
    const QString error = mkv::WriteFile(out, heads, file, file, file, logPath, clusters, stop);
    report("mkv rebuild", mb, clock.nsecsElapsed() / 1e9, QFileInfo(out).size());
    if (!error.isEmpty())
        std::printf("rebuild failed: %s\n", qPrintable(error));

    bench::startLikeCatCopy({out, logPath});
    QFile video(dir + "/mkv-video.h264"), audio(dir + "/mkv-audio.aac");
    if (!video.open(QIODevice::WriteOnly | QIODevice::Truncate) || !audio.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return 1;
    RepairState state;
    clock.restart();
    const mkv::Carved carved = mkv::CarveBlocks(file, video, audio, state, nullptr, stop);
    video.close();
    audio.close();
    report("mkv carve", mb, clock.nsecsElapsed() / 1e9, qint64(video.size() + audio.size()));
    std::printf("  %llu clusters; %llu video units, %llu audio frames\n", (unsigned long long)clusters.clusters,
                (unsigned long long)carved.videoUnits, (unsigned long long)carved.audioFrames);
    return 0;
}
