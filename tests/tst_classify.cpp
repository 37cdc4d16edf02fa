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

    // The file read as a sample, or walked as a damaged file in the first run.
    static Outcome classify(const QString &path, bool sample)
    {
        pApp.reset();
        ThreadVideoRepair t;
        QSignalSpy ranges(&t, &ThreadVideoRepair::SetProgressBarRange);
        Outcome o;
        if (sample) {
            o.found = t.ScanSampleFile(path);
        } else {
            t.pSource.open(path);
            t.ullFileLeft = pApp.ullFileSize = QFileInfo(path).size();
            t.strFileName = QFileInfo(path).fileName();
            pApp.b3gpFile = path.endsWith(".3gp") || path.endsWith(".3g2");
            o.found = t.WalkDamagedFile();
        }
        for (const auto &a : ranges)
            o.ranges << a.at(0).toLongLong();
        return o;
    }
    static Outcome asSample(const QString &path) { return classify(path, true); }
    static Outcome asDamaged(const QString &path) { return classify(path, false); }

private Q_SLOTS:
    void samplesGiveTheirCode()
    {
        // The code, HEVC with PCM, and sound. PCM sound overrides the video's
        // code (ProRes with sowt is carved as H.264 with sowt); Motion JPEG is
        // not looked at in a sample; in24 is no tag of ours.
        const struct { const char *name; uint code; bool hevcPcm, audio; } rows[] = {
            {"h264_aac.mp4", 0, false, true}, {"h264_aac.mov", 0, false, true}, {"h264_aac_faststart.mov", 0, false, true},
            {"h264_mp3.mp4", 4, false, true}, {"h264_sowt.mov", 1, false, true}, {"h264_twos.mov", 5, false, true},
            {"h264_lpcm.mov", 12, false, true}, {"h264_in24.mov", 0, false, true}, {"h264_alaw.mov", 11, false, true},
            {"h264_ulaw.mov", 13, false, true}, {"h264_ima.mov", 9, false, true}, {"h264_opus.mp4", 10, false, true},
            {"h264_ac3.mp4", 8, false, true}, {"hevc_aac.mp4", 6, false, true}, {"hevc_pcm.mov", 5, true, true},
            {"mpeg4.mp4", 7, false, true}, {"av1.mp4", 15, false, true}, {"prores.mov", 1, false, true},
            {"prores_silent.mov", 16, false, false}, {"mjpeg_silent.mov", 0, false, false},
            {"video_only.mp4", 0, false, false}, {"h264_aac.3gp", 0, false, true},
        };
        for (const auto &r : rows) {
            VM_FIXTURE(path, fixtures::healthy(r.name));
            QVERIFY2(asSample(path).found && pApp.bMoovParsed, r.name);
            QVERIFY2(pApp.nFormatCode == r.code && pApp.bHevcWithPcm == r.hevcPcm && pApp.bSampleHasAudio == r.audio, r.name);
            QVERIFY2(pApp.FrameWidth == 320 && pApp.FrameHeight == 240 && pApp.nTimeScaleVideo > 0, r.name);
        }
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
