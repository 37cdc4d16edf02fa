// The work-log cipher: a line deciphers to what was put in, tampered text gives an
// empty line, and the layout (version, flags, chaining) stays readable.

#include "repair/RepairLine.h"

#include <QCryptographicHash>
#include <QRandomGenerator>
#include <QtTest>

class TestRepairLine : public QObject
{
    Q_OBJECT

    // Builds a ciphered block by hand, as a writer with the SHA-1 flag would.
    static QString encipherWithSha1(const QByteArray &payload)
    {
        const quint64 key = RepairLine::kLogKey;
        QByteArray plain;
        plain.append(char(0x5a));
        plain.append(QCryptographicHash::hash(payload, QCryptographicHash::Sha1));
        plain.append(payload);
        QByteArray out;
        out.append(char(3));
        out.append(char(RepairLine::FlagSha1));
        char last = 0;
        for (int i = 0; i < plain.size(); ++i) {
            const char c = char(plain[i] ^ char((key >> (8 * (i % 8))) & 0xFF) ^ last);
            out.append(c);
            last = c;
        }
        return QString::fromLatin1(out.toBase64());
    }

private Q_SLOTS:
    void roundTrip()
    {
        RepairLine line;
        const QStringList samples = {
            "AVC(Vide) at = 48 Size = 25631",
            "AAC(soun) at = 18446744073709551000 Size = 371",
            QString(2000, 'x'), // compresses: flag 0x01 path
            QString::fromUtf8("Ünïcödé ✓"),
            QString(),
        };
        for (const QString &s : samples) {
            const QString c = line.EncryptLine(s);
            QVERIFY(!c.contains(s) || s.isEmpty());
            QCOMPARE(RepairLine().DecryptLine(c), s);
            const QByteArray raw = QByteArray::fromBase64(c.toLatin1());
            QVERIFY(raw[0] == 3 && (raw[1] & RepairLine::FlagChecksum)
                    && bool(raw[1] & RepairLine::FlagCompressed) == (s.size() == 2000));
        }
    }

    void packsAsQtDoes()
    {
        // Log lines of every form and length, repetitive ones too: the quick
        // packing gives qCompress's bytes.
        QRandomGenerator rng(5);
        for (int n = 0; n <= 300; ++n) {
            QByteArray digits, runs;
            for (int i = 0; i < n; ++i) {
                digits += char(i % 11 == 10 ? ' ' : '0' + rng.bounded(10));
                runs += char('a' + (i / 7) % 3);
            }
            for (const QByteArray &line : {digits, runs, QByteArray(n, 'z')})
                QCOMPARE(RepairLine::Pack(line), qCompress(line, 9));
        }
    }

    void rejectsWhatIsNotOurs()
    {
        RepairLine line;
        const QString c = line.EncryptLine("AVC(Vide) at = 1000 Size = 2000");
        QByteArray raw = QByteArray::fromBase64(c.toLatin1());
        for (int i = 4; i < raw.size(); ++i) {
            QByteArray bad = raw;
            bad[i] = char(bad[i] ^ 0x01);
            QCOMPARE(line.DecryptLine(QString::fromLatin1(bad.toBase64())), QString());
        }
        QByteArray wrongVersion = raw;
        wrongVersion[0] = 2;
        QCOMPARE(line.DecryptLine(QString::fromLatin1(wrongVersion.toBase64())), QString());
        QCOMPARE(line.DecryptLine("FrameWidth = 1920"), QString()); // plain log lines read as nothing
        QCOMPARE(line.DecryptLine(""), QString());
        QCOMPARE(line.DecryptLine("AwI="), QString()); // too short
        QCOMPARE(RepairLine(0x1234).DecryptLine(c), QString()); // other key
    }

    void acceptsTheSha1Flag()
    {
        QCOMPARE(RepairLine().DecryptLine(encipherWithSha1("AVC(Vide) at = 5 Size = 6")),
                 QString("AVC(Vide) at = 5 Size = 6"));
        QString bad = encipherWithSha1("x");
        QByteArray raw = QByteArray::fromBase64(bad.toLatin1());
        raw[raw.size() - 1] = char(raw[raw.size() - 1] ^ 1);
        QCOMPARE(RepairLine().DecryptLine(QString::fromLatin1(raw.toBase64())), QString());
    }
};

QTEST_GUILESS_MAIN(TestRepairLine)
#include "tst_repairline.moc"
