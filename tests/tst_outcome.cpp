// What a repair comes to: the speed a carved recording plays at, the reason a
// file has no result, what a result holds, and what the track reader and the
// codec probe make of recordings, samples and junk.

#include "carve/video/H264Timing.h"
#include "containers/Mp4Info.h"
#include "mux/CompositionTimes.h"
#include "repair/BufferedReader.h"
#include "repair/Outcome.h"
#include "repair/ThreadVideoRepair.h"
#include "support/MediaCompare.h"
#include "support/MovBuilder.h"

#include <QTemporaryDir>
#include <QtTest>

using outcome::Why;

namespace {
// Each decoded picture's presentation time and checksum.
QStringList pictures(const QString &path)
{
    QStringList out;
    for (const QString &l : media::run(fixtures::ffmpeg(), {"-v", "error", "-nostdin", "-i", path, "-map", "0:v:0", "-f", "framemd5", "-"})
                                .split('\n', Qt::SkipEmptyParts))
        if (!l.startsWith('#'))
            out << l.section(',', 2, 2).trimmed() + ' ' + l.section(',', 5).trimmed();
    return out;
}

QString randomFile(const QString &path, int bytes)
{
    return mov::write(path, media::noise(bytes, 11)) ? path : QString();
}
} // namespace

class TestOutcome : public QObject
{
    Q_OBJECT
    QTemporaryDir m_dir;

private Q_SLOTS:
    void init() { pApp.reset(); }

    void carvedRecordingsKeepTheirSpeed()
    {
        // 25 fps a frame a chunk; 29.97 fps in half-second chunks as cameras write.
        for (const double chunk : {0.0, 0.5}) {
            const QString name = chunk > 0 ? "carve_r2997" : "carve_r25";
            auto laidOut = [&](const QString &p) { return chunk > 0 ? fixtures::cameraLayout(p, chunk) : p; };
            VM_FIXTURE(healthy, laidOut(fixtures::healthy(name + ".mov")));
            VM_FIXTURE(sample, laidOut(fixtures::healthy(name + "_sample.mov")));
            VM_FIXTURE(damaged, fixtures::moovRemoved(healthy));
            QTemporaryDir work;
            const media::Outcome o = media::repairIn(damaged, work.path(), sample, {"--keep-work-files"});
            QCOMPARE(o.status, QString("Completed"));
            const fixtures::Streams s = fixtures::probe(o.output);
            QCOMPARE(s.videoRate, QString(chunk > 0 ? "30000/1001" : "25/1"));
            const double picture = s.videoSeconds, sound = s.audioSeconds;
            QVERIFY2(qAbs(sound - picture) <= 0.01 * picture, qPrintable(QString("%1 s / %2 s").arg(sound).arg(picture)));
            // Every picture at its own time, B-frames included: as in the healthy file.
            QCOMPARE(pictures(o.output), pictures(healthy));
            // No second result at a whole rate beside it.
            QCOMPARE(QDir(work.filePath("Repaired")).entryList({"1_*"}, QDir::Files), QStringList());
        }
    }

    void reasons()
    {
        const QString aac = fixtures::healthy("carve_aac48.mov"), text = m_dir.filePath("notes.txt");
        media::writeAll(text, QByteArray("A line of notes, not a recording.\n").repeated(2000));
        const struct { QString file, sample; Why why; QString detail; } rows[] = {
            {text, "", Why::NothingFound, "no video data"},
            {randomFile(m_dir.filePath("noise.mp4"), 1 << 20), "", Why::NothingFound, ""},
            {fixtures::moovRemoved(aac), "", Why::None, ""}, // index lost, no sample yet
            {fixtures::moovRemoved(aac), fixtures::healthy("carve_hevc_sample.mov"), Why::WrongSample,
             "codec H.264 in the recording, HEVC in the sample"},
            {fixtures::cutAt(fixtures::healthy("h264_aac_faststart.mov"), 70), fixtures::healthy("carve_wide_sample.mov"),
             Why::WrongSample, "frame size 320x240 in the recording, 640x360 in the sample"},
        };
        for (const auto &row : rows) {
            QVERIFY(!row.file.isEmpty());
            pApp.reset();
            pApp.strChosenLocation = m_dir.path();
            ThreadVideoRepair t;
            QList<outcome::FileReport> reports;
            connect(&t, &ThreadVideoRepair::FileReported, this,
                    [&](int, const QString &, const outcome::FileReport &r) { reports << r; }, Qt::DirectConnection);
            pApp.bSampleRun = !row.sample.isEmpty();
            t.SetSampleFile(row.sample);
            t.StartRepair({row.file}, true);
            t.wait();
            QCOMPARE(reports.size(), 1);
            QVERIFY2(reports[0].why == row.why && reports[0].detail.contains(row.detail), qPrintable(reports[0].detail));
        }
    }

