// The buffered reader must answer exactly what fseeko+fread answer for the
// same bytes, and must not go back to the disk for bytes it holds.

#include "repair/BufferedReader.h"
#include "support/MediaCompare.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>
#include <cstdio>
#include <sys/stat.h>

class TestBufferedReader : public QObject
{
    Q_OBJECT
    QTemporaryDir m_dir;
    QString m_path;
    QByteArray m_data;

    // What stdio gives: count read and the buffer, zero-filled past the count.
    static size_t stdioRead(FILE *f, qint64 pos, char *dst, size_t n)
    {
        std::memset(dst, 0, n);
        if (fseeko(f, pos, SEEK_SET) != 0)
            return 0;
        return fread(dst, 1, n, f);
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        m_path = m_dir.filePath("data.bin");
        // Not a multiple of the window, so the last window is a short one.
        m_data = media::noise(3 * 1024 * 1024 + 12345, 42);
        QVERIFY(media::writeAll(m_path, m_data));
    }

    void agreesWithStdio()
    {
        FILE *f = std::fopen(QFile::encodeName(m_path).constData(), "rb");
        QVERIFY(f);
        BufferedReader r(256 * 1024); // small window so that the test crosses many edges
        QVERIFY(r.open(m_path));
        QCOMPARE(r.size(), quint64(m_data.size()));
        QRandomGenerator rng(7);
        const qint64 size = m_data.size();
        QList<QPair<qint64, int>> reads;
        for (int i = 0; i < 3000; ++i)
            reads << qMakePair(qint64(rng.bounded(quint32(size + 100))), int(rng.bounded(1, 600000)));
        // The ends: whole file, last bytes, a read straddling the end, past it.
        reads << qMakePair(qint64(0), int(size)) << qMakePair(size - 4, 4) << qMakePair(size - 3, 4)
              << qMakePair(size, 4) << qMakePair(size + 1000, 8) << qMakePair(qint64(0), 1);
        QByteArray a, b;
        for (const auto &rd : reads) {
            a.resize(rd.second);
            b.resize(rd.second);
            const size_t want = stdioRead(f, rd.first, a.data(), size_t(rd.second));
            b.fill('\x7f');
            const size_t got = r.readAt(quint64(rd.first), b.data(), size_t(rd.second));
            QCOMPARE(got, want);
            QVERIFY2(a == b, qPrintable(QStringLiteral("at %1 len %2").arg(rd.first).arg(rd.second)));
        }
        // Typed reads against the bytes.
        const quint64 p = 1000;
        const quint8 *d = reinterpret_cast<const quint8 *>(m_data.constData()) + p;
        QCOMPARE(r.be32(p), quint32(d[0]) << 24 | quint32(d[1]) << 16 | quint32(d[2]) << 8 | d[3]);
        QCOMPARE(r.le32(p), quint32(d[3]) << 24 | quint32(d[2]) << 16 | quint32(d[1]) << 8 | d[0]);
        QCOMPARE(r.be16(p), quint16(d[0] << 8 | d[1]));
        QCOMPARE(r.be64(p), quint64(r.be32(p)) << 32 | r.be32(p + 4));
        QCOMPARE(r.be32(quint64(size) - 2), quint32(quint8(m_data[int(size) - 2])) << 24
                                                 | quint32(quint8(m_data[int(size) - 1])) << 16);
        QCOMPARE(r.u8(quint64(size)), quint8(0));
        QCOMPARE(r.be32(~quint64(0) - 1), 0u); // wrapped positions read as nothing
        std::fclose(f);
    }

    void cursorBehavesLikeAStream()
    {
        FILE *f = std::fopen(QFile::encodeName(m_path).constData(), "rb");
        BufferedReader r;
        QVERIFY(r.open(m_path));
        char a[16], b[16];
        // A seek below zero fails and the next read goes on where the stream stood.
        fseeko(f, 100, SEEK_SET);
        QVERIFY(r.seek(100));
        QCOMPARE(fread(a, 1, 8, f), size_t(8));
        QCOMPARE(r.read(b, 8), size_t(8));
        QVERIFY(fseeko(f, -5, SEEK_SET) != 0);
        QVERIFY(!r.seek(-5));
        QCOMPARE(fread(a, 1, 16, f), r.read(b, 16));
        QCOMPARE(QByteArray(a, 16), QByteArray(b, 16));
        QCOMPARE(quint64(ftello(f)), r.tell());
        // A short read at the end leaves the position at the end.
        fseeko(f, m_data.size() - 3, SEEK_SET);
        r.seek(m_data.size() - 3);
        QCOMPARE(fread(a, 1, 16, f), r.read(b, 16));
        QCOMPARE(quint64(ftello(f)), r.tell());
        std::fclose(f);
    }

