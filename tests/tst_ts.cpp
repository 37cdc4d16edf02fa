// Transport streams (.MTS, and a transport stream named .mov) and program
// streams (.mpg) after damage, repaired through videomend-cli and judged by
// the frames that decode, beside the healthy file and beside what ffmpeg's
// own copy makes of the same damage; the demultiplexer is fed hand-made
// packets that break its bounds.

#include "containers/ContainerConstants.h"
#include "containers/Ts.h"
#include "repair/BufferedReader.h"
#include "support/MediaCompare.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

using namespace media;
QString run(const QStringList &args) { return media::run(fixtures::ffmpeg(), args); }

// Recordings made once and cached: 10 s of noisy pictures (a few MB), or a
// 5 s sample of other pictures and, for the program stream, another bit rate.
QString make(const QString &name, const QString &codecs, const QString &format, bool sample)
{
    QStringList args = {"-f", "lavfi", "-i",
                        sample ? "mandelbrot=size=320x240:rate=25" : "testsrc=size=320x240:rate=25",
                        "-f", "lavfi", "-i", sample ? "sine=frequency=300:sample_rate=48000" : "sine=sample_rate=48000",
                        "-t", sample ? "5" : "10", "-vf", "noise=alls=12:allf=t", "-g", "50"};
    args << codecs.split(' ') << QString(sample ? "-b:v 900k" : "-b:v 2M").split(' ') << format.split(' ');
    if (sample && (format == "-f mpeg" || format == "-f vob"))
        args << "-muxrate" << "4000000"; // the program stream's rate fields differ
    return made("ts-" + QString(sample ? "sample_" : "") + name, args);
}

template <size_t N>
QByteArray fixedPacket(const quint8 (&bytes)[N])
{
    return QByteArray(reinterpret_cast<const char *>(bytes), N).leftJustified(ts::kMtsPacket, '\xFF');
}

// The MTS as a camera writes it: its own PAT, PMT, SIT and PCR packet in
// front, then only packets of picture and sound.
QString cameraMts(const QString &mts)
{
    const QString out = fixtures::dir() + "/ts-camera.MTS";
    if (QFileInfo::exists(out) || mts.isEmpty())
        return QFileInfo::exists(out) ? out : QString();
    const QByteArray d = readAll(mts);
    QByteArray cam = fixedPacket(ts::kMtsPat) + fixedPacket(ts::kMtsPmt) + fixedPacket(ts::kMtsSit) +
                     fixedPacket(ts::kMtsPcr);
    for (int p = 0; p + ts::kMtsPacket <= d.size(); p += ts::kMtsPacket)
        if (d[p + 5] & 0x10) // PIDs 0x1011 and 0x1100: picture and sound
            cam += d.mid(p, ts::kMtsPacket);
    return writeAll(out, cam) ? out : QString();
}

// The damages, applied to a copy. "tables zeroed": every PAT and PMT packet;
// "atom in front": 2000 bytes of an ftyp atom before the stream.
QByteArray damage(const QByteArray &d, const QString &how, int packet)
{
    if (how == "atom in front")
        return QByteArray::fromHex("000007d0") + QByteArray("ftyp").leftJustified(1996, '\0') + d;
    QByteArray b = d;
    if (how == "head zeroed")
        b.replace(0, 65536, QByteArray(65536, '\0'));
    else if (how == "cut 70%")
        b.truncate(int(d.size() * 0.7));
    else if (how == "zeros mid")
        b.replace(d.size() / 2, 262144, QByteArray(262144, '\0'));
    else if (how == "tables zeroed")
        for (int p = packet - 188; p + 188 <= d.size(); p += packet) {
            const int pid = (quint8(d[p + 1]) & 0x1F) << 8 | quint8(d[p + 2]);
            if (d[p] == 0x47 && (pid == 0 || pid == 0x100 || pid == 0x1000))
                b.replace(p, 188, QByteArray(188, '\0'));
        }
    return b.left(d.size());
}

// Video and audio frames that decode.
QPair<int, int> frames(const QString &path)
{
    const QString out = run({"-v", "quiet", "-nostdin", "-i", path, "-map", "0:v:0?", "-map", "0:a:0?", "-f",
                             "framemd5", "-"});
    return {int(out.count(QRegularExpression("^0,", QRegularExpression::MultilineOption))),
            int(out.count(QRegularExpression("^1,", QRegularExpression::MultilineOption)))};
}

// What ffmpeg's own stream copy keeps of the damaged file.
QPair<int, int> baseline(const QString &path, const QString &dir)
{
    const QString out = dir + "/baseline.mkv";
    run({"-v", "quiet", "-nostdin", "-y", "-i", path, "-map", "0:v:0?", "-map", "0:a:0?", "-c", "copy", out});
    return frames(out);
}


