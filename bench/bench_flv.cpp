// Throughput of the FLV repair (tag scan, work log and the copy behind a new
// head; no ffmpeg) and the peak memory of the process, on a 1 GB FLV whose
// head and metadata tag are zeroed. Made once in the given folder by looping
// a 20 s H.264 + AAC clip with stream copy.

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstdio>
#include <sys/resource.h>
#include <unistd.h>

#include "bench/BenchSupport.h"

namespace {
// The loops of the clip, with the file head and its script tag zeroed.
bool makeBig(const QString &clip, const QString &big)
{
    if (QFileInfo::exists(big))
        return true;
    const QString part = big + ".whole.flv";
    if (!bench::loopToGigabyte(clip, part))
        return false;
    QFile f(part);
    if (!f.open(QIODevice::ReadWrite))
        return false;
    const QByteArray head = f.read(17);
    const int script = head.size() == 17 ? 13 + 15 + (quint8(head[14]) << 16 | quint8(head[15]) << 8 | quint8(head[16])) : 0;
    const bool zeroed = script > 0 && f.seek(0) && f.write(QByteArray(script, '\0')) == script;
    f.close();
    return zeroed && f.rename(big);
}
} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QString dir = bench::folderArgument(argc, argv, "vm-bench-flv");
    if (dir.isEmpty())
        return 2;
    const QString clip = dir + "/flv-clip.flv", big = dir + "/bench-flv-1g.flv";
    if (!QFile::exists(clip)
        && !bench::ffmpeg({"-f", "lavfi", "-i", "testsrc2=size=640x360:rate=25:duration=20", "-f", "lavfi", "-i",
                           "anoisesrc=d=20:c=pink:a=0.2:r=44100", "-ac", "2", "-c:v", "libx264", "-g", "50", "-b:v",
                           "3M", "-c:a", "aac", "-f", "flv", clip}))
        return 1;
    if (!makeBig(clip, big))
        return 1;
    bench::startLikeCatCopy({dir + "/Repaired"});
    const double secs = bench::timedRepair(big, QString(), dir), mb = QFileInfo(big).size() / 1e6;
    const QString result = dir + "/Repaired/" + QFileInfo(big).fileName();
    std::printf("flv: %.1f MB in %.2f s = %.0f MB/s, peak memory %ld MB, tags %llu video + %llu sound, result %.1f MB\n",
                mb, secs, mb / secs, bench::peakMemoryMb(), (unsigned long long)pApp.carve.videoUnits,
                (unsigned long long)pApp.carve.soundFrames, QFileInfo(result).size() / 1e6);
    return 0;
}
