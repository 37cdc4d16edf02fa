// The H.264 carve: header and frame arithmetic, the unique lists, the head
// list walk, and whole repairs of ffmpeg-made recordings against their
// samples, judged by what ffprobe finds in the result.

#include "carve/audio/Adts.h"
#include "carve/audio/HeadList.h"
#include "carve/audio/Mp3Frame.h"
#include "carve/video/CarveStages.h"
#include "carve/video/WorkFiles.h"
#include "mux/MuxStages.h"
#include "repair/ThreadVideoRepair.h"
#include "support/Fixtures.h"
#include "support/MediaCompare.h"
#include "support/MovBuilder.h"

#include <QCryptographicHash>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

using fixtures::digest;
using fixtures::probe;

namespace {
using namespace media;

// Video packets of a healthy file that lie wholly outside [from, to) and
// before `end`: what a carve of the damaged copy can hope to find.
int intactVideo(const QString &healthy, quint64 from, quint64 to, quint64 end)
{
    int n = 0;
    for (const fixtures::Packet &p : fixtures::packets(healthy).value(0))
        if (p.pos + p.size <= end && (p.pos + p.size <= from || p.pos >= to))
            ++n;
    return n;
}

// Puts bytes into the media data of a file whose 32-bit mdat size then counts them.
void insertIntoMdat(QByteArray &file, int at, const QByteArray &bytes)
{
    const int mdat = file.indexOf("mdat") - 4;
    const quint32 size = qFromBigEndian<quint32>(file.constData() + mdat);
    file.insert(at, bytes);
    file.replace(mdat, 4, mov::be32(size + quint32(bytes.size())));
}

// The carve alone: the chain's stages one after the other, on a state of
// their own, into `location`/Repaired. No thread, no ffmpeg.
void carveOnly(const QString &file, const QString &sample, const QString &location, bool learnHeads = true,
               bool plainWalk = false)
{
    RepairState s;
    s.strWorkBase = location;
    s.bSampleHasAudio = true; // what reading the sample's moov says of these samples
    QDir().mkpath(location);
    carve::Env env{s, nullptr, QFileInfo(file).fileName()};
    env.learnHeads = learnHeads;
    env.plainWalk = plainWalk;
    CarverArgs a;
    a.strSource = file;
    a.strSample = sample;
    const carve::CarverRow &row = carve::H264CarverRow(sample.contains("mp3") ? 4 : 0);
    carve::HarvestH264Sample(row, a, env);
    if (row.fullHarvest)
        carve::WriteUniqueSequences(true, a, env);
    const carve::Learned learned = carve::LearnAudio(row.learner, a, env);
    if (learned.toUnique)
        carve::WriteUniqueSequences(false, a, env);
    QCOMPARE(carve::SplitStreams(learned.next, a, env).outcome, carve::Split::Muxable);
}

// The units of a stream with start codes, and the frames of an ADTS stream.
QList<QByteArray> unitsOf(const QByteArray &d)
{
    QList<QByteArray> out;
    for (int at = d.indexOf(QByteArray("\0\0\0\1", 4)); at >= 0;) {
        const int next = d.indexOf(QByteArray("\0\0\0\1", 4), at + 4);
        out << d.mid(at + 4, next < 0 ? -1 : next - at - 4);
        at = next;
    }
    return out;
}
QList<QByteArray> adtsFrames(const QByteArray &d)
{
    QList<QByteArray> out;
    for (int i = 0; i + 7 <= d.size();) {
        const int len = (quint8(d[i + 3]) & 3) << 11 | quint8(d[i + 4]) << 3 | quint8(d[i + 5]) >> 5;
        if (quint8(d[i]) != 0xFF || len < 7)
            break;
        out << d.mid(i, len);
        i += len;
    }
    return out;
}

// Recordings and their samples (shot with the same settings), seconds per
// chunk as cameras write (0: ffmpeg's chunk per frame), the damage, and the
// least share of intact frames and of the video's duration in sound (-1: none).
// The samples show other pictures and sound of another kind and loudness (a
// soft tone, bursts between silences, silence): the openings of the
// recording's sound are learned from the recording.
struct SampleRun { const char *name, *sample; double chunk; const char *damage; double video, audio; };
const SampleRun kRuns[] = {
    {"carve_aac48", "carve_aac48_sample", 0, "nomoov", 0.99, 0.97},
    {"carve_aac48", "carve_aac48_tone_sample", 1, "nomoov", 0.99, 0.97},
    {"carve_aac48", "carve_aac48_bursts_sample", 0.5, "nomoov", 0.99, 0.97},
    {"carve_aac48", "carve_aac48_hush_sample", 1, "moovzero", 0.99, 0.97},
    // The cut takes the sound of the last half second of picture.
    {"carve_aac48", "carve_aac48_tone_sample", 0.5, "cut", 0.99, 0.9},
    {"carve_aac48", "carve_aac48_sample", 1, "stopped", 0.99, 0.97},
    // Sound that changes character halfway: loud noise, then a soft tone.
    {"carve_mixed", "carve_aac48_tone_sample", 0, "nomoov", 0.99, 0.97},
    {"carve_aac44", "carve_aac44_sample", 0, "nomoov", 0.99, 0.97},
    // Mono frames open with 00 or 01, as length prefixes do.
    {"carve_mono", "carve_mono_sample", 0, "nomoov", 0.99, 0.97},
    {"carve_mp3", "carve_mp3_tone_sample", 0, "nomoov", 0.99, 0.97},
    {"carve_mp3", "carve_mp3_tone_sample", 0.5, "cut", 0.99, 0.97},
    {"carve_nob", "carve_nob_sample", 0, "nomoov", 0.99, 0.97},
    {"carve_aud", "carve_aud_sample", 0, "nomoov", 0.99, 0.97},
    {"carve_slices", "carve_slices_sample", 1, "nomoov", 0.99, 0.97},
    {"carve_silent", "carve_silent_sample", 0, "nomoov", 0.99, -1},
    // 64 KiB of zeros or noise in the media data.
    {"carve_aac48", "carve_aac48_tone_sample", 0, "zeros", 0.99, 0.9},
    {"carve_aac48", "carve_aac48_sample", 1, "random", 0.99, 0.9},
};

// A work file of the carve.
QByteArray workFile(const QString &work, const char *name)
{
    return readAll(work + "/Repaired/" + QString(name).mid(1));
}
} // namespace

