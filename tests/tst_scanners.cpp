// The scanners of 3GP, ProRes and Motion JPEG recordings: the pieces they
// list against where ffprobe finds the healthy file's packets, whole repairs
// of such files, and bad input.

#include "containers/StreamScan.h"
#include "repair/RepairLine.h"
#include "repair/ThreadVideoRepair.h"
#include "support/Fixtures.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <QtTest>
#include <functional>

using streamscan::Family;

namespace {
struct Piece
{
    bool video;
    quint64 pos, size;
};

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

QList<Piece> scan(const QString &path, Family family)
{
    BufferedReader f;
    QBuffer log;
    log.open(QIODevice::WriteOnly);
    const std::atomic<bool> stop{false};
    if (f.open(path))
        streamscan::Scan(family, f, &log, stop, nullptr);
    return parse(log.data());
}

// A changed copy of src in the fixture folder, made once.
QString changed(const QString &src, const QString &name, const std::function<void(QByteArray &)> &change)
{
    const QString dest = fixtures::dir() + "/" + name;
    QFile in(src), out(dest);
    if (QFileInfo(dest).size() > 0 || src.isEmpty() || !in.open(QIODevice::ReadOnly))
        return src.isEmpty() ? QString() : dest;
    QByteArray d = in.readAll();
    change(d);
    return out.open(QIODevice::WriteOnly) && out.write(d) == d.size() ? dest : QString();
}

// "es26" as the compressor name of the video sample entry, where a camera writes it.
QString es26(const QString &src)
{
    return changed(src, "es26_" + QFileInfo(src).fileName(), [](QByteArray &d) {
        const int entry = qMax(d.indexOf("s263"), d.indexOf("mp4v")) - 4;
        d.replace(entry + 50, 5, QByteArray("\x04" "es26"));
    });
}
} // namespace

class TestScanners : public QObject
{
    Q_OBJECT
    QTemporaryDir m_work;

    // A whole repair (a sample run when a sample is given): the format code
    // of its verdict and the pieces of its work log.
    QList<Piece> repair(const QString &file, const QString &sample, quint32 *code, bool *repaired)
    {
        pApp.reset();
        pApp.strChosenLocation = m_work.path();
        pApp.bSampleRun = !sample.isEmpty();
        ThreadVideoRepair t;
        QObject::connect(&t, &ThreadVideoRepair::WriteStatus, &t, [&](bool ok, bool, const QString &, bool) {
            *repaired = ok;
            *code = pApp.nFormatCode;
        }, Qt::DirectConnection);
        t.SetSampleFile(sample);
        t.StartRepair({file}, true);
        t.wait();
        QFile log(m_work.filePath("Repaired/logFile.txt"));
        return log.open(QIODevice::ReadOnly) ? parse(log.readAll()) : QList<Piece>();
    }

private Q_SLOTS:
    void init() { pApp.reset(); }

