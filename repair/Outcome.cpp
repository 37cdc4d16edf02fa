#include "repair/Outcome.h"

#include "mux/FfmpegRunner.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QProcess>
#include <QStandardPaths>

namespace outcome {

namespace {
constexpr int kProbeWaitMs = 120000;

double seconds(const QJsonValue &v)
{
    bool ok = false;
    const double d = v.toString().toDouble(&ok);
    return ok && d > 0 ? d : 0;
}
} // namespace

QString FindFfprobe()
{
    const QFileInfo bundled(mux::FfmpegDir() + "/ffprobe");
    if (bundled.isFile() && bundled.isExecutable())
        return bundled.absoluteFilePath();
    return QStandardPaths::findExecutable("ffprobe");
}

Probe ProbeResult(const QString &path)
{
    Probe p;
    const QString program = FindFfprobe();
    if (path.isEmpty() || program.isEmpty() || !QFileInfo(path).isFile())
        return p;
    QProcess proc;
    proc.setStandardInputFile(QProcess::nullDevice());
    // Packets are counted, not decoded: quick even for long recordings.
    proc.start(program, {"-v", "error", "-count_packets", "-show_entries",
                         "stream=codec_type,nb_read_packets,duration:format=duration", "-of", "json",
                         mux::FileArgument(QFileInfo(path).absoluteFilePath())});
    if (!proc.waitForFinished(kProbeWaitMs) || proc.exitStatus() != QProcess::NormalExit) {
        proc.kill();
        proc.waitForFinished(2000);
        return p;
    }
    const QJsonObject root = QJsonDocument::fromJson(proc.readAllStandardOutput()).object();
    if (root.isEmpty())
        return p;
    p.ran = true;
    const double whole = seconds(root.value("format").toObject().value("duration"));
    for (const QJsonValue &v : root.value("streams").toArray()) {
        const QJsonObject s = v.toObject();
        const QString type = s.value("codec_type").toString();
        double d = seconds(s.value("duration"));
        if (d == 0)
            d = whole; // Matroska keeps durations per file, not per stream
        if (type == "video" && !p.hasVideo) {
            p.hasVideo = true;
            p.videoFrames = s.value("nb_read_packets").toString().toLongLong();
            p.videoSeconds = d;
        } else if (type == "audio" && p.audioSeconds == 0) {
            p.audioSeconds = d;
        }
    }
    return p;
}

QString ReasonText(Why why, const QString &detail)
{
    QString text;
    switch (why) {
    case Why::None: return QString();
    case Why::NoSample:
        text = QStringLiteral("no sample given: add a healthy recording made with the same camera and settings");
        break;
    case Why::NotHandled: text = QStringLiteral("this kind of file isn't handled yet"); break;
    case Why::WrongSample: text = QStringLiteral("the sample isn't from the same camera and settings"); break;
    case Why::NothingFound: text = QStringLiteral("nothing recoverable found"); break;
    case Why::WriteFailed: text = QStringLiteral("the result could not be written"); break;
    case Why::NoVideo: text = QStringLiteral("the result holds no video stream"); break;
    }
    return detail.isEmpty() ? text : text + QStringLiteral(": ") + detail;
}

Judged Judge(const QString &status, const QString &resultPath, const FileReport &report, bool sampleGiven)
{
    Judged j;
    j.status = status;
    if (report.carved && report.mediaBytes > 0)
        j.mediaUsed = qMin(1.0, double(report.claimedBytes) / double(report.mediaBytes));

    if (status == QLatin1String("Completed")) {
        const Probe p = ProbeResult(resultPath);
        if (p.ran) {
            j.videoFrames = p.hasVideo ? p.videoFrames : 0;
            j.audioSeconds = p.audioSeconds;
            if (!p.hasVideo) {
                // Sound alone is not the recording the user asked for.
                j.status = QStringLiteral("Failed");
                j.reason = ReasonText(Why::NoVideo, QString());
            }
        }
    } else if (status == QLatin1String("Aborted")) {
        j.reason = QStringLiteral("stopped before it ended");
    } else {
        Why why = report.why;
        if (why == Why::WriteFailed) {
            // No sample can help a disk that refused the result.
            j.status = QStringLiteral("Failed");
            j.mediaUsed = -1;
        }
        if (why == Why::None)
            why = (status == QLatin1String("Awaiting Action") && !sampleGiven) ? Why::NoSample : Why::NothingFound;
        j.reason = ReasonText(why, report.detail);
    }

    QStringList parts;
    if (j.videoFrames >= 0) {
        parts << QStringLiteral("%1 video frames").arg(QLocale(QLocale::English).toString(j.videoFrames));
        parts << (j.audioSeconds > 0 ? QStringLiteral("%1 s of sound").arg(j.audioSeconds, 0, 'f', 1)
                                     : QStringLiteral("no sound"));
    }
    if (j.mediaUsed >= 0)
        parts << QStringLiteral("%1% of the media data used").arg(qRound(j.mediaUsed * 100));
    j.summary = parts.join(QStringLiteral(", "));
    if (!j.reason.isEmpty())
        j.summary = j.summary.isEmpty() ? j.reason : j.summary + QStringLiteral("; ") + j.reason;
    return j;
}

} // namespace outcome
