// FLV repair: damaged copies of a 10 s H.264 + AAC FLV, repaired through
// videomend-cli and by the stage itself. Pictures are compared by their
// decoded checksums with the healthy file's, beside what ffmpeg's own stream
// copy of the damaged file keeps.

#include "containers/Flv.h"
#include "repair/BufferedReader.h"
#include "support/MediaCompare.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {
using namespace media;

quint32 be(const QByteArray &b, int at, int n)
{
    quint32 v = 0;
    for (int i = 0; i < n; ++i)
        v = v << 8 | quint8(b.at(at + i));
    return v;
}

// 10 s, 320x240, a key frame every 2 s, large enough that 256 KiB of zeros
// leave most of it.
QString healthyFlv()
{
    return made("flv_h264_aac.flv", {"-f", "lavfi", "-i", "testsrc2=size=320x240:rate=25:duration=10", "-f", "lavfi", "-i",
                                     "sine=frequency=440:duration=10:sample_rate=44100", "-c:v", "libx264", "-g", "50",
                                     "-b:v", "1500k", "-c:a", "aac", "-f", "flv"});
}

// The tags of an FLV from its 13-byte head on: offset, type, first data byte.
struct Tag
{
    int at;
    quint8 type, first;
};
// Empty when a trailing size doesn't match its tag or the chain doesn't end
// at the end of the file.
QVector<Tag> tags(const QByteArray &b)
{
    QVector<Tag> out;
    int at = 13;
    while (at + 15 <= b.size()) {
        const int d = int(be(b, at + 1, 3));
        if (at + d + 15 > b.size() || be(b, at + 11 + d, 4) != quint32(d + 11))
            return {};
        out.append({at, quint8(b.at(at)), quint8(b.at(at + 11))});
        at += d + 15;
    }
    return at == b.size() ? out : QVector<Tag>();
}

QByteArray damage(const QByteArray &healthy, const QString &kind)
{
    QByteArray b = healthy;
    if (kind == "cut at 70%")
        b.truncate(b.size() * 7 / 10);
    else if (kind == "head zeroed") // the file head and its script tag
        b.replace(0, 13 + 15 + int(be(b, 14, 3)), QByteArray(13 + 15 + int(be(b, 14, 3)), '\0'));
    else if (kind == "script damaged") // its trailing size no longer matches
        b[13 + 11 + int(be(b, 14, 3)) + 3] = 0x7F;
    else if (kind == "256 KiB zeros")
        b.replace(b.size() / 2, 256 << 10, QByteArray(256 << 10, '\0'));
    else if (kind == "under 15001 bytes")
        b.truncate(15000);
    else if (kind == "random")
        b = noise(300000, 11);
    else if (kind == "zeros")
        b = QByteArray(300000, '\0');
    else if (kind == "empty")
        b.clear();
    else if (kind == "D 0xFFFFFF") // sound and video heads that claim 16 MB
        b = QByteArray("\x09\xFF\xFF\xFF\0\0\0\0\0\0\0\x17\x08\xFF\xFF\xFF", 16).repeated(20000);
    else if (kind == "head cut mid-GOP") {
        // From the first video tag behind 30% that doesn't open a run.
        for (const Tag &t : tags(healthy))
            if (t.at > healthy.size() * 3 / 10 && t.type == 9 && t.first >> 4 != 1) {
                b = healthy.mid(t.at);
                break;
            }
    }
    return b;
}
} // namespace

