#pragma once
// What the container tests share: running a program or a repair, reading and
// writing a file, clips made once, and the decoded pictures of a file as hashes.

#include "support/Fixtures.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QProcess>
#include <QRandomGenerator>
#include <QStringList>
#include <QTemporaryDir>
#include <cstdio>
#include <unistd.h>
#include <vector>

namespace media {

// Standard output of a program, after at most five minutes.
inline QByteArray runRaw(const QString &program, const QStringList &args, int *exitCode = nullptr)
{
    QProcess p;
    p.start(program, args);
    const bool done = p.waitForFinished(300000);
    if (exitCode)
        *exitCode = done && p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    return p.readAllStandardOutput();
}
inline QString run(const QString &program, const QStringList &args, int *exitCode = nullptr)
{
    return QString::fromUtf8(runRaw(program, args, exitCode));
}

// ffmpeg, quiet and overwriting; true when it exits 0. Its output goes to *out.
inline bool ffmpeg(const QStringList &args, QByteArray *out = nullptr)
{
    int code = -1;
    const QByteArray o = runRaw(fixtures::ffmpeg(), QStringList{"-nostdin", "-v", "error", "-y"} + args, &code);
    if (out)
        *out = o;
    return code == 0;
}

inline QByteArray readAll(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

inline bool writeAll(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(bytes) == bytes.size();
}

// `size` bytes of seeded noise.
inline QByteArray noise(int size, quint32 seed)
{
    QByteArray b(size, '\0');
    QRandomGenerator rng(seed);
    for (char &c : b)
        c = char(rng.bounded(256));
    return b;
}

// fixtures::dir()/name, made once by ffmpeg from `args` (everything before the
// output path); empty when ffmpeg is missing or fails.
inline QString made(const QString &name, const QStringList &args)
{
    const QString out = fixtures::dir() + "/" + name;
    if (QFileInfo(out).size() > 0)
        return out;
    if (fixtures::ffmpeg().isEmpty())
        return {};
    // The real name as the tail keeps the muxer ffmpeg picks from the extension.
    const QString tmp = fixtures::dir() + QStringLiteral("/.part-%1-").arg(QCoreApplication::applicationPid()) + name;
    const bool ok = ffmpeg(args + QStringList{tmp}) && QFileInfo(tmp).size() > 0;
    QFile::remove(out);
    if (ok && QFile::rename(tmp, out))
        return out;
    QFile::remove(tmp);
    return {};
}

// The MD5 of each decoded picture of the first video stream, in order; what
// the decoder complained of goes to *errors.
inline QStringList frameHashes(const QString &path, QString *errors = nullptr)
{
    QProcess p;
    p.start(fixtures::ffmpeg(), {"-v", "error", "-nostdin", "-i", path, "-map", "0:v:0", "-f", "framemd5", "-"});
    p.waitForFinished(300000);
    if (errors)
        *errors = QString::fromUtf8(p.readAllStandardError());
    QStringList out;
    for (const QString &line : QString::fromUtf8(p.readAllStandardOutput()).split('\n'))
        if (!line.startsWith('#') && line.count(',') >= 5)
            out << line.section(',', 5).trimmed();
    return out;
}

// How many of `got` are pictures of the healthy file, each healthy picture
// matched once.
inline int identical(const QStringList &healthy, const QStringList &got)
{
    QHash<QString, int> left;
    for (const QString &h : healthy)
        ++left[h];
    int n = 0;
    for (const QString &s : got)
        if (left.value(s) > 0) {
            --left[s];
            ++n;
        }
    return n;
}

// Seconds of sound that decode, as 8 kHz 16-bit mono.
inline double soundSeconds(const QString &path)
{
    return runRaw(fixtures::ffmpeg(), {"-v", "quiet", "-nostdin", "-i", path, "-map", "0:a:0", "-f", "s16le", "-ac",
                                       "1", "-ar", "8000", "-"})
               .size()
           / 16000.0;
}

// One file repaired through videomend-cli: its exit code, status and result
// (empty when there is none).
struct Outcome
{
    QString status, output;
    int code = -1;
};

// With the work folder `work` (created); `extra` goes before the file.
inline Outcome repairIn(const QString &file, const QString &work, const QString &sample = QString(),
                        const QStringList &extra = {})
{
    QDir().mkpath(work);
    QStringList args = QStringList{"repair", "--quiet", "--work", work} + extra;
    if (!sample.isEmpty())
        args << "--sample" << sample;
    Outcome o;
    const QStringList f = run(VM_CLI_PATH, args << "--" << file, &o.code).trimmed().split('\t');
    o.status = f.value(0);
    o.output = f.value(2) == "-" ? QString() : f.value(2);
    return o;
}

// Into `out`.
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

// videomend-cli with `args`, in a child whose files may not grow past `limit`
// bytes; what it prints goes to *out and *err. -1 where no limit can be set.
inline int cliWithFileLimit(quint64 limit, const QStringList &args, QByteArray *out, QByteArray *err = nullptr)
{
    QTemporaryDir dir;
    const QByteArray o = QFile::encodeName(dir.filePath("out")), e = QFile::encodeName(dir.filePath("err"));
    QList<QByteArray> argv{VM_CLI_PATH};
    for (const QString &a : args)
        argv << QFile::encodeName(a);
    const int status = fixtures::inChildWithFileLimit(limit, [&] {
        std::vector<char *> v;
        for (QByteArray &a : argv)
            v.push_back(a.data());
        v.push_back(nullptr);
        if (!std::freopen(o.constData(), "w", stdout) || !std::freopen(e.constData(), "w", stderr))
            return 4;
        execv(v[0], v.data());
        return 5;
    });
    *out = readAll(dir.filePath("out"));
    if (err)
        *err = readAll(dir.filePath("err"));
    return status;
}

} // namespace media
