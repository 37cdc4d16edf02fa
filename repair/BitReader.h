#pragma once
// Reads the bit fields of codec headers (fixed-width and Exp-Golomb codes)
// from a few bytes. Reading past them gives -1, so a cut header fails the
// test it was read for instead of reading memory it doesn't own.

#include <QtGlobal>

class BitReader
{
public:
    BitReader(const quint8 *bytes, int count) : m_b(bytes), m_bits(count * 8) {}

    int bit()
    {
        if (m_at >= m_bits)
            return -1;
        const int b = (m_b[m_at / 8] >> (7 - m_at % 8)) & 1;
        ++m_at;
        return b;
    }
    // n bits (up to 31) as a number; -1 past the end.
    qint64 bits(int n)
    {
        qint64 v = 0;
        for (int i = 0; i < n; ++i) {
            const int b = bit();
            if (b < 0)
                return -1;
            v = v << 1 | b;
        }
        return v;
    }
    // Unsigned Exp-Golomb; -1 past the end or for a code longer than any
    // header field can be.
    qint64 ue()
    {
        int zeros = 0;
        for (int b = bit(); b != 1; b = bit())
            if (b < 0 || ++zeros > 31)
                return -1;
        const qint64 rest = bits(zeros);
        return rest < 0 ? -1 : (qint64(1) << zeros) - 1 + rest;
    }
    // Signed Exp-Golomb; 0 as well past the end (callers check ok()).
    qint64 se()
    {
        const qint64 k = ue();
        if (k < 0) {
            m_failed = true;
            return 0;
        }
        return (k & 1) ? (k + 1) / 2 : -(k / 2);
    }
    bool ok() const { return !m_failed && m_at <= m_bits; }

private:
    const quint8 *m_b;
    int m_bits;
    int m_at = 0;
    bool m_failed = false;
};