class TestCarve : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void adtsHeaders()
    {
        pApp.reset();
        auto length = [] { return (pApp.nAdtsBytes[3] & 3) << 11 | pApp.nAdtsBytes[4] << 3 | pApp.nAdtsBytes[5] >> 5; };
        // Rate, channels, payload: the rate's index, the channels written, the frame length.
        const struct { quint32 rate, channels; int payload; quint32 index, written, length; } rows[] = {
            {48000, 2, 200, 3, 2, 207}, {48000, 2, 0, 3, 2, 7}, {48000, 2, 8184, 3, 2, 8191},
            {1000, 1, 100, 3, 2, 107}, // mono is written as two channels; 1000 Hz means unknown: 48000
            {44100, 2, 300, 4, 2, 307},
        };
        for (const auto &r : rows) {
            pApp.nSoundSampleRate = r.rate;
            pApp.nSoundChannels = r.channels;
            QVERIFY(adts::BuildAdtsHeader(r.payload));
            const quint32 *b = pApp.nAdtsBytes;
            QVERIFY2((b[0] << 8 | b[1]) == 0xFFF1u && ((b[2] >> 2) & 0xF) == r.index
                         && ((b[2] & 1) << 2 | b[3] >> 6) == r.written && length() == r.length
                         && pApp.nSoundSampleRate == (r.rate == 1000 ? 48000u : r.rate),
                     qPrintable(QStringLiteral("%1 Hz, %2 bytes").arg(r.rate).arg(r.payload)));
        }
        // Whole headers; a length past 13 bits widens its field, and the H.264 and HEVC
        // variant pads it to whole digits.
        const struct { quint32 payload; adts::Variant variant; quint32 bytes[7]; } exact[] = {
            {200, adts::Variant::Mpeg4, {0xFF, 0xF1, 0x4C, 0x80, 0x19, 0xFF, 0xFC}},
            {8185, adts::Variant::H264Hevc, {0x1F, 0xFE, 0x29, 0x90, 0x40, 0x01, 0xFF}},
            {8185, adts::Variant::Mpeg4, {0xFF, 0xF1, 0x4C, 0x82, 0x00, 0x0F, 0xFE}},
            {20000, adts::Variant::H264Hevc, {0x3F, 0xFC, 0x53, 0x20, 0x9C, 0x4F, 0xFF}},
        };
        for (const auto &w : exact) {
            pApp.nSoundSampleRate = 48000;
            QVERIFY(adts::BuildAdtsHeader(w.payload, w.variant));
            QVERIFY(std::equal(w.bytes, w.bytes + 7, pApp.nAdtsBytes));
        }
        pApp.nSoundSampleRate = 12345; // no AAC index: refused, not a crash
        QVERIFY(!adts::BuildAdtsHeader(300));
    }

    void mp3FrameLengths()
    {
        // MPEG 1 layer III 128k 44.1k, padded, at 48 kHz; MPEG 2 layer III 80k 22.05k;
        // layer II 160k padded (adds 4); then layer I, reserved version, bad bit
        // rate, reserved rate and no sync: no frame.
        const quint8 rows[][4] = {{0xFF, 0xFB, 0x90}, {0xFF, 0xFB, 0x92}, {0xFF, 0xFB, 0x94}, {0xFF, 0xF3, 0x90},
                                  {0xFF, 0xFD, 0x92}, {0xFF, 0xFF, 0x90}, {0xFF, 0xEB, 0x90}, {0xFF, 0xFB, 0xF0},
                                  {0xFF, 0xFB, 0x9C}, {0x00, 0xFB, 0x90}};
        const int want[] = {417, 418, 384, 261, 526, -1, -1, -1, -1, -1};
        for (int i = 0; i < 10; ++i)
            QCOMPARE(Mp3FrameLength(rows[i]), want[i]);
        QCOMPARE(pApp.nMp3FrameLength, -1);
    }

    void uniqueLists()
    {
        QTemporaryDir d;
        pApp.reset();
        pApp.strWorkBase = d.path();
        ThreadVideoRepair t;
        CarverArgs a;
        a.strVideoHeads = d.filePath("heads.bin");
        auto run = [&](const QByteArray &in) {
            mov::write(a.strVideoHeads, in);
            t.WriteUniqueSequences(true, a);
            return readAll(a.strVideoUnique);
        };
        QByteArray many;
        for (quint32 i = 0; i < 10001; ++i)
            many += QByteArray(1, char(i >> 16)) + char(i >> 8) + char(i);
        many += many.left(30); // repeats change nothing
        const QByteArray out = run(many);
        QCOMPARE(out, many.left(30000));
        QCOMPARE(run("abcd"), QByteArray("abc"));       // a short tail is dropped
        QCOMPARE(run(QByteArray()), QByteArray());
        QCOMPARE(run("xyzxyzxyz"), QByteArray("xyz"));
        QCOMPARE(run("abcxyzabcdef"), QByteArray("abcxyzdef")); // order of first appearance
        QFile::remove(a.strVideoHeads);
        QCOMPARE(run(QByteArray()), QByteArray()); // missing input: empty output
    }

    void headListInMemoryWalksLikeTheFile()
    {
        // Random lists (with repeats and a short last record) and random
        // questions: both walks must answer alike, every time.
        QTemporaryDir d;
        QRandomGenerator rng(77);
        for (int round = 0; round < 30; ++round) {
            QByteArray list;
            const int n = int(rng.bounded(1, 60));
            for (int i = 0; i < n * 3 + int(rng.bounded(3)); ++i)
                list += char(rng.bounded(4)); // a small alphabet makes matches frequent
            const QString path = d.filePath(QString::number(round));
            mov::write(path, list);
            MemoryHeadList mem(list);
            DiskHeadList disk(path);
            for (int q = 0; q < 3000; ++q) {
                if (rng.bounded(50) == 0) {
                    mem.reset();
                    disk.reset();
                }
                quint8 b[3] = {quint8(rng.bounded(4)), quint8(rng.bounded(4)), quint8(rng.bounded(4))};
                QCOMPARE(mem.match(b), disk.match(b));
            }
        }
    }

    void firstRunRemuxesAUsableIndex()
    {
        VM_FIXTURE(healthy, fixtures::healthy("carve_aac48.mov"));
        VM_FIXTURE(noMoov, fixtures::moovRemoved(healthy));
        QTemporaryDir work;
        const Outcome r = repairIn(healthy, work.path());
        QCOMPARE(r.status, QString("Completed"));
        const fixtures::Streams p = probe(r.output), h = probe(healthy);
        QVERIFY(p.video == h.video && p.audio == h.audio);
        QCOMPARE(repairIn(noMoov, work.path()).status, QString("Awaiting Action"));
    }

    void sampleRunsRepair()
    {
        for (const SampleRun &run : kRuns) {
            const QString name = run.name, sample = run.sample, damage = run.damage;
            const double chunk = run.chunk, minVideo = run.video, minAudio = run.audio;
            const QString ext = name.contains("mp3") ? ".mp4" : ".mov"; // ffmpeg puts MP3 in mp4a only in mp4
            auto laidOut = [&](const QString &path) { return chunk > 0 ? fixtures::cameraLayout(path, chunk) : path; };
            VM_FIXTURE(healthy, laidOut(fixtures::healthy(name + ext)));
            VM_FIXTURE(samplePath, laidOut(fixtures::healthy(sample + ext)));
            QString damaged;
            quint64 from = 0, to = 0, end = ~quint64(0);
            if (damage == "nomoov") {
                damaged = fixtures::moovRemoved(healthy);
            } else if (damage == "moovzero") {
                damaged = fixtures::moovZeroed(healthy);
            } else if (damage == "stopped") {
                // A recording that stopped before its end was written: mdat size 0, no moov.
                damaged = fixtures::mdatSizeZero(fixtures::moovRemoved(healthy));
            } else if (damage == "cut") {
                damaged = fixtures::cutAt(healthy, 70);
                end = quint64(QFileInfo(damaged).size());
            } else {
                damaged = fixtures::moovRemoved(fixtures::damagedMiddle(healthy, damage == "random", &from));
                to = from + (64 << 10);
            }
            QVERIFY(!damaged.isEmpty());
            const QByteArray before = digest(damaged), sampleBefore = digest(samplePath);
            QTemporaryDir work;
            const QString tag = QStringLiteral("%1 / %2, %3 s chunks, %4").arg(name, sample).arg(chunk).arg(damage);
            QVERIFY2(repairIn(damaged, work.path()).status == "Awaiting Action", qPrintable(tag));
            const Outcome r = repairIn(damaged, work.path(), samplePath);
            QVERIFY2(r.status == "Completed", qPrintable(tag));
            const fixtures::Streams p = probe(r.output);
            const int intact = intactVideo(healthy, from, to, end);
            QString errors;
            const int decoded = frameHashes(r.output, &errors).size();
            qInfo().noquote() << tag << QStringLiteral("video %1 packets of %2 intact, %3 decoded; audio %4 s of %5 s")
                                     .arg(p.video).arg(intact).arg(decoded).arg(p.audioSeconds).arg(p.videoSeconds);
            QVERIFY2(p.video >= int(minVideo * intact), qPrintable(QString::number(p.video)));
            if (from == to) {
                // Every packet decodes, the B-frames at the start too.
                QVERIFY2(decoded >= int(minVideo * intact), qPrintable(QString::number(decoded)));
                // A cut leaves its last unit short.
                QVERIFY2(damage == "cut" || !errors.contains("error while decoding"), qPrintable(errors.left(400)));
            } else {
                // Frames that refer to what the damage took can't be decoded.
                QVERIFY(decoded >= p.video / 2);
            }
            if (minAudio < 0) {
                QCOMPARE(p.audio, -1);
            } else {
                QVERIFY(p.audio > 0);
                QVERIFY2(p.audioSeconds >= minAudio * p.videoSeconds, qPrintable(QString::number(p.audioSeconds)));
            }
            QCOMPARE(digest(damaged), before);
            QCOMPARE(digest(samplePath), sampleBefore);
        }
    }

    void carvedAacFramesEqualFfmpegs()
    {
        // Every ADTS frame the carve writes should be the very frame ffmpeg
        // writes for the same sound: same header, same payload, in ffmpeg's
        // chunks and in a camera's.
        VM_FIXTURE(plain, fixtures::healthy("carve_aac48.mov"));
        VM_FIXTURE(plainSample, fixtures::healthy("carve_aac48_sample.mov"));
        for (bool camera : {false, true}) {
            const QString healthy = camera ? fixtures::cameraLayout(plain) : plain;
            const QString sample = camera ? fixtures::cameraLayout(plainSample) : plainSample;
            VM_FIXTURE(noMoov, fixtures::moovRemoved(healthy));
            QTemporaryDir work;
            repairIn(noMoov, work.path(), sample, {"--keep-work-files"});
            QByteArray ref;
            QVERIFY(ffmpeg({"-i", healthy, "-c:a", "copy", "-f", "adts", "-"}, &ref));
            const QList<QByteArray> carved = adtsFrames(workFile(work.path(), workfiles::kAudioAac)), reference = adtsFrames(ref);
            QVERIFY(!reference.isEmpty());
            int same = 0;
            for (const QByteArray &c : carved)
                same += reference.contains(c);
            qInfo() << "carved" << carved.size() << "frames," << same << "byte-identical to ffmpeg's, of" << reference.size();
            QVERIFY(same >= int(0.95 * carved.size()));
            QVERIFY(same >= int(0.97 * reference.size()));
        }
    }

    void fillIsSteppedOver()
    {
        // 600 bytes of FF, then 40 KiB of zeros, behind the mdat header: the
        // walk passes them in blocks and starts at the first unit behind.
        VM_FIXTURE(healthy, fixtures::healthy("carve_silent.mov"));
        VM_FIXTURE(sample, fixtures::healthy("carve_silent_sample.mov"));
        VM_FIXTURE(noMoov, fixtures::moovRemoved(healthy));
        QByteArray d = readAll(noMoov);
        const int mdat = d.indexOf("mdat") + 4;
        QVERIFY(mdat > 8);
        insertIntoMdat(d, mdat, QByteArray(600, '\xff') + QByteArray(40 << 10, '\0'));
        QTemporaryDir work;
        const QString path = work.filePath("filled.mov");
        QVERIFY(mov::write(path, d));
        const Outcome r = repairIn(path, work.path(), sample);
        QCOMPARE(r.status, QString("Completed"));
        QCOMPARE(probe(r.output).video, probe(healthy).video);
    }

    void unitsNearSixteenMegabytes()
    {
        // A length prefix opens with 00 only below 16 MiB. A unit of 16 MiB - 1
        // is a unit like any other; one of 16 MiB + 100 isn't one, and the walk
        // must pass its bytes and find every unit behind it.
        VM_FIXTURE(healthy, fixtures::healthy("carve_aac48.mov"));
        VM_FIXTURE(sample, fixtures::healthy("carve_aac48_sample.mov"));
        VM_FIXTURE(noMoov, fixtures::moovRemoved(healthy));
        const QByteArray clip = readAll(noMoov);
        // Before the 60th video packet of the healthy file (positions agree:
        // the moov was at the end).
        const QVector<fixtures::Packet> video = fixtures::packets(healthy).value(0);
        QVERIFY(video.size() > 60);
        const int at = int(video.at(60).pos);
        QVERIFY(at > 0 && at < clip.size());
        const fixtures::Streams whole = probe(healthy);
        QRandomGenerator rng(9);
        for (quint32 len : {(1u << 24) - 1, (1u << 24) + 100}) {
            // Bytes 80..FE: no length prefix, no fill, no learned head inside.
            QByteArray unit = mov::be32(len) + char(0x41);
            unit.reserve(int(len) + 4);
            while (unit.size() < int(len) + 4)
                unit.append(char(0x80 + rng.bounded(0x7f)));
            QByteArray d = clip;
            insertIntoMdat(d, at, unit);
            QTemporaryDir work;
            const QString path = work.filePath("big.mov");
            QVERIFY(mov::write(path, d));
            QCOMPARE(repairIn(path, work.path(), sample, {"--keep-work-files"}).status, QString("Completed"));
            const qint64 stream = workFile(work.path(), workfiles::kVideoH264).size();
            const fixtures::Streams r = probe(work.filePath("Repaired/big.mov"));
            qInfo() << "unit of" << len << "bytes: video stream" << stream << "bytes," << r.video << "packets";
            if (len < (1u << 24)) {
                QVERIFY(stream > qint64(len));
            } else {
                QVERIFY(stream < qint64(len));
                QCOMPARE(r.video, whole.video);
            }
            QVERIFY(r.video >= whole.video);
        }
    }

    void learnedHeadsLoseNothing()
    {
        // Every unit and every sound frame that the sample's list alone finds
        // (of those ffmpeg reads from the healthy file) is found with the
        // learned heads added: frame chunks with a soft-tone sample, half-second
        // chunks of changing sound, mono.
        const struct { const char *name, *sample; double chunk; } rows[] = {
            {"carve_aac48", "carve_aac48_tone_sample", 0}, {"carve_mixed", "carve_aac48_sample", 0.5},
            {"carve_mono", "carve_mono_sample", 0}};
        for (const auto &row : rows) {
            const QString name = row.name, sample = row.sample;
            const double chunk = row.chunk;
            auto laidOut = [&](const QString &path) { return chunk > 0 ? fixtures::cameraLayout(path, chunk) : path; };
            VM_FIXTURE(healthy, laidOut(fixtures::healthy(name + ".mov")));
            VM_FIXTURE(samplePath, laidOut(fixtures::healthy(sample + ".mov")));
            VM_FIXTURE(noMoov, fixtures::moovRemoved(healthy));
            QTemporaryDir work;
            QList<QByteArray> units[2], frames[2];
            for (int learn : {0, 1}) {
                const QString at = work.filePath(QString::number(learn));
                carveOnly(noMoov, samplePath, at, learn);
                units[learn] = unitsOf(workFile(at, workfiles::kVideoH264));
                frames[learn] = adtsFrames(workFile(at, workfiles::kAudioAac));
            }
            const QString annexB = work.filePath("ref.h264"), adts = work.filePath("ref.aac");
            QVERIFY(ffmpeg({"-i", healthy, "-c", "copy", "-map", "0:v", "-bsf:v", "h264_mp4toannexb", annexB, "-map", "0:a", adts}));
            const QList<QByteArray> refUnits = unitsOf(readAll(annexB)), refFrames = adtsFrames(readAll(adts));
            const QSet<QByteArray> realUnits(refUnits.begin(), refUnits.end()), realFrames(refFrames.begin(), refFrames.end());
            const QSet<QByteArray> withUnits(units[1].begin(), units[1].end()), withFrames(frames[1].begin(), frames[1].end());
            int lostUnits = 0, lostFrames = 0;
            for (const QByteArray &u : units[0])
                lostUnits += realUnits.contains(u) && !withUnits.contains(u);
            for (const QByteArray &f : frames[0])
                lostFrames += realFrames.contains(f) && !withFrames.contains(f);
            qInfo() << "without learning" << units[0].size() << "units," << frames[0].size() << "frames; with"
                    << units[1].size() << "units," << frames[1].size() << "frames";
            QVERIFY2(lostUnits == 0 && lostFrames == 0, row.name);
        }
    }

    void atomTagsThatDontFitAreMedia()
    {
        // Eight bytes that read as an atom header, between two chunks of the
        // media data, with a size that runs past the file (1.1 GB) or past
        // the mdat around them: they are media, and nothing behind them is lost.
        VM_FIXTURE(healthy, fixtures::healthy("carve_aac48.mov"));
        VM_FIXTURE(sample, fixtures::healthy("carve_aac48_sample.mov"));
        VM_FIXTURE(noMoov, fixtures::moovRemoved(healthy));
        const QVector<fixtures::Packet> video = fixtures::packets(healthy).value(0);
        QVERIFY(video.size() > 60);
        for (const char *tag : {"ftyp", "moov", "free", "skip", "moof", "wide"})
            for (bool pastFile : {true, false}) {
                QByteArray d = readAll(noMoov);
                const int at = int(video.at(60).pos);
                const int mdatEnd = d.size(); // the moov that followed is gone
                insertIntoMdat(d, at, QByteArray(8, '\0'));
                // A top-level atom behind the media data, so that "past the mdat" stays inside the file.
                d += mov::atom("free", QByteArray(4096, '\0'));
                const quint32 size = pastFile ? 0x41000000u : quint32(mdatEnd + 8 - at + 16);
                d.replace(at, 8, mov::be32(size) + tag);
                QTemporaryDir work;
                const QString path = work.filePath("tagged.mov");
                QVERIFY(mov::write(path, d));
                carveOnly(path, sample, work.path());
                const int units = unitsOf(workFile(work.path(), workfiles::kVideoH264)).size();
                QVERIFY2(units >= video.size(), qPrintable(QStringLiteral("%1 %2: %3").arg(tag).arg(pastFile).arg(units)));
            }
    }

    void wreckedMediaDataEndsTheCarve()
    {
        // Rounds of random harm to recordings without their moov (AAC, mono
        // AAC, MP3): noise, blanks, lengths of up to 4 GB, atom tags with sizes
        // of 0, 1 or near 4 GB in the middle of the media data, a cut. Under
        // the sanitizers each carve must end, on its own, without a bad read,
        // and the quick walk (head lookup, runs passed at once, kernel copies)
        // must write what the plain one-position-at-a-time walk writes.
        QStringList samples;
        QList<QByteArray> clips;
        for (const QString name : {"carve_aac48.mov", "carve_mono.mov", "carve_mp3.mp4"}) {
            VM_FIXTURE(healthy, fixtures::healthy(name));
            VM_FIXTURE(sample, fixtures::healthy(name.section('.', 0, 0) + "_sample." + name.section('.', 1)));
            VM_FIXTURE(noMoov, fixtures::moovRemoved(healthy));
            clips << readAll(noMoov);
            samples << sample;
        }
        QRandomGenerator rng(2024);
        QTemporaryDir work;
        const QString file = work.filePath("wrecked.mov");
        const char *const tags[] = {"moov", "moof", "free", "mdat", "skip", "wide", "trun"};
        for (int round = 0; round < 60; ++round) {
            QByteArray d = clips[round % 3];
            const QString sample = samples[round % 3];
            const int harms = int(rng.bounded(1, 12));
            for (int h = 0; h < harms; ++h) {
                const int at = int(rng.bounded(40, d.size() - 16));
                switch (rng.bounded(4)) {
                case 0: { // noise or a blank stretch
                    const int len = qMin(int(rng.bounded(1, 70000)), d.size() - at);
                    const int kind = int(rng.bounded(3));
                    for (int i = 0; i < len; ++i)
                        d[at + i] = kind == 0 ? char(rng.bounded(256)) : kind == 1 ? '\0' : '\xff';
                    break;
                }
                case 1: // an absurd length before a slice header
                    d.replace(at, 5, mov::be32(rng.generate() | 0x00F00000u >> rng.bounded(8) * 4) + char(0x65));
                    d[at] = rng.bounded(2) ? '\0' : d[at];
                    break;
                case 2: { // an atom where there is none
                    const quint32 sizes[] = {0, 1, 8, 0xFFFFFFF0u, rng.generate()};
                    d.replace(at, 8, mov::be32(sizes[rng.bounded(5)]) + tags[rng.bounded(7)]);
                    break;
                }
                default: // a lone head of sound
                    d.replace(at, 3, QByteArray("\x21\x1a\x8f", 3));
                    break;
                }
            }
            if (round % 4 == 3)
                d.truncate(int(rng.bounded(d.size() / 2, d.size())));
            QVERIFY(mov::write(file, d));
            // The quick walk and the plain walk, which must agree here too.
            QList<QByteArray> sums[2];
            for (int reference : {0, 1}) {
                const QString at = work.filePath(QStringLiteral("%1-%2").arg(round).arg(reference));
                carveOnly(file, sample, at, true, reference);
                const QString rep = at + "/Repaired/";
                qint64 stream = 0;
                for (const char *name : {workfiles::kVideoH264, workfiles::kAudioAac}) {
                    stream += QFileInfo(rep + QString(name).mid(1)).size();
                    sums[reference] << digest(rep + QString(name).mid(1));
                }
                // Nothing much bigger than the input comes out of it.
                QVERIFY2(stream <= 2 * d.size() + 100000, qPrintable(QString::number(stream)));
            }
            QVERIFY2(sums[0] == sums[1], qPrintable(QStringLiteral("round %1").arg(round)));
        }
    }

    void fullDiskEndsFailedWithNothingLeft()
    {
        // Files of a child may not grow past 64 KB: the carved video stream
        // can't be written whole, so there is no result, the work files go,
        // and the log says why.
        VM_FIXTURE(healthy, fixtures::healthy("carve_aac48.mov"));
        VM_FIXTURE(sample, fixtures::healthy("carve_aac48_sample.mov"));
        VM_FIXTURE(noMoov, fixtures::moovRemoved(healthy));
        QTemporaryDir work;
        QByteArray out, err;
        const int status = media::cliWithFileLimit(
            64 << 10, {"repair", "--verbose", "--work", work.path(), "--sample", sample, "--", noMoov}, &out, &err);
        if (status < 0)
            QSKIP("no file size limit here");
        QCOMPARE(status, 1);
        QVERIFY(out.startsWith("Failed"));
        QVERIFY(err.contains("Could not write the carved video stream: File too large"));
        QCOMPARE(QDir(work.filePath("Repaired")).entryList(QDir::Files), QStringList());
    }

    void badSamplesGiveAnHonestVerdict()
    {
        VM_FIXTURE(healthy, fixtures::healthy("carve_aac48.mov"));
        VM_FIXTURE(noMoov, fixtures::moovRemoved(healthy));
        VM_FIXTURE(hevc, fixtures::healthy("carve_hevc_sample.mov"));
        QTemporaryDir work;
        // An HEVC sample names a chain that isn't built: the file keeps waiting.
        QCOMPARE(repairIn(noMoov, work.path(), hevc).status, QString("Awaiting Action"));
        // A sample of another frame size: its parameter sets don't fit the
        // frames, but the run still ends with a verdict and a playable file.
        VM_FIXTURE(wide, fixtures::healthy("carve_wide_sample.mov"));
        const Outcome w = repairIn(noMoov, work.path(), wide);
        QVERIFY(w.status == "Completed" || w.status == "Failed");
        // Random bytes as a sample: nothing to learn, no result.
        const QString noise = work.filePath("noise.mov");
        mov::write(noise, media::noise(300000, 3));
        QCOMPARE(repairIn(noMoov, work.path(), noise).status, QString("Awaiting Action"));
        // A damaged file of random bytes with a good sample: ends, and says it failed.
        const Outcome r = repairIn(noise, work.path(), fixtures::healthy("carve_aac48_sample.mov"));
        QVERIFY(r.status == "Failed" || r.status == "Awaiting Action");
    }

    void harvestEdgeCases()
    {
        // One-entry tables: an stco gives no signatures, a co64 walks its chunk.
        using namespace mov;
        QTemporaryDir d;
        auto sampleWith = [&](const char *table, bool zeroLength) {
            // mdat: a chunk of three NAL units (a 2-byte delimiter, then two slices).
            QByteArray chunk = be32(2) + QByteArray("\x09\xf0", 2) + be32(5) + QByteArray("\x65\x88\x84\x00\x01", 5);
            chunk += zeroLength ? be32(0) + QByteArray(8, '\0') : be32(4) + QByteArray("\x41\x9a\x02\x03", 4);
            const QByteArray mdat = atom("mdat", chunk);
            const int chunkAt = ftyp().size() + 8;
            const QByteArray entry = QByteArray(table) == "co64" ? be32(0) + be32(quint32(chunkAt)) : be32(quint32(chunkAt));
            const QByteArray tbl = atom(table, zeros(4) + be32(1) + entry);
            const QByteArray avcC = atom("avcC", QByteArray("\x01\x64\x00\x1f\xff\xe1", 6) + be16(4)
                                                     + QByteArray("\x67\x64\x00\x1f", 4) + char(1) + be16(2)
                                                     + QByteArray("\x68\xee", 2));
            const QByteArray entryAtom = atom("avc1", zeros(6) + be16(1) + zeros(70) + avcC);
            const QByteArray stbl = atom("stbl", stsd(entryAtom) + stts(1001) + atom("stsz", zeros(4) + be32(0) + be32(1) + be32(20)) + tbl);
            const QString path = d.filePath(QString(table) + (zeroLength ? "z.mov" : ".mov"));
            write(path, ftyp() + mdat + moov({trakAround(stbl)}));
            return path;
        };
        RepairState s;
        auto harvest = [&](const QString &sample) {
            s.reset();
            s.strWorkBase = d.path();
            s.bSampleRun = true;
            carve::Env env{s, nullptr, QFileInfo(sample).fileName()};
            CarverArgs a;
            a.strSample = sample;
            a.strSource = sample;
            carve::HarvestH264Sample(carve::H264CarverRow(12), a, env);
            a.fpVideo.reset();
            return readAll(workfiles::PathIn(d.path(), workfiles::kVideoHeads));
        };
        QCOMPARE(harvest(sampleWith("stco", false)), QByteArray());
        // co64: the first unit counts twice, then each unit of the chain.
        const QByteArray walked = harvest(sampleWith("co64", false));
        QCOMPARE(walked.left(6), QByteArray("\x09\xf0\x00\x09\xf0\x00", 6));
        QVERIFY(walked.contains(QByteArray("\x65\x88\x84", 3)));
        QVERIFY(walked.contains(QByteArray("\x41\x9a\x02", 3)));
        // A zero length ends the walk of the chunk.
        QVERIFY(!harvest(sampleWith("co64", true)).contains(QByteArray("\x41\x9a\x02", 3)));
        // The head of the video stream: start code, SPS, start code, PPS.
        QCOMPARE(readAll(workfiles::PathIn(d.path(), workfiles::kVideoH264)), QByteArray("\0\0\0\1\x67\x64\x00\x1f\0\0\0\1\x68\xee", 14));
    }
};

QTEST_GUILESS_MAIN(TestCarve)
#include "tst_carve.moc"
