#pragma once
// What the benchmarks share: making their recordings with ffmpeg and
// counting what a result holds with ffprobe.

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

} // namespace bench
