// Matroska and WebM recordings, healthy and damaged, repaired through
// videomend-cli and judged frame by frame against the healthy file and
// ffmpeg's own copy of the damage; the size fields, the block carve and bad
// input are checked on the engine directly.

#include "containers/Mkv.h"
#include "rebuild/LogReader.h"
#include "repair/BufferedReader.h"
#include "repair/RepairLine.h"
#include "repair/RepairState.h"
#include "support/MediaCompare.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <QtTest>

namespace {

using namespace media;

// The bytes as a file in `tmp`, opened for the engine; null when that fails.
std::unique_ptr<BufferedReader> reader(const QTemporaryDir &tmp, const QByteArray &bytes)
{
    auto r = std::make_unique<BufferedReader>();
    const QString path = tmp.path() + "/bytes.mkv";
    return writeAll(path, bytes) && r->open(path) ? std::move(r) : nullptr;
}

const char kH264[] = "-c:v libx264 -preset ultrafast -g 25 -pix_fmt yuv420p -c:a aac -b:a 128k -ac 2";
const char kVp9[] = "-c:v libvpx-vp9 -deadline realtime -cpu-used 8 -g 25 -b:v 300k -pix_fmt yuv420p "
                    "-c:a libopus -b:a 64k";
const char kNoise[] = ",noise=alls=20:allf=t"; // over 0xA00000 bytes at -qp 10

// A recording made once and cached: testsrc pictures for the damaged files,
// mandelbrot and another tone for the samples.
QString make(const QString &name, bool sample, int seconds, bool big, const char *codec)
{
    const QString pictures = QString(sample ? "mandelbrot" : big ? "testsrc2" : "testsrc") + "=size=320x240:rate=25";
    const QString tone = QString("sine=frequency=%1:sample_rate=48000").arg(sample ? 300 : 880);
    QStringList args = {"-f", "lavfi", "-i", pictures + (big ? kNoise : ""), "-f", "lavfi", "-i", tone, "-t",
                        QString::number(seconds)};
    args << QString(codec).split(' ') << (big ? QStringList{"-qp", "10"} : QStringList()) << "-write_crc32" << "0"
         << "-f" << (name.endsWith("webm") ? "webm" : "matroska");
    return made(name, args);
}

quint64 vint(const QByteArray &d, qint64 p, int *len, bool keepMarker = false)
{
    const quint8 b = p < d.size() ? quint8(d[int(p)]) : 0;
    int n = 1;
    while (n <= 8 && !(b & (0x80 >> (n - 1))))
        ++n;
    quint64 v = keepMarker ? b : b & ((0x80 >> (n - 1)) - 1);
    for (int i = 1; i < n && p + i < d.size(); ++i)
        v = v << 8 | quint8(d[int(p + i)]);
    *len = n;
    return v;
}

// The clusters of a healthy file, walking the segment's elements.
QVector<QPair<qint64, qint64>> clusters(const QByteArray &d)
{
    int n = 0, m = 0;
    const qint64 head = qint64(vint(d, 4, &n));
    const qint64 segment = 4 + n + head + 4;
    vint(d, segment, &n);
    QVector<QPair<qint64, qint64>> out;
    for (qint64 p = segment + n; p + 4 <= d.size();) {
        const quint64 id = vint(d, p, &m, true), size = vint(d, p + m, &n);
        const qint64 end = p + m + n + qint64(size);
        if (id == 0x1F43B675)
            out << qMakePair(p, end);
        p = end;
    }
    return out;
}

// Packets of stream `s` in the clusters that neither touch [from, to) nor
// have their follower's ID there: what the cluster list keeps.
int keptPackets(const QString &healthy, int s, qint64 from, qint64 to)
{
    int kept = 0;
    const auto list = clusters(readAll(healthy));
    for (const fixtures::Packet &p : fixtures::packets(healthy).value(s))
        for (const auto &c : list)
            kept += qint64(p.pos) >= c.first && qint64(p.pos) < c.second && (c.second + 4 <= from || c.first >= to);
    return kept;
}

// The rebuilt file's Segment size reaches the end, and its SeekHead entries
// land on Info and Tracks. Empty when all holds.
QString rebuiltFault(const QByteArray &f)
{
    const int segment = 43 + 12, tracks = segment + quint8(f[segment + 33]) * 256 + quint8(f[segment + 34]);
    int n = 0;
    if (vint(f, 47, &n) != quint64(f.size() - segment) || n != 8)
        return "Segment size";
    if (f.mid(segment + 229, 4) != QByteArray::fromHex("1549A966"))
        return "Info position";
    return f.mid(tracks, 4) == QByteArray::fromHex("1654AE6B") ? QString() : "Tracks position";
}

// Which way made a result: the carve's mux writes QuickTime, the rebuild
// starts with its own WebM head, ffmpeg's remux with its own.
int wayOf(const QByteArray &result)
{
    if (result.mid(4, 4) == "ftyp")
        return 2;
    return result.startsWith(QByteArray::fromHex("1A45DFA3010000000000001F")) ? 3 : 1;
}

} // namespace