    void judgedByWhatTheResultHolds()
    {
        VM_FIXTURE(healthy, fixtures::healthy("h264_aac.mp4"));
        VM_FIXTURE(soundOnly, fixtures::healthy("es.aac"));
        if (outcome::FindFfprobe().isEmpty())
            QSKIP("ffprobe missing");
        const outcome::Judged ok = outcome::Judge("Completed", healthy, {}, false);
        QVERIFY(ok.status == "Completed" && ok.videoFrames == 50 && qAbs(ok.audioSeconds - 2.0) < 0.1);
        QVERIFY(ok.mediaUsed == -1.0 && ok.reason.isEmpty());

        outcome::FileReport carved;
        carved.carved = true;
        carved.mediaBytes = 1000;
        carved.claimedBytes = 870;
        const outcome::Judged noVideo = outcome::Judge("Completed", soundOnly, carved, true);
        QVERIFY(noVideo.status == "Failed" && noVideo.videoFrames == 0 && !noVideo.reason.isEmpty());
        QCOMPARE(qRound(noVideo.mediaUsed * 100), 87);

        // Without a reason from the engine: waiting for a sample, or nothing found with one.
        QCOMPARE(outcome::Judge("Awaiting Action", {}, {}, false).reason, outcome::ReasonText(Why::NoSample, {}));
        QCOMPARE(outcome::Judge("Awaiting Action", {}, {}, true).reason, outcome::ReasonText(Why::NothingFound, {}));
    }

    void pictureOrderOfRawStreams()
    {
        VM_FIXTURE(stream, fixtures::healthy("es.h264")); // x264 with B-frames
        const carve::PictureOrder o = carve::H264DisplayOrderOfFile(stream);
        QCOMPARE(o.display.size(), 50);
        QVERIFY(o.reordered());
        QVector<int> sorted = o.display;
        std::sort(sorted.begin(), sorted.end());
        for (int i = 0; i < sorted.size(); ++i)
            QCOMPARE(sorted[i], i); // each place once
        // Junk and cut streams give no order, and no file is patched with one.
        QByteArray cut = QByteArray("\0\0\0\1\x67\x64", 6) + QByteArray(3000, '\0') + "\0\0\1\x65\x88";
        const QString junk = randomFile(m_dir.filePath("junk.h264"), 1 << 20), short_ = m_dir.filePath("cut.h264");
        QVERIFY(mov::write(short_, cut));
        for (const QString &path : {junk, short_})
            QVERIFY(!carve::H264DisplayOrderOfFile(path).reordered());
        const QByteArray before = fixtures::digest(stream);
        QVERIFY(!mux::AddCompositionTimes(stream, o));
        QCOMPARE(fixtures::digest(stream), before);
    }

    void tracksRatesAndCodecs()
    {
        using namespace mp4info;
        VM_FIXTURE(avc, fixtures::healthy("h264_aac.mp4"));
        VM_FIXTURE(hevc, fixtures::healthy("hevc_aac.mp4"));
        const Info a = ReadFile(avc);
        QVERIFY(a.moov && a.video.present && a.sound.present);
        QCOMPARE(CodecOf(a.video.codec), Codec::H264);
        QCOMPARE(int(a.video.width), 320);
        QCOMPARE(ExactRate(a.video).text(), QString("25"));
        QCOMPARE(a.sound.sampleRate, 48000u);

        // The most common duration wins over a first odd one; absurd tables give no rate.
        struct Case { QByteArray stts; quint32 scale; const char *rate; } cases[] = {
            {mov::atom("stts", mov::zeros(4) + mov::be32(2) + mov::be32(1) + mov::be32(900) + mov::be32(99)
                                   + mov::be32(1001)), 30000, "30000/1001"},
            {mov::atom("stts", mov::zeros(4) + mov::be32(0xFFFFFFFF) + mov::be32(5) + mov::be32(1)), 30000, ""},
            {mov::atom("stts", mov::zeros(4) + mov::be32(1) + mov::be32(10) + mov::be32(0)), 30000, ""},
            {mov::stts(512), 12800, "25"},
            {mov::stts(1001), 0, ""},
        };
        for (const Case &c : cases) {
            const QByteArray stbl = mov::atom("stbl", mov::stsd(mov::sampleEntryVideo("avc1")) + c.stts);
            const QByteArray trak = mov::atom(
                "trak", mov::atom("mdia", mov::mdhd(c.scale) + mov::atom("minf", mov::atom("vmhd", mov::zeros(12)) + stbl)));
            const QString path = m_dir.filePath("stts.mov");
            QVERIFY(mov::write(path, mov::ftyp() + mov::moov({trak})));
            const Rate r = ExactRate(ReadFile(path).video);
            QCOMPARE(r.known() ? r.text() : QString(), QString(c.rate));
        }

        // Without their index: the units tell the codec; junk tells none.
        const QString noise = randomFile(m_dir.filePath("junk.bin"), 4 << 20);
        const struct { QString path; Codec codec; } probes[] = {
            {fixtures::moovRemoved(avc), Codec::H264},
            {fixtures::moovRemoved(hevc), Codec::Hevc},
            {fixtures::moovRemoved(fixtures::cameraLayout(fixtures::healthy("carve_aac48.mov"), 1.0)), Codec::H264},
            {noise, Codec::Unknown},
        };
        for (const auto &p : probes) {
            BufferedReader f(size_t(1) << 20);
            QVERIFY(f.open(p.path));
            QCOMPARE(DetectNalCodec(f), p.codec);
        }
    }
};

QTEST_GUILESS_MAIN(TestOutcome)
#include "tst_outcome.moc"
