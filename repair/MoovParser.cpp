// Reading the moov of a damaged file or of a sample.
//
// Not a tree walk: the parse steps one byte at a time and compares the four
// bytes there with the tags it knows, remembering which kind of track it
// stands in. Damage to the nesting then can't stop it; the price, accepted,
// is that four bytes inside other data that look like a tag count as one.

#include "repair/RepairConstants.h"
#include "repair/ThreadVideoRepair.h"

#include <QtEndian>

namespace {
constexpr quint32 fourcc(const char *t)
{
    return quint32(quint8(t[0])) << 24 | quint32(quint8(t[1])) << 16 | quint32(quint8(t[2])) << 8
           | quint32(quint8(t[3]));
}

// Sound sample entries that decide the format code; `hevc` marks those that
// have an HEVC variant of their pipeline.
struct SoundTagRow
{
    quint32 tag;
    quint32 code;
    bool hevc;
};
constexpr SoundTagRow kSoundTags[] = {
    {fourcc(tag::twos), 5, true}, {fourcc(tag::sowt), 1, false}, {fourcc(tag::lpcm), 12, true},
    {fourcc(tag::Opus), 10, false}, {fourcc(tag::ac_3), 8, false}, {fourcc(tag::alaw), 11, true},
    {fourcc(tag::imaMs), 9, false}, {fourcc(tag::ulaw), 13, true},
};

bool isProRes(quint32 t)
{
    return t == fourcc(tag::apch) || t == fourcc(tag::apcn) || t == fourcc(tag::apcs)
           || t == fourcc(tag::apco) || t == fourcc(tag::ap4h);
}
} // namespace

void ThreadVideoRepair::ParseMoovOfDamagedFile() { ParseMoov(false); }
void ThreadVideoRepair::ParseMoovOfSample() { ParseMoov(true); }

