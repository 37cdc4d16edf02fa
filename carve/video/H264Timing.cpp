#include "carve/video/H264Timing.h"

#include "repair/BitReader.h"
#include "repair/BufferedReader.h"

#include <algorithm>

namespace carve {

namespace {

constexpr int kSliceNonIdr = 1, kSliceIdr = 5, kSei = 6, kSps = 7, kPps = 8, kAud = 9;
// Enough of a unit for its header fields: a parameter set with scaling
// lists stays under this, and a slice header's first fields well under.
constexpr int kHeaderBytes = 256;
// Profiles whose parameter sets carry chroma format, bit depths and scaling lists.
constexpr int kHighProfiles[] = {100, 110, 122, 244, 44, 83, 86, 118, 128, 138, 139, 134, 135};
// No encoder reorders further; a larger distance means the headers were misread.
constexpr int kMaxReorder = 32;

struct Sps
{
    bool valid = false;
    bool separateColourPlanes = false;
    bool frameMbsOnly = true;
    int frameNumBits = 0;
    int pocType = 0;
    int pocLsbBits = 0;
};

// The unit's bytes behind its header, without emulation prevention bytes.
QByteArray rbsp(const char *p, int n)
{
    QByteArray out;
    out.reserve(qMin(n, kHeaderBytes));
    int zeros = 0;
    for (int i = 1; i < n && out.size() < kHeaderBytes; ++i) {
        const quint8 b = quint8(p[i]);
        if (zeros >= 2 && b == 3) {
            zeros = 0;
            continue;
        }
        zeros = b == 0 ? zeros + 1 : 0;
        out += char(b);
    }
    return out;
}

bool skipScalingList(BitReader &r, int size)
{
    int last = 8, next = 8;
    for (int j = 0; j < size; ++j) {
        if (next != 0) {
            const qint64 delta = r.se();
            if (!r.ok())
                return false;
            next = int((last + delta + 256) % 256);
        }
        last = next == 0 ? last : next;
    }
    return true;
}

Sps parseSps(const QByteArray &b)
{
    Sps s;
    BitReader r(reinterpret_cast<const quint8 *>(b.constData()), b.size());
    const qint64 profile = r.bits(8);
    r.bits(16); // constraint flags and level
    r.ue();     // parameter set id
    int chroma = 1;
    if (std::find(std::begin(kHighProfiles), std::end(kHighProfiles), profile) != std::end(kHighProfiles)) {
        chroma = int(r.ue());
        if (chroma == 3)
            s.separateColourPlanes = r.bit() == 1;
        r.ue(); // bit depths
        r.ue();
        r.bit(); // transform bypass
        if (r.bit() == 1) {
            for (int i = 0; i < (chroma == 3 ? 12 : 8); ++i)
                if (r.bit() == 1 && !skipScalingList(r, i < 6 ? 16 : 64))
                    return s;
        }
    }
    const qint64 frameNum = r.ue();
    const qint64 pocType = r.ue();
    if (frameNum < 0 || frameNum > 12 || pocType < 0 || pocType > 2)
        return s;
    s.frameNumBits = int(frameNum) + 4;
    s.pocType = int(pocType);
    if (pocType == 0) {
        const qint64 lsb = r.ue();
        if (lsb < 0 || lsb > 12)
            return s;
        s.pocLsbBits = int(lsb) + 4;
    } else if (pocType == 1) {
        return s; // cycles of offsets: rare, and left to the muxer
    }
    r.ue();  // reference frames
    r.bit(); // gaps allowed
    r.ue();  // width
    r.ue();  // height
    const int mbsOnly = r.bit();
    if (mbsOnly < 0 || !r.ok())
        return s;
    s.frameMbsOnly = mbsOnly == 1;
    s.valid = true;
    return s;
}

struct Picture
{
    int period = 0; // pictures since the last IDR share a period
    qint64 poc = 0;
    int decode = 0;
};

} // namespace

PictureOrder H264DisplayOrder(BufferedReader &file)
{
    PictureOrder order;
    QVector<Picture> pictures;
    Sps sps;
    bool inPicture = false; // a slice of the current access unit was seen
    int period = -1;
    qint64 prevMsb = 0, prevLsb = 0;
    bool usable = true;

    auto unit = [&](const char *p, int n) {
        if (n < 2 || !usable)
            return;
        const int type = quint8(p[0]) & 31, ref = (quint8(p[0]) >> 5) & 3;
        if (type == kSps) {
            sps = parseSps(rbsp(p, n));
            if (!sps.valid || !sps.frameMbsOnly)
                usable = false; // field pictures: their order needs more than this reader knows
        }
        if (type == kSei || type == kSps || type == kPps || type == kAud || (type >= 14 && type <= 18)) {
            inPicture = false;
            return;
        }
        if (type != kSliceNonIdr && type != kSliceIdr)
            return;
        if (!sps.valid) {
            usable = false;
            return;
        }
        const QByteArray head = rbsp(p, qMin(n, 64));
        BitReader r(reinterpret_cast<const quint8 *>(head.constData()), head.size());
        const qint64 firstMb = r.ue();
        r.ue(); // slice type
        r.ue(); // parameter set
        if (firstMb != 0 && inPicture)
            return; // a further slice of the same picture
        if (sps.separateColourPlanes)
            r.bits(2);
        r.bits(sps.frameNumBits);
        if (type == kSliceIdr) {
            r.ue(); // idr_pic_id
            ++period;
            prevMsb = prevLsb = 0;
        }
        period = qMax(period, 0);
        Picture pic;
        pic.period = period;
        pic.decode = pictures.size();
        if (sps.pocType == 0) {
            const qint64 lsb = r.bits(sps.pocLsbBits);
            if (lsb < 0 || !r.ok()) {
                usable = false;
                return;
            }
            const qint64 max = qint64(1) << sps.pocLsbBits;
            qint64 msb = prevMsb;
            if (lsb < prevLsb && prevLsb - lsb >= max / 2)
                msb += max;
            else if (lsb > prevLsb && lsb - prevLsb > max / 2)
                msb -= max;
            pic.poc = msb + lsb;
            if (ref != 0) {
                prevMsb = msb;
                prevLsb = lsb;
            }
        } else {
            pic.poc = pic.decode; // shown as decoded
        }
        pictures << pic;
        inPicture = true;
    };

    // Units behind start codes of three or four bytes, read a block at a
    // time; of each unit only its first bytes are looked at.
    const quint64 size = file.size();
    constexpr size_t kBlock = size_t(1) << 20;
    QByteArray block(int(kBlock), '\0');
    char head[kHeaderBytes];
    qint64 start = -1;
    auto finish = [&](quint64 end) {
        if (start < 0)
            return;
        const int n = int(qMin<quint64>(end - quint64(start), kHeaderBytes));
        file.readAt(quint64(start), head, size_t(n));
        unit(head, n);
    };
    quint8 z1 = 1, z2 = 1; // the two bytes before the block
    for (quint64 at = 0; at < size && usable; at += kBlock) {
        const size_t got = file.readAt(at, block.data(), kBlock);
        const quint8 *b = reinterpret_cast<const quint8 *>(block.constData());
        for (size_t i = 0; i < got; ++i) {
            if (b[i] != 1)
                continue;
            const quint8 p1 = i >= 1 ? b[i - 1] : z1, p2 = i >= 2 ? b[i - 2] : i == 1 ? z1 : z2;
            if (p1 != 0 || p2 != 0)
                continue;
            quint64 end = at + i - 2; // behind the unit: its zeros belong to the start code
            finish(end);
            start = qint64(at + i + 1);
        }
        z2 = got >= 2 ? b[got - 2] : z1;
        z1 = got >= 1 ? b[got - 1] : z1;
    }
    finish(size);
    if (!usable || pictures.isEmpty())
        return order;

    QVector<int> byDisplay(pictures.size());
    for (int i = 0; i < byDisplay.size(); ++i)
        byDisplay[i] = i;
    std::stable_sort(byDisplay.begin(), byDisplay.end(), [&](int a, int b) {
        const Picture &x = pictures[a], &y = pictures[b];
        return x.period != y.period ? x.period < y.period : x.poc < y.poc;
    });
    order.display.resize(pictures.size());
    for (int rank = 0; rank < byDisplay.size(); ++rank)
        order.display[byDisplay[rank]] = rank;
    for (int i = 0; i < order.display.size(); ++i) {
        const int ahead = i - order.display[i];
        if (qAbs(ahead) > kMaxReorder)
            return PictureOrder();
        order.delay = qMax(order.delay, ahead);
    }
    return order;
}

PictureOrder H264DisplayOrderOfFile(const QString &path)
{
    BufferedReader f;
    if (!f.open(path))
        return PictureOrder();
    return H264DisplayOrder(f);
}

} // namespace carve
