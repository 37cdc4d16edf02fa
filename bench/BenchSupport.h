#pragma once
// What the benchmarks share: making their recordings with ffmpeg and
// counting what a result holds with ffprobe.

#include "repair/ThreadVideoRepair.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QString>
#include <QStringList>

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

// Repairs file on the worker thread as the window would, with ffmpeg out of
// reach and the log quiet; the seconds it took.
inline double timedRepair(const QString &file, const QString &sample, const QString &dir)
{
    qputenv("PATH", "");
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

} // namespace bench