class TestMkv : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void damages()
    {
        for (const QString kind : {"big", "small", "webm"}) { // big: H.264 over 0xA00000
            const bool big = kind == "big", webm = kind == "webm";
            const char *codec = webm ? kVp9 : kH264;
            const QString ext = webm ? ".webm" : ".mkv";
            VM_FIXTURE(healthy, make("mkv_" + kind + ext, false, 10, big, codec));
            VM_FIXTURE(sample, make("mkv_sample_" + kind + ext, true, big ? 7 : 4, big, codec));
            const QByteArray good = readAll(healthy);
            const auto list = clusters(good);
            QVERIFY(list.size() >= 8);
            for (const QString how : {"healthy", "64 KiB zeroed", "cut at 70%", "256 KiB zeros", "head zeroed"}) {
                const int way = big ? (how.contains("zeroed") ? 2 : 1) : 3;
                QTemporaryDir tmp;
                QByteArray bad = good;
                qint64 from = 0, to = 0; // the damaged range
                if (how == "64 KiB zeroed")
                    to = 65536;
                else if (how == "head zeroed")
                    to = list.first().first;
                else if (how == "256 KiB zeros")
                    from = good.size() / 2, to = from + 256 * 1024;
                else if (how == "cut at 70%")
                    from = good.size() * 7 / 10, to = good.size();
                if (how == "cut at 70%")
                    bad.truncate(int(from));
                else
                    bad.replace(int(from), int(to - from), QByteArray(int(to - from), '\0'));
                const QString damaged = tmp.path() + "/clip" + ext;
                QVERIFY(writeAll(damaged, bad));
                const QByteArray before = fixtures::digest(damaged), sampleBefore = fixtures::digest(sample);
                QVERIFY(QDir(tmp.path()).mkdir("out"));

                QString first;
                const Outcome o = repairWithSample(damaged, tmp.path() + "/out", sample, &first);
                QCOMPARE(first, QString(how.endsWith("zeroed") ? "Awaiting Action" : "Completed"));
                QCOMPARE(o.status, QString("Completed"));
                QCOMPARE(fixtures::digest(damaged), before);
                QCOMPARE(fixtures::digest(sample), sampleBefore);
                QCOMPARE(wayOf(readAll(o.output)), way);

                const QStringList h = frameHashes(healthy), got = frameHashes(o.output);
                const QString copy = tmp.path() + "/copy" + ext;
                ffmpeg({"-i", damaged, "-c", "copy", copy});
                const int mine = identical(h, got), theirs = identical(h, frameHashes(copy));
                auto audioPackets = [](const QString &path) { return qMax(0, fixtures::probe(path).audio); };
                const int sound = audioPackets(o.output), soundHealthy = audioPackets(healthy);
                const int soundBase = audioPackets(copy);
                qInfo("%s: way %d; video %d of %d frames, ffmpeg's copy %d; audio %d of %d packets, ffmpeg's copy %d",
                      qPrintable(kind + ", " + how), way, mine, int(h.size()), theirs, sound, soundHealthy, soundBase);
                QVERIFY(mine >= theirs || way != 1);
                if (way == 1) {
                    QVERIFY(sound >= soundBase);
                    continue;
                }
                // The cluster list and the carve drop each cluster the damage touches.
                QCOMPARE(mine, keptPackets(healthy, 0, from, to));
                const int keptSound = keptPackets(healthy, 1, from, to);
                if (way == 3) {
                    QCOMPARE(rebuiltFault(readAll(o.output)), QString());
                    QCOMPARE(sound, keptSound);
                } else { // the carve drops a cluster's last block when it is sound
                    QVERIFY(sound <= keptSound && sound >= keptSound - list.size());
                }
            }
        }
    }

    // A WebM whose clusters start with a CRC-32 element lists none.
    void crcClusters()
    {
        VM_FIXTURE(webm, make("mkv_small.webm", false, 10, false, kVp9));
        QTemporaryDir tmp;
        const QString crc = tmp.path() + "/crc.webm";
        ffmpeg({"-i", webm, "-c", "copy", "-f", "matroska", crc});
        QVERIFY(QDir(tmp.path()).mkdir("out"));
        QCOMPARE(repair(crc, tmp.path() + "/out").status, QString("Failed"));
        QCOMPARE(QDir(tmp.path() + "/out").entryList(QDir::Files), QStringList());
    }

    // A file by hand: entries of a SeekHead naming Info and a Cluster, Info
    // without a Duration, Tracks, two clusters listed, one behind a CRC-32 and
    // one of unknown size not; the new file from them.
    void rebuildByHand()
    {
        const QByteArray bytes = QByteArray::fromHex("1a45dfa380" "1853806701ffffffffffffff"
                                                     "53ab841549a966" "1f43b67553ac820100"
                                                     "1549a966872ad7b1830f4240" // Info at 33
                                                     "1654ae6b83ae8100"         // Tracks at 45
                                                     "1f43b67584e7810a00"       // listed at 53, timecode 10
                                                     "1f43b67584e7811e00"       // listed at 62, timecode 30
                                                     "1f43b67583bf8100" "1c53bb6b80"
                                                     "1f43b67501ffffffffffffffe781011c53bb6b80");
        QTemporaryDir tmp;
        const auto r = reader(tmp, bytes);
        QFile log(tmp.path() + "/log.txt");
        QVERIFY(r && log.open(QIODevice::WriteOnly));
        const std::atomic<bool> stop{false};
        const mkv::Heads heads = mkv::FindHeads(*r, r->size(), stop);
        QVERIFY(heads.found());
        QCOMPARE(heads.tracksPos, quint64(45));
        RepairLine cipher;
        const mkv::ClusterList list = mkv::ListClusters(*r, 0, log, cipher, nullptr, stop);
        log.close();
        rebuild::LogReader lines(log.fileName(), rebuild::LineForm::Pair);
        QList<QPair<quint64, quint64>> got;
        for (rebuild::Piece p; lines.next(p);)
            got << qMakePair(p.offset, p.size);
        QCOMPARE(got, (QList<QPair<quint64, quint64>>{{53, 9}, {62, 9}}));

        const QString out = tmp.path() + "/out.webm";
        QCOMPARE(mkv::WriteFile(out, heads, *r, *r, *r, log.fileName(), list, stop), QString());
        const QByteArray f = readAll(out);
        QCOMPARE(rebuiltFault(f), QString());
        QCOMPARE(f.mid(43 + 12 + 229).toHex(), QByteArray("1549a966010000000000000e2ad7b1830f4240448984"
                                                          "41a00000" // 20.0: last minus first timecode
                                                          "1654ae6b83ae8100"
                                                          "1f43b67584e7810a001f43b67584e7811e00"));
    }

    void sizes()
    {
        const struct { const char *hex; int length; quint64 value; } kSizes[] = {
            {"81", 1, 1}, {"4002", 2, 2}, {"200003", 3, 3}, {"1fffffff", 4, 0x0FFFFFFF},
            {"0100000000000005", 8, 5}, {"00", 0, 0},
        };
        QTemporaryDir tmp;
        for (const auto &s : kSizes) {
            const auto r = reader(tmp, QByteArray::fromHex(s.hex));
            const mkv::EbmlSize e = r ? mkv::ReadEbmlSize(*r, 0) : mkv::EbmlSize();
            QVERIFY2(r && e.length == s.length && e.value == s.value, s.hex);
        }
    }

    // Blocks by hand: a zero NAL length, picture units, sound blocks taken
    // (one too large for an ADTS frame gives 300 bytes) and the cluster's
    // last one dropped, a unit longer than the file.
    void carve()
    {
        const QByteArray bytes = QByteArray::fromHex("1f43b67501000000000000ffe78100"
                                                     "a388810000800000000065"   // zero length: one byte on
                                                     "a38b81000080000000026588" // a unit of 2
                                                     "a35ffd82000080")          // sound of 8185
                                 + QByteArray(8185, '\0')
                                 + QByteArray::fromHex("a386820000801122" // sound of 2, a block behind it
                                                       "a386820000803344" // sound, the cluster's last: dropped
                                                       "1f43b675"
                                                       "a38b8100008000001000659999"); // 4096 claimed, 3 there
        QTemporaryDir tmp;
        const auto r = reader(tmp, bytes);
        QBuffer video, audio;
        QVERIFY(r && video.open(QIODevice::WriteOnly) && audio.open(QIODevice::WriteOnly));
        RepairState state;
        const mkv::Carved c = mkv::CarveBlocks(*r, video, audio, state, nullptr, std::atomic<bool>{false});
        QCOMPARE(video.data().toHex(), QByteArray("000000016588" "00000001659999"));
        QCOMPARE(c.audioFrames, quint64(2));
        QCOMPARE(audio.data(), QByteArray::fromHex("fff14c80267ffc") + QByteArray(300, '\0')
                                   + QByteArray::fromHex("fff14c80013ffc1122"));
        QCOMPARE(state.nSoundSampleRate, 48000u);
        // Into files (through the writer thread) the same bytes; a disk that
        // takes nothing makes the carve unwritten.
        for (const QString &to : {tmp.filePath("v.h264"), QString("/dev/full")}) {
            QFile v(to), a(tmp.filePath("a.aac"));
            QVERIFY(v.open(QIODevice::WriteOnly) && a.open(QIODevice::WriteOnly | QIODevice::Truncate));
            RepairState again;
            QCOMPARE(mkv::CarveBlocks(*r, v, a, again, nullptr, std::atomic<bool>{false}).written, to != "/dev/full");
            v.close(), a.close();
            QVERIFY(to == "/dev/full" || (readAll(to) == video.data() && readAll(a.fileName()) == audio.data()));
        }
    }

    // Random bytes and short pieces of a real file end every stage.
    void badInput()
    {
        VM_FIXTURE(healthy, make("mkv_small.mkv", false, 10, false, kH264));
        const QByteArray head = readAll(healthy).left(600);
        QTemporaryDir tmp;
        const std::atomic<bool> stop{false};
        for (const QByteArray &src : {head, noise(600, 11)})
            for (int n : {0, 1, 4, 5, 43, 100, 300, 599, 600}) {
                const auto r = reader(tmp, src.left(n));
                QBuffer log, video, audio;
                QVERIFY(r && log.open(QIODevice::WriteOnly) && video.open(QIODevice::WriteOnly)
                        && audio.open(QIODevice::WriteOnly));
                RepairLine cipher;
                RepairState state;
                mkv::FindHeads(*r, r->size(), stop);
                QCOMPARE(mkv::ListClusters(*r, 0, log, cipher, nullptr, stop).clusters, quint64(0));
                mkv::CarveBlocks(*r, video, audio, state, nullptr, stop);
                const quint64 id = mkv::FindAvcCodecId(*r, r->size(), nullptr, stop);
                if (id != mkv::kNotFound)
                    mkv::ParameterSets(*r, id);
            }
        QVERIFY(writeAll(tmp.path() + "/noise.mkv", noise(600, 11)) && QDir(tmp.path()).mkdir("out"));
        QCOMPARE(repair(tmp.path() + "/noise.mkv", tmp.path() + "/out").status, QString("Awaiting Action"));
    }
};

QTEST_GUILESS_MAIN(TestMkv)
#include "tst_mkv.moc"
