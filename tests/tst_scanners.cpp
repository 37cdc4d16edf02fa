// The scanners of 3GP, ProRes and Motion JPEG recordings: whole repairs of
// healthy and damaged ones, their work log against where ffprobe finds the
// healthy file's packets, what decodes out of the result; and bad input.

#include "containers/StreamScan.h"
#include "rebuild/PlacedPieces.h"
#include "repair/RepairLine.h"
#include "repair/ThreadVideoRepair.h"
#include "support/MediaCompare.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <QtTest>
#include <functional>

using streamscan::Family;

namespace {
struct Piece { bool video; quint64 pos, size; };

QList<Piece> parse(const QByteArray &log)
{
    QList<Piece> out;
    for (const QByteArray &l : log.split('\n')) {
        const QStringList f = RepairLine().DecryptLine(QString::fromLatin1(l.trimmed())).split(' ', Qt::SkipEmptyParts);
        if (f.size() == 7)
            out << Piece{f[0] == "AVC(Vide)", f[3].toULongLong(), f[6].toULongLong()};
    }
    return out;
}

// A changed copy of src in the fixture folder, made again when src is newer.
QString changed(const QString &src, const QString &prefix, const std::function<void(QByteArray &)> &change)
{
    const QString dest = fixtures::dir() + "/" + prefix + QFileInfo(src).fileName();
    if (src.isEmpty() || QFileInfo(dest).lastModified() > QFileInfo(src).lastModified())
        return src.isEmpty() ? QString() : dest;
    QByteArray d = media::readAll(src);
    change(d);
    return media::writeAll(dest, d) ? dest : QString();
}

// "es26" as the compressor name of the video sample entry, as the cameras of code 14 write it.
QString es26(const QString &src)
{
    return changed(src, "es26_", [](QByteArray &d) {
        d.replace(qMax(d.indexOf("s263"), d.indexOf("mp4v")) + 46, 5, QByteArray("\x04" "es26"));
    });
}

// What ffmpeg decodes: a framemd5 line a picture, or the sound as 16-bit samples.
QByteArray decoded(const QString &path, bool video)
{
    return media::runRaw(fixtures::ffmpeg(), {"-v", "quiet", "-i", path, "-map", video ? "0:v:0" : "0:a:0", "-f",
                                              video ? "framemd5" : "s16le", "-"});
}
} // namespace

