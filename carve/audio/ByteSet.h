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
#if defined(__SSE2__)
        if (m_count < 16)
            m_wanted[m_count] = _mm_set1_epi8(char(v));
#endif
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
            for (; i + 16 <= n; i += 16) {
                const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i *>(b + i));
                __m128i any = _mm_setzero_si128();
                for (int k = 0; k < m_count; ++k)
                    any = _mm_or_si128(any, _mm_cmpeq_epi8(v, m_wanted[k]));
                if (const int mask = _mm_movemask_epi8(any))
                    return i + size_t(__builtin_ctz(unsigned(mask)));
            }
        }
#endif
        while (i < n && !m_in[b[i]])
            ++i;
        return i;
    }

    // The first i in [0, n) whose byte is in the set and whose next byte is
    // in `next`; n if none. b[n] must be readable.
    size_t findPairIn(const ByteSet &next, const quint8 *b, size_t n) const
    {
        size_t i = 0;
#if defined(__SSE2__)
        if (m_count <= 16 && next.m_count <= 16) {
            for (; i + 16 <= n; i += 16) {
                const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i *>(b + i));
                const __m128i w = _mm_loadu_si128(reinterpret_cast<const __m128i *>(b + i + 1));
                __m128i here = _mm_setzero_si128(), after = _mm_setzero_si128();
                for (int k = 0; k < m_count; ++k)
                    here = _mm_or_si128(here, _mm_cmpeq_epi8(v, m_wanted[k]));
                for (int k = 0; k < next.m_count; ++k)
                    after = _mm_or_si128(after, _mm_cmpeq_epi8(w, next.m_wanted[k]));
                if (const int mask = _mm_movemask_epi8(_mm_and_si128(here, after)))
                    return i + size_t(__builtin_ctz(unsigned(mask)));
            }
        }
#endif
        while (i < n && !(m_in[b[i]] && next.m_in[b[i + 1]]))
            ++i;
        return i;
    }

private:
#if defined(__SSE2__)
    __m128i m_wanted[16] = {}; // the first 16 values, each in every byte
#endif
    bool m_in[256] = {};
    int m_count = 0; // distinct values added
};

} // namespace carve