void ThreadVideoRepair::ParseMoov(bool sample)
{
    BufferedReader &f = sample ? pSample : pSource;
    RepairState &s = pApp;
    s.bInVideoTrak = s.bInSoundTrak = s.bInTimecodeTrak = false;
    s.bHevcWithPcm = false;
    s.nCttsEntries = s.nCttsCount1 = s.nCttsOffset1 = s.nCttsCount2 = s.nCttsOffset2 = 0;
    s.nCttsCount3 = s.nCttsOffset3 = 0;
    s.ullTrakPos = 0;
    s.nVideoStsdSize = s.nSoundStsdSize = 0;
    s.TimeScaleSound = 0;
    int sttsCount = 0;
    bool bMp3Seen = false;
    if (!sample) {
        s.bSawVideoTrak = false;
        s.nTimeScaleVideo = s.FrameWidth = s.FrameHeight = s.nSoundFrameSize = 0;
    }

    quint64 &P = s.ullScanPos;
    P += moovparse::kMvhdToBody;
    s.ullMoovBodyPos = P;
    const quint64 fileSize = sample ? s.ullSampleSize : s.ullFileSize;
    if (s.nMoovSize >= fileSize)
        return;
    quint64 &left = sample ? s.ullSampleLeft : ullFileLeft;
    const quint64 end = sample ? s.ullMoovBodyPos + s.nMoovSize : s.ullFileSize;

    auto logPlain = [&](const QString &line) {
        if (sample && hLog.isOpen())
            hLog.write((line + "\r\n").toUtf8());
    };
    auto setKind = [&](bool video, bool sound, bool timecode) {
        s.bInVideoTrak = video;
        s.bInSoundTrak = sound;
        s.bInTimecodeTrak = timecode;
    };
    // A saved stsd is the atom plus what follows it, four times its size,
    // bounded by the file so an absurd size field can't ask for gigabytes.
    auto saveStsd = [&](QByteArray &dst, quint32 size) {
        const quint64 from = P - 4;
        const quint64 want = quint64(size) * 4;
        const quint64 room = from < fileSize ? fileSize - from : 0;
        dst = QByteArray(int(qMin<quint64>(want, qMin<quint64>(room, 0x7FFFFFF0))), '\0');
        f.readAt(from, dst.data(), size_t(dst.size()));
    };

    while (P < end && (sample || !s.bStopRepair)) {
        const quint32 t = f.be32(P);
        if (t == fourcc(tag::trak)) {
            s.nTrakLeft = f.be32(P - 4);
            s.ullTrakPos = P;
            for (;;) {
                const quint32 k = f.be32(P);
                if (k == fourcc(tag::vmhd)) {
                    setKind(true, false, false);
                    if (!sample)
                        s.bSawVideoTrak = true;
                    else
                        P = s.ullTrakPos + 4;
                    break;
                }
                if (k == fourcc(tag::smhd)) {
                    setKind(false, true, false);
                    if (sample)
                        P = s.ullTrakPos + 4;
                    break;
                }
                if (k == fourcc(tag::gmhd) || k == fourcc(tag::nmhd)) {
                    setKind(false, false, true);
                    break;
                }
                // The sample's search is bounded by the trak's size; the end
                // of the file bounds both, so a zero size can't run forever.
                if (sample && s.nTrakLeft == 0)
                    break;
                ++P;
                --s.nTrakLeft;
                if (P >= fileSize || (!sample && s.bStopRepair))
                    break;
            }
        } else if (s.bInVideoTrak) {
            bool stop = false;
            if (t == fourcc(tag::mdhd)) {
                s.nTimeScaleVideo = f.be32(P + 16);
            } else if (!sample && t == fourcc(tag::jpeg)) {
                s.nFormatCode = 17;
            } else if (isProRes(t)) {
                s.nFormatCode = 16;
            } else if (t == fourcc(tag::es26)) {
                if (s.b3gpFile)
                    s.nFormatCode = 14;
            } else if (t == fourcc(tag::mp4v)) {
                // A 3GP file's mp4v counts as MPEG-4 in the end; only es26 stays 14.
                s.nFormatCode = 7;
            } else if (t == fourcc(tag::hvc1) || t == fourcc(tag::hev1)) {
                s.nFormatCode = 6;
            } else if (t == fourcc(tag::av01)) {
                s.nFormatCode = 15;
            } else if (t == fourcc(tag::mdat)) {
                stop = true;
            } else if (t == fourcc(tag::stsc)) {
                if (!sample && s.nVideoDelta == 0) {
                    const quint32 size = f.be32(P - 4);
                    if (f.be32(P + size) == fourcc(tag::stts))
                        s.nVideoDelta = f.be32(P + size + 16);
                }
                s.bInVideoTrak = false;
            } else if (t == fourcc(tag::tkhd)) {
                // Two bytes ahead of the 16.16 fields: the integer part lands in
                // the low half of the value read.
                s.FrameWidth = f.be32(P + 78);
                s.FrameHeight = f.be32(P + 82);
                logPlain(QStringLiteral("FrameWidth = %1").arg(s.FrameWidth));
                logPlain(QStringLiteral("FrameHeight = %1").arg(s.FrameHeight));
            } else if (t == fourcc(tag::stsd)) {
                s.nVideoStsdSize = f.be32(P - 4);
                if (sample || s.nVideoStsdSize < moovparse::kMaxVideoStsdDamaged)
                    saveStsd(pVideoStsd, s.nVideoStsdSize);
            } else if (t == fourcc(tag::stts)) {
                if (!sample) {
                    if (sttsCount == 2) {
                        stop = true;
                    } else {
                        s.nVideoDelta = f.be32(P + 16);
                        ++sttsCount;
                    }
                } else {
                    s.nVideoDelta = f.be32(P + 16);
                    s.bInVideoTrak = false;
                    if (++sttsCount == 2)
                        stop = true;
                }
            } else if (t == fourcc(tag::ctts)) {
                if (!sample) {
                    s.nCttsAtomSize = f.be32(P - 4);
                    const quint64 after = P - 4 + s.nCttsAtomSize;
                    if (after < ullFileLeft && f.be32(after) != fourcc(tag::stsc))
                        s.bInVideoTrak = false;
                }
                s.nCttsOffset3 = 0;
                s.nCttsEntries = f.be32(P + 8);
                if (s.nCttsEntries > 1) {
                    s.bHasCtts = true;
                    quint64 q = P + 12;
                    s.nCttsCount1 = f.be32(q);
                    s.nCttsOffset1 = f.be32(q + 4);
                    q += 8;
                    s.nCttsCount2 = f.be32(q);
                    const quint32 v = f.be32(q + 4);
                    q += 8;
                    if (s.nCttsCount2 == 2)
                        s.nCttsOffset3 = v;
                    if (s.nCttsCount2 == 1) {
                        s.nCttsCount3 = f.be32(q);
                        s.nCttsOffset3 = f.be32(q + 4);
                    }
                    s.nCttsOffset2 = v;
                    P = q;
                }
            }
            if (stop)
                break;
        } else if (s.bInSoundTrak) {
            s.bSampleHasAudio = true;
            bool stop = false;
            if (t == fourcc(tag::stsd)) {
                s.nSoundStsdSize = f.be32(P - 4);
                if (s.nSoundStsdSize < moovparse::kMaxSoundStsd)
                    saveStsd(pSoundStsd, s.nSoundStsdSize);
                s.nSoundSampleRate = f.be32(P + 42);
            } else if (t == fourcc(tag::mdhd)) {
                s.TimeScaleSound = f.be32(P + 16);
                logPlain(QStringLiteral("pApp.TimeScaleSound = %1").arg(s.TimeScaleSound));
            } else if (t == fourcc(tag::mp4a)) {
                // Find the esds and read the object type in its first 75 bytes.
                quint64 q = P;
                while (q < fileSize && f.be32(q) != fourcc(tag::esds))
                    ++q;
                if (q < fileSize) {
                    quint8 b[moovparse::kEsdsLook];
                    f.readAt(q + 4, b, sizeof b);
                    int kind = 0; // 1 MP3, 2 AAC
                    for (int i = 0; i + 1 < moovparse::kEsdsLook && kind == 0; ++i) {
                        if (b[i] == 0x6B && b[i + 1] == 0x15)
                            kind = 1;
                        else if (b[i] == 0x40 && b[i + 1] == 0x15)
                            kind = 2;
                    }
                    if (kind == 0 && !bMp3Seen)
                        kind = 2; // neither pair: an earlier MP3 track decides, else AAC
                    if (kind == 1) {
                        bMp3Seen = true;
                        s.nFormatCode = 4;
                    } else if (kind == 2) {
                        bMp3Seen = false;
                        if (s.nFormatCode != 6 && s.nFormatCode != 7 && s.nFormatCode != 15)
                            s.nFormatCode = 0;
                    }
                }
            } else if (t == fourcc(tag::stsz)) {
                if (sample)
                    s.bInSoundTrak = false;
                const quint32 a = f.be32(P + 16), b = f.be32(P + 20);
                s.nSoundFrameSize = a == 4 ? b : b - 50;
                if (sample && s.bInVideoTrak)
                    stop = true;
            } else if (t == fourcc(tag::stts)) {
                s.nSoundDelta = f.be32(P + 16);
                ++sttsCount;
            } else if (t == fourcc(tag::mdat)) {
                stop = true;
            } else {
                for (const SoundTagRow &row : kSoundTags) {
                    if (t != row.tag)
                        continue;
                    if (row.hevc && s.nFormatCode == 6)
                        s.bHevcWithPcm = true;
                    s.nFormatCode = row.code;
                    if (sample && row.code == 1)
                        s.b3gpFile = false;
                    break;
                }
            }
            if (stop)
                break;
        } else if (s.bInTimecodeTrak) {
            // Only stepped over; what is read there has no use.
            if (t == fourcc(tag::stco) || t == fourcc(tag::co64))
                P += 12;
            else if (t == fourcc(tag::stsz))
                P += 8;
            else if (t == fourcc(tag::mdat))
                break;
        } else if (t == fourcc(tag::mdat)) {
            break;
        }
        --left;
        ++P;
    }
    s.bMoovParsed = true;
    if (sample)
        pSample.close();
}
