// Files ffmpeg reads whole, repaired through videomend-cli: a program stream
// behind an "IMKH" header becomes Matroska under the file's own name; a Video
// CD's .dat, bare or as disc sectors, is re-encoded to stem + ".mov". Frames are
// counted against what ffmpeg itself makes of the same bytes.

#include "support/DiscFixtures.h"
#include "support/MediaCompare.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {
using namespace media;

// Container name and video packets.
QPair<QString, int> probe(const QString &path)
{
    const QStringList args = {"-v", "error", "-count_packets", "-select_streams", "v:0", "-show_entries",
                              "format=format_name:stream=nb_read_packets", "-of", "default=nw=1:nk=1", path};
    const QStringList f = run("ffprobe", args).split('\n', Qt::SkipEmptyParts);
    return {f.value(1).trimmed(), f.value(0).trimmed().toInt()};
}

int ffmpegsOwnCopy(const QString &path, const QString &dir)
{
    const QString out = dir + "/reference.mkv";
    ffmpeg({"-i", path, "-map", "0", "-c", "copy", out});
    return probe(out).second;
}
} // namespace

class TestSmallPaths : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void repairs()
    {
        VM_FIXTURE(vcd, fixtures::vcdStream());
        VM_FIXTURE(imkh, fixtures::imkhStream());
        const QByteArray noise = media::noise(300000, 7);
        // The bytes (imkh, vcd, disc, cut-imkh, cut-vcd, imkh-noise, noise, empty), the
        // file's name, the result's name ("": none) and its container.
        const struct { QString bytes, name, result, format; } rows[] = {
            {"imkh", "cam.mp4", "cam.mp4", "matroska"}, {"imkh", "-cam.mp4", "-cam.mp4", "matroska"},
            {"cut-imkh", "cam.mp4", "cam.mp4", "matroska"}, {"imkh-noise", "cam.mp4", "", ""},
            {"vcd", "clip.dat", "clip.mov", "mov"}, {"disc", "AVSEQ01.DAT", "AVSEQ01.mov", "mov"},
            {"vcd", "a.b.dat", "a.mov", "mov"}, {"vcd", "-a b.DAT", "-a b.mov", "mov"},
            {"cut-vcd", "clip.dat", "clip.mov", "mov"}, {"noise", "clip.dat", "", ""}, {"empty", "clip.dat", "", ""},
        };
        for (const auto &row : rows) {
            const QString &bytes = row.bytes, &format = row.format;
            QByteArray data = readAll(bytes.contains("imkh") ? imkh : vcd);
            if (bytes == "disc")
                data = fixtures::cdxaImage(data);
            else if (bytes.startsWith("cut"))
                data.truncate(data.size() * 6 / 10);
            else if (bytes == "imkh-noise")
                data = data.left(40) + noise; // the header kept
            else if (bytes != "vcd" && bytes != "imkh")
                data = bytes == "noise" ? noise : QByteArray();

            QTemporaryDir tmp;
            const QString src = tmp.path() + "/" + row.name, work = tmp.path() + "/work";
            QVERIFY(writeAll(src, data));
            const QByteArray before = fixtures::digest(src);
            if (bytes == "disc") // the wrapper must be something ffmpeg reads
                QCOMPARE(frameHashes(src).size(), 150);

            const Outcome o = repairIn(src, work);
            QCOMPARE(fixtures::digest(src), before);
            const QStringList left =
                QDir(work + "/Repaired").entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
            if (row.result.isEmpty()) {
                QVERIFY2(o.status == "Failed" && o.output.isEmpty() && left.isEmpty(), qPrintable(bytes + ": " + o.status));
                continue;
            }
            QVERIFY2(o.status == "Completed" && o.output == work + "/Repaired/" + row.result, qPrintable(row.name));
            QCOMPARE(left, QStringList{row.result}); // no work file stays
            const QPair<QString, int> got = probe(o.output);
            QVERIFY2(got.first.startsWith(format), qPrintable(got.first));
            // The whole stream: every picture; a cut one: what ffmpeg itself gets out of it.
            int want = 150;
            if (bytes.startsWith("cut"))
                want = format == "mov" ? frameHashes(src).size() : ffmpegsOwnCopy(src, tmp.path());
            qInfo("%s, %s: %d of %d frames", qPrintable(bytes), qPrintable(row.name), got.second, want);
            QVERIFY(want > 0);
            QCOMPARE(got.second, want);
        }
    }
};

QTEST_GUILESS_MAIN(TestSmallPaths)
#include "tst_smallpaths.moc"
