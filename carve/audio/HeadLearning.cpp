// The learning pass: reads the media data once, front to back, in large
// pieces. Look-aheads (where a unit's length points) are queued and answered
// when the pass reaches them, so no read goes anywhere but forward.

#include "carve/audio/HeadLearning.h"

#include "carve/audio/AudioConstants.h"
#include "repair/BufferedReader.h"

#include <algorithm>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif
#include <cmath>
#include <cstring>
#include <functional>
#include <queue>
#include <thread>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace carve {

namespace {
constexpr size_t kPiece = size_t(4) << 20;
constexpr size_t kLook = 6;          // bytes a unit test reads
constexpr quint32 kValues = 1u << 24; // distinct 3-byte heads
constexpr size_t kMaxHeads = 2000;   // at most this many learned heads are kept
constexpr quint64 kSplitAbove = quint64(64) << 20; // smaller media data is read by one thread
constexpr size_t kMaxPairs = size_t(1) << 18; // (head, length) pairs remembered per half, at most

bool isBlankHead(const quint8 *b)
{
    return (b[0] == 0 && b[1] == 0) || (b[0] == 0xFF && b[1] == 0xFF && b[2] == 0xFF);
}
} // namespace

quint32 RecurrenceThreshold(quint64 n)
{
    // Expected count of values seen k times by chance: 2^24 * (n / 2^24)^k / k!.
    // The smallest k >= 2 that leaves well under one such value.
    const double share = double(n) / double(kValues);
    double expected = double(kValues) * share; // k = 1
    for (quint32 k = 2; k < 64; ++k) {
        expected *= share / double(k);
        if (expected < 0.05)
            return k;
    }
    return 64;
}

namespace {
// What the pass knows before it reads: which bytes open a candidate.
struct Openers
{
    // Header byte and the byte behind it (b4, b5) of a length that opens with
    // 00: the unit test and the sample's openings in one lookup.
    std::vector<quint8> opens = std::vector<quint8>(1 << 16, 0);
    // The same for a delimiter (00 00 00 02 09), by the byte behind it.
    std::vector<quint8> delimiter = std::vector<quint8>(256, 0);
    // Header bytes that open anything at all.
    std::vector<quint8> headers;
};

Openers openersFor(const NalSet &unit, const QByteArray &videoHeads)
{
    Openers o;
    for (quint32 v = 0; v < (1u << 16); ++v) {
        const quint8 probe[6] = {0, 1, 1, 1, quint8(v >> 8), quint8(v)};
        o.opens[v] = unit.test(probe);
    }
    std::fill(o.delimiter.begin(), o.delimiter.end(), unit.delimiter ? 1 : 0);
    if (videoHeads.size() >= audio::kRecord) {
        std::vector<quint8> known(1 << 16, 0);
        for (int i = 0; i + audio::kRecord <= videoHeads.size(); i += audio::kRecord)
            known[quint32(quint8(videoHeads[i])) << 8 | quint8(videoHeads[i + 1])] = 1;
        for (quint32 v = 0; v < (1u << 16); ++v)
            o.opens[v] &= known[v];
        for (quint32 v = 0; v < 256; ++v)
            o.delimiter[v] &= known[quint32(kAudHeader) << 8 | v];
    }
    for (quint32 h = 0; h < 256; ++h) {
        bool possible = h == kAudHeader && std::find(o.delimiter.begin(), o.delimiter.end(), 1) != o.delimiter.end();
        for (quint32 x = 0; x < 256 && !possible; ++x)
            possible = o.opens[h << 8 | x];
        if (possible)
            o.headers.push_back(quint8(h));
    }
    return o;
}

struct RangeResult
{
    std::unordered_set<quint64> pairs; // (head << 32 | length of the unit before it)
    quint64 candidates = 0;
};

// Candidates that start in [from, end); their look-aheads may lie beyond.
void scanRange(const QString &path, quint64 from, quint64 end, const NalSet &unit, const Openers &o,
               const std::atomic<bool> *stop, RangeResult &out)
{
    BufferedReader f;
    if (!f.open(path))
        return;
    const quint64 size = f.size();
    // Look-aheads waiting for the pass to reach them: (position, length).
    using Pending = std::pair<quint64, quint32>;
    std::priority_queue<Pending, std::vector<Pending>, std::greater<Pending>> pending;
    auto judge = [&](const quint8 *b, quint32 len) {
        // A head counts once per length of the unit before it: content that
        // repeats byte for byte (a still scene, a looped clip) repeats its
        // chance patterns too, with the same lengths; real heads follow units
        // of every length.
        if (unit.test(b) || isBlankHead(b) || out.pairs.size() >= kMaxPairs)
            return;
        out.pairs.insert(quint64(quint32(b[0]) << 16 | quint32(b[1]) << 8 | b[2]) << 32 | len);
    };
#if defined(__SSE2__)
    // Up to 16 header bytes are compared 16 positions at once; with more,
    // every zero byte is looked at.
    __m128i headerBytes[16];
    const size_t headerCount = o.headers.size() <= 16 ? o.headers.size() : 0;
    for (size_t k = 0; k < headerCount; ++k)
        headerBytes[k] = _mm_set1_epi8(char(o.headers[k]));
#endif
    std::vector<quint8> buf(kPiece + kLook);
    quint64 pos = from;
    while (pos < size && (pos < end || !pending.empty())) {
        if (stop && stop->load(std::memory_order_relaxed))
            return;
        if (pos >= end)
            pos = pending.top().first; // only look-aheads are left: read where they are
        // A piece and the few bytes behind it that its last positions need.
        const size_t got = f.readAt(pos, buf.data(), buf.size());
        if (got < kLook)
            break;
        const quint8 *b = buf.data();
        const size_t n = got - kLook + 1; // positions whose 6 bytes are all here
        while (!pending.empty() && pending.top().first < pos + n) {
            const Pending q = pending.top();
            pending.pop();
            if (q.first >= pos)
                judge(b + (q.first - pos), q.second);
        }
        const size_t scan = pos < end ? size_t(qMin<quint64>(n, end - pos)) : 0;
        auto candidate = [&](size_t i) {
            if (!o.opens[quint32(b[i + 4]) << 8 | b[i + 5]]
                && !(b[i + 4] == kAudHeader && b[i + 3] == 2 && b[i + 2] == 0 && b[i + 1] == 0
                     && o.delimiter[b[i + 5]]))
                return;
            const quint32 len = quint32(b[i]) << 24 | quint32(b[i + 1]) << 16 | quint32(b[i + 2]) << 8 | b[i + 3];
            const quint64 q = pos + i + 4 + len;
            if (!len || q + kLook > size)
                return;
            ++out.candidates;
            if (q < pos + n)
                judge(b + (q - pos), len);
            else
                pending.push({q, len});
        };
        // A unit's length opens with a zero byte: find those 16 at a time,
        // keeping the ones with a possible header byte four bytes on.
        size_t i = 0;
#if defined(__SSE2__)
        if (headerCount) {
            const __m128i zero = _mm_setzero_si128();
            for (; i + 16 <= scan; i += 16) {
                const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i *>(b + i));
                const __m128i h = _mm_loadu_si128(reinterpret_cast<const __m128i *>(b + i + 4));
                __m128i any = _mm_cmpeq_epi8(h, headerBytes[0]);
                for (size_t k = 1; k < headerCount; ++k)
                    any = _mm_or_si128(any, _mm_cmpeq_epi8(h, headerBytes[k]));
                for (unsigned mask = unsigned(_mm_movemask_epi8(_mm_and_si128(_mm_cmpeq_epi8(v, zero), any))); mask;
                     mask &= mask - 1)
                    candidate(i + size_t(__builtin_ctz(mask)));
            }
        }
#endif
        for (; i < scan; ++i)
            if (b[i] == 0)
                candidate(i);
        pos += scan ? scan : n;
    }
}
} // namespace

