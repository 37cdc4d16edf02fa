#pragma once
// What the container tests share: running a program or a repair, reading a
// file, and the decoded pictures of a file as hashes.

#include "support/Fixtures.h"

#include <QFile>
#include <QProcess>
#include <QSet>
#include <QStringList>
#include <algorithm>

namespace media {

// Standard output of a program, after at most five minutes.
inline QString run(const QString &program, const QStringList &args, int *exitCode = nullptr)
{
    QProcess p;
    p.start(program, args);
    p.waitForFinished(300000);
    if (exitCode)
        *exitCode = p.exitCode();
    return QString::fromUtf8(p.readAllStandardOutput());
}

inline QByteArray readAll(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// The MD5 of each decoded picture of the first video stream, in order.
inline QStringList frameHashes(const QString &path)
{
    const QStringList args = {"-v", "quiet", "-nostdin", "-i", path, "-map", "0:v:0", "-f", "framemd5", "-"};
    QStringList out;
    for (const QString &line : run(fixtures::ffmpeg(), args).split('\n'))
        if (!line.startsWith('#') && line.count(',') >= 5)
            out << line.section(',', 5).trimmed();
    return out;
}

// How many of `got` are pictures of the healthy file.
inline int identical(const QStringList &healthy, const QStringList &got)
{
    const QSet<QString> h(healthy.begin(), healthy.end());
    return int(std::count_if(got.begin(), got.end(), [&](const QString &s) { return h.contains(s); }));
}

// One file repaired through videomend-cli into `out`: its status and result
// (empty when there is none).
struct Outcome
{
    QString status, output;
};

inline Outcome repair(const QString &file, const QString &out, const QString &sample = QString())
{
    QStringList args = {"repair", "--quiet", "--out", out};
    if (!sample.isEmpty())
        args << "--sample" << sample;
    for (const QString &line : run(VM_CLI_PATH, args << "--" << file).split('\n')) {
        const QStringList f = line.split('\t');
        if (f.size() >= 3)
            return {f[0], f[2] == "-" ? QString() : f[2]};
    }
    return {};
}

// The first run, then, when it waits for one, the run with the sample; the
// first run's status goes to *first.
inline Outcome repairWithSample(const QString &file, const QString &out, const QString &sample, QString *first)
{
    Outcome o = repair(file, out);
    *first = o.status;
    return o.status == "Awaiting Action" ? repair(file, out, sample) : o;
}

} // namespace media
