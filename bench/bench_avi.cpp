// Throughput of the AVI repair (chunk scan, work log, new file; no ffmpeg)
// and the peak memory of the process, on a 1 GB AVI whose idx1 is lost. The
// file is made once from a 20 s clip looped with stream copy, and cached.

#include "bench/BenchSupport.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstdio>
#include <sys/resource.h>
#include <unistd.h>

namespace {

// Cuts the file before its last "idx1": a recording that stopped before its index.
bool cutIndex(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadWrite))
        return false;
    const qint64 block = 1 << 20;
    for (qint64 end = f.size(); end > 0; end -= block - 4) {
        const qint64 at = qMax<qint64>(0, end - block);
        f.seek(at);
        const int hit = f.read(end - at).lastIndexOf("idx1");
        if (hit >= 0)
            return f.resize(at + hit);
    }
    return false;
}
} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QString dir = bench::folderArgument(argc, argv, "vm-bench-avi");
    if (dir.isEmpty())
        return 2;
    const QString clip = dir + "/avi-clip.avi", big = dir + "/bench-avi-1g.avi";
    if (!QFile::exists(clip)
        && !bench::ffmpeg({"-f", "lavfi", "-i", "testsrc2=size=1280x720:rate=25:duration=20", "-f", "lavfi", "-i",
                           "anoisesrc=d=20:c=pink:a=0.2:r=44100", "-c:v", "mpeg4", "-vtag", "XVID", "-q:v", "3",
                           "-c:a", "libmp3lame", "-b:a", "192k", clip}))
        return 1;
    const QString whole = dir + "/avi-1g-whole.avi";
    if (!QFile::exists(big) && (!bench::loopToGigabyte(clip, whole) || !cutIndex(whole) || !QFile::rename(whole, big)))
        return 1;
    bench::startLikeCatCopy({dir + "/Repaired"});
    const double secs = bench::timedRepair(big, QString(), dir), mb = QFileInfo(big).size() / 1e6;
    const QString result = dir + "/Repaired/" + QFileInfo(big).fileName();
    std::printf("avi repair: %.1f MB in %.2f s = %.0f MB/s, peak memory %ld MB, result %.1f MB\n", mb, secs, mb / secs,
                bench::peakMemoryMb(), QFileInfo(result).size() / 1e6);
    return 0;
}
