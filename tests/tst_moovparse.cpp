// The format decision on hand-made moov atoms: each case puts a tag where a
// camera would, and checks the code and the figures the carvers will use.

#include "repair/ThreadVideoRepair.h"
#include "support/MediaCompare.h"
#include "support/MovBuilder.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

using namespace mov;

class TestMoovParse : public QObject
{
    Q_OBJECT
    QTemporaryDir m_dir;
    int m_n = 0;

    // Writes ftyp + mdat + moov (the usual camera order) and reads it back as
    // a sample or through the first-run walk.
    QString file(const QByteArray &moovAtom, const QString &suffix = "mov")
    {
        const QString path = m_dir.filePath(QStringLiteral("f%1.%2").arg(++m_n).arg(suffix));
        mov::write(path, ftyp() + atom("mdat", QByteArray(4096, '\x5a')) + moovAtom);
        return path;
    }
    // With `t`, or a thread of its own, after a reset.
    static bool asSample(const QString &path, bool threeGp = false, ThreadVideoRepair *t = nullptr)
    {
        ThreadVideoRepair own;
        pApp.reset();
        pApp.b3gpFile = threeGp;
        return (t ? t : &own)->ScanSampleFile(path);
    }
    static bool asDamaged(const QString &path, ThreadVideoRepair *t = nullptr)
    {
        ThreadVideoRepair own;
        t = t ? t : &own;
        pApp.reset();
        if (!t->pSource.open(path))
            return false;
        t->ullFileLeft = pApp.ullFileSize = t->pSource.size();
        return t->WalkDamagedFile();
    }

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void figuresOfAnH264AacSample()
    {
        const QString p = file(moov({videoTrak("avc1", 1920, 1080, 30000, 1001),
                                     soundTrak(sampleEntrySound("mp4a", 48000, esds(0x40)), 48000, 1024)}));
        QVERIFY(asSample(p));
        // The sound's frame size: the first stsz entry is 4, so the second (371) is taken.
        QCOMPARE((QVector<quint32>{pApp.nFormatCode, pApp.FrameWidth, pApp.FrameHeight, pApp.nTimeScaleVideo, pApp.nVideoDelta,
                                   pApp.TimeScaleSound, pApp.nSoundSampleRate, pApp.nSoundDelta, pApp.nSoundFrameSize}),
                 (QVector<quint32>{0, 1920, 1080, 30000, 1001, 48000, 48000, 1024, 371}));
        QVERIFY(pApp.bSampleHasAudio && pApp.bMoovParsed && pApp.nVideoStsdSize > 0);

        // The first run skips tkhd and mdhd (its trak search runs past them).
        QVERIFY(asDamaged(p));
        QCOMPARE((QVector<quint32>{pApp.nFormatCode, pApp.FrameWidth, pApp.nTimeScaleVideo, pApp.nVideoDelta}),
                 (QVector<quint32>{0, 0, 0, 1001}));
        QVERIFY(pApp.bSawVideoTrak);
    }

    void codesFromTags()
    {
        auto snd = [](const char *fourcc, const QByteArray &extra = {}) {
            return soundTrak(sampleEntrySound(fourcc, 48000, extra));
        };
        const QByteArray aac = esds(0x40), mp3 = esds(0x6B);
        const struct { const char *tag; QByteArray moovAtom; bool threeGp; uint code; bool hevcPcm; } rows[] = {
            {"mp3", moov({videoTrak("avc1"), snd("mp4a", mp3)}), false, 4, false},
            {"sowt", moov({videoTrak("avc1"), snd("sowt")}), false, 1, false},
            {"twos", moov({videoTrak("avc1"), snd("twos")}), false, 5, false},
            {"ac-3", moov({videoTrak("avc1"), snd("ac-3")}), false, 8, false},
            {"ima", moov({videoTrak("avc1"), snd("ms\x00\x11")}), false, 9, false},
            {"hevc aac", moov({videoTrak("hvc1"), snd("mp4a", aac)}), false, 6, false},
            {"hev1", moov({videoTrak("hev1")}), false, 6, false},
            {"hevc twos", moov({videoTrak("hvc1"), snd("twos")}), false, 5, true},
            // Sound first: the video tag comes later and replaces the sound's code.
            {"twos then hvc1", moov({snd("twos"), videoTrak("hvc1")}), false, 6, false},
            {"hevc ac-3 is carved as H.264", moov({videoTrak("hvc1"), snd("ac-3")}), false, 8, false},
            {"hevc sowt has no variant", moov({videoTrak("hvc1"), snd("sowt")}), false, 1, false},
            {"mpeg4 aac", moov({videoTrak("mp4v"), snd("mp4a", aac)}), false, 7, false},
            {"av1 aac", moov({videoTrak("av01"), snd("mp4a", aac)}), false, 15, false},
            {"prores", moov({videoTrak("apcn")}), false, 16, false},
            {"3gp es26", moov({videoTrak("es26")}), true, 14, false},
            {"3gp mp4v counts as mpeg4", moov({videoTrak("mp4v")}), true, 7, false},
            {"es26 outside 3gp", moov({videoTrak("es26")}), false, 0, false},
            {"mjpeg in a sample is not looked at", moov({videoTrak("jpeg")}), false, 0, false},
            // An earlier MP3 track decides when the esds has neither pair in reach.
            {"aac pair beyond 75 bytes", moov({videoTrak("avc1"), snd("mp4a", mp3), snd("mp4a", esds(0x40, 70))}), false, 4, false},
            {"aac pair within 75 bytes", moov({videoTrak("avc1"), snd("mp4a", mp3), snd("mp4a", esds(0x40, 40))}), false, 0, false},
        };
        for (const auto &r : rows) {
            QVERIFY(asSample(file(r.moovAtom), r.threeGp));
            QVERIFY2(pApp.nFormatCode == r.code && pApp.bHevcWithPcm == r.hevcPcm,
                     qPrintable(QStringLiteral("%1: code %2").arg(r.tag).arg(pApp.nFormatCode)));
        }
    }

