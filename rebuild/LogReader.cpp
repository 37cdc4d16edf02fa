#include "rebuild/LogReader.h"

#include "rebuild/RebuildConstants.h"

#include <QByteArray>
#include <cstring>

namespace rebuild {

namespace {

constexpr quint8 kCipherVersion = 3;
constexpr size_t kCipherHead = 3; // version, flags, random byte
constexpr size_t kChecksumBytes = 2;
constexpr int kLabelField = 0, kOffsetField = 3, kSizeField = 6;

// The value of each base64 character; -1 for the others, which are passed
// over as the library's decoder does ("\r", "=").
constexpr std::array<qint8, 256> base64Table()
{
    std::array<qint8, 256> t{};
    for (int i = 0; i < 256; ++i)
        t[size_t(i)] = -1;
    const char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    for (int i = 0; i < 64; ++i)
        t[quint8(alphabet[i])] = qint8(i);
    return t;
}
constexpr auto kBase64 = base64Table();

constexpr std::array<quint8, 8> keyBytes()
{
    std::array<quint8, 8> k{};
    for (int i = 0; i < 8; ++i)
        k[size_t(i)] = quint8(RepairLine::kLogKey >> (8 * i));
    return k;
}
constexpr auto kKey = keyBytes();

bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f'; }

// A decimal field; 0 when it isn't a number or doesn't fit in 64 bits.
quint64 number(const char *p, size_t n)
{
    while (n && isSpace(p[n - 1]))
        --n;
    while (n && isSpace(*p))
        ++p, --n;
    if (n && *p == '+')
        ++p, --n;
    if (n == 0)
        return 0;
    quint64 v = 0;
    for (size_t i = 0; i < n; ++i) {
        const unsigned d = unsigned(quint8(p[i])) - '0';
        if (d > 9 || v > (~quint64(0) - d) / 10)
            return 0;
        v = v * 10 + d;
    }
    return v;
}

bool equals(const char *p, size_t n, const char *word)
{
    return std::strlen(word) == n && std::memcmp(p, word, n) == 0;
}

} // namespace

LogReader::LogReader(const QString &path, LineForm form) : m_file(kLogWindow), m_form(form) { m_file.open(path); }

bool LogReader::parseFields(const char *text, size_t len, Piece &piece, LineForm form)
{
    const char *field[kSizeField + 1] = {};
    size_t fieldLen[kSizeField + 1] = {};
    int count = 0;
    for (size_t i = 0; i < len && count <= kSizeField;) {
        if (text[i] == ' ') {
            ++i;
            continue;
        }
        size_t j = i;
        while (j < len && text[j] != ' ')
            ++j;
        field[count] = text + i;
        fieldLen[count++] = j - i;
        i = j;
    }
    if (form == LineForm::Pair) {
        if (count != 2)
            return false;
        piece.kind = PieceKind::Video;
        piece.offset = number(field[0], fieldLen[0]);
        piece.size = number(field[1], fieldLen[1]);
        return true;
    }
    if (count <= kSizeField)
        return false;
    if (equals(field[kLabelField], fieldLen[kLabelField], kVideoLabel))
        piece.kind = PieceKind::Video;
    else if (equals(field[kLabelField], fieldLen[kLabelField], kSoundLabel))
        piece.kind = PieceKind::Sound;
    else
        return false;
    piece.offset = number(field[kOffsetField], fieldLen[kOffsetField]);
    piece.size = number(field[kSizeField], fieldLen[kSizeField]);
    return true;
}

bool LogReader::decipher(const char *line, size_t len, Piece &piece)
{
    quint8 raw[kMaxLogLine];
    size_t n = 0;
    quint32 acc = 0;
    int bits = 0;
    for (size_t i = 0; i < len; ++i) {
        const qint8 d = kBase64[quint8(line[i])];
        if (d < 0)
            continue;
        acc = acc << 6 | quint32(d);
        bits += 6;
        if (bits >= 8) {
            bits -= 8;
            raw[n++] = quint8(acc >> bits);
            acc &= (1u << bits) - 1;
        }
    }
    if (n < kCipherHead || raw[0] != kCipherVersion)
        return false;
    const quint8 flags = raw[1];
    if (flags & (RepairLine::FlagCompressed | RepairLine::FlagSha1)) {
        // Short lines are never compressed, and no writer of ours uses SHA-1.
        const QByteArray text = m_cipher.DecryptLine(QString::fromLatin1(line, int(len))).toUtf8();
        return parseFields(text.constData(), size_t(text.size()), piece, m_form);
    }
    quint8 last = 0;
    for (size_t i = 2; i < n; ++i) {
        const quint8 c = raw[i];
        raw[i] = c ^ kKey[(i - 2) % 8] ^ last;
        last = c;
    }
    const char *plain = reinterpret_cast<const char *>(raw + kCipherHead);
    size_t plainLen = n - kCipherHead;
    if (flags & RepairLine::FlagChecksum) {
        if (plainLen < kChecksumBytes)
            return false;
        const quint16 want = quint16(quint8(plain[0]) << 8 | quint8(plain[1]));
        plain += kChecksumBytes;
        plainLen -= kChecksumBytes;
        if (qChecksum(plain, uint(plainLen)) != want)
            return false;
    }
    return parseFields(plain, plainLen, piece, m_form);
}

bool LogReader::next(Piece &piece)
{
    static_assert(kMaxLogLine + 1 <= kLogWindow / 2, "a line must fit the window");
    const quint64 size = m_file.size();
    while (m_pos < size) {
        size_t len = 0;
        const quint8 *p = m_file.span(m_pos, &len);
        if (!p)
            return false;
        size_t look = qMin(len, kMaxLogLine + 1);
        const void *end = std::memchr(p, kLineEnd, look);
        if (!end && look <= kMaxLogLine && m_pos + len < size) {
            // The window ends inside the line: take it whole.
            look = m_file.readAt(m_pos, m_line, qMin<quint64>(kMaxLogLine + 1, size - m_pos));
            p = m_line;
            end = std::memchr(p, kLineEnd, look);
        }
        size_t lineLen = 0;
        if (end) {
            lineLen = size_t(static_cast<const quint8 *>(end) - p);
            m_pos += lineLen + 1;
        } else if (m_pos + look >= size) {
            lineLen = look;
            m_pos = size;
        } else {
            // Longer than any line of a piece: passed over to its end.
            m_pos += look;
            while (m_pos < size && (p = m_file.span(m_pos, &len))) {
                end = std::memchr(p, kLineEnd, len);
                m_pos += end ? size_t(static_cast<const quint8 *>(end) - p) + 1 : len;
                if (end)
                    break;
            }
            continue;
        }
        if (lineLen <= kMaxLogLine && decipher(reinterpret_cast<const char *>(p), lineLen, piece))
            return true;
    }
    return false;
}

bool WritePairLine(QIODevice &log, RepairLine &cipher, quint64 offset, quint64 size)
{
    const QByteArray line = cipher.EncryptLine(QStringLiteral("%1 %2").arg(offset).arg(size)).toLatin1() + kLineEnd;
    return log.write(line) == line.size();
}

} // namespace rebuild
