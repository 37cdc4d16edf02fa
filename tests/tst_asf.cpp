// WMV and ASF files: a first run copies a file whose header is whole; with a
// sample, a file without its header is written anew from the sample's header
// and its own packets. Frames are compared by their decoded digests with the
// healthy file and with what ffmpeg's own copy of the damaged file keeps.

#include "containers/Asf.h"
#include "containers/ContainerConstants.h"
#include "repair/BufferedReader.h"
#include "support/MediaCompare.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

namespace {
using namespace media;
const std::atomic<bool> kGo{false};

// Made once in the fixture folder: ~10 s clips, 5 s samples of other content.
QString clip(const QString &name, const QStringList &inputs, const QString &seconds)
{
    return made(name, inputs + QStringList{"-t", seconds, "-c:v", "wmv2", "-c:a", "wmav2", "-f", "asf"});
}
QString healthy(const QString &ext)
{
    return clip("asf_clip." + ext, {"-f", "lavfi", "-i", "testsrc=size=320x240:rate=25", "-f", "lavfi", "-i",
                                    "sine=frequency=440"}, "10");
}
QString sample(const QString &ext)
{
    return clip("asf_sample." + ext, {"-f", "lavfi", "-i", "mandelbrot=size=320x240:rate=25", "-f", "lavfi", "-i",
                                      "sine=frequency=1000:sample_rate=44100,volume=0.3"}, "5");
}

qint64 find(const QByteArray &file, const asf::Guid &g)
{
    return file.indexOf(QByteArray::fromRawData(reinterpret_cast<const char *>(g.b), sizeof g.b));
}
qint64 dataObject(const QByteArray &file) { return find(file, asf::kDataObject); }

// The damages, applied to the healthy file's bytes.
QByteArray damage(QByteArray d, const QString &how)
{
    const qint64 data = dataObject(d), fp = find(d, asf::kFileProperties);
    if (how == "cut70")
        d.truncate(d.size() * 7 / 10);
    else if (how == "hdrzero")
        d.replace(0, int(data), QByteArray(int(data), '\0'));
    else if (how == "zeros")
        d.replace(d.size() / 2, 256 << 10, QByteArray(256 << 10, '\0'));
    else if (how == "random") {
        QRandomGenerator(9).fillRange(reinterpret_cast<quint32 *>(d.data()), d.size() / 4);
    } else if (how == "empty")
        d.clear();
    else if (how == "allzero")
        d.fill('\0');
    else if (how == "size2^62")
        qToLittleEndian<quint64>(quint64(1) << 62, d.data() + fp + 16);
    else if (how.startsWith("packet"))
        qToLittleEndian<quint32>(how == "packet0" ? 0 : 0xFFFFFFFFu, d.data() + fp + asf::kMaxPacketSizeAt);
    return d;
}

// One CLI run in its own folder: neither the damaged file nor the sample
// changes, and no "1_" file stays.
Outcome checkedRepair(const QString &src, const QString &sampleFile)
{
    const QString work = QFileInfo(src).absolutePath() + "/work";
    const QByteArray before = fixtures::digest(src) + fixtures::digest(sampleFile);
    const Outcome o = repairIn(src, work, sampleFile);
    if (fixtures::digest(src) + fixtures::digest(sampleFile) != before)
        return {"input changed", ""};
    if (!QDir(work + "/Repaired").entryList({"1_*"}, QDir::Files | QDir::Hidden).isEmpty())
        return {"1_ file left", ""};
    return o;
}
} // namespace

