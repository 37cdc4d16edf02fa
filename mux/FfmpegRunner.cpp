#include "mux/FfmpegRunner.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QtDebug>
#include <atomic>
#include <csignal>
#include <sys/types.h>

namespace mux {

namespace {
std::atomic<qint64> g_runningPid{0};

QString logTail(const QByteArray &bytes)
{
    // ffmpeg's progress lines can be long; the end says what went wrong.
    constexpr int kKeep = 4000;
    const QString all = QString::fromUtf8(bytes);
    return all.size() > kKeep ? QStringLiteral("...") + all.right(kKeep) : all;
}
} // namespace

QString FfmpegDir()
{
    const QString app = QCoreApplication::instance() ? QCoreApplication::applicationDirPath() : QString(".");
    return app + "/Libmp4";
}

QString FindFfmpeg()
{
    const QFileInfo bundled(FfmpegDir() + "/ffmpeg");
    if (bundled.isFile() && bundled.isExecutable())
        return bundled.absoluteFilePath();
    return QStandardPaths::findExecutable("ffmpeg");
}

RunResult Run(Form form, const QStringList &arguments, const QString &workDir)
{
    RunResult r;
    const QString program = FindFfmpeg();
    if (program.isEmpty()) {
        qDebug().noquote() << "ffmpeg not found; command not run:" << arguments.join(' ');
        return r;
    }
    QProcess proc;
    proc.setWorkingDirectory(workDir);
    proc.setStandardInputFile(QProcess::nullDevice());
    proc.setProcessChannelMode(QProcess::MergedChannels);
    proc.start(program, arguments, QIODevice::ReadWrite);
    r.started = proc.waitForStarted(kStartedWaitMs);
    if (r.started) {
        g_runningPid = proc.processId();
        r.finished = proc.waitForFinished(form == Form::P ? kFormPWaitMs : -1);
        g_runningPid = 0;
        if (!r.finished) {
            // The limit of a form P row: the process ends with its object.
            proc.kill();
            proc.waitForFinished(5000);
        }
        r.exitCode = proc.exitStatus() == QProcess::NormalExit ? proc.exitCode() : -1;
        r.output = logTail(proc.readAll());
    }
    proc.close();
    qDebug().noquote() << program << arguments.join(' ');
    return r;
}

void KillRunning()
{
    const qint64 pid = g_runningPid.load();
    if (pid > 0)
        ::kill(pid_t(pid), SIGKILL);
}

quint32 FrameRate(quint32 frames, quint32 duration, quint32 timeScale)
{
    if (frames == 0 || duration == 0 || timeScale == 0 || duration < timeScale)
        return kDefaultFps;
    // Whole seconds first: 57 frames in 1.9 s is 57 per second. Intended.
    return frames / (duration / timeScale);
}

QString FixLeadingDashes(const QString &name)
{
    QString fixed = name;
    for (int i = 0; i < fixed.size() && fixed.at(i) == '-'; ++i)
        fixed[i] = '_';
    return fixed;
}

QString FileArgument(const QString &bareName)
{
    if (bareName.startsWith('-') || (bareName.contains(':') && !bareName.startsWith('/')))
        return "./" + bareName;
    return bareName;
}

QString ProbeFrameRate(const QString &inputPath, const QString &ffmpegPath)
{
    QProcess proc;
    proc.setStandardInputFile(QProcess::nullDevice());
    proc.start(ffmpegPath, {"-i", inputPath}, QIODevice::ReadWrite);
    if (!proc.waitForFinished(-1)) {
        qWarning() << "FFmpeg process failed to start or timed out!";
        return QString();
    }
    const QString text = QString::fromUtf8(proc.readAllStandardError());
    const QRegularExpressionMatch video =
        QRegularExpression(QStringLiteral("Video: h264.*?(\\d+(?:\\.\\d+)?) fps")).match(text);
    const QRegularExpressionMatch audio = QRegularExpression(QStringLiteral("Audio: aac")).match(text);
    if (video.hasMatch() && audio.hasMatch())
        return video.captured(1);
    return QString();
}

} // namespace mux
