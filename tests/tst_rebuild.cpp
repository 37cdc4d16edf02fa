// The rebuilt MOV: a healthy recording's packets listed in a work log as the
// scanners list them, rebuilt with the recording's own figures, then read
// back by an atom walker of the test's own and by ffmpeg.

#include "rebuild/RebuildStages.h"
#include "repair/RepairLine.h"
#include "repair/ThreadVideoRepair.h"
#include "support/MediaCompare.h"
#include "support/MovBuilder.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>
#include <algorithm>

namespace {
struct Line { bool video; quint64 pos, size; };
using Log = QVector<Line>;
enum Pick { Whole, VideoOnly, EndsInSound, Empty, Absurd, Head };
enum Flag { Decode = 1, Muxed = 2, Stop = 4, Stsd700 = 8, ZeroScales = 16 };
struct Case
{
    const char *name;
    int ftyp; // -1: the recording's own (20 bytes); 0: zeroed; else one of this size
    Pick pick;
    int flags = 0;
    quint32 code = 0, soundDelta = 1024;
    int ctts[3] = {-1, 0, 0};
};
const Case kCases[] = {
    {"whole", -1, Whole, Decode},
    {"time scales from the damaged moov", -1, Whole, Decode | ZeroScales},
    {"no ftyp", 0, Whole, Decode},
    {"24-byte ftyp", 24, Whole, Decode},
    {"60-byte ftyp", 60, Whole},
    {"empty log", -1, Empty},
    {"video only", -1, VideoOnly, Decode},
    {"ends in sound", -1, EndsInSound},
    {"ctts 2,1", -1, Head, 0, 0, 1024, {1024, 512, 512}},
    {"ctts offset1 0", -1, Head, 0, 0, 1024, {0, 1024, 512}},
    {"code 5", -1, Whole, 0, 5, 1},
    {"code 16", -1, Whole, 0, 16, 48000},
    {"code 14", -1, Whole, 0, 14, 960},
    {"700-byte stsd", -1, VideoOnly, Stsd700},
    {"muxed", -1, Whole, Muxed},
    {"stop mid-copy", -1, Whole, Stop},
    {"absurd size and offset", -1, Absurd},
};

using media::readAll;

// Each packet's "size, md5" as ffmpeg gives them: pictures decoded, sound as stored.
QStringList md5s(const QString &path, bool video)
{
    QStringList lines = media::run(fixtures::ffmpeg(), {"-v", "quiet", "-i", path, "-map", video ? "0:v:0" : "0:a:0", "-c",
                                                        video ? "rawvideo" : "copy", "-f", "framemd5", "-"})
                            .split('\n').filter(QRegularExpression("^\\d"));
    return lines.replaceInStrings(QRegularExpression("^([^,]*,){4}"), QString());
}

// Runs of one kind of line: first line and length.
QVector<QPair<int, int>> runs(const Log &log, bool video)
{
    QVector<QPair<int, int>> r;
    for (int i = 0; i < log.size(); ++i)
        if (log[i].video == video)
            (i && log[i - 1].video == video) ? void(++r.last().second) : r.append({i, 1});
    return r;
}

// Atoms by path ("moov/trak2/mdia/mdhd"); for each container, what its size
// declares beyond its children.
struct Atoms
{
    QByteArray d;
    QHash<QString, quint64> at;
    QHash<QString, qint64> gap;
    quint64 u32(quint64 p) const { return p + 4 <= quint64(d.size()) ? qFromBigEndian<quint32>(d.data() + p) : 0; }
    quint64 u64(quint64 p) const { return u32(p) << 32 | u32(p + 4); }
    quint64 f(const QString &atom, int off) const { return at.contains(atom) ? u32(at[atom] + off) : ~0ull; }
    quint64 walk(quint64 p, quint64 end, const QString &path)
    {
        for (int traks = 0; p + 8 <= end;) {
            const QString type = QString::fromLatin1(d.mid(int(p) + 4, 4));
            const quint64 size = u32(p) == 1 ? u64(p + 8) : u32(p);
            const QString key = path + type + (type == "trak" ? QString::number(++traks) : QString());
            at[key] = p;
            if (QStringList{"moov", "trak", "edts", "mdia", "minf", "dinf", "stbl"}.contains(type))
                gap[key] = qint64(p + size - walk(p + 8, qMin(p + size, quint64(d.size())), key + "/"));
            p += qMax<quint64>(size, 8);
        }
        return p;
    }
    // A table: the count at `first` - 4, then `fields` numbers an entry.
    QVector<quint64> table(const QString &atom, int first, int fields, bool wide = false) const
    {
        QVector<quint64> e;
        for (quint64 i = 0, n = at.contains(atom) ? f(atom, first - 4) * fields : 0; i < n; ++i)
            e << (wide ? u64(at[atom] + first + i * 8) : u32(at[atom] + first + i * 4));
        return e;
    }
};
} // namespace

