#pragma once
// Ciphers the lines of the work log, so that the offsets a scan found are not
// plain text in the user's folder. Format: version byte 3, flags byte, then a
// chained XOR of [random byte, integrity block, payload], all base64.

#include <QByteArray>
#include <QString>
#include <QtGlobal>

class RepairLine
{
public:
    static constexpr quint64 kLogKey = 0x7e51a90c3b2d46fULL;

    explicit RepairLine(quint64 key = kLogKey);

    QString EncryptLine(const QString &text);
    // Empty on any failure: bad base64, wrong version, failed integrity check.
    QString DecryptLine(const QString &text) const;

    // qCompress(data, 9)'s bytes, made faster for short lines.
    static QByteArray Pack(const QByteArray &data);

    enum Flag : quint8 { FlagCompressed = 0x01, FlagChecksum = 0x02, FlagSha1 = 0x04 };

private:
    QByteArray m_key; // 8 bytes, least significant first
    quint32 m_seed;
    quint8 nextRandom();
};