    void piecesMatchPackets()
    {
        enum Damage { None, NoMoov, Cut70, Zeros };
        // merged: frames the Motion JPEG skip joins to the frame before them
        // (the black second's 2 kB frames pair up); sound: -1 for all the
        // sound bytes, else the least count of sound frames found exactly.
        const struct { const char *name; Damage damage; Family family; int videoStream, merged, sound; } rows[] = {
            {"scan_prores.mov", None, Family::ProRes, 0, 0, -1}, {"scan_prores.mov", NoMoov, Family::ProRes, 0, 0, -1},
            {"scan_prores.mov", Cut70, Family::ProRes, 0, 0, -1}, {"scan_prores.mov", Zeros, Family::ProRes, 0, 0, 0},
            {"scan_prores_fine.mov", None, Family::ProRes, 0, 0, -1},
            {"scan_mjpeg.mov", None, Family::MotionJpeg, 0, 0, 0}, {"scan_mjpeg.mov", Cut70, Family::MotionJpeg, 0, 0, 0},
            {"scan_mjpeg_sowt_first.mov", None, Family::MotionJpeg, 1, 0, 0},
            {"scan_mjpeg_black.mov", None, Family::MotionJpeg, 0, 15, 0},
            {"scan_h263.3gp", None, Family::ThreeGp, 0, 0, 490}, {"scan_h263.3gp", NoMoov, Family::ThreeGp, 0, 0, 490},
            {"scan_mpeg4.3gp", None, Family::ThreeGp, 0, 0, 450}, {"scan_mpeg4.3gp", NoMoov, Family::ThreeGp, 0, 0, 450},
        };
        for (const auto &row : rows) {
            VM_FIXTURE(healthy, fixtures::healthy(row.name));
            const quint64 zeroAt = QFileInfo(healthy).size() / 2, zeroEnd = zeroAt + (256 << 10);
            const QString file = row.damage == NoMoov ? fixtures::moovRemoved(healthy)
                                 : row.damage == Cut70 ? fixtures::cutAt(healthy, 70)
                                 : row.damage == Zeros ? changed(healthy, "zeros_" + QFileInfo(healthy).fileName(), [&](QByteArray &d) {
                                       d.replace(int(zeroAt), int(zeroEnd - zeroAt), QByteArray(int(zeroEnd - zeroAt), 0));
                                   })
                                                       : healthy;
            const quint64 size = QFileInfo(file).size();
            const QList<Piece> pieces = scan(file, row.family);
            const auto streams = fixtures::packets(healthy);
            // A JPEG end marker is seen with four bytes left; a run of sound
            // ends at the next frame's (or moov's) header.
            const quint64 videoTail = row.family == Family::MotionJpeg ? 2 : 0, soundTail = 8;
            QSet<quint64> starts, ends;
            int expectedVideo = 0, exactSound = 0;
            quint64 expectedSound = 0, runStart = 0, runEnd = 0;
            auto closeRun = [&] { expectedSound += runEnd + soundTail <= size ? runEnd - runStart : 0; };
            for (int s = 0; s < streams.size(); ++s) {
                for (const fixtures::Packet &k : streams[s]) {
                    if (s == row.videoStream) {
                        starts << k.pos;
                        ends << k.pos + k.size;
                        expectedVideo += k.pos + k.size + videoTail <= size && (row.damage != Zeros || k.pos >= zeroEnd || k.pos + k.size <= zeroAt);
                        continue;
                    }
                    if (k.pos != runEnd)
                        closeRun(), runStart = k.pos;
                    runEnd = k.pos + k.size;
                    exactSound += std::any_of(pieces.begin(), pieces.end(), [&](const Piece &p) { return !p.video && p.pos == k.pos && p.size == k.size; });
                }
            }
            closeRun();
            quint64 end = 0, soundBytes = 0;
            int video = 0;
            for (const Piece &p : pieces) {
                QVERIFY2(p.pos >= end && p.size > 0 && p.pos + p.size <= size, row.name); // in order, inside
                end = p.pos + p.size;
                soundBytes += p.video ? 0 : p.size;
                video += p.video;
                // Whole frames; a 3GP picture from its start (an MPEG-4 one behind the group header in front of it).
                bool whole = !p.video || (row.family != Family::ThreeGp && starts.contains(p.pos) && (ends.contains(end) || starts.contains(end)));
                for (quint64 back = 0; p.video && row.family == Family::ThreeGp && back < 8 && back <= p.pos; ++back)
                    whole = whole || starts.contains(p.pos - back);
                QVERIFY2(whole, qPrintable(QString("%1: piece at %2").arg(row.name).arg(p.pos)));
            }
            qInfo("%s (%d): %d video pieces of %d frames, %d sound pieces, %d exact", row.name, row.damage, video,
                  expectedVideo, int(pieces.size()) - video, exactSound);
            QVERIFY(qAbs(video - (expectedVideo - row.merged)) <= (row.damage == Zeros ? 1 : 0));
            if (row.sound < 0)
                QCOMPARE(soundBytes, expectedSound);
            QVERIFY(exactSound >= row.sound);
        }
    }