class TestFlv : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The whole path: the command-line front end on a damaged copy; the
    // first four give a result, the rest none.
    void repairs()
    {
        VM_FIXTURE(healthy, healthyFlv());
        const QStringList kinds = {"healthy", "cut at 70%", "head zeroed", "256 KiB zeros", "under 15001 bytes",
                                   "random", "zeros", "empty", "D 0xFFFFFF"};
        for (const QString &kind : kinds) {
            QTemporaryDir tmp;
            const QString src = tmp.path() + "/clip.flv", work = tmp.path() + "/work";
            QVERIFY(writeAll(src, damage(readAll(healthy), kind)));
            const QByteArray before = fixtures::digest(src);
            const Outcome o = repairIn(src, work);
            QCOMPARE(fixtures::digest(src), before);
            const QString out = work + "/Repaired/clip.flv";
            const QStringList left =
                QDir(work + "/Repaired").entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
            if (kinds.indexOf(kind) >= 4) {
                QVERIFY2(o.status == "Failed" && left.isEmpty(), qPrintable(kind));
                continue;
            }
            QVERIFY2(o.status == "Completed" && o.output == out && left == QStringList{"clip.flv"}, qPrintable(kind));

            // Every trailing size matches its tag; the metadata's full form
            // where the old script tag survived.
            const QByteArray bytes = readAll(out);
            const QVector<Tag> list = tags(bytes);
            QVERIFY(!list.isEmpty());
            QCOMPARE(list.first().type, quint8(18));
            QCOMPARE(be(bytes, list.at(1).at - 4, 4), kind == "head zeroed" ? 0x48u : 0xDBu);

            const QString baseline = tmp.path() + "/baseline.flv";
            ffmpeg({"-i", src, "-c", "copy", baseline});
            const QStringList want = frameHashes(healthy);
            const int got = identical(want, frameHashes(out)), copied = identical(want, frameHashes(baseline));
            const double sound = soundSeconds(out), baseSound = soundSeconds(baseline);
            qInfo("%s: %d of %d pictures identical (ffmpeg's copy %d); sound %.2f s (ffmpeg's copy %.2f s, healthy %.2f s)",
                  qPrintable(kind), got, int(want.size()), copied, sound, baseSound, soundSeconds(healthy));
            QVERIFY(want.size() == 250);
            QVERIFY(got >= copied);
            const bool whole = kind == "healthy" || kind == "head zeroed";
            if (whole)
                QCOMPARE(got, int(want.size()));
            const double ref = whole ? soundSeconds(healthy) : baseSound;
            QVERIFY2(qAbs(sound - ref) <= ref / 100, qPrintable(QString::number(sound)));
        }
    }

    // The stage's rules, called directly.
    void rules()
    {
        VM_FIXTURE(healthy, healthyFlv());
        for (const QString kind : {"head cut mid-GOP", "script damaged", "under 15001 bytes"}) {
            QTemporaryDir tmp;
            const QString src = tmp.path() + "/clip.flv", out = tmp.path() + "/out.flv";
            QVERIFY(writeAll(src, damage(readAll(healthy), kind)));
            BufferedReader reader;
            QFile log(tmp.path() + "/logFile.txt");
            QVERIFY(reader.open(src) && log.open(QIODevice::ReadWrite));
            const std::atomic<bool> stop{false};
            const flv::Result r = flv::Repair(reader, log, out, stop, nullptr);
            QVERIFY2(r.videoSeen && r.error.isEmpty() && r.written == (kind != "under 15001 bytes"), qPrintable(kind));
            if (!r.written) {
                QVERIFY(!QFile::exists(out));
                continue;
            }
            const QByteArray bytes = readAll(out);
            const QVector<Tag> list = tags(bytes);
            QVERIFY(list.size() > 2);
            if (kind == "head cut mid-GOP") {
                // Nothing before the first key frame is taken, and it leads.
                QVERIFY(r.passedTags > 0);
                QCOMPARE(list.at(1).type, quint8(9));
                QCOMPARE(list.at(1).first >> 4, 1);
                QCOMPARE(quint64(bytes.size()), 13 + 15 + flv::MetaDataSize(r.fullMeta) + r.tagBytes);
            } else {
                // The short form, which ffmpeg reads: its duration in whole seconds.
                QVERIFY(!r.fullMeta);
                QCOMPARE(be(bytes, list.at(1).at - 4, 4), 0x48u);
                const QString d = run("ffprobe", {"-v", "error", "-show_entries", "format=duration", "-of",
                                                 "csv=p=0", out});
                QCOMPARE(d.trimmed().toDouble(), 9.0);
            }
        }
    }

    // A write the disk refuses leaves no file and reports none.
    void failedWrite()
    {
        VM_FIXTURE(healthy, healthyFlv());
        QTemporaryDir tmp;
        const QString out = tmp.path() + "/out.flv";
        const int status = fixtures::inChildWithFileLimit(400000, [&] {
            BufferedReader reader;
            QFile log(tmp.path() + "/logFile.txt");
            const std::atomic<bool> stop{false};
            if (!reader.open(healthy) || !log.open(QIODevice::ReadWrite))
                return 2;
            const flv::Result r = flv::Repair(reader, log, out, stop, nullptr);
            return r.written || r.error.isEmpty() ? 1 : 0;
        });
        if (status < 0)
            QSKIP("no file size limit here");
        QCOMPARE(status, 0);
        QCOMPARE(QDir(tmp.path()).entryList(QDir::Files), QStringList{"logFile.txt"});
    }
};

QTEST_GUILESS_MAIN(TestFlv)
#include "tst_flv.moc"
