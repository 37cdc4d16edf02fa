// The work log of a one-hour 3GP recording (15 frames and 50 AMR frames a
// second: 234,000 lines), as the rebuild reads it: lines a second through the
// log reader, and the whole rebuild of the MOV from it (for 3GP six passes
// over the log, the first of them copying the pieces). Made once in the
// given folder.

#include "rebuild/LogReader.h"
#include "rebuild/RebuildStages.h"
#include "repair/BufferedReader.h"
#include "repair/RepairLine.h"
#include "repair/RepairState.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <cstdio>
#include <sys/resource.h>

namespace {
constexpr int kSeconds = 3600, kFrames = 15, kAmr = 50, kFrameBytes = 1500, kAmrBytes = 32;

// The recording's pieces one second at a time: a frame, then the AMR frames
// that fall before the next one.
bool make(const QString &media, const QString &log)
{
    if (QFileInfo::exists(media) && QFileInfo::exists(log))
        return true;
    QFile m(media), l(log);
    if (!m.open(QIODevice::WriteOnly) || !l.open(QIODevice::WriteOnly))
        return false;
    RepairLine cipher;
    QByteArray lines, bytes;
    quint64 at = 0;
    auto piece = [&](const char *label, int size, char fill) {
        bytes.append(QByteArray(size, fill));
        lines += cipher.EncryptLine(QStringLiteral("%1 at = %2 Size = %3").arg(QLatin1String(label)).arg(at).arg(size)).toLatin1();
        lines += "\r\n";
        at += quint64(size);
    };
    for (int s = 0; s < kSeconds; ++s) {
        for (int f = 0, a = 0; f < kFrames; ++f)
            for (piece("AVC(Vide)", kFrameBytes, 'v'); a < (f + 1) * kAmr / kFrames; ++a)
                piece("AAC(soun)", kAmrBytes, '\x3c');
        if (m.write(bytes) != bytes.size() || l.write(lines) != lines.size())
            return false;
        bytes.clear();
        lines.clear();
    }
    return true;
}
} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: vm-bench-log FOLDER\n");
        return 2;
    }
    const QString dir = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(dir);
    const QString media = dir + "/log-3gp-media.bin", log = dir + "/log-3gp-log.txt";
    if (!make(media, log))
        return 1;

    // Reading alone, the best of three passes.
    quint64 lines = 0;
    double best = 0;
    for (int i = 0; i < 3; ++i) {
        QElapsedTimer clock;
        clock.start();
        rebuild::LogReader reader(log);
        rebuild::Piece p;
        lines = 0;
        while (reader.next(p))
            ++lines;
        const double rate = lines / (clock.nsecsElapsed() / 1e9);
        best = qMax(best, rate);
    }
    std::printf("log read: %llu lines, %.2f million lines a second a pass\n", (unsigned long long)lines, best / 1e6);

    // The whole rebuild: code 14, AMR at 8 kHz, 15 frames a second.
    RepairState s;
    s.nFormatCode = 14;
    s.nTimeScaleVideo = 15000;
    s.nVideoDelta = 1000;
    s.TimeScaleSound = 8000;
    BufferedReader source;
    if (!source.open(media))
        return 1;
    s.ullFileSize = source.size();
    std::unique_ptr<QFile> output;
    QByteArray videoStsd, soundStsd;
    QList<quint32> videoRuns, soundRuns;
    rebuild::Env env{s, source, output, videoStsd, soundStsd, videoRuns, soundRuns, nullptr, dir};
    const QString out = dir + "/log-3gp-rebuilt.mov";
    QElapsedTimer clock;
    clock.start();
    rebuild::WriteRebuiltFile(env, log, out);
    const double secs = clock.nsecsElapsed() / 1e9;
    struct rusage ru;
    getrusage(RUSAGE_SELF, &ru);
    std::printf("rebuild from it: %.2f s for the six passes and the copy (%.2f million lines a second over all), "
                "result %.1f MB, peak memory %ld MB\n",
                secs, lines * 6 / secs / 1e6, QFileInfo(out).size() / 1e6, ru.ru_maxrss / 1024);
    QFile::remove(out);
    return 0;
}
