// AVI recordings after a lost index, a cut end, zeros in the middle or a
// zeroed header, repaired through videomend-cli and judged frame by frame
// against the healthy file, beside what ffmpeg's own copy makes of the same
// damage; the new file's RIFF structure is checked chunk by chunk.

#include "containers/Avi.h"
#include "repair/BufferedReader.h"
#include "repair/RepairLine.h"
#include "support/MediaCompare.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <QtTest>

namespace {

using namespace media;

// A recording made once per kind and cached: ~10 s, or a 5 s sample of other
// pictures and another tone.
struct Kind
{
    const char *name, *video, *audio;
};
const Kind kKinds[] = {
    {"xvid_mp3.avi", "-c:v mpeg4 -vtag XVID -q:v 5", "-c:a libmp3lame -b:a 128k"},
    {"h264_pcm.avi", "-c:v libx264 -preset ultrafast -g 50", "-c:a pcm_s16le"},
    {"mjpeg_mono.avi", "-c:v mjpeg -q:v 8", "-c:a pcm_s16le -ac 1"},
    {"divx_mp3.divx", "-c:v mpeg4 -vtag DIVX -q:v 5", "-c:a libmp3lame -b:a 96k"},
};

QString make(const Kind &k, bool sample)
{
    const QString src = sample ? "mandelbrot=size=320x240:rate=25" : "testsrc=size=320x240:rate=25";
    const QString tone = sample ? "sine=frequency=300:sample_rate=44100,volume=0.3" : "sine=frequency=880:sample_rate=44100";
    QStringList args = {"-f", "lavfi", "-i", src, "-f", "lavfi", "-i", tone, "-t", sample ? "5" : "10"};
    args << QString(k.video).split(' ') << QString(k.audio).split(' ') << "-f" << "avi";
    return made(QString(sample ? "sample_" : "") + k.name, args);
}

// The damages, applied to a copy.
QByteArray damage(const QByteArray &d, const QString &how)
{
    QByteArray b = d;
    const int movi = d.indexOf("movi");
    if (how == "idx1 cut")
        b.truncate(d.lastIndexOf("idx1"));
    else if (how == "cut at 70%")
        b.truncate(int(d.size() * 0.7));
    else if (how == "header zeroed")
        b.replace(0, movi + 4, QByteArray(movi + 4, '\0'));
    else if (how == "zeros mid-file")
        b.replace(d.size() / 2, 256 * 1024, QByteArray(256 * 1024, '\0'));
    return b.left(d.size()); // zeros past the end would have grown it
}

quint32 le32(const QByteArray &b, qint64 at)
{
    return at + 4 > b.size() ? 0 : quint32(quint8(b[int(at)])) | quint32(quint8(b[int(at + 1)])) << 8
                                       | quint32(quint8(b[int(at + 2)])) << 16 | quint32(quint8(b[int(at + 3)])) << 24;
}

// The RIFF size, both lists and idx1 add up to the file; every index entry
// lands on a chunk of its tag and size. Empty when all holds.
QString structureFault(const QByteArray &f)
{
    if (!f.startsWith("RIFF") || le32(f, 4) + 8 != quint32(f.size()))
        return "RIFF size";
    const quint32 hdrl = le32(f, 16);
    const qint64 movi = 12 + 8 + hdrl; // the movi list's head
    if (f.mid(int(movi), 4) != "LIST" || f.mid(int(movi + 8), 4) != "movi")
        return "hdrl size";
    const qint64 idx = movi + 8 + le32(f, movi + 4);
    if (f.mid(int(idx), 4) != "idx1" || idx + 8 + le32(f, idx + 4) != f.size())
        return "movi or idx1 size";
    for (qint64 e = idx + 8; e + 16 <= f.size(); e += 16) {
        const qint64 at = movi + 8 + le32(f, e + 8);
        if (f.mid(int(at), 4) != f.mid(int(e), 4) || le32(f, at + 4) != le32(f, e + 12))
            return QString("index entry %1").arg((e - idx - 8) / 16);
    }
    return QString();
}

} // namespace

