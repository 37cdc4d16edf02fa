// The format decision on hand-made moov atoms: each case puts a tag where a
// camera would, and checks the code and the figures the carvers will use.

#include "repair/ThreadVideoRepair.h"
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
    static void readAsSample(const QString &path, bool threeGp = false)
    {
        pApp.reset();
        pApp.b3gpFile = threeGp;
        ThreadVideoRepair t;
        QVERIFY(t.ScanSampleFile(path));
    }
    static void readAsDamaged(const QString &path, bool threeGp = false)
    {
        pApp.reset();
        pApp.b3gpFile = threeGp;
        ThreadVideoRepair t;
        QVERIFY(t.pSource.open(path));
        t.ullFileLeft = pApp.ullFileSize = t.pSource.size();
        QVERIFY(t.WalkDamagedFile());
    }

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void figuresOfAnH264AacSample()
    {
        const QString p = file(moov({videoTrak("avc1", 1920, 1080, 30000, 1001),
                                     soundTrak(sampleEntrySound("mp4a", 48000, esds(0x40)), 48000, 1024)}));
        readAsSample(p);
        QCOMPARE(pApp.nFormatCode, 0u);
        QCOMPARE(pApp.FrameWidth, 1920u);
        QCOMPARE(pApp.FrameHeight, 1080u);
        QCOMPARE(pApp.nTimeScaleVideo, 30000u);
        QCOMPARE(pApp.nVideoDelta, 1001u);
        QCOMPARE(pApp.TimeScaleSound, 48000u);
        QCOMPARE(pApp.nSoundSampleRate, 48000u);
        QCOMPARE(pApp.nSoundDelta, 1024u);
        QCOMPARE(pApp.nSoundFrameSize, 371u); // first stsz entry 4: the second is taken as it is
        QVERIFY(pApp.bSampleHasAudio);
        QVERIFY(pApp.bMoovParsed);
        QVERIFY(pApp.nVideoStsdSize > 0);

        // The first run skips tkhd and mdhd (its trak search runs past them).
        readAsDamaged(p);
        QCOMPARE(pApp.nFormatCode, 0u);
        QCOMPARE(pApp.FrameWidth, 0u);
        QCOMPARE(pApp.nTimeScaleVideo, 0u);
        QCOMPARE(pApp.nVideoDelta, 1001u);
        QVERIFY(pApp.bSawVideoTrak);
    }

    void codesFromTags_data()
    {
        QTest::addColumn<QByteArray>("moovAtom");
        QTest::addColumn<bool>("threeGp");
        QTest::addColumn<uint>("code");
        QTest::addColumn<bool>("hevcPcm");
        auto snd = [](const char *fourcc, const QByteArray &extra = {}) {
            return soundTrak(sampleEntrySound(fourcc, 48000, extra));
        };
        QTest::newRow("mp3") << moov({videoTrak("avc1"), snd("mp4a", esds(0x6B))}) << false << 4u << false;
        QTest::newRow("sowt") << moov({videoTrak("avc1"), snd("sowt")}) << false << 1u << false;
        QTest::newRow("twos") << moov({videoTrak("avc1"), snd("twos")}) << false << 5u << false;
        QTest::newRow("lpcm") << moov({videoTrak("avc1"), snd("lpcm")}) << false << 12u << false;
        QTest::newRow("opus") << moov({videoTrak("avc1"), snd("Opus")}) << false << 10u << false;
        QTest::newRow("ac-3") << moov({videoTrak("avc1"), snd("ac-3")}) << false << 8u << false;
        QTest::newRow("alaw") << moov({videoTrak("avc1"), snd("alaw")}) << false << 11u << false;
        QTest::newRow("ulaw") << moov({videoTrak("avc1"), snd("ulaw")}) << false << 13u << false;
        QTest::newRow("ima") << moov({videoTrak("avc1"), snd("ms\x00\x11")}) << false << 9u << false;
        QTest::newRow("hevc aac") << moov({videoTrak("hvc1"), snd("mp4a", esds(0x40))}) << false << 6u << false;
        QTest::newRow("hev1") << moov({videoTrak("hev1")}) << false << 6u << false;
        QTest::newRow("hevc twos") << moov({videoTrak("hvc1"), snd("twos")}) << false << 5u << true;
        QTest::newRow("hevc alaw") << moov({videoTrak("hvc1"), snd("alaw")}) << false << 11u << true;
        QTest::newRow("hevc ulaw") << moov({videoTrak("hvc1"), snd("ulaw")}) << false << 13u << true;
        QTest::newRow("hevc lpcm") << moov({videoTrak("hvc1"), snd("lpcm")}) << false << 12u << true;
        // Sound first: the video tag comes later and replaces the sound's code.
        QTest::newRow("twos then hvc1") << moov({snd("twos"), videoTrak("hvc1")}) << false << 6u << false;
        QTest::newRow("hevc ac-3 is carved as H.264") << moov({videoTrak("hvc1"), snd("ac-3")}) << false << 8u << false;
        QTest::newRow("hevc sowt has no variant") << moov({videoTrak("hvc1"), snd("sowt")}) << false << 1u << false;
        QTest::newRow("hevc mp3") << moov({videoTrak("hvc1"), snd("mp4a", esds(0x6B))}) << false << 4u << false;
        QTest::newRow("mpeg4 aac") << moov({videoTrak("mp4v"), snd("mp4a", esds(0x40))}) << false << 7u << false;
        QTest::newRow("av1 aac") << moov({videoTrak("av01"), snd("mp4a", esds(0x40))}) << false << 15u << false;
        QTest::newRow("prores") << moov({videoTrak("apcn")}) << false << 16u << false;
        QTest::newRow("prores 4444") << moov({videoTrak("ap4h")}) << false << 16u << false;
        QTest::newRow("3gp es26") << moov({videoTrak("es26")}) << true << 14u << false;
        QTest::newRow("3gp mp4v counts as mpeg4") << moov({videoTrak("mp4v")}) << true << 7u << false;
        QTest::newRow("es26 outside 3gp") << moov({videoTrak("es26")}) << false << 0u << false;
        QTest::newRow("mjpeg in a sample is not looked at") << moov({videoTrak("jpeg")}) << false << 0u << false;
        // An earlier MP3 track decides when the esds has neither pair in reach.
        QTest::newRow("aac pair beyond 75 bytes")
            << moov({videoTrak("avc1"), snd("mp4a", esds(0x6B)), snd("mp4a", esds(0x40, 70))}) << false << 4u << false;
        QTest::newRow("aac pair within 75 bytes")
            << moov({videoTrak("avc1"), snd("mp4a", esds(0x6B)), snd("mp4a", esds(0x40, 40))}) << false << 0u << false;
    }

    void codesFromTags()
    {
        QFETCH(QByteArray, moovAtom);
        QFETCH(bool, threeGp);
        QFETCH(uint, code);
        QFETCH(bool, hevcPcm);
        readAsSample(file(moovAtom), threeGp);
        QCOMPARE(pApp.nFormatCode, code);
        QCOMPARE(pApp.bHevcWithPcm, hevcPcm);
    }

    void damagedFileOnlyTagsAndLimits()
    {
        // Motion JPEG counts only in the damaged file's own moov.
        readAsDamaged(file(moov({videoTrak("jpeg")})));
        QCOMPARE(pApp.nFormatCode, 17u);

        // A video stsd of 1000 bytes or more isn't saved from a damaged file.
        const QByteArray bigEntry = atom("avc1", zeros(6) + be16(1) + zeros(70) + atom("avcC", zeros(1000)));
        const QByteArray big = atom("trak", tkhd(640, 360) + atom("mdia", mdhd(30000) + atom("minf",
                                    atom("vmhd", zeros(12)) + atom("stbl", stsd(bigEntry) + stts(1001) + stblTail()))));
        ThreadVideoRepair t;
        pApp.reset();
        const QString p = file(moov({big}));
        QVERIFY(t.pSource.open(p));
        t.ullFileLeft = pApp.ullFileSize = t.pSource.size();
        QVERIFY(t.WalkDamagedFile());
        QVERIFY(pApp.nVideoStsdSize >= 1000);
        QVERIFY(t.pVideoStsd.isEmpty());

        // ctts with several entries: the first three make the pattern.
        const QByteArray ctts = atom("ctts", zeros(4) + be32(3) + be32(1) + be32(2002) + be32(1) + be32(0)
                                                 + be32(1) + be32(1001));
        readAsDamaged(file(moov({videoTrak("avc1", 640, 360, 30000, 1001, ctts)})));
        QVERIFY(pApp.bHasCtts);
        QCOMPARE(pApp.nCttsEntries, 3u);
        QCOMPARE(pApp.nCttsCount1, 1u);
        QCOMPARE(pApp.nCttsOffset1, 2002u);
        QCOMPARE(pApp.nCttsCount2, 1u);
        QCOMPARE(pApp.nCttsOffset2, 0u);
        QCOMPARE(pApp.nCttsCount3, 1u);
        QCOMPARE(pApp.nCttsOffset3, 1001u);
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
        pApp.reset();
        ThreadVideoRepair t;
        t.ScanSampleFile(p);
        QVERIFY(t.pVideoStsd.size() <= QFileInfo(p).size());
        readAsDamaged(p);
        QVERIFY(t.pVideoStsd.size() <= QFileInfo(p).size());
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
            pApp.reset();
            ThreadVideoRepair t;
            t.ScanSampleFile(path);
            QVERIFY(t.pVideoStsd.size() <= bytes.size());
            QVERIFY(t.pSoundStsd.size() <= bytes.size());
            pApp.reset();
            ThreadVideoRepair u;
            QVERIFY(u.pSource.open(path));
            u.ullFileLeft = pApp.ullFileSize = u.pSource.size();
            u.WalkDamagedFile();
            QVERIFY(u.pVideoStsd.size() <= bytes.size());
        }
    }

    void survivesRandomAndZeroFiles()
    {
        QRandomGenerator rng(99);
        QByteArray noise(256 * 1024, '\0');
        for (int i = 0; i < noise.size(); ++i)
            noise[i] = char(rng.bounded(256));
        // Tags planted in noise: a moov header with an absurd size, a lone mvhd.
        noise.replace(1000, 8, be32(0xFFFFFFF0) + "moov");
        noise.replace(5000, 4, "mvhd");
        noise.replace(9000, 8, be32(1) + "mdat");
        for (const QByteArray &bytes : {noise, QByteArray(200 * 1024, '\0'), QByteArray("moov"), QByteArray()}) {
            const QString path = m_dir.filePath("noise.mov");
            QVERIFY(mov::write(path, bytes));
            pApp.reset();
            ThreadVideoRepair t;
            QVERIFY(t.pSource.open(path));
            t.ullFileLeft = pApp.ullFileSize = t.pSource.size();
            t.WalkDamagedFile();
            pApp.reset();
            t.ScanSampleFile(path);
        }
    }
};

QTEST_GUILESS_MAIN(TestMoovParse)
#include "tst_moovparse.moc"