class TestScanners : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void repairsListAndRebuildTheFrames()
    {
        enum Damage { None, NoMoov, Cut70, Zeros };
        const Family P = Family::ProRes, J = Family::MotionJpeg, G = Family::ThreeGp;
        // merged: frames the JPEG skip joins to the one before (the black second's 2 kB
        // frames pair up); sound: 16-bit sound bytes decoded at least (-1: the healthy
        // file's, sample for sample; AMR: 320 a frame); frames: pictures decoded, -1 no result.
        const struct { const char *name, *sample; Damage damage; quint32 code; Family family; int stream, merged, sound, frames; } rows[] = {
            {"scan_prores.mov", nullptr, None, 16, P, 0, 0, -1, 200}, {"scan_prores.mov", nullptr, Zeros, 16, P, 0, 0, 0, 198},
            {"scan_prores.mov", "scan_prores_sample.mov", NoMoov, 16, P, 0, 0, 8 * 192000, 200}, // all but the last second
            {"scan_prores.mov", "scan_prores_sample.mov", Cut70, 16, P, 0, 0, 6 * 192000, 143},
            {"scan_prores_fine.mov", nullptr, None, 16, P, 0, 0, -1, 200}, {"scan_mjpeg.mov", nullptr, None, 17, J, 0, 0, 0, 119},
            {"scan_mjpeg.mov", nullptr, Cut70, 17, J, 0, 0, 0, 85}, {"scan_mjpeg_sowt_first.mov", nullptr, None, 17, J, 1, 0, 0, 119},
            {"scan_mjpeg_black.mov", nullptr, None, 17, J, 0, 15, 0, 104}, {"scan_h263.3gp", nullptr, None, 14, G, 0, 0, 495 * 320, 150},
            {"scan_h263.3gp", "scan_h263_sample.3gp", NoMoov, 14, G, 0, 0, 495 * 320, 150},
            {"scan_mpeg4.3gp", nullptr, None, 14, G, 0, 0, 450 * 320, 150},
            {"scan_mpeg4.3gp", "scan_mpeg4_sample.3gp", NoMoov, 14, G, 0, 0, 450 * 320, 150},
            {"prores.mov", nullptr, None, 1, P, 0, 0, 0, -1}, // "sowt" behind the video: that pipeline
            {"scan_mjpeg_end.mov", nullptr, NoMoov, 0, J, 0, 0, 0, -1}, // waits for a sample, which can't tell JPEG:
            {"scan_mjpeg_end.mov", "scan_mjpeg_sample.mov", NoMoov, 0, J, 0, 0, 0, -1},
        };
        for (const auto &row : rows) {
            const auto made = [&](const char *name) { return row.family == G ? es26(fixtures::healthy(name)) : fixtures::healthy(name); };
            VM_FIXTURE(healthy, made(row.name));
            const quint64 zeroAt = QFileInfo(healthy).size() / 2, zeroEnd = zeroAt + (256 << 10);
            const QString file = row.damage == NoMoov ? fixtures::moovRemoved(healthy) : row.damage == Cut70 ? fixtures::cutAt(healthy, 70)
                                 : row.damage == None ? healthy : changed(healthy, "zeros_", [&](QByteArray &d) { d.replace(int(zeroAt), 256 << 10, QByteArray(256 << 10, 0)); });
            const QString sample = row.sample ? made(row.sample) : QString();
            const QByteArray before = fixtures::digest(file) + fixtures::digest(sample);
            QTemporaryDir work, plain;
            quint32 code = 99;
            bool repaired = false;
            const auto repair = [&](const QTemporaryDir &in) {
                pApp.reset(), pApp.strChosenLocation = in.path(), pApp.bSampleRun = !sample.isEmpty();
                ThreadVideoRepair t;
                connect(&t, &ThreadVideoRepair::WriteStatus, &t, [&](bool ok) { repaired = ok, code = pApp.nFormatCode; }, Qt::DirectConnection);
                t.SetSampleFile(sample);
                t.StartRepair({file}, true);
                t.wait();
                return in.filePath("Repaired/" + QFileInfo(file).fileName());
            };
            // The rebuild copying every piece itself gives the same file as
            // taking the pieces the scan copied beside it.
            rebuild::PlacedPieces::SetEnabled(false);
            const QByteArray plainResult = fixtures::digest(repair(plain));
            rebuild::PlacedPieces::SetEnabled(true);
            const QString result = repair(work);
            QCOMPARE(fixtures::digest(result), plainResult);
            QCOMPARE(QDir(work.filePath("Repaired")).entryList(QDir::Files | QDir::Hidden).filter(".part"), QStringList());
            QCOMPARE(code, row.code);
            QCOMPARE(fixtures::digest(file) + fixtures::digest(sample), before);
            QVERIFY(repaired == (row.frames >= 0 || row.code == 1) || row.sample);
            QFile log(work.filePath("Repaired/logFile.txt"));
            if (row.frames < 0)
                continue;
            QVERIFY(log.open(QIODevice::ReadOnly));
            // The log against the healthy file's pictures: whole ones, all that end
            // inside the file (a JPEG end marker is seen with four bytes left).
            const quint64 size = QFileInfo(file).size(), videoTail = row.family == J ? 2 : 0;
            QSet<quint64> starts, ends;
            int expectedVideo = 0, video = 0;
            for (const fixtures::Packet &k : fixtures::packets(healthy).value(row.stream)) {
                starts << k.pos, ends << k.pos + k.size;
                expectedVideo += k.pos + k.size + videoTail <= size && (row.damage != Zeros || k.pos >= zeroEnd || k.pos + k.size <= zeroAt);
            }
            quint64 end = 0;
            for (const Piece &p : parse(log.readAll())) {
                QVERIFY(p.pos >= end && p.size > 0 && p.pos + p.size <= size); // in order, inside the file
                end = p.pos + p.size, video += p.video;
                // A 3GP picture from its start (MPEG-4: behind the group header before it).
                bool whole = !p.video || (row.family != G && starts.contains(p.pos) && (ends.contains(end) || starts.contains(end)));
                for (quint64 back = 0; p.video && row.family == G && back < 8 && back <= p.pos; ++back)
                    whole = whole || starts.contains(p.pos - back);
                QVERIFY2(whole, row.name);
            }
            QVERIFY(qAbs(video - (expectedVideo - row.merged)) <= (row.damage == Zeros ? 1 : 0));
            // The rebuilt file: every listed picture, and the sound.
            const QByteArray sound = decoded(result, false);
            QCOMPARE(decoded(result, true).count("\n0,"), row.frames);
            QVERIFY(row.sound >= 0 ? sound.size() >= row.sound : sound == decoded(healthy, false));
            // The sound track declares the length it holds (48 kHz stereo decoded as 16 bits).
            if (row.family == P && !sound.isEmpty()) {
                const double held = sound.size() / 192000.0, declared = media::run("ffprobe", {"-v", "error", "-select_streams", "a:0",
                                                           "-show_entries", "stream=duration", "-of", "csv=p=0", result}).trimmed().toDouble();
                QVERIFY2(qAbs(declared - held) <= 0.02 * held, qPrintable(QString("%1 s / %2 s").arg(declared).arg(held)));
            }
        }
    }

    void stopMidScanKeepsAnEarlierResult()
    {
        // A stop during the scan leaves an earlier repair's result as it was,
        // and nothing of the copy made beside the scan.
        VM_FIXTURE(healthy, fixtures::healthy("scan_prores.mov"));
        QTemporaryDir work;
        const QString earlier = work.filePath("Repaired/" + QFileInfo(healthy).fileName());
        QVERIFY(QDir().mkpath(work.filePath("Repaired")) && media::writeAll(earlier, "an earlier result"));
        pApp.reset(), pApp.strChosenLocation = work.path();
        ThreadVideoRepair t;
        connect(&t, &ThreadVideoRepair::setProgressvalue, &t, [](qint64 v) { pApp.bStopRepair = pApp.bStopRepair || v > 0; },
                Qt::DirectConnection);
        t.StartRepair({healthy}, true);
        t.wait();
        QCOMPARE(media::readAll(earlier), QByteArray("an earlier result"));
        QCOMPARE(QDir(work.filePath("Repaired")).entryList(QDir::Files | QDir::Hidden).filter(".part"), QStringList());
    }

    void fullDiskEndsFailedWithNothingLeft()
    {
        // The rebuilt file may not grow past 64 KB: the copy fails, the file is
        // "Failed" (no sample would help), and no partial result stays.
        VM_FIXTURE(healthy, fixtures::healthy("scan_prores.mov"));
        QTemporaryDir work;
        QByteArray out, err;
        if (media::cliWithFileLimit(64 << 10, {"repair", "--work", work.path(), "--", healthy}, &out, &err) < 0)
            QSKIP("no file size limit here");
        QVERIFY(out.startsWith("Failed"));
        QVERIFY(err.contains("the result could not be written: File too large"));
        QCOMPARE(QDir(work.filePath("Repaired")).entryList(QDir::Files | QDir::Hidden), QStringList());
    }

    void badInputEndsInTheFile()
    {
        const QByteArray noise = media::noise(1 << 20, 3), frame("\xFF\xD8\xFF\xE0", 4), hugeMoov("\xFF\xFF\xFF\xFFmoov", 8);
        const QByteArray noEnd = QByteArray(noise).replace('\xFF', '\xFE');
        // bytes, and whether no piece may come of them (but ProRes frames behind a huge moov)
        const struct { QByteArray bytes; bool none; } rows[] = {
            {noise, false}, {QByteArray(1 << 20, 0), true}, {QByteArray(), true}, {QByteArray(3, 0), true},
            {QByteArray("\0\0\0\0icpf", 8).repeated(4096), true}, {QByteArray("\0\0\0\3icpf", 8).repeated(4096), true},
            {"\xFF\xFF\xFF\xFFicpf" + noEnd, true}, {frame + noEnd, true}, {hugeMoov + (frame + noise).repeated(2), true},
            {QByteArray("\xFF\xD8\xFF\xDB\0\0\x80\0\x3C\0\0\x01\xB6", 13).repeated(40000), false},
            {QByteArray("\0\0\0\0free\0\0\0\x08wide", 16).repeated(4096), true},
        };
        QTemporaryDir dir;
        for (const auto &row : rows) {
            QVERIFY(media::writeAll(dir.filePath("bad"), row.bytes));
            for (Family family : {Family::ThreeGp, Family::ProRes, Family::MotionJpeg}) {
                BufferedReader in;
                QBuffer log;
                QVERIFY(in.open(dir.filePath("bad")) && log.open(QIODevice::WriteOnly));
                streamscan::Scan(family, in, &log, std::atomic<bool>{false}, nullptr);
                quint64 end = 0;
                for (const Piece &p : parse(log.data())) {
                    QVERIFY(p.pos >= end && p.size > 0 && p.pos + p.size <= quint64(row.bytes.size())
                            && (!row.none || (family == Family::ProRes && row.bytes.startsWith(hugeMoov))));
                    end = p.pos + p.size;
                }
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestScanners)
#include "tst_scanners.moc"
