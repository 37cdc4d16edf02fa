#include "support/DiscFixtures.h"

#include "support/Fixtures.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSaveFile>
#include <QtEndian>

namespace fixtures {

namespace {
const QStringList kSixSeconds = {"-f", "lavfi", "-i", "testsrc2=size=352x288:rate=25:duration=6",
                                 "-f", "lavfi", "-i", "sine=frequency=440:sample_rate=44100:duration=6"};

// ffmpeg's output for `args`, made once; a parallel run may finish it first.
QString made(const QString &name, const QStringList &args)
{
    const QString dest = dir() + "/" + name;
    if (QFileInfo(dest).size() > 0)
        return dest;
    if (ffmpeg().isEmpty())
        return {};
    const QString tmp = dir() + QStringLiteral("/.part-%1-").arg(QCoreApplication::applicationPid()) + name;
    QProcess p;
    p.start(ffmpeg(), QStringList{"-nostdin", "-y", "-v", "error"} + kSixSeconds + args + QStringList{tmp});
    if (!p.waitForFinished(120000) || p.exitCode() != 0 || QFileInfo(tmp).size() == 0) {
        qWarning("fixtures: ffmpeg failed to make %s: %s", qPrintable(name), p.readAllStandardError().constData());
        QFile::remove(tmp);
        return {};
    }
    QFile::remove(dest);
    if (!QFile::rename(tmp, dest))
        QFile::remove(tmp);
    return QFileInfo(dest).size() > 0 ? dest : QString();
}

quint8 bcd(int n) { return quint8(n / 10 * 16 + n % 10); }

QByteArray le32(quint32 v)
{
    QByteArray b(4, '\0');
    qToLittleEndian(v, b.data());
    return b;
}
} // namespace

QString vcdStream() { return made("vcd_6s.mpg", {"-target", "pal-vcd", "-f", "vcd"}); }

QString imkhStream()
{
    const QString ps = made("imkh_body_6s.vob", {"-c:v", "libx264", "-preset", "veryfast", "-bf", "0", "-g", "25",
                                                 "-pix_fmt", "yuv420p", "-c:a", "mp2", "-b:a", "64k", "-f", "vob"});
    const QString dest = dir() + "/imkh_6s.mp4";
    if (ps.isEmpty())
        return {};
    if (QFileInfo(dest).size() > 0)
        return dest;
    QFile in(ps);
    QSaveFile out(dest);
    if (!in.open(QIODevice::ReadOnly) || !out.open(QIODevice::WriteOnly))
        return {};
    QByteArray head("IMKH");
    for (int i = 0; i < 36; ++i)
        head.append(char(0x20 + i * 7 % 0x5f)); // never 00 00 01: no start code in the header
    out.write(head + in.readAll());
    return out.commit() ? dest : QString();
}

QByteArray cdxaImage(const QByteArray &program)
{
    QByteArray data;
    int lba = 150; // a track's first sector lies 2 s into the disc
    auto sector = [&](const QByteArray &payload, bool form2, quint8 kind) {
        const int m = lba / 4500, s = lba / 75 % 60, f = lba % 75;
        ++lba;
        QByteArray sec = QByteArray(1, '\0') + QByteArray(10, char(0xFF)) + QByteArray(1, '\0');
        sec += char(bcd(m));
        sec += char(bcd(s));
        sec += char(bcd(f));
        sec += char(2);
        // File and channel 1, submode (Form 2 flag, kind of data), no coding info; twice.
        const char sub[4] = {1, 1, char(kind | (form2 ? 0x20 : 0)), 0};
        sec += QByteArray(sub, 4) + QByteArray(sub, 4);
        sec += payload.leftJustified(form2 ? 2324 : 2048, '\0');
        data += sec.leftJustified(2352, '\0'); // EDC (and Form 1's ECC) left zero
    };
    sector({}, false, 0x08);
    sector({}, false, 0x08);
    for (int at = 0; at < program.size(); at += 2324)
        sector(program.mid(at, 2324), true, 0x02 | 0x40);
    // fmt: owner and group ids, attributes, "XA", file number, reserved.
    const QByteArray fmt = QByteArray(4, '\0') + QByteArray("\x15\x55XA\x01", 5) + QByteArray(7, '\0');
    const QByteArray body = "CDXA" + QByteArray("fmt ") + le32(quint32(fmt.size())) + fmt + "data" +
                            le32(quint32(data.size())) + data;
    return "RIFF" + le32(quint32(body.size())) + body;
}

} // namespace fixtures