    void neverReadsAPositionTwice()
    {
        BufferedReader r;
        QVERIFY(r.open(m_path));
        const quint64 size = r.size();
        quint64 sum = 0;
        // A forward byte walk with look-backs of a few bytes, as the scanners do.
        for (quint64 p = 4; p < size; ++p)
            sum += r.tagAt(p - 4, "moov") + r.u8(p);
        Q_UNUSED(sum);
        const quint64 windows = (size + BufferedReader::kDefaultWindow - 1) / BufferedReader::kDefaultWindow;
        QVERIFY2(r.diskReads() <= windows + 2, qPrintable(QString::number(r.diskReads())));
    }

    void lookAheadsDontMoveTheWindow()
    {
        // A splitter's walk: byte steps, a length read up to a few MB ahead now
        // and then, and a unit copied out from behind once the walk has gone on.
        // The file should come in about once, whatever the walk does around it.
        BufferedReader r(512 * 1024);
        QVERIFY(r.open(m_path));
        const quint64 size = r.size();
        QRandomGenerator rng(11);
        char unit[40000];
        r.readAt(size - 100, unit, 100); // the window starts at the far end
        quint64 looks = 0, sum = 0;
        for (quint64 p = 0; p < size; ++p) {
            const quint8 *b = r.peek(p, 6);
            sum += b ? b[4] : 0;
            if (p % 4096 == 0) {
                sum += r.be32(p + 4 + rng.bounded(3u << 20));
                ++looks;
            }
            if (p % 65536 == 0 && p >= 50000) {
                QCOMPARE(r.readAt(p - 50000, unit, sizeof unit), sizeof unit);
                QCOMPARE(QByteArray(unit, 16), m_data.mid(int(p - 50000), 16));
            }
        }
        Q_UNUSED(sum);
        const quint64 behind = size / 65536 * sizeof unit;
        const quint64 bound = size + behind + looks * 1024 + 4 * 512 * 1024;
        QVERIFY2(r.diskBytes() <= bound, qPrintable(QStringLiteral("%1 read, bound %2").arg(r.diskBytes()).arg(bound)));
    }

    void sharedBytesOutliveTheWindow()
    {
        // A writer holds bytes of earlier windows while the walk loads new
        // ones: held bytes never change, and buffers let go are taken again.
        BufferedReader r(256 * 1024);
        QVERIFY(r.open(m_path));
        QVERIFY(!r.share(0, 16)); // nothing loaded: nothing shared, nothing read
        QCOMPARE(r.diskReads(), quint64(0));
        std::vector<std::pair<quint64, std::shared_ptr<const quint8>>> held;
        for (quint64 p = 0; p + 100 < r.size(); p += 70000) {
            size_t len = 0;
            QVERIFY(r.span(p, &len) && len >= 100); // the window moves here
            std::shared_ptr<const quint8> h = r.share(p, 100);
            QVERIFY(h);
            held.push_back({p, std::move(h)});
            if (held.size() > 12)
                held.erase(held.begin() + 3);
            for (const auto &x : held)
                QCOMPARE(QByteArray(reinterpret_cast<const char *>(x.second.get()), 100), m_data.mid(int(x.first), 100));
        }
        QVERIFY(!r.share(r.size() - 10, 20)); // runs past what the window holds
    }

    void closedOrMissingReadsZeros()
    {
        BufferedReader r;
        QVERIFY(!r.open(m_dir.filePath("missing")));
        QVERIFY(!r.open(m_dir.path())); // a folder is not a file
        const QByteArray fifo = QFile::encodeName(m_dir.filePath("fifo"));
        QCOMPARE(::mkfifo(fifo.constData(), 0600), 0);
        QVERIFY(!r.open(m_dir.filePath("fifo"))); // refused at once, no writer awaited
        char b[4] = {1, 2, 3, 4};
        QCOMPARE(r.readAt(0, b, 4), size_t(0));
        QCOMPARE(QByteArray(b, 4), QByteArray(4, '\0'));
        QVERIFY(!r.seek(0));
    }
};

QTEST_GUILESS_MAIN(TestBufferedReader)
#include "tst_bufferedreader.moc"
