#include "mux/CompositionTimes.h"

#include <QFile>
#include <QtEndian>
#include <functional>

namespace mux {

namespace {

constexpr qint64 kMaxMoov = qint64(256) << 20; // tables of many hours stay far below
constexpr int kHeader = 8, kLargeHeader = 16;

quint32 tag(const char *t)
{
    return quint32(quint8(t[0])) << 24 | quint32(quint8(t[1])) << 16 | quint32(quint8(t[2])) << 8 | quint8(t[3]);
}

struct Box
{
    int pos = 0, body = 0, end = 0;
    quint32 type = 0;
};

quint32 be32(const QByteArray &m, int at) { return qFromBigEndian<quint32>(m.constData() + at); }
quint64 be64(const QByteArray &m, int at) { return qFromBigEndian<quint64>(m.constData() + at); }

// The boxes inside [from, to) of m; false when one doesn't fit.
bool children(const QByteArray &m, int from, int to, QVector<Box> &out)
{
    for (int p = from; p < to;) {
        if (to - p < kHeader)
            return false;
        Box b;
        b.pos = p;
        b.type = be32(m, p + 4);
        quint64 size = be32(m, p);
        b.body = p + kHeader;
        if (size == 1) {
            if (to - p < kLargeHeader)
                return false;
            size = be64(m, p + 8);
            b.body = p + kLargeHeader;
        } else if (size == 0) {
            size = quint64(to - p);
        }
        if (size < quint64(b.body - p) || size > quint64(to - p))
            return false;
        b.end = p + int(size);
        out << b;
        p = b.end;
    }
    return true;
}

const Box *find(const QVector<Box> &boxes, const char *t)
{
    for (const Box &b : boxes)
        if (b.type == tag(t))
            return &b;
    return nullptr;
}

QByteArray box(const char *t, const QByteArray &body)
{
    QByteArray out;
    const quint64 size = quint64(body.size()) + kHeader;
    if (size > 0xFFFFFFFFu) {
        out += QByteArray::fromHex("00000001") + t;
        char s[8];
        qToBigEndian<quint64>(size + 8, s);
        out += QByteArray(s, 8);
    } else {
        char s[4];
        qToBigEndian<quint32>(quint32(size), s);
        out += QByteArray(s, 4) + t;
    }
    return out + body;
}

QByteArray u32(quint32 v)
{
    char s[4];
    qToBigEndian<quint32>(v, s);
    return QByteArray(s, 4);
}
QByteArray u64(quint64 v)
{
    char s[8];
    qToBigEndian<quint64>(v, s);
    return QByteArray(s, 8);
}

} // namespace

bool AddCompositionTimes(const QString &path, const carve::PictureOrder &order)
{
    if (!order.reordered())
        return false; // shown as decoded: the times ffmpeg gave are right
    QFile f(path);
    if (!f.open(QIODevice::ReadWrite))
        return false;
    const qint64 fileSize = f.size();

    // The moov, which must be the last atom.
    qint64 moovPos = -1, moovSize = 0;
    for (qint64 p = 0; p + kHeader <= fileSize;) {
        f.seek(p);
        const QByteArray h = f.read(kLargeHeader);
        if (h.size() < kHeader)
            return false;
        qint64 size = be32(h, 0);
        if (size == 1 && h.size() == kLargeHeader)
            size = qint64(be64(h, 8));
        else if (size == 0)
            size = fileSize - p;
        if (size < kHeader || size > fileSize - p)
            return false;
        if (be32(h, 4) == tag("moov")) {
            moovPos = p;
            moovSize = size;
        }
        p += size;
    }
    if (moovPos < 0 || moovPos + moovSize != fileSize || moovSize > kMaxMoov)
        return false;
    f.seek(moovPos);
    const QByteArray moov = f.read(moovSize);
    if (moov.size() != moovSize)
        return false;

    QVector<Box> top;
    if (!children(moov, 0, moov.size(), top) || top.size() != 1)
        return false;
    const Box &mv = top.first();
    QVector<Box> inMoov;
    if (!children(moov, mv.body, mv.end, inMoov))
        return false;

    // The video track and the boxes on the way to its sample table.
    const Box *trak = nullptr, *mdia = nullptr, *minf = nullptr, *stbl = nullptr, *tkhd = nullptr;
    QVector<Box> inTrak, inMdia, inMinf, inStbl;
    for (const Box &t : inMoov) {
        if (t.type != tag("trak"))
            continue;
        QVector<Box> a, b, c, d;
        if (!children(moov, t.body, t.end, a) || !(mdia = find(a, "mdia")))
            continue;
        if (!children(moov, mdia->body, mdia->end, b))
            continue;
        const Box *hdlr = find(b, "hdlr");
        if (!hdlr || hdlr->body + 12 > hdlr->end || be32(moov, hdlr->body + 8) != tag("vide"))
            continue;
        minf = find(b, "minf");
        if (!minf || !children(moov, minf->body, minf->end, c) || !(stbl = find(c, "stbl")) ||
            !children(moov, stbl->body, stbl->end, d))
            return false;
        trak = &t;
        inTrak = a;
        inMdia = b;
        inMinf = c;
        inStbl = d;
        break;
    }
    if (!trak)
        return false;
    // Pointers into the vectors just copied.
    mdia = find(inTrak, "mdia");
    tkhd = find(inTrak, "tkhd");
    minf = find(inMdia, "minf");
    stbl = find(inMinf, "stbl");
    const Box *stts = find(inStbl, "stts"), *stsz = find(inStbl, "stsz");
    if (!tkhd || !stts || !stsz || find(inStbl, "ctts") || stts->body + 16 > stts->end || stsz->body + 12 > stsz->end)
        return false;
    const quint32 samples = be32(moov, stsz->body + 8);
    const quint32 delta = be32(moov, stts->body + 12);
    if (delta == 0 || samples != quint32(order.display.size()) || be32(moov, stts->body + 8) < samples - 1)
        return false;

    // Offsets: each picture is presented `delay` frames after the decoding
    // of the first, in its display place.
    QByteArray entries;
    quint32 runs = 0, run = 0;
    qint64 last = -1;
    for (int i = 0; i <= order.display.size(); ++i) {
        const qint64 offset = i < order.display.size() ? qint64(order.display[i] + order.delay - i) * delta : -1;
        if (offset == last) {
            ++run;
            continue;
        }
        if (run) {
            entries += u32(run) + u32(quint32(last));
            ++runs;
        }
        run = 1;
        last = offset;
    }
    const QByteArray ctts = box("ctts", u32(0) + u32(runs) + entries);

    // One edit: every picture, from the first one shown. Its length in the
    // movie's time scale is also the track's.
    const Box *mvhd = find(inMoov, "mvhd"), *mdhd = find(inMdia, "mdhd");
    if (!mvhd || !mdhd || mvhd->body + 24 > mvhd->end || mdhd->body + 24 > mdhd->end)
        return false;
    auto scaleOf = [&](const Box *b) { return be32(moov, b->body + (moov.at(b->body) == 1 ? 20 : 12)); };
    const quint32 movieScale = scaleOf(mvhd), mediaScale = scaleOf(mdhd);
    if (movieScale == 0 || mediaScale == 0)
        return false;
    const quint64 duration = quint64(samples) * delta * movieScale / mediaScale;
    const quint64 mediaStart = quint64(order.delay) * delta;
    const QByteArray elst = duration > 0xFFFFFFFFu || mediaStart > 0x7FFFFFFFu
                                ? box("elst", u32(1u << 24) + u32(1) + u64(duration) + u64(mediaStart) + u32(0x10000))
                                : box("elst", u32(0) + u32(1) + u32(quint32(duration)) + u32(quint32(mediaStart)) +
                                                  u32(0x10000));
    const QByteArray edts = box("edts", elst);

    auto bodyOf = [&](const QVector<Box> &boxes, const std::function<QByteArray(const Box &)> &each) {
        QByteArray out;
        for (const Box &b : boxes)
            out += each(b);
        return out;
    };
    auto same = [&](const Box &b) { return moov.mid(b.pos, b.end - b.pos); };
    const QByteArray newStbl = box("stbl", bodyOf(inStbl, same) + ctts);
    const QByteArray newMinf = box("minf", bodyOf(inMinf, [&](const Box &b) { return &b == stbl ? newStbl : same(b); }));
    const QByteArray newMdia = box("mdia", bodyOf(inMdia, [&](const Box &b) { return &b == minf ? newMinf : same(b); }));
    // A duration field of tkhd or mvhd set to at least the edit's length.
    auto withDuration = [&](const Box &b, int v0At, int v1At) {
        QByteArray bytes = same(b);
        const bool v1 = moov.at(b.body) == 1;
        const int at = b.body - b.pos + (v1 ? v1At : v0At);
        if (at + (v1 ? 8 : 4) > bytes.size())
            return bytes;
        const quint64 old = v1 ? be64(bytes, at) : be32(bytes, at);
        if (old < duration && (v1 || duration <= 0xFFFFFFFFu))
            bytes.replace(at, v1 ? 8 : 4, v1 ? u64(duration) : u32(quint32(duration)));
        return bytes;
    };
    const QByteArray newTrak = box("trak", bodyOf(inTrak, [&](const Box &b) {
                                       if (b.type == tag("edts"))
                                           return QByteArray();
                                       if (&b == tkhd)
                                           return withDuration(b, 20, 28);
                                       return &b == mdia ? edts + newMdia : same(b);
                                   }));
    const QByteArray newMoov = box("moov", bodyOf(inMoov, [&](const Box &b) {
                                       if (&b == mvhd)
                                           return withDuration(b, 16, 24);
                                       return b.pos == trak->pos ? newTrak : same(b);
                                   }));

    // The moov is last: the media before it keeps its offsets. A write that
    // fails puts the old moov back.
    if (!f.resize(moovPos) || !f.seek(moovPos) || f.write(newMoov) != newMoov.size() || !f.flush()) {
        f.resize(moovPos);
        f.seek(moovPos);
        f.write(moov);
        return false;
    }
    return true;
}

} // namespace mux
