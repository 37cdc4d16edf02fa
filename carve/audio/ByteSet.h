#pragma once
// A set of byte values, and the first place in a buffer that holds one.

#include <QtGlobal>
#include <cstddef>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace carve {

// A set of byte values, found in a buffer 16 positions at a time while it
// holds no more than 16 of them (the first bytes of learned heads are few).
class ByteSet
{
public:
    void add(quint8 v)
    {
        if (m_in[v])
            return;
        if (m_count < 16)
            m_values[m_count] = v;
        m_in[v] = true;
        ++m_count;
    }
    bool has(quint8 v) const { return m_in[v]; }
    // The first i in [0, n) whose byte is in the set; n if none.
    size_t findIn(const quint8 *b, size_t n) const
    {
        size_t i = 0;
#if defined(__SSE2__)
        if (m_count <= 16) {
            __m128i wanted[16];
            for (int k = 0; k < m_count; ++k)
                wanted[k] = _mm_set1_epi8(char(m_values[k]));
            for (; i + 16 <= n; i += 16) {
                const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i *>(b + i));
                __m128i any = _mm_setzero_si128();
                for (int k = 0; k < m_count; ++k)
                    any = _mm_or_si128(any, _mm_cmpeq_epi8(v, wanted[k]));
                if (const int mask = _mm_movemask_epi8(any))
                    return i + size_t(__builtin_ctz(unsigned(mask)));
            }
        }
#endif
        while (i < n && !m_in[b[i]])
            ++i;
        return i;
    }

private:
    bool m_in[256] = {};
    quint8 m_values[16] = {};
    int m_count = 0; // distinct values added
};

} // namespace carve
