// The ASF path's own work on a 1 GB WMV whose Header Object is zeroed: the
// sample's header read, the packet scan and the write of the fresh file
// (ffmpeg's remux afterwards is not timed). The recording (a short clip
// looped with stream copy) and the sample are made once in the folder given;
// the fresh file is left there as bench-asf-rebuilt.wmv for the script.
//
//   vm-bench-asf DIR

#include "bench/BenchSupport.h"
#include "containers/Asf.h"
#include "containers/ContainerConstants.h"
#include "repair/BufferedReader.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstdio>
#include <sys/resource.h>
#include <unistd.h>

namespace {

const QString kClipArgs = "testsrc2=size=640x480:rate=30";

bool makeDamaged(const QString &dir, const QString &path)
{
    const QString clip = dir + "/bench-asf-clip.wmv", whole = path + ".part.wmv";
    if (!bench::ffmpeg({"-f", "lavfi", "-i", kClipArgs, "-f", "lavfi", "-i", "sine=frequency=440", "-t", "20",
                        "-c:v", "wmv2", "-b:v", "12M", "-c:a", "wmav2", clip}))
        return false;
    const qint64 loops = 1000000000 / qMax<qint64>(1, QFileInfo(clip).size());
    const bool made = bench::ffmpeg({"-stream_loop", QString::number(loops), "-i", clip, "-c", "copy", whole});
    QFile::remove(clip);
    // Zero everything in front of the Data Object: the Header Object is gone.
    QFile f(whole);
    if (!made || !f.open(QIODevice::ReadWrite))
        return false;
    const QByteArray head = f.read(1 << 20);
    const int data = head.indexOf(QByteArray(reinterpret_cast<const char *>(asf::kDataObject.b), 16));
    if (data <= 0 || !f.seek(0) || f.write(QByteArray(data, '\0')) != data)
        return false;
    f.close();
    return QFile::rename(whole, path);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: vm-bench-asf DIR\n");
        return 2;
    }
    const QString dir = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(dir);
    const QString damaged = dir + "/bench-asf-1g.wmv", sample = dir + "/bench-asf-sample.wmv";
    const QString out = dir + "/bench-asf-rebuilt.wmv";
    if (!QFileInfo(sample).isFile() &&
        !bench::ffmpeg({"-f", "lavfi", "-i", "mandelbrot=size=640x480:rate=30", "-f", "lavfi", "-i",
                        "sine=frequency=880", "-t", "5", "-c:v", "wmv2", "-b:v", "12M", "-c:a", "wmav2", sample})) {
        std::fprintf(stderr, "cannot make the sample\n");
        return 1;
    }
    if (!QFileInfo(damaged).isFile()) {
        std::printf("Making %s (about 1 GB, once)...\n", qPrintable(damaged));
        if (!makeDamaged(dir, damaged)) {
            std::fprintf(stderr, "cannot make the recording\n");
            return 1;
        }
    }

    QFile::remove(out); // as for ffmpeg's copy beside it: a new file, after a sync
    ::sync();
    const std::atomic<bool> go{false};
    QElapsedTimer clock;
    clock.start();
    BufferedReader sampleFile, damagedFile;
    if (!sampleFile.open(sample) || !damagedFile.open(damaged))
        return 1;
    const asf::Headers h = asf::ReadHeaders(sampleFile, go);
    const asf::Rebuilt r = asf::WriteFresh(h, damagedFile, out, nullptr, go);
    const double seconds = clock.nsecsElapsed() / 1e9;
    if (!r.written) {
        std::fprintf(stderr, "no file written\n");
        return 1;
    }
    rusage use{};
    getrusage(RUSAGE_SELF, &use);
    const double mb = damagedFile.size() / 1e6;
    std::printf("wmv: %.1f MB in %.2f s = %.0f MB/s, peak memory %.0f MB (%llu packets)\n", mb, seconds,
                mb / seconds, use.ru_maxrss / 1024.0, static_cast<unsigned long long>(r.packets));
    return 0;
}
