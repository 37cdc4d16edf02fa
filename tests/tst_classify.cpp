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
        // A healthy file: the walk steps to the moov by itself, and over a 64-bit
        // mdat size. moov gone: the tail scan looks too and finds nothing. ftyp
        // zeroed and mdat of size 0 end the walk; the tail scan finds the moov.
        // The end of the moov cut off: still met and parsed. (No ranges: any.)
        const struct { QString path; bool found; QList<qint64> ranges; } rows[] = {
            {moovLast, true, {50000}}, {fixtures::mdatSize64(moovLast), true, {50000}},
            {fixtures::moovRemoved(fixtures::healthy("h264_aac.mp4")), false, {50000, 5000, 5000}},
            {fixtures::ftypZeroed(moovLast), true, {50000, 5000}}, {fixtures::mdatSizeZero(moovLast), true, {50000, 5000}},
            {fixtures::moovAtEndCut(moovLast), true, {}}, {fixtures::emptyFile("empty.mov"), false, {}},
        };
        for (const auto &r : rows) {
            QVERIFY(!r.path.isEmpty());
            const Outcome o = asDamaged(r.path);
            QVERIFY2(o.found == r.found && (r.ranges.isEmpty() || o.ranges == r.ranges), qPrintable(r.path));
            QVERIFY2(!r.found || (pApp.nFormatCode == 0 && pApp.bMoovParsed), qPrintable(r.path));
        }
    }

    void probesNameOtherStreams()
    {
        VM_FIXTURE(ts, fixtures::healthy("h264_aac.ts"));
        // A transport stream and a program stream named .mov, a camera's IMKH
        // export, and a damaged file's own Motion JPEG moov.
        const struct { QString path; quint32 code; } rows[] = {
            {fixtures::withSuffix(ts, "mov"), 18}, {fixtures::withSuffix(fixtures::healthy("h264_mp2.ps"), "mov"), 2},
            {fixtures::imkhFile(), 3}, {fixtures::healthy("mjpeg_silent.mov"), 17},
        };
        for (const auto &r : rows)
            QVERIFY2(asDamaged(r.path).found && pApp.nFormatCode == r.code, qPrintable(r.path));
        // The sample decides the code the same way.
        QVERIFY(asSample(rows[0].path).found && pApp.nFormatCode == 18u);
    }
};

QTEST_GUILESS_MAIN(TestClassify)
#include "tst_classify.moc"
