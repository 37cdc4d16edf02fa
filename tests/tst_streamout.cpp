// The splitters' output files: bytes written straight from the reader's
// window by a background thread, stretches copied by the kernel and pieces
// copied by hand must give the very bytes of a plain copy, whatever the mix
// of pieces, unit lengths and window edges.

#include "carve/audio/StreamOut.h"
#include "repair/BufferedReader.h"
#include "support/MediaCompare.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

class TestStreamOut : public QObject
{
    Q_OBJECT

    // One scripted mix of writes, carried out on `out` and on a plain byte array.
    static QByteArray run(StreamOut &out, BufferedReader &src, const QByteArray &data, quint32 seed)
    {
        QByteArray expect;
        QRandomGenerator rng(seed);
        const quint64 size = quint64(data.size());
        quint64 pos = 0;
        // First a chain whose second start code straddles a megabyte edge
        // of the chain, where a copy by hand reads its pieces.
        for (quint64 len : {quint64((1 << 20) - 6), quint64(100)}) {
            out.unit(src, pos, len);
            expect += QByteArray("\0\0\0\1", 4) + data.mid(int(pos + 4), int(len));
            pos += 4 + len;
        }
        while (pos + 8 < size) {
            switch (rng.bounded(6)) {
            case 0: { // a few bytes of our own (a header, parameter sets)
                const QByteArray piece(int(rng.bounded(1, 40)), char('a' + rng.bounded(26)));
                out.write(piece.constData(), size_t(piece.size()));
                expect += piece;
                break;
            }
            case 1: { // a stretch copied as it stands (a sound frame to megabytes), sometimes past the end
                const quint64 at = rng.bounded(quint32(size));
                const quint64 len = rng.bounded(2) ? rng.bounded(1u, 3u << 20) : rng.bounded(1u, 200000u);
                if (rng.bounded(2))
                    src.peek(at, 1); // the window where the walk reads, as it does before a copy
                out.copy(src, at, len);
                QByteArray piece = data.mid(int(at), int(len));
                piece.append(QByteArray(int(len) - piece.size(), '\0'));
                expect += piece;
                break;
            }
            case 2: // skip some bytes: the next unit starts a new chain
                pos += rng.bounded(1, 5000);
                break;
            default: { // a chain of units, small to beyond a megabyte
                const int units = int(rng.bounded(1, 20));
                for (int i = 0; i < units && pos + 8 < size; ++i) {
                    const quint64 len = qMin<quint64>(size - pos - 4, rng.bounded(2) ? rng.bounded(1, 3000)
                                                                                      : rng.bounded(1, 1500000));
                    src.peek(pos, 6); // the walk read the length here
                    out.unit(src, pos, len);
                    expect += QByteArray("\0\0\0\1", 4) + data.mid(int(pos + 4), int(len));
                    pos += 4 + len;
                }
                break;
            }
            }
        }
        return expect;
    }

private Q_SLOTS:
    void kernelAndHandCopiesAgree()
    {
        QTemporaryDir dir;
        const QByteArray data = media::noise(9 << 20, 5);
        const QString srcPath = dir.filePath("damaged.mov");
        QVERIFY(media::writeAll(srcPath, data));
        for (int mode = 0; mode < 8; ++mode) {
            const bool kernel = mode & 1, background = mode & 2, shared = mode & 4;
            for (quint32 seed : {1u, 2u}) {
                StreamOut::SetKernelCopy(kernel);
                StreamOut::SetBackgroundWrites(background);
                StreamOut::SetSharedWindows(shared);
                BufferedReader src(size_t(1) << 20);
                QVERIFY(src.open(srcPath));
                const QString outPath = dir.filePath(QStringLiteral("out-%1-%2").arg(mode).arg(seed));
                QFile file(outPath);
                QVERIFY(file.open(QIODevice::ReadWrite));
                // What an earlier stage wrote through the QFile stays in front.
                file.write("head", 4);
                QByteArray expect = "head";
                {
                    StreamOut out(&file);
                    expect += run(out, src, data, seed);
                    out.detach();
                }
                file.close();
                const QByteArray got = media::readAll(outPath);
                QCOMPARE(got.size(), expect.size());
                QVERIFY2(got == expect, qPrintable(QStringLiteral("kernel %1 background %2 shared %3 seed %4")
                                                       .arg(kernel).arg(background).arg(shared).arg(seed)));
            }
        }
        StreamOut::SetKernelCopy(true);
        StreamOut::SetBackgroundWrites(true);
        StreamOut::SetSharedWindows(true);
    }
};

QTEST_GUILESS_MAIN(TestStreamOut)
#include "tst_streamout.moc"