    void damagedFileOnlyTagsAndLimits()
    {
        // Motion JPEG counts only in the damaged file's own moov.
        QVERIFY(asDamaged(file(moov({videoTrak("jpeg")}))));
        QCOMPARE(pApp.nFormatCode, 17u);

        // A video stsd of 1000 bytes or more isn't saved from a damaged file.
        const QByteArray bigEntry = atom("avc1", zeros(6) + be16(1) + zeros(70) + atom("avcC", zeros(1000)));
        const QByteArray big = atom("trak", tkhd(640, 360) + atom("mdia", mdhd(30000) + atom("minf",
                                    atom("vmhd", zeros(12)) + atom("stbl", stsd(bigEntry) + stts(1001) + stblTail()))));
        ThreadVideoRepair t;
        QVERIFY(asDamaged(file(moov({big})), &t));
        QVERIFY(pApp.nVideoStsdSize >= 1000 && t.pVideoStsd.isEmpty());

        // ctts with several entries: the first three make the pattern.
        const QByteArray ctts = atom("ctts", zeros(4) + be32(3) + be32(1) + be32(2002) + be32(1) + be32(0)
                                                 + be32(1) + be32(1001));
        QVERIFY(asDamaged(file(moov({videoTrak("avc1", 640, 360, 30000, 1001, ctts)}))));
        QVERIFY(pApp.bHasCtts);
        QCOMPARE((QVector<quint32>{pApp.nCttsEntries, pApp.nCttsCount1, pApp.nCttsOffset1, pApp.nCttsCount2, pApp.nCttsOffset2,
                                   pApp.nCttsCount3, pApp.nCttsOffset3}),
                 (QVector<quint32>{3, 1, 2002, 1, 0, 1, 1001}));
    }

    void absurdSizesStayBounded()
    {
        // Sizes of 0 and 0xFFFFFFFF in trak and stsd: the parse must end,
        // and must not try to hold gigabytes.
        QByteArray hostile = moov({videoTrak("avc1"), soundTrak(sampleEntrySound("mp4a", 48000, esds(0x40)))});
        const int trak = hostile.indexOf("trak");
        hostile.replace(trak - 4, 4, be32(0));
        const int sd = hostile.indexOf("stsd");
        hostile.replace(sd - 4, 4, be32(0xFFFFFFFF));
        const QString p = file(hostile);
        ThreadVideoRepair t, u;
        asSample(p, false, &t);
        asDamaged(p, &u);
        QVERIFY(t.pVideoStsd.size() <= QFileInfo(p).size() && u.pVideoStsd.size() <= QFileInfo(p).size());
    }

    void survivesCorruptedMoovs()
    {
        // Random damage inside a moov: every parse must end, within the file,
        // and (under the sanitizers) without touching memory it doesn't own.
        const QByteArray clean = ftyp() + atom("mdat", QByteArray(2048, '\x5a'))
                                 + moov({videoTrak("avc1", 1280, 720, 30000, 1001,
                                                   atom("ctts", zeros(4) + be32(2) + zeros(16))),
                                         soundTrak(sampleEntrySound("mp4a", 48000, esds(0x40)))});
        const int moovAt = clean.indexOf("moov") + 16;
        QRandomGenerator rng(1234);
        const QString path = m_dir.filePath("fuzz.mov");
        for (int round = 0; round < 300; ++round) {
            QByteArray bytes = clean;
            const int flips = 1 + int(rng.bounded(24));
            for (int i = 0; i < flips; ++i) {
                const int at = moovAt + int(rng.bounded(bytes.size() - moovAt));
                // Favour values that make sizes absurd: 00 and FF.
                const quint32 kind = rng.bounded(3);
                bytes[at] = kind == 0 ? '\0' : kind == 1 ? '\xff' : char(rng.bounded(256));
            }
            QVERIFY(mov::write(path, bytes));
            ThreadVideoRepair t, u;
            asSample(path, false, &t);
            asDamaged(path, &u);
            QVERIFY(t.pVideoStsd.size() <= bytes.size() && t.pSoundStsd.size() <= bytes.size());
            QVERIFY(u.pVideoStsd.size() <= bytes.size());
        }
    }

    void survivesRandomAndZeroFiles()
    {
        QByteArray noise = media::noise(256 * 1024, 99);
        // Tags planted in noise: a moov header with an absurd size, a lone mvhd.
        noise.replace(1000, 8, be32(0xFFFFFFF0) + "moov");
        noise.replace(5000, 4, "mvhd");
        noise.replace(9000, 8, be32(1) + "mdat");
        for (const QByteArray &bytes : {noise, QByteArray(200 * 1024, '\0'), QByteArray("moov"), QByteArray()}) {
            const QString path = m_dir.filePath("noise.mov");
            QVERIFY(mov::write(path, bytes));
            asDamaged(path);
            asSample(path);
        }
    }
};

QTEST_GUILESS_MAIN(TestMoovParse)
#include "tst_moovparse.moc"