class TestAvi : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Frames identical to the healthy file's reach ffmpeg's own copy of the
    // damage, and all of them where only the index or the header is lost.
    void damages()
    {
        for (const Kind &kind : kKinds)
            for (const QString how : {"idx1 cut", "cut at 70%", "header zeroed", "zeros mid-file"}) {
                VM_FIXTURE(healthy, make(kind, false));
                VM_FIXTURE(sample, make(kind, true));
                QTemporaryDir tmp;
                const QString name = "clip." + QFileInfo(healthy).suffix().toUpper();
                const QString damaged = tmp.path() + "/" + name;
                QVERIFY(writeAll(damaged, damage(readAll(healthy), how)));
                const QByteArray before = fixtures::digest(damaged), sampleBefore = fixtures::digest(sample);
                QDir(tmp.path()).mkdir("out");

                const bool headerLost = how == "header zeroed";
                QString first;
                const Outcome o = repairWithSample(damaged, tmp.path() + "/out", sample, &first);
                QCOMPARE(first, QString(headerLost ? "Awaiting Action" : "Completed"));
                QCOMPARE(o.status, QString("Completed"));
                QCOMPARE(fixtures::digest(damaged), before);
                QCOMPARE(fixtures::digest(sample), sampleBefore);
                QVERIFY2(!QFileInfo::exists(tmp.path() + "/Repaired/Index.avi"), "the index work file is left");

                const QString fault = structureFault(readAll(o.output));
                QVERIFY2(fault.isEmpty(), qPrintable(fault));
                const QStringList h = frameHashes(healthy), got = frameHashes(o.output);
                const QString copy = tmp.path() + "/copy.avi";
                ffmpeg({"-i", damaged, "-c", "copy", copy});
                const QStringList base = frameHashes(copy);
                const int mine = identical(h, got), theirs = identical(h, base);
                qInfo("%s, %s: %d of %d frames identical; ffmpeg's copy %d", kind.name, qPrintable(how), mine,
                      int(h.size()), theirs);
                if (how == "idx1 cut" || headerLost)
                    QCOMPARE(mine, h.size());
                else
                    QVERIFY(mine >= theirs);
                const double want = headerLost || how == "idx1 cut" ? soundSeconds(healthy) : soundSeconds(copy);
                QVERIFY2(qAbs(soundSeconds(o.output) - want) <= want * 0.01 + 0.05,
                         qPrintable(QString("sound %1 s, expected %2 s").arg(soundSeconds(o.output)).arg(want)));
            }
    }

    // Files and samples that hold no usable header wait for a sample, and a
    // size field from nowhere is no reason to read or write gigabytes.
    void badInput()
    {
        VM_FIXTURE(healthy, make(kKinds[0], false));
        VM_FIXTURE(mp4, fixtures::healthy("h264_aac.mp4"));
        QTemporaryDir tmp;
        const QByteArray good = readAll(healthy);
        const QByteArray random = noise(300000, 7);
        QByteArray hugeFormat = good, hugeChunk = good;
        const int strf = good.indexOf("strf");
        hugeFormat.replace(strf + 4, 4, QByteArray("\xF0\xFF\xFF\xFF", 4));
        const int chunk = good.indexOf("00dc", good.indexOf("movi"));
        hugeChunk.replace(chunk + 4, 4, QByteArray("\xFF\xFF\xFF\xFF", 4));
        struct Case
        {
            const char *name;
            QByteArray bytes;
            QString sample;
            const char *status;
        } cases[] = {
            {"random", random, QString(), "Awaiting Action"},
            {"zeros", QByteArray(300000, '\0'), QString(), "Awaiting Action"},
            {"empty", QByteArray(), QString(), "Awaiting Action"},
            {"strf size 0xFFFFFFF0", hugeFormat, QString(), "Awaiting Action"},
            {"chunk size 0xFFFFFFFF", hugeChunk, QString(), "Completed"},
            {"random sample", damage(good, "header zeroed"), "random.avi", "Awaiting Action"},
            {"mp4 sample", damage(good, "header zeroed"), mp4, "Awaiting Action"},
        };
        QVERIFY(writeAll(tmp.path() + "/random.avi", random));
        for (const Case &c : cases) {
            const QString path = tmp.path() + "/Index.avi";
            QVERIFY(writeAll(path, c.bytes));
            QDir(tmp.path()).mkpath("out");
            const QString sample = c.sample.startsWith('/') || c.sample.isEmpty() ? c.sample : tmp.path() + "/" + c.sample;
            const Outcome o = repair(path, tmp.path() + "/out", sample);
            QVERIFY2(o.status == c.status, qPrintable(QString("%1: %2").arg(c.name, o.status)));
            QCOMPARE(readAll(path), c.bytes);
            if (o.status == "Completed") {
                // The file named like the index work file keeps its result.
                QCOMPARE(QFileInfo(o.output).fileName(), QString("Index.avi"));
                QVERIFY(structureFault(readAll(o.output)).isEmpty());
                QVERIFY(QFileInfo(o.output).size() < good.size() + 10000);
            }
            QDir(tmp.path() + "/out").removeRecursively();
        }
    }

    // The chunk scan and the header search on made-up bytes: sizes false hits
    // give are passed over; sound seen only past the first tenth makes a file
    // without a sound stream whose sound chunks are still copied; a format too
    // small for a picture header is left out and the sizes still add up.
    void rules()
    {
        QByteArray movi = "movi";
        auto chunk = [&](const char *tag, int size) {
            movi += QByteArray(tag, 4);
            for (int i = 0; i < 4; ++i)
                movi += char(size >> (8 * i));
            movi += QByteArray(size + (size & 1), 'x');
        };
        chunk("00dc", 100);
        chunk("00dc", 16); // a size false hits give: its bytes are scanned on
        chunk("00dc", 101);
        QByteArray file = QByteArray(4000, 'h');
        const int tail = 60000;
        file += movi + QByteArray(tail, 'z');
        file += "01wb" + QByteArray("\x20\x00\x00\x00", 4) + QByteArray(32, 's');
        QTemporaryDir tmp;
        QVERIFY(writeAll(tmp.path() + "/f.avi", file));
        BufferedReader r;
        QVERIFY(r.open(tmp.path() + "/f.avi"));
        QVERIFY(!avi::HasSoundChunks(r, r.size(), nullptr));
        QBuffer log, index;
        log.open(QIODevice::ReadWrite);
        index.open(QIODevice::ReadWrite);
        RepairLine cipher;
        std::atomic<bool> stop{false};
        const avi::ChunkList l = avi::ListChunks(r, r.size(), log, cipher, index, nullptr, stop);
        QCOMPARE(l.videoChunks, 2u);
        QCOMPARE(l.soundChunks, 1u);
        QCOMPARE(l.soundBytes, quint64(32));
        QCOMPARE(l.moviSize, quint64(4 + 108 + 110 + 40));
        QCOMPARE(index.size(), qint64(3 * 16));
        QCOMPARE(le32(index.data(), 4), 0x10u); // the first picture is a key frame
        QCOMPARE(le32(index.data(), 16 + 8), 4u + 108u);
        QCOMPARE(le32(index.data(), 32 + 4), 0x10u); // and every sound chunk

        // A video stream header whose format is 20 bytes: found and complete,
        // written without strf.
        QByteArray head = "LIST" + QByteArray(4, '\0') + "strl" + "strh" + QByteArray("\x38\0\0\0", 4) + "vids";
        head += QByteArray(52, '\1') + "strf" + QByteArray("\x14\0\0\0", 4) + QByteArray(20, '\2') + "JUNK";
        head.prepend(QByteArray(100, 'p'));
        head += QByteArray(2000, 'q');
        QVERIFY(writeAll(tmp.path() + "/h.avi", head));
        BufferedReader hr;
        QVERIFY(hr.open(tmp.path() + "/h.avi"));
        const avi::Headers h = avi::FindHeaders(hr, hr.size() * 10, false, nullptr, stop);
        QVERIFY(h.meets(false));
        QVERIFY(!h.meets(true));
        QVERIFY(writeAll(tmp.path() + "/log.txt", log.data()) && writeAll(tmp.path() + "/index", index.data()));
        const avi::Sources from{&hr, &hr, &hr, &hr};
        QCOMPARE(avi::WriteFile(tmp.path() + "/out.avi", h, from, r, l, false, tmp.path() + "/log.txt",
                                tmp.path() + "/index", stop),
                 QString());
        const QByteArray out = readAll(tmp.path() + "/out.avi");
        QVERIFY(!out.contains("strf"));
        const QString fault = structureFault(out);
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }
};

QTEST_GUILESS_MAIN(TestAvi)
#include "tst_avi.moc"
