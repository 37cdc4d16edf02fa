#include "repair/RepairLine.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QtDebug>

namespace {
constexpr char kVersion = 3;
constexpr quint32 kMaxLineBytes = 1 << 20;
}

RepairLine::RepairLine(quint64 key)
{
    m_key.resize(8);
    for (int i = 0; i < 8; ++i)
        m_key[i] = char((key >> (8 * i)) & 0xFF);
    m_seed = quint32(QDateTime::currentMSecsSinceEpoch() & 0xFFFF);
    if (key == 0)
        qWarning() << "No key set.";
}

quint8 RepairLine::nextRandom()
{
    // The byte only hides repeats between equal lines; any generator will do.
    m_seed = m_seed * 1103515245u + 12345u;
    return quint8(m_seed >> 16);
}

QString RepairLine::EncryptLine(const QString &text)
{
    QByteArray body = text.toUtf8();
    quint8 flags = 0;
    const QByteArray packed = qCompress(body, 9);
    if (packed.size() < body.size()) {
        body = packed;
        flags |= FlagCompressed;
    }
    flags |= FlagChecksum;
    const quint16 sum = qChecksum(body.constData(), uint(body.size()));

    QByteArray plain;
    plain.reserve(body.size() + 3);
    plain.append(char(nextRandom()));
    plain.append(char(sum >> 8));
    plain.append(char(sum & 0xFF));
    plain.append(body);

    QByteArray out;
    out.reserve(plain.size() + 2);
    out.append(kVersion);
    out.append(char(flags));
    char last = 0;
    for (int i = 0; i < plain.size(); ++i) {
        const char c = char(plain[i] ^ m_key[i % 8] ^ last);
        out.append(c);
        last = c;
    }
    return QString::fromLatin1(out.toBase64());
}

QString RepairLine::DecryptLine(const QString &text) const
{
    const QByteArray raw = QByteArray::fromBase64(text.toLatin1());
    if (raw.size() < 3 || raw[0] != kVersion)
        return QString();
    const quint8 flags = quint8(raw[1]);
    QByteArray plain(raw.size() - 2, '\0');
    char last = 0;
    for (int i = 2; i < raw.size(); ++i) {
        const char c = raw[i];
        plain[i - 2] = char(c ^ m_key[(i - 2) % 8] ^ last);
        last = c;
    }
    plain.remove(0, 1); // the random byte
    if (flags & FlagChecksum) {
        if (plain.size() < 2)
            return QString();
        const quint16 want = quint16(quint8(plain[0]) << 8 | quint8(plain[1]));
        plain.remove(0, 2);
        if (qChecksum(plain.constData(), uint(plain.size())) != want)
            return QString();
    } else if (flags & FlagSha1) {
        if (plain.size() < 20)
            return QString();
        const QByteArray want = plain.left(20);
        plain.remove(0, 20);
        if (QCryptographicHash::hash(plain, QCryptographicHash::Sha1) != want)
            return QString();
    }
    if (flags & FlagCompressed) {
        // qUncompress trusts the size in front; a log line is never large.
        if (plain.size() < 4)
            return QString();
        const quint32 claimed = quint32(quint8(plain[0])) << 24 | quint32(quint8(plain[1])) << 16
                                | quint32(quint8(plain[2])) << 8 | quint8(plain[3]);
        if (claimed > kMaxLineBytes)
            return QString();
        plain = qUncompress(plain);
        if (plain.isEmpty())
            return QString();
    }
    return QString::fromUtf8(plain);
}
