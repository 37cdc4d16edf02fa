#include "repair/RepairLine.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QtDebug>
#include <zlib.h>

namespace {
constexpr char kVersion = 3;
constexpr quint32 kMaxLineBytes = 1 << 20;
constexpr int kLevel = 9;

// qCompress(data, 9), byte for byte: the length, big-endian, then a zlib
// stream. One deflate state per thread is reset for each line instead of
// being made anew: setting one up costs far more than a short line. A short
// line takes a state with the smallest hash table, whose reset clears 512
// bytes instead of 64 KiB: the matches it finds are the same (a hash only
// narrows the candidates, and every true match stays among them) and the
// line stays within one block of literals, so the bytes are too.
constexpr int kSmallLine = 96;
constexpr int kSmallMemLevel = 1; // 2^(1+6) = 128 symbols a block, 2^8 hash heads
constexpr int kDefaultMemLevel = 8;

struct Deflater
{
    z_stream s{};
    bool ok;
    explicit Deflater(int memLevel)
        : ok(deflateInit2(&s, kLevel, Z_DEFLATED, MAX_WBITS, memLevel, Z_DEFAULT_STRATEGY) == Z_OK)
    {
    }
    ~Deflater() { deflateEnd(&s); }
};

QByteArray compressLine(const QByteArray &data)
{
    thread_local Deflater small(kSmallMemLevel), large(kDefaultMemLevel);
    Deflater &d = data.size() <= kSmallLine ? small : large;
    if (data.isEmpty() || !d.ok || deflateReset(&d.s) != Z_OK)
        return qCompress(data, kLevel);
    const uLong bound = deflateBound(&d.s, uLong(data.size()));
    QByteArray out(int(4 + bound), '\0');
    const quint32 n = quint32(data.size());
    out[0] = char(n >> 24), out[1] = char(n >> 16), out[2] = char(n >> 8), out[3] = char(n);
    d.s.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(data.constData()));
    d.s.avail_in = uInt(data.size());
    d.s.next_out = reinterpret_cast<Bytef *>(out.data() + 4);
    d.s.avail_out = uInt(bound);
    if (deflate(&d.s, Z_FINISH) != Z_STREAM_END)
        return qCompress(data, kLevel);
    out.truncate(int(4 + d.s.total_out));
    return out;
}
}

QByteArray RepairLine::Pack(const QByteArray &data) { return compressLine(data); }

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
    const QByteArray packed = compressLine(body);
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
