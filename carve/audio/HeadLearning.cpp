// The learning pass: reads the media data once, front to back, in large
// pieces. Look-aheads (where a unit's length points) are queued and answered
// when the pass reaches them, so no read goes anywhere but forward.

#include "carve/audio/HeadLearning.h"

#include "carve/audio/AudioConstants.h"
#include "repair/BufferedReader.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <queue>
#include <vector>

namespace carve {

namespace {
constexpr size_t kPiece = size_t(4) << 20;
constexpr size_t kLook = 6;          // bytes a unit test reads
constexpr quint32 kValues = 1u << 24; // distinct 3-byte heads
constexpr size_t kMaxHeads = 2000;   // at most this many learned heads are kept

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

LearnedHeads LearnHeadsBehindUnits(BufferedReader &f, quint64 from, const NalSet &unit,
                                   const QByteArray &videoHeads, const std::atomic<bool> *stop)
{
    LearnedHeads out;
    const quint64 size = f.size();
    if (from >= size || size - from < kLook)
        return out;
    std::vector<quint8> counts(kValues, 0); // saturating counts
    std::vector<bool> opening(1 << 16, videoHeads.size() < audio::kRecord);
    for (int i = 0; i + audio::kRecord <= videoHeads.size(); i += audio::kRecord)
        opening[quint32(quint8(videoHeads[i])) << 8 | quint8(videoHeads[i + 1])] = true;
    std::priority_queue<quint64, std::vector<quint64>, std::greater<quint64>> pending;
    auto judge = [&](const quint8 *b) {
        if (unit.test(b) || isBlankHead(b))
            return;
        ++out.recorded;
        quint8 &c = counts[quint32(b[0]) << 16 | quint32(b[1]) << 8 | b[2]];
        if (c < 255)
            ++c;
    };

    std::vector<quint8> buf(kPiece + kLook);
    quint64 pos = from;
    while (pos + kLook <= size) {
        if (stop && stop->load(std::memory_order_relaxed))
            return out;
        // A piece and the few bytes behind it that its last positions need.
        const size_t got = f.readAt(pos, buf.data(), buf.size());
        if (got < kLook)
            break;
        const quint8 *b = buf.data();
        const size_t n = got - kLook + 1; // positions whose 6 bytes are all here
        // Look-aheads that land in this piece.
        while (!pending.empty() && pending.top() < pos + n) {
            const quint64 q = pending.top();
            pending.pop();
            if (q >= pos)
                judge(b + (q - pos));
        }
        for (size_t i = 0; i < n;) {
            const void *z = std::memchr(b + i, 0, n - i);
            if (!z)
                break;
            i = size_t(static_cast<const quint8 *>(z) - b);
            if (b[i + 4] == 0) {
                // Inside a run of zeros only the last four positions can open a unit.
                size_t e = i + 4;
                while (e < got && b[e] == 0)
                    ++e;
                i = std::max(i + 1, e >= 4 ? e - 4 : i + 1);
                continue;
            }
            if (unit.test(b + i) && opening[quint32(b[i + 4]) << 8 | b[i + 5]]) {
                const quint32 len = quint32(b[i]) << 24 | quint32(b[i + 1]) << 16 | quint32(b[i + 2]) << 8 | b[i + 3];
                const quint64 q = pos + i + 4 + len;
                if (len && q + kLook <= size) {
                    ++out.candidates;
                    if (q < pos + n)
                        judge(b + (q - pos));
                    else
                        pending.push(q);
                }
            }
            ++i;
        }
        pos += n;
    }

    out.threshold = RecurrenceThreshold(out.recorded);
    std::vector<std::pair<quint8, quint32>> kept;
    for (quint32 v = 0; v < kValues; ++v)
        if (counts[v] >= out.threshold)
            kept.push_back({counts[v], v});
    std::stable_sort(kept.begin(), kept.end(), [](const auto &a, const auto &b) { return a.first > b.first; });
    if (kept.size() > kMaxHeads)
        kept.resize(kMaxHeads);
    for (const auto &k : kept) {
        const char r[audio::kRecord] = {char(k.second >> 16), char(k.second >> 8), char(k.second)};
        out.records.append(r, audio::kRecord);
    }
    return out;
}

} // namespace carve
