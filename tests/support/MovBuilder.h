#pragma once
// Builds small MOV/MP4 byte images by hand, for tests that need a tag in an
// exact place (or a damage no encoder makes).

#include <QByteArray>
#include <QFile>
#include <QList>
#include <QString>

namespace mov {

inline QByteArray be32(quint32 v)
{
    QByteArray b(4, '\0');
    b[0] = char(v >> 24); b[1] = char(v >> 16); b[2] = char(v >> 8); b[3] = char(v);
    return b;
}
inline QByteArray be16(quint16 v) { return be32(v).right(2); }
inline QByteArray zeros(int n) { return QByteArray(n, '\0'); }

inline QByteArray atom(const char *type, const QByteArray &payload = {})
{
    return be32(quint32(payload.size() + 8)) + QByteArray(type, 4) + payload;
}
inline QByteArray atoms(const QList<QByteArray> &parts)
{
    QByteArray out;
    for (const QByteArray &p : parts)
        out += p;
    return out;
}

inline QByteArray ftyp() { return atom("ftyp", QByteArray("isom") + be32(0x200) + "isomiso2avc1mp41"); }
inline QByteArray mvhd(quint32 timescale = 1000, quint32 duration = 2000)
{
    return atom("mvhd", zeros(12) + be32(timescale) + be32(duration) + zeros(80));
}
inline QByteArray tkhd(quint16 width, quint16 height)
{
    // width and height are 16.16 at offsets 76 and 80 of the body
    return atom("tkhd", zeros(76) + be16(width) + be16(0) + be16(height) + be16(0));
}
inline QByteArray mdhd(quint32 timescale) { return atom("mdhd", zeros(12) + be32(timescale) + zeros(8)); }
inline QByteArray stts(quint32 delta, quint32 count = 10)
{
    return atom("stts", zeros(4) + be32(1) + be32(count) + be32(delta));
}
inline QByteArray sampleEntryVideo(const char *fourcc)
{
    return atom(fourcc, zeros(6) + be16(1) + zeros(70));
}
inline QByteArray esds(quint8 objectType, int padBefore = 0)
{
    return atom("esds", zeros(4) + QByteArray(padBefore, '\x11') + QByteArray("\x03\x19\x00\x01\x04\x11", 6)
                            + char(objectType) + char(0x15) + zeros(20));
}
inline QByteArray sampleEntrySound(const char *fourcc, quint16 rate, const QByteArray &extra = {})
{
    return atom(fourcc, zeros(6) + be16(1) + zeros(8) + be16(2) + be16(16) + be16(0) + be16(0) + be16(rate)
                            + be16(0) + extra);
}
inline QByteArray stsd(const QByteArray &entry) { return atom("stsd", zeros(4) + be32(1) + entry); }
inline QByteArray stsz(quint32 first, quint32 second)
{
    return atom("stsz", zeros(4) + be32(0) + be32(2) + be32(first) + be32(second));
}
inline QByteArray stblTail() { return atom("stsc", zeros(4) + be32(0)) + atom("stco", zeros(4) + be32(0)); }

inline QByteArray videoTrak(const char *fourcc, quint16 w = 640, quint16 h = 360, quint32 ts = 30000,
                            quint32 delta = 1001, const QByteArray &extraStbl = {})
{
    const QByteArray stbl = atom("stbl", stsd(sampleEntryVideo(fourcc)) + stts(delta) + extraStbl + stblTail());
    const QByteArray minf = atom("minf", atom("vmhd", zeros(12)) + stbl);
    return atom("trak", tkhd(w, h) + atom("mdia", mdhd(ts) + minf));
}
// A 320x240 video track around this sample table.
inline QByteArray trakAround(const QByteArray &stbl)
{
    return atom("trak", tkhd(320, 240) + atom("mdia", mdhd(30000) + atom("minf", atom("vmhd", zeros(12)) + stbl)));
}
inline QByteArray soundTrak(const QByteArray &entry, quint32 ts = 48000, quint32 delta = 1024)
{
    const QByteArray stbl = atom("stbl", stsd(entry) + stts(delta) + stsz(4, 371) + stblTail());
    const QByteArray minf = atom("minf", atom("smhd", zeros(8)) + stbl);
    return atom("trak", tkhd(0, 0) + atom("mdia", mdhd(ts) + minf));
}
inline QByteArray moov(const QList<QByteArray> &traks) { return atom("moov", mvhd() + atoms(traks)); }

inline bool write(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(bytes) == bytes.size();
}

} // namespace mov