LearnedHeads LearnHeadsBehindUnits(BufferedReader &f, quint64 from, const NalSet &unit,
                                   const QByteArray &videoHeads, const std::atomic<bool> *stop)
{
    LearnedHeads out;
    const quint64 size = f.size();
    if (from >= size || size - from < kLook)
        return out;
    const Openers o = openersFor(unit, videoHeads);
    // Two halves side by side; a large file keeps both cores busy.
    const quint64 mid = size - from > kSplitAbove ? from + (size - from) / 2 : size;
    RangeResult first, second;
    std::thread other;
    if (mid < size)
        other = std::thread([&] { scanRange(f.path(), mid, size, unit, o, stop, second); });
    scanRange(f.path(), from, mid, unit, o, stop, first);
    if (other.joinable())
        other.join();
    if (stop && stop->load(std::memory_order_relaxed))
        return out;
    first.pairs.insert(second.pairs.begin(), second.pairs.end());
    out.candidates = first.candidates + second.candidates;
    out.recorded = first.pairs.size();
    std::unordered_map<quint32, quint32> counts; // head -> lengths it was seen behind
    for (quint64 pair : first.pairs)
        ++counts[quint32(pair >> 32)];

    out.threshold = RecurrenceThreshold(out.recorded);
    std::vector<std::pair<quint32, quint32>> kept; // (count, head)
    for (const auto &c : counts)
        if (c.second >= out.threshold)
            kept.push_back({c.second, c.first});
    // Most frequent first; equal counts by value, so every run keeps the same order.
    std::sort(kept.begin(), kept.end(), [](const auto &a, const auto &b) {
        return a.first != b.first ? a.first > b.first : a.second < b.second;
    });
    if (kept.size() > kMaxHeads)
        kept.resize(kMaxHeads);
    for (const auto &k : kept) {
        const char r[audio::kRecord] = {char(k.second >> 16), char(k.second >> 8), char(k.second)};
        out.records.append(r, audio::kRecord);
    }
    return out;
}

} // namespace carve