    void repairsTakeTheirPipeline()
    {
        VM_FIXTURE(prores, fixtures::healthy("scan_prores.mov"));
        VM_FIXTURE(mjpegEnd, fixtures::moovRemoved(fixtures::healthy("scan_mjpeg_end.mov")));
        VM_FIXTURE(h263, es26(fixtures::healthy("scan_h263.3gp")));
        VM_FIXTURE(mpeg4, es26(fixtures::healthy("scan_mpeg4.3gp")));
        // code 0: none of these pipelines; the sample of a Motion JPEG recording can't tell its codec.
        const struct { QString file, sample; quint32 code; int repaired; Family family; } rows[] = { // repaired -1: not judged here
            {prores, "", 16, true, Family::ProRes},
            {fixtures::moovRemoved(prores), fixtures::healthy("scan_prores_sample.mov"), 16, true, Family::ProRes},
            {fixtures::healthy("prores.mov"), "", 1, true, Family::ProRes}, // "sowt" behind the video track
            {fixtures::healthy("scan_mjpeg.mov"), "", 17, true, Family::MotionJpeg},
            {fixtures::healthy("scan_mjpeg_sowt_first.mov"), "", 17, true, Family::MotionJpeg},
            {mjpegEnd, "", 0, false, Family::MotionJpeg},
            {mjpegEnd, fixtures::healthy("scan_mjpeg_sample.mov"), 0, -1, Family::MotionJpeg},
            {h263, "", 14, true, Family::ThreeGp},
            {fixtures::moovRemoved(h263), es26(fixtures::healthy("scan_h263_sample.3gp")), 14, true, Family::ThreeGp},
            {mpeg4, "", 14, true, Family::ThreeGp},
            {fixtures::moovRemoved(mpeg4), es26(fixtures::healthy("scan_mpeg4_sample.3gp")), 14, true, Family::ThreeGp},
        };
        for (const auto &row : rows) {
            const QByteArray before = fixtures::digest(row.file), sampleBefore = fixtures::digest(row.sample);
            quint32 code = 99;
            bool repaired = false;
            const QList<Piece> logged = repair(row.file, row.sample, &code, &repaired);
            QCOMPARE(code, row.code);
            QVERIFY2(row.repaired < 0 || repaired == bool(row.repaired), qPrintable(row.file));
            QCOMPARE(fixtures::digest(row.file), before);
            QCOMPARE(fixtures::digest(row.sample), sampleBefore);
            if (row.code >= 14) {
                const QList<Piece> direct = scan(row.file, row.family);
                QCOMPARE(logged.size(), direct.size());
                for (int i = 0; i < direct.size(); ++i)
                    QVERIFY(logged[i].video == direct[i].video && logged[i].pos == direct[i].pos && logged[i].size == direct[i].size);
            }
        }
    }

    void badInputEndsInTheFile()
    {
        QByteArray noise(1 << 20, 0);
        quint32 x = 2463534242u;
        for (char &c : noise)
            x ^= x << 13, x ^= x >> 17, x ^= x << 5, c = char(x);
        QByteArray noMarker = noise;
        noMarker.replace('\xFF', '\xFE');
        const QByteArray frame("\xFF\xD8\xFF\xE0", 4), hugeMoov("\xFF\xFF\xFF\xFFmoov", 8);
        // bytes, and the most pieces they may give (-1: bounded by the size alone)
        const struct { QByteArray bytes; int most; } rows[] = {
            {noise, -1}, {QByteArray(1 << 20, 0), 0}, {QByteArray(), 0}, {QByteArray(3, 0), 0},
            {QByteArray("\0\0\0\0icpf", 8).repeated(4096), 0}, {QByteArray("\0\0\0\3icpf", 8).repeated(4096), 0},
            {"\xFF\xFF\xFF\xFFicpf" + noMarker, 0}, {frame + noMarker, 0}, {hugeMoov + (frame + noise).repeated(2), 0},
            {QByteArray("\xFF\xD8\xFF\xDB\0\0\x80\0\x3C\0\0\x01\xB6", 13).repeated(40000), -1},
            {QByteArray("\0\0\0\0free\0\0\0\x08wide", 16).repeated(4096), 0},
        };
        QTemporaryDir dir;
        for (const auto &row : rows) {
            const QString path = dir.filePath("bad");
            QFile f(path);
            QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(row.bytes) == row.bytes.size());
            f.close();
            for (Family family : {Family::ThreeGp, Family::ProRes, Family::MotionJpeg}) {
                const QList<Piece> pieces = scan(path, family);
                quint64 end = 0;
                for (const Piece &p : pieces) {
                    QVERIFY(p.pos >= end && p.size > 0 && p.pos + p.size <= quint64(row.bytes.size()));
                    end = p.pos + p.size;
                }
                const bool quietHere = row.most == 0 && (family != Family::ProRes || !row.bytes.startsWith(hugeMoov));
                QVERIFY2(!quietHere || pieces.isEmpty(), qPrintable(QString("%1 pieces").arg(pieces.size())));
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestScanners)
#include "tst_scanners.moc"
