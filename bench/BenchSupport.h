#pragma once
// What the benchmarks share: making their recordings with ffmpeg and
// counting what a result holds with ffprobe.

#include "repair/ThreadVideoRepair.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <cstdio>
#include <sys/resource.h>
#include <unistd.h>

namespace bench {

inline bool ffmpeg(const QStringList &args)
{
    QProcess p;
    p.start("ffmpeg", QStringList{"-nostdin", "-y", "-hide_banner", "-loglevel", "error"} + args);
    return p.waitForFinished(-1) && p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
}

inline int videoPackets(const QString &clip)
{
    QProcess p;
    p.start("ffprobe", {"-v", "error", "-select_streams", "v:0", "-count_packets", "-show_entries",
                        "stream=nb_read_packets", "-of", "csv=p=0", clip});
    p.waitForFinished(-1);
    return p.readAllStandardOutput().trimmed().toInt();
}

// A timed run starts as `cat > file` beside it does: what the previous run
// wrote is removed just before, then a sync. This machine hands memory left
// free for a few seconds back to its host, and writing into such memory costs
// several times more: both sides start alike, with the last output just gone.
inline void startLikeCatCopy(const QStringList &leftovers)
{
    for (const QString &path : leftovers) {
        if (QFileInfo(path).isDir())
            QDir(path).removeRecursively();
        else
            QFile::remove(path);
    }
    ::sync();
}

// Repairs file on the worker thread as the window would, with ffmpeg out of
// reach and the log quiet; the seconds it took.
inline double timedRepair(const QString &file, const QString &sample, const QString &dir)
{
    qputenv("PATH", "");
    if (!qEnvironmentVariableIsSet("VM_BENCH_LOG")) // the repair's own log lines, on request
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    pApp.reset();
    pApp.strChosenLocation = dir;
    pApp.bSampleRun = !sample.isEmpty();
    ThreadVideoRepair t;
    t.SetSampleFile(sample);
    QElapsedTimer clock;
    clock.start();
    t.StartRepair({file}, true);
    t.wait();
    return clock.nsecsElapsed() / 1e9;
}

// The folder named by the one argument, made if missing; empty after a usage
// line when the arguments are wrong.
inline QString folderArgument(int argc, char **argv, const char *program)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", program);
        return QString();
    }
    const QString dir = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(dir);
    return dir;
}

// The clip looped with stream copy to about 1 GB at `big`, made once; the
// extra arguments come before the output (its format, say).
inline bool loopToGigabyte(const QString &clip, const QString &big, const QStringList &extra = {})
{
    constexpr qint64 kTarget = 1000000000;
    if (QFile::exists(big))
        return true;
    const qint64 clipSize = QFileInfo(clip).size();
    if (clipSize <= 0)
        return false;
    std::printf("Making %s (1 GB, once)...\n", qPrintable(big));
    const qint64 loops = (kTarget + clipSize - 1) / clipSize;
    const QString part = big + ".part." + QFileInfo(big).suffix();
    return ffmpeg(QStringList{"-stream_loop", QString::number(loops - 1), "-i", clip, "-map", "0", "-c", "copy"} + extra
                  + QStringList{part})
           && QFile::rename(part, big);
}

inline long peakMemoryMb()
{
    struct rusage ru;
    getrusage(RUSAGE_SELF, &ru);
    return ru.ru_maxrss / 1024;
}

} // namespace bench