class TestAsf : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void repairs()
    {
        // The damage ('+' joins two), the file's name, with a sample, the verdict.
        const QString done = "Completed";
        const struct { QString how, name; bool withSample; QString status; } rows[] = {
            {"none", "clip.wmv", false, done}, {"cut70", "clip.wmv", false, done}, {"zeros", "clip.wmv", true, done},
            {"hdrzero", "clip.wmv", false, "Awaiting Action"}, {"hdrzero", "clip.wmv", true, done},
            {"hdrzero", "clip.ASF", true, done}, {"hdrzero", "-a b.wmv", true, done},
            {"hdrzero+cut70", "clip.asf", true, done}, {"hdrzero+zeros", "clip.wmv", true, done},
        };
        for (const auto &row : rows) {
            const QString &how = row.how, ext = row.name.section('.', -1).toLower();
            VM_FIXTURE(good, healthy(ext));
            VM_FIXTURE(smp, sample(ext));
            QTemporaryDir tmp;
            const QString src = tmp.path() + "/" + row.name;
            QByteArray bytes = readAll(good), keptBytes = bytes;
            for (const QString &d : how.split('+'))
                bytes = damage(bytes, d), keptBytes = d == "hdrzero" ? keptBytes : damage(keptBytes, d);
            QVERIFY(writeAll(src, bytes));
            const Outcome r = checkedRepair(src, row.withSample ? smp : QString());
            QVERIFY2(r.status == row.status, qPrintable(row.name + ", " + how + ": " + r.status));
            if (r.status != "Completed")
                continue;
            // The baseline: ffmpeg's copy of the damaged file, and, where the
            // header is gone, of the same damage with the header kept.
            const QString copy = tmp.path() + "/copy." + ext, kept = tmp.path() + "/kept." + ext;
            QVERIFY(writeAll(kept, keptBytes));
            for (const QString &from : {src, kept})
                ffmpeg({"-i", from, "-c", "copy", from == src ? copy : copy + ".kept." + ext});
            const QStringList want = frameHashes(good), got = frameHashes(r.output);
            const int same = identical(want, got), baseSame = identical(want, frameHashes(copy));
            const int keptSame = identical(want, frameHashes(copy + ".kept." + ext));
            const fixtures::Streams s = fixtures::probe(r.output), b = fixtures::probe(copy + ".kept." + ext);
            qInfo("%s %s: %d of %d frames identical, ffmpeg's copy %d (header kept: %d); sound %.2f s of %.2f",
                  qPrintable(row.name), qPrintable(how), same, want.size(), baseSame, keptSame, s.audioSeconds,
                  b.audioSeconds);
            // A first run is ffmpeg's copy; a rebuilt one loses at most what the
            // last packet, with no packet behind it, held.
            QVERIFY(how.startsWith("hdrzero") ? same >= keptSame - 2 : same == baseSame);
            QVERIFY(qAbs(s.audioSeconds - b.audioSeconds) <= 0.01 * b.audioSeconds);
        }
    }

    // The rebuilt file's header and Data Object sizes say what it holds; a
    // packet at the very end of the file is taken.
    void rebuiltStructure()
    {
        VM_FIXTURE(good, healthy("asf"));
        VM_FIXTURE(smp, sample("asf"));
        QTemporaryDir tmp;
        const QByteArray whole = damage(readAll(good), "hdrzero");
        const qint64 first = dataObject(readAll(good)) + qint64(asf::kDataHeader);
        BufferedReader sampleReader;
        QVERIFY(sampleReader.open(smp));
        const asf::Headers h = asf::ReadHeaders(sampleReader, kGo);
        QVERIFY(h.complete() && !h.audio.isEmpty() && h.packetSize > 0);
        const qint64 packets = (whole.size() - first) / h.packetSize;
        for (const qint64 cutAt : {qint64(whole.size()), first + packets / 2 * h.packetSize}) {
            const QString src = tmp.path() + "/d.asf", out = tmp.path() + "/o.asf";
            QVERIFY(writeAll(src, whole.left(int(cutAt))));
            BufferedReader damaged;
            QVERIFY(damaged.open(src));
            const asf::Rebuilt r = asf::WriteFresh(h, damaged, out, nullptr, kGo);
            QVERIFY(r.written);
            // A whole file ends in its index, so its last packet has no packet behind it.
            QCOMPARE(qint64(r.packets), cutAt == whole.size() ? packets - 1 : packets / 2);
            const QByteArray o = readAll(out);
            const qint64 data = dataObject(o);
            QCOMPARE(qFromLittleEndian<quint64>(o.constData() + asf::kHeaderSizeAt), quint64(data));
            QCOMPARE(qFromLittleEndian<quint64>(o.constData() + data + 16), quint64(o.size() - data));
            QCOMPARE(qFromLittleEndian<quint32>(o.constData() + 24), asf::kHeaderCount);
            QCOMPARE(o.mid(int(data) + int(asf::kDataHeader), 64), whole.mid(int(first), 64));
        }
    }

    // Headers that can't serve: past the first MiB, no video, absurd fields;
    // packets of size 0 or beyond the file. Nothing is written for them.
    void badHeadersAndPackets()
    {
        VM_FIXTURE(good, healthy("wmv"));
        QTemporaryDir tmp;
        const QByteArray bytes = readAll(good);
        for (const QString how : {"size2^62", "packet0", "packetFFFFFFFF", "random", "allzero", "empty"}) {
            const QString path = tmp.path() + "/" + how + ".wmv", out = tmp.path() + "/out.wmv";
            QVERIFY(writeAll(path, damage(bytes, how)));
            BufferedReader file;
            QVERIFY(file.open(path));
            const asf::Headers h = asf::ReadHeaders(file, kGo);
            QCOMPARE(h.complete(), how.startsWith("packet"));
            const asf::Rebuilt r = asf::WriteFresh(h, file, out, nullptr, kGo);
            QVERIFY2(!r.written && r.packets == 0 && !QFile::exists(out), qPrintable(how));
        }
    }

    void waitsOrFails()
    {
        VM_FIXTURE(good, healthy("wmv"));
        VM_FIXTURE(smp, sample("wmv"));
        VM_FIXTURE(mp4, fixtures::healthy("h264_aac.mp4"));
        const QString meta = fixtures::dir() + "/asf_comment.txt";
        QVERIFY(writeAll(meta, ";FFMETADATA1\ncomment=" + QByteArray(1300000, 'x') + "\n"));
        VM_FIXTURE(big, clip("asf_bigheader.wmv", {"-f", "lavfi", "-i", "testsrc=size=320x240", "-f", "ffmetadata",
                                                   "-i", meta, "-map", "0", "-map_metadata", "1"}, "2"));
        VM_FIXTURE(sound, clip("asf_sound.asf", {"-f", "lavfi", "-i", "sine"}, "3"));
        // The damaged file (big, sound, or a damage of the clip), the sample ("", good, random,
        // mp4, or a damage of the sample), the verdict ("": any, but no crash, hang, changed
        // input or "1_" file).
        const struct { QString damaged, sampleKind, status; } rows[] = {
            {"big", "", "Awaiting Action"}, {"sound", "", "Awaiting Action"}, {"size2^62", "", "Awaiting Action"},
            {"size2^62", "good", "Completed"}, {"packet0", "", ""}, {"packetFFFFFFFF", "", ""},
            {"random", "good", "Failed"}, {"allzero", "good", "Failed"}, {"empty", "good", "Failed"},
            {"hdrzero", "random", "Failed"}, {"hdrzero", "mp4", "Failed"}, {"hdrzero", "packet0", "Failed"},
            {"hdrzero", "packetFFFFFFFF", "Failed"},
        };
        for (const auto &row : rows) {
            QTemporaryDir tmp;
            const QString src = tmp.path() + "/" + (row.damaged == "sound" ? "sound.asf" : "clip.wmv");
            const QString from = row.damaged == "big" ? big : row.damaged == "sound" ? sound : good;
            QVERIFY(writeAll(src, damage(readAll(from), row.damaged)));
            const QString kind = row.sampleKind;
            const QString sampleFile = kind.isEmpty() ? QString() : kind == "good" ? smp : tmp.path() + "/s.wmv";
            if (kind != "good" && !kind.isEmpty())
                QVERIFY(writeAll(sampleFile, kind == "mp4" ? readAll(mp4) : damage(readAll(smp), kind)));
            const QString status = checkedRepair(src, sampleFile).status;
            QVERIFY2(row.status.isEmpty() ? QStringList({"Completed", "Awaiting Action", "Failed"}).contains(status)
                                          : status == row.status,
                     qPrintable(row.damaged + ", sample " + kind + ": " + status));
        }
    }
};

QTEST_GUILESS_MAIN(TestAsf)
#include "tst_asf.moc"
