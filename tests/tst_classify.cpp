// Classification of real recordings made by ffmpeg: the code and figures a
// sample yields, and what the first-run walk makes of damaged copies.

#include "repair/ThreadVideoRepair.h"
#include "support/Fixtures.h"

#include <QSignalSpy>
#include <QtTest>

class TestClassify : public QObject
{
    Q_OBJECT

    struct Outcome
    {
        bool found = false;
        QList<qint64> ranges; // SetProgressBarRange values, to tell walk from tail scan
    };

    static Outcome asSample(const QString &path)
    {
        pApp.reset();
        ThreadVideoRepair t;
        QSignalSpy ranges(&t, &ThreadVideoRepair::SetProgressBarRange);
        Outcome o;
        o.found = t.ScanSampleFile(path);
        for (const auto &a : ranges)
            o.ranges << a.at(0).toLongLong();
        return o;
    }
    static Outcome asDamaged(const QString &path)
    {
        pApp.reset();
        ThreadVideoRepair t;
        QSignalSpy ranges(&t, &ThreadVideoRepair::SetProgressBarRange);
        Outcome o;
        t.pSource.open(path);
        t.ullFileLeft = pApp.ullFileSize = QFileInfo(path).size();
        t.strFileName = QFileInfo(path).fileName();
        const QString suffix = QFileInfo(path).suffix();
        pApp.b3gpFile = suffix == "3gp" || suffix == "3g2";
        o.found = t.WalkDamagedFile();
        for (const auto &a : ranges)
            o.ranges << a.at(0).toLongLong();
        return o;
    }

private Q_SLOTS:
    void samplesGiveTheirCode_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<uint>("code");
        QTest::addColumn<bool>("hevcPcm");
        QTest::addColumn<bool>("audio");
        QTest::newRow("aac mp4") << "h264_aac.mp4" << 0u << false << true;
        QTest::newRow("aac mov, moov last") << "h264_aac.mov" << 0u << false << true;
        QTest::newRow("aac faststart") << "h264_aac_faststart.mov" << 0u << false << true;
        QTest::newRow("mp3") << "h264_mp3.mp4" << 4u << false << true;
        QTest::newRow("sowt") << "h264_sowt.mov" << 1u << false << true;
        QTest::newRow("twos") << "h264_twos.mov" << 5u << false << true;
        QTest::newRow("lpcm") << "h264_lpcm.mov" << 12u << false << true;
        QTest::newRow("in24 is no tag of ours") << "h264_in24.mov" << 0u << false << true;
        QTest::newRow("alaw") << "h264_alaw.mov" << 11u << false << true;
        QTest::newRow("ulaw") << "h264_ulaw.mov" << 13u << false << true;
        QTest::newRow("ima adpcm") << "h264_ima.mov" << 9u << false << true;
        QTest::newRow("opus") << "h264_opus.mp4" << 10u << false << true;
        QTest::newRow("ac-3 mp4") << "h264_ac3.mp4" << 8u << false << true;
        QTest::newRow("ac-3 mov") << "h264_ac3.mov" << 8u << false << true;
        QTest::newRow("hevc aac") << "hevc_aac.mp4" << 6u << false << true;
        QTest::newRow("hevc pcm") << "hevc_pcm.mov" << 5u << true << true;
        QTest::newRow("mpeg-4") << "mpeg4.mp4" << 7u << false << true;
        QTest::newRow("av1") << "av1.mp4" << 15u << false << true;
        // PCM sound overrides the video's code: carved as H.264 with sowt.
        QTest::newRow("prores with sowt") << "prores.mov" << 1u << false << true;
        QTest::newRow("prores") << "prores_silent.mov" << 16u << false << false;
        QTest::newRow("mjpeg not looked at in a sample") << "mjpeg_silent.mov" << 0u << false << false;
        QTest::newRow("video only") << "video_only.mp4" << 0u << false << false;
        QTest::newRow("3gp with avc1") << "h264_aac.3gp" << 0u << false << true;
    }

    void samplesGiveTheirCode()
    {
        QFETCH(QString, name);
        QFETCH(uint, code);
        QFETCH(bool, hevcPcm);
        QFETCH(bool, audio);
        VM_FIXTURE(path, fixtures::healthy(name));
        const Outcome o = asSample(path);
        QVERIFY(o.found);
        QVERIFY(pApp.bMoovParsed);
        QCOMPARE(pApp.nFormatCode, code);
        QCOMPARE(pApp.bHevcWithPcm, hevcPcm);
        QCOMPARE(pApp.bSampleHasAudio, audio);
        QCOMPARE(pApp.FrameWidth, 320u);
        QCOMPARE(pApp.FrameHeight, 240u);
        QVERIFY(pApp.nTimeScaleVideo > 0);
        if (audio && name.startsWith("h264_aac"))
            QCOMPARE(pApp.TimeScaleSound, 48000u);
    }

    void damagedFilesWalkAndTail()
    {
        VM_FIXTURE(moovLast, fixtures::healthy("h264_aac.mov"));
        VM_FIXTURE(mp4, fixtures::healthy("h264_aac.mp4"));

        // A healthy file: the walk steps to the moov by itself.
        Outcome o = asDamaged(moovLast);
        QVERIFY(o.found);
        QCOMPARE(o.ranges, QList<qint64>{50000});
        QCOMPARE(pApp.nFormatCode, 0u);
        QVERIFY(pApp.bMoovParsed);

        // moov gone: the tail scan looks too and finds nothing.
        VM_FIXTURE(noMoov, fixtures::moovRemoved(mp4));
        o = asDamaged(noMoov);
        QVERIFY(!o.found);
        QCOMPARE(o.ranges, (QList<qint64>{50000, 5000, 5000}));

        // ftyp zeroed and mdat of size 0 end the walk; the tail scan finds the moov.
        VM_FIXTURE(ftypZero, fixtures::ftypZeroed(moovLast));
        o = asDamaged(ftypZero);
        QVERIFY(o.found);
        QCOMPARE(o.ranges, (QList<qint64>{50000, 5000}));
        QCOMPARE(pApp.nFormatCode, 0u);
        VM_FIXTURE(mdat0, fixtures::mdatSizeZero(moovLast));
        o = asDamaged(mdat0);
        QVERIFY(o.found);
        QCOMPARE(o.ranges, (QList<qint64>{50000, 5000}));

        // A 64-bit mdat size is stepped over by the walk.
        VM_FIXTURE(mdat64, fixtures::mdatSize64(moovLast));
        o = asDamaged(mdat64);
        QVERIFY(o.found);
        QCOMPARE(o.ranges, QList<qint64>{50000});

        // The end of the moov cut off: the moov is still met and parsed.
        VM_FIXTURE(cut, fixtures::moovAtEndCut(moovLast));
        o = asDamaged(cut);
        QVERIFY(o.found);

        VM_FIXTURE(empty, fixtures::emptyFile("empty.mov"));
        o = asDamaged(empty);
        QVERIFY(!o.found);
    }

    void probesNameOtherStreams()
    {
        VM_FIXTURE(ts, fixtures::healthy("h264_aac.ts"));
        VM_FIXTURE(tsMov, fixtures::withSuffix(ts, "mov"));
        QVERIFY(asDamaged(tsMov).found);
        QCOMPARE(pApp.nFormatCode, 18u);
        // The sample decides the code the same way.
        QVERIFY(asSample(tsMov).found);
        QCOMPARE(pApp.nFormatCode, 18u);

        VM_FIXTURE(ps, fixtures::healthy("h264_mp2.ps"));
        VM_FIXTURE(psMov, fixtures::withSuffix(ps, "mov"));
        QVERIFY(asDamaged(psMov).found);
        QCOMPARE(pApp.nFormatCode, 2u);

        VM_FIXTURE(imkh, fixtures::imkhFile());
        QVERIFY(asDamaged(imkh).found);
        QCOMPARE(pApp.nFormatCode, 3u);

        // The damaged file's own Motion JPEG moov names it.
        VM_FIXTURE(mjpeg, fixtures::healthy("mjpeg_silent.mov"));
        QVERIFY(asDamaged(mjpeg).found);
        QCOMPARE(pApp.nFormatCode, 17u);
    }
};

QTEST_GUILESS_MAIN(TestClassify)
#include "tst_classify.moc"
