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
    void repairs_data()
    {
        QTest::addColumn<QString>("bytes"); // imkh, vcd, disc, cut-imkh, cut-vcd, imkh-noise, noise, empty
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("result"); // empty: none
        QTest::addColumn<QString>("format");
        QTest::newRow("imkh") << "imkh" << "cam.mp4" << "cam.mp4" << "matroska";
        QTest::newRow("imkh, dash") << "imkh" << "-cam.mp4" << "-cam.mp4" << "matroska";
        QTest::newRow("imkh cut") << "cut-imkh" << "cam.mp4" << "cam.mp4" << "matroska";
        QTest::newRow("imkh, noise behind") << "imkh-noise" << "cam.mp4" << "" << "";
        QTest::newRow("dat") << "vcd" << "clip.dat" << "clip.mov" << "mov";
        QTest::newRow("dat off a disc") << "disc" << "AVSEQ01.DAT" << "AVSEQ01.mov" << "mov";
        QTest::newRow("dat, two dots") << "vcd" << "a.b.dat" << "a.mov" << "mov";
        QTest::newRow("dat, dash and blank") << "vcd" << "-a b.DAT" << "-a b.mov" << "mov";
        QTest::newRow("dat cut") << "cut-vcd" << "clip.dat" << "clip.mov" << "mov";
        QTest::newRow("dat noise") << "noise" << "clip.dat" << "" << "";
        QTest::newRow("dat empty") << "empty" << "clip.dat" << "" << "";
    }

    void repairs()
    {
        QFETCH(QString, bytes);
        QFETCH(QString, name);
        QFETCH(QString, result);
        QFETCH(QString, format);
        VM_FIXTURE(vcd, fixtures::vcdStream());
        VM_FIXTURE(imkh, fixtures::imkhStream());
        QByteArray data = readAll(bytes.contains("imkh") ? imkh : vcd);
        const QByteArray noise = media::noise(300000, 7);
        if (bytes == "disc")
            data = fixtures::cdxaImage(data);
        else if (bytes.startsWith("cut"))
            data.truncate(data.size() * 6 / 10);
        else if (bytes == "imkh-noise")
            data = data.left(40) + noise; // the header kept
        else if (bytes != "vcd" && bytes != "imkh")
            data = bytes == "noise" ? noise : QByteArray();

        QTemporaryDir tmp;
        const QString src = tmp.path() + "/" + name, work = tmp.path() + "/work";
        QVERIFY(writeAll(src, data));
        const QByteArray before = fixtures::digest(src);
        if (bytes == "disc") // the wrapper must be something ffmpeg reads
            QCOMPARE(frameHashes(src).size(), 150);

        const Outcome o = repairIn(src, work);
        QCOMPARE(fixtures::digest(src), before);
        const QStringList left =
            QDir(work + "/Repaired").entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        if (result.isEmpty()) {
            QCOMPARE(o.status, QString("Failed"));
            QCOMPARE(o.output, QString());
            QCOMPARE(left, QStringList());
            return;
        }
        QCOMPARE(o.status, QString("Completed"));
        QCOMPARE(o.output, work + "/Repaired/" + result);
        QCOMPARE(left, QStringList{result}); // no work file stays
        const QPair<QString, int> got = probe(o.output);
        QVERIFY2(got.first.startsWith(format), qPrintable(got.first));
        // The whole stream: every picture; a cut one: what ffmpeg itself gets out of it.
        int want = 150;
        if (bytes.startsWith("cut"))
            want = format == "mov" ? frameHashes(src).size() : ffmpegsOwnCopy(src, tmp.path());
        qInfo("%s: %d of %d frames", qPrintable(name), got.second, want);
        QVERIFY(want > 0);
        QCOMPARE(got.second, want);
    }
};

QTEST_GUILESS_MAIN(TestSmallPaths)
#include "tst_smallpaths.moc"