struct Kind
{
    const char *name, *codecs, *format;
    int loss; // frames a rule may lose against ffmpeg's copy
};
const Kind kKinds[] = {
    {"clip.MTS", "-c:v libx264 -preset ultrafast -c:a ac3", "-f mpegts -mpegts_m2ts_mode 1", 50}, // first GOP
    {"camera.MTS", "", "", 0},
    {"clip.mov", "-c:v libx264 -preset ultrafast -c:a aac", "-f mpegts", 0},
    {"clip.mpg", "-c:v mpeg2video -c:a mp2", "-f mpeg", 2}, // the first GOP, its header doubled
    {"vob.mpg", "-c:v mpeg2video -c:a mp2", "-f vob", 2},
    {"es.mpg", "-c:v mpeg2video -an", "-f mpeg2video", 0}, // pictures alone: a new header, no packets
};

} // namespace

class TestTs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void damages()
    {
        const QString done = "Completed", waits = "Awaiting Action";
        for (int kind = 0; kind < 6; ++kind) {
            const bool mtsKind = kind < 2, movKind = kind == 2;
            for (const QString how : {"none", "head zeroed", "tables zeroed", "cut 70%", "zeros mid", "atom in front"}) {
                if ((how == "tables zeroed" && !mtsKind && !movKind) || (how == "atom in front" && !movKind))
                    continue;
                // Taken apart into streams only with a sample; sequence (and
                // system) headers gone from the first eighth. The first run's
                // status; the sample run follows "Awaiting Action".
                const bool lost = movKind && how != "none" && how != "cut 70%" && how != "zeros mid";
                const QString status = lost || (kind >= 3 && how == "head zeroed") ? waits : done;
                const QString final = movKind && how == "tables zeroed" ? QString("Failed") : done;
                const Kind &k = kKinds[kind];
                const Kind &made = kind == 1 ? kKinds[0] : k;
                VM_FIXTURE(source, make(made.name, made.codecs, made.format, false));
                VM_FIXTURE(sample, make(made.name, made.codecs, made.format, true));
                VM_FIXTURE(healthy, kind == 1 ? cameraMts(source) : source);
                const bool mts = QString(k.name).endsWith(".MTS");
                QTemporaryDir tmp;
                const QString damaged = tmp.path() + "/" + k.name, work = tmp.path() + "/w";
                const QByteArray bytes = damage(readAll(healthy), how, mts ? 192 : 188);
                QVERIFY(writeAll(damaged, bytes));
                const QByteArray before = fixtures::digest(damaged), sampleBefore = fixtures::digest(sample);

                Outcome line = repairIn(damaged, work);
                const QString row = QString(k.name) + ", " + how + ": ";
                QVERIFY2(line.status == status, qPrintable(row + line.status));
                if (status != "Completed")
                    line = repairIn(damaged, work, sample);
                QVERIFY2(line.status == final, qPrintable(row + line.status));
                QCOMPARE(fixtures::digest(damaged), before);
                QCOMPARE(fixtures::digest(sample), sampleBefore);
                const QPair<int, int> want = frames(healthy), base = baseline(damaged, tmp.path());
                const QPair<int, int> got = final == "Completed" ? frames(line.output) : qMakePair(0, 0);
                const QByteArray out = readAll(line.output);
                QString path = QString(k.name).endsWith(".mpg") ? "new start" : status == "Completed" ? "remux" : "streams";
                const bool copy = kind == 1 && bytes.mid(4, 3) == QByteArray(ts::kMtsOwnPat, 3);
                if (mts) {
                    // A camera's own tables at the head: a plain copy, from a running
                    // offset, so the output is the file's first bytes and damage on
                    // the way costs as many at the end. Else the fixed tables lead.
                    path = copy ? "copy" : "filter";
                    QVERIFY(out.startsWith(fixedPacket(ts::kMtsPat)));
                    QCOMPARE(bytes.startsWith(out) && out.size() > 4 * 192, copy);
                    // The filter's tables: PAT and PMT again every 7 packet starts, SIT and PCR every 70.
                    int starts = 0, pats = 0, sits = 0;
                    for (int p = 0; p + 192 <= out.size(); p += 192) {
                        const QByteArray h = out.mid(p + 4, 3), packet = out.mid(p, 192);
                        starts += h == QByteArray("\x47\x50\x11", 3) || h == QByteArray("\x47\x71\x00", 3);
                        pats += packet == fixedPacket(ts::kMtsPat);
                        sits += packet == fixedPacket(ts::kMtsSit);
                    }
                    if (!copy)
                        QVERIFY(pats == 1 + starts / 7 && sits == 1 + starts / 70);
                }
                qInfo("%s, %s: %s; video/audio frames %d/%d, healthy %d/%d, ffmpeg's copy %d/%d", k.name, qPrintable(how),
                      qPrintable(path), got.first, got.second, want.first, want.second, base.first, base.second);
                if (final != "Completed")
                    continue;
                QVERIFY(got.first > 0);
                if (kind == 3 && status != "Completed") {
                    // Repaired from a sample of another bit rate: the new system
                    // header behind the pack carries the sample's rate fields.
                    const QByteArray code(mpegps::kSystemHeader, 4), smp = readAll(sample), own = readAll(healthy);
                    QCOMPARE(out.indexOf(code), 12);
                    QCOMPARE(out.mid(18, 6), smp.mid(smp.indexOf(code) + 6, 6));
                    QVERIFY(out.mid(18, 6) != own.mid(own.indexOf(code) + 6, 6));
                }
                if (how == "none" && k.loss == 0)
                    QCOMPARE(got.first, want.first);
                else if (!copy)
                    QVERIFY2(got.first >= base.first - k.loss, "fewer frames than ffmpeg's copy keeps");
            }
        }
    }

    // A disk that takes only 64 KB: "Failed", and no partial result stays.
    void fullDiskLeavesNothing()
    {
        for (int kind : {0, 3}) {
            VM_FIXTURE(source, make(kKinds[kind].name, kKinds[kind].codecs, kKinds[kind].format, false));
            QTemporaryDir work;
            QByteArray out;
            if (cliWithFileLimit(64 << 10, {"repair", "--work", work.path(), "--", source}, &out) < 0)
                QSKIP("no file size limit here");
            QVERIFY(out.startsWith("Failed"));
            QCOMPARE(QDir(work.filePath("Repaired")).entryList(QDir::Files), QStringList());
        }
    }

    // Random bytes and tiny files, repaired with a sample: a verdict, no
    // crash. A small MTS gets the four fixed packets only, which is no
    // result; the streams of a .mov come to nothing.
    // A .mov without a transport stream in it waits for a sample that fits.
    void badInput()
    {
        for (int kind : {0, 2, 3}) {
            const Kind &k = kKinds[kind];
            VM_FIXTURE(sample, make(k.name, k.codecs, k.format, true));
            for (int size : {0, 187, 600, 300000}) {
                QTemporaryDir tmp;
                QVERIFY(writeAll(tmp.path() + "/" + k.name, noise(size, quint32(size + kind))));
                const QString status = repairIn(tmp.path() + "/" + k.name, tmp.path() + "/w", sample).status;
                QVERIFY2(status == (kind == 0 ? "Failed" : "Awaiting Action"), qPrintable(k.name + QString::number(size)));
            }
        }
    }

    // Hand-made packets (stuffed through the adaptation field, as muxers
    // do): PES headers and PMT entries that run past the packet are passed
    // over, a stretch without sync is left behind, and an ADTS frame split
    // over two packets comes out whole, a partial one behind it not at all.
    void demuxBounds()
    {
        auto packet = [](int pid, bool start, const QByteArray &payload) {
            const int stuffing = 184 - payload.size(); // 0, or the length, the flags and FFs
            QByteArray p = QByteArray::fromHex(stuffing ? "47000030" : "47000010");
            p[1] = char((start ? 0x40 : 0) | pid >> 8);
            p[2] = char(pid & 0xFF);
            if (stuffing)
                p += char(stuffing - 1) + QByteArray(1, '\0') + QByteArray(stuffing - 2, '\xFF');
            return p + payload;
        };
        auto table = [&](int pid, const char *hex) {
            return packet(pid, true, QByteArray::fromHex(hex).leftJustified(184, '\xFF'));
        };
        QByteArray frame = QByteArray::fromHex("fff15080259ffc") + QByteArray(293, 'a'); // 300 bytes
        const QByteArray pes = QByteArray::fromHex("000001e0000080800000");
        const QByteArray longPes = QByteArray::fromHex("000001e000008080fa");
        const QByteArray soundPes = QByteArray::fromHex("000001c0000080800000");
        QByteArray file = table(0, "0000b00d0001c100000001e100")
                          + table(0x100, "0002b0170001c10000e101f0001be101f0000fe102f000")
                          + packet(0x101, true, longPes) + packet(0x101, true, pes.left(9) + QByteArray(150, 'v'))
                          + QByteArray(100, 'z') + packet(0x101, true, soundPes.left(9))
                          + packet(0x101, false, QByteArray(184, 'w')) + packet(0x102, true, longPes)
                          + packet(0x102, true, pes.left(9) + "jjjjj" + frame.left(150))
                          + packet(0x102, false, frame.mid(150) + QByteArray::fromHex("fff15080"))
                          + table(0x100, "0002b0170001c10000e101f0b4") + packet(0x101, false, QByteArray(184, 'x'));
        QTemporaryDir tmp;
        QVERIFY(writeAll(tmp.path() + "/in.ts", file + QByteArray(100, '\0')));
        BufferedReader src;
        QVERIFY(src.open(tmp.path() + "/in.ts"));
        QFile video(tmp.path() + "/v"), audio(tmp.path() + "/a");
        QVERIFY(video.open(QIODevice::WriteOnly) && audio.open(QIODevice::WriteOnly));
        const std::atomic<bool> stop{false};
        const ts::DemuxResult r = ts::Demux(src, &video, &audio, stop, nullptr);
        video.close();
        audio.close();
        QVERIFY(r.synced);
        QCOMPARE(r.audioFrames, quint64(1));
        QCOMPARE(readAll(tmp.path() + "/a"), frame);
        QCOMPARE(readAll(tmp.path() + "/v"), QByteArray(150, 'v') + QByteArray(184, 'w') + QByteArray(184, 'x'));
    }
};

QTEST_GUILESS_MAIN(TestTs)
#include "tst_ts.moc"