class TestRebuild : public QObject
{
    Q_OBJECT
    QTemporaryDir m_dir;

private Q_SLOTS:
    void rebuildsFromTheLog()
    {
        VM_FIXTURE(healthy, fixtures::healthy("carve_nob.mov"));
        const auto streams = fixtures::packets(healthy);
        Log all;
        for (int s = 0; s < streams.size(); ++s)
            for (const fixtures::Packet &p : streams[s])
                all << Line{s == 0, p.pos, p.size};
        std::sort(all.begin(), all.end(), [](const Line &a, const Line &b) { return a.pos < b.pos; });
        while (!all.first().video)
            all.removeFirst();
        // The last sound chunk gets the count of the run before: the whole log
        // ends in a picture where that count is no smaller.
        for (auto r = runs(all, false); !all.last().video || r.last().second > r[r.size() - 2].second;
             r = runs(all, false))
            all.removeLast();
        const QStringList wantVideo = md5s(healthy, true);

        for (const Case &c : kCases) {
            const QString name = c.name, logPath = m_dir.filePath("log"), out = m_dir.filePath("out.mov");
            const bool muxed = c.flags & Muxed, stop = c.flags & Stop, stsd700 = c.flags & Stsd700;
            QString damaged = c.ftyp == 0 ? fixtures::ftypZeroed(healthy) : healthy;
            if (c.ftyp > 0) {
                damaged = m_dir.filePath(name);
                mov::write(damaged, mov::be32(quint32(c.ftyp)) + "ftypqt  " + mov::be32(0x200)
                                        + QByteArray("qt  ").repeated((c.ftyp - 16) / 4) + readAll(healthy).mid(20));
            }
            const QByteArray source = readAll(damaged);
            const quint64 fileSize = quint64(source.size()), shift = quint64(qMax(0, c.ftyp - 20));
            Log log = c.pick == Empty ? Log() : all;
            if (c.pick == VideoOnly)
                log.erase(std::remove_if(log.begin(), log.end(), [](const Line &l) { return !l.video; }), log.end());
            while ((c.pick == EndsInSound && log.last().video) || (c.pick == Head && log.size() > 10))
                log.removeLast();
            if (c.pick == Absurd)
                log << Line{true, 100, quint64(1) << 40} << Line{false, fileSize + 10, 100};
            RepairLine cipher;
            QByteArray text = "FrameWidth = 320\r\nnot a line of ours\r\n";
            for (const Line &l : log)
                text += cipher.EncryptLine(QStringLiteral("%1 at = %2 Size = %3").arg(l.video ? "AVC(Vide)" : "AAC(soun)")
                                               .arg(l.pos + shift).arg(l.size)).toLatin1() + "\r\n";
            QVERIFY(mov::write(logPath, text));

            pApp.reset();
            ThreadVideoRepair t;
            QVERIFY(t.ScanSampleFile(healthy) && t.pSource.open(damaged));
            pApp.ullFileSize = fileSize, pApp.nFormatCode = c.code, pApp.bMuxedResult = muxed;
            pApp.bHasCtts = c.ctts[0] >= 0, pApp.nCttsOffset1 = uint(c.ctts[0]);
            pApp.nCttsOffset2 = uint(c.ctts[1]), pApp.nCttsOffset3 = uint(c.ctts[2]);
            if (stsd700)
                pApp.nVideoStsdSize = 700, t.pVideoStsd = QByteArray(2800, 'x');
            if (c.flags & ZeroScales)
                pApp.nTimeScaleVideo = pApp.TimeScaleSound = 0;
            struct StopAfter : rebuild::Progress {
                int left = 10;
                void setValue(qint64) override { pApp.bStopRepair = pApp.bStopRepair || --left == 0; }
            } progress;
            rebuild::Env env{pApp, t.pSource, t.pOutput, t.pVideoStsd, t.pSoundStsd, t.lstVideoChunkSamples,
                             t.lstSoundChunkSamples, stop ? &progress : nullptr, QString()};
            QFile::remove(out);
            rebuild::WriteRebuiltFile(env, logPath, out);
            QCOMPARE(pApp.lstRepairedFiles, QStringList{out});
            QVERIFY2(QFile::exists(out) != muxed && !t.pOutput && t.pVideoStsd.isEmpty() != muxed, c.name);
            if (muxed)
                continue;

            // Layout: lead, an mdat of the logged (or copied) bytes, the moov to the end.
            const int lead = c.ftyp > 0 ? c.ftyp : c.ftyp == 0 ? 32 : 20;
            Atoms a;
            a.d = readAll(out);
            const QByteArray ftyp = mov::atom("ftyp", "qt  " + mov::be32(0x20050300) + "qt  " + mov::zeros(12));
            QCOMPARE(a.d.left(lead), c.ftyp == 0 ? ftyp : lead >= 50 ? QByteArray(lead, 0) : source.left(lead));
            const qint64 beyond = qint64(a.walk(quint64(lead), quint64(a.d.size()), "")) - a.d.size();
            quint64 logged = 0, copied = 0;
            for (int i = 0; i < log.size(); ++i)
                logged += log[i].size, copied += i < 10 ? log[i].size : 0;
            QCOMPARE(a.at.value("mdat"), quint64(lead));
            QCOMPARE(a.u64(quint64(lead) + 8), 16 + (stop ? copied : qMin(logged, fileSize)));
            for (auto g = a.gap.cbegin(); g != a.gap.cend(); ++g) // a long stsd is left out, yet counted
                QVERIFY2(g.value() == (stsd700 && g.key() == "moov/trak1/mdia/minf/stbl" ? 700 : 0), c.name);
            QCOMPARE(beyond, stsd700 ? 700 : 0);
            QVERIFY2(quint64(a.d.size()) <= fileSize + quint64(lead) + 16 + a.f("moov", 0), c.name);

            // Each track's tables against the log.
            const int vLines = int(std::count_if(log.begin(), log.end(), [](const Line &l) { return l.video; }));
            const int sLines = log.size() - vLines;
            QCOMPARE(a.at.contains("moov/trak2"), sLines > 0);
            for (int track = 1; track <= (sLines ? 2 : 1); ++track) {
                const bool video = track == 1, pcm = !video && c.code == 5;
                const QString mdia = QStringLiteral("moov/trak%1/mdia/").arg(track), stbl = mdia + "minf/stbl/";
                QVector<quint64> sizes;
                quint64 frames = 0;
                for (const Line &l : log)
                    if (l.video == video)
                        sizes << quint32(l.size), frames += l.size / 4;
                const QVector<quint64> pcmStsz{a.f(stbl + "stsz", 12), a.f(stbl + "stsz", 16)};
                QCOMPARE(pcm ? pcmStsz : a.table(stbl + "stsz", 20, 1), pcm ? (QVector<quint64>{4, frames}) : sizes);
                const quint64 count = video ? quint64(vLines) : pcm ? frames : quint64(sLines);
                const quint64 delta = video ? 512 : c.soundDelta, scale = video ? 15360 : 48000;
                QCOMPARE(a.table(stbl + "stts", 16, 2), (QVector<quint64>{count, delta}));
                QCOMPARE(a.f(mdia + "mdhd", 20), scale);
                QCOMPARE(a.f(mdia + "mdhd", 24), quint64(quint32(count * delta)));
                QCOMPARE(a.f(video ? "moov/mvhd" : "moov/trak2/tkhd", video ? 24 : 28), a.f(mdia + "mdhd", 24));
                // Declared against held: 30 pictures, 48000/1024 sound frames a second.
                const double held = video ? vLines / 30.0 : sLines * 1024 / 48000.0;
                QVERIFY2(c.code || qAbs(double(count * delta) / scale - held) <= 0.02 * held, c.name);
                // Each chunk holds its run's first piece. A run enters its list when
                // the other kind ends it, and the list's last run has no stsc entry.
                const auto r = runs(log, video);
                const QVector<quint64> co64 = a.table(stbl + "co64", 16, 1, true);
                QCOMPARE(co64.size(), video && sLines == 0 ? 1 : r.size());
                for (int i = 0; i < r.size() && !stop && c.pick != Absurd; ++i) {
                    const Line &l = log[r[i].first];
                    QVERIFY2(a.d.mid(int(co64[i]), int(l.size)) == source.mid(int(l.pos + shift), int(l.size)), c.name);
                }
                const bool ofVideo = video || pcm; // PCM sound has as many entries as the video list
                const int listed = runs(log, ofVideo).size() - (log.isEmpty() || log.last().video == ofVideo);
                const int entries = !sLines ? 1 : pcm ? qMin(listed, sLines) : qMax(0, listed - 1);
                QCOMPARE(a.f(stbl + "stsc", 12), quint64(entries));
                QCOMPARE(a.at.contains(stbl + "stsd"), !(video && stsd700));
            }
            QCOMPARE(a.f("moov/trak1/edts/elst", 16), a.f("moov/trak1/mdia/mdhd", 24));
            if (c.ctts[0] >= 0) {
                const QVector<quint64> ctts = a.table("moov/trak1/mdia/minf/stbl/ctts", 16, 2);
                // Whole threes with a first offset; without, tested behind the first and the third.
                QCOMPARE(ctts.size() / 2, c.ctts[0] ? (vLines + 2) / 3 * 3 : vLines + (vLines % 3 == 2));
                for (int i = 0; i < ctts.size(); i += 2)
                    QVERIFY2(ctts[i] == 1 && ctts[i + 1] == quint64(c.ctts[i / 2 % 3]), c.name);
            }
            if (!(c.flags & Decode))
                continue;
            QStringList sound; // the logged pieces as ffmpeg hashes packets
            for (const Line &l : log)
                if (!l.video)
                    sound << QStringLiteral("%1, ").arg(l.size, 9) + QCryptographicHash::hash(
                                 source.mid(int(l.pos + shift), int(l.size)), QCryptographicHash::Md5).toHex();
            QCOMPARE(md5s(out, true), wantVideo.mid(0, vLines));
            QCOMPARE(md5s(out, false), sound);
        }
    }
};

QTEST_GUILESS_MAIN(TestRebuild)
#include "tst_rebuild.moc"
