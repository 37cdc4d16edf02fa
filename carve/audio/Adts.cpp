#include "carve/audio/Adts.h"

#include "carve/audio/AudioConstants.h"
#include "repair/RepairState.h"

#include <QMap>
#include <QtDebug>
#include <algorithm>
#include <sstream>

namespace adts {

QString BinaryText(int value, int width)
{
    QString bits = QString::number(uint(value), 2);
    if (bits.size() < width)
        bits.prepend(QString(width - bits.size(), '0'));
    return bits;
}

QString BitsToHexPairs(const QString &bitsIn, bool padToNibble)
{
    QString bits = bitsIn;
    if (padToNibble && bits.size() % 4)
        bits.prepend(QString(4 - bits.size() % 4, '0'));
    static const char kHex[] = "0123456789ABCDEF";
    QString out;
    int digits = 0;
    for (int i = 0; i + 4 <= bits.size(); i += 4) {
        int v = 0;
        for (int k = 0; k < 4; ++k)
            v = v * 2 + (bits.at(i + k) == '1');
        if (digits && digits % 2 == 0)
            out += ' ';
        out += kHex[v];
        ++digits;
    }
    return out;
}

QString SampleRateBits(qint32 rate)
{
    // Sampling frequency indices of the AAC standard.
    static const QMap<qint32, QString> kRates = {
        {96000, "0000"}, {88200, "0001"}, {64000, "0010"}, {48000, "0011"}, {44100, "0100"},
        {32000, "0101"}, {24000, "0110"}, {22050, "0111"}, {16000, "1000"}, {12000, "1001"},
        {11025, "1010"}, {8000, "1011"},  {7350, "1100"},
    };
    return kRates.value(rate);
}

bool BuildAdtsHeader(quint32 payloadLength, Variant variant) { return BuildAdtsHeader(pApp, payloadLength, variant); }

namespace {
// The sampling frequency index of a rate; -1 for a rate the table lacks.
int rateIndex(quint32 rate)
{
    static const quint32 kRates[] = {96000, 88200, 64000, 48000, 44100, 32000, 24000,
                                     22050, 16000, 12000, 11025, 8000,  7350};
    for (int i = 0; i < int(sizeof kRates / sizeof kRates[0]); ++i)
        if (kRates[i] == rate)
            return i;
    return -1;
}
} // namespace

bool BuildAdtsHeader(RepairState &s, quint32 payloadLength, Variant variant)
{
    if (variant == Variant::Mkv || s.nSoundSampleRate == 0 || s.nSoundSampleRate == audio::kUnsetRate)
        s.nSoundSampleRate = audio::kDefaultRate;
    // Every header says two channels, mono sound included.
    s.nSoundChannels = 2;
    const int index = rateIndex(s.nSoundSampleRate);
    if (index < 0) {
        qWarning().noquote() << "ADTS: no AAC sampling index for the rate" << s.nSoundSampleRate;
        return false;
    }
    const quint32 length = payloadLength + audio::kAdtsHeaderBytes;
    if (length < (1u << 13)) {
        // The 56 bits in place, as the text below gives them: MPEG-4 AAC LC
        // without CRC, buffer fullness 0x7FF, one raw data block.
        const quint32 channels = s.nSoundChannels;
        const quint32 b[audio::kAdtsHeaderBytes] = {
            0xFF, 0xF1, 0x40 | quint32(index) << 2 | (channels >> 2 & 1), (channels & 3) << 6 | length >> 11,
            length >> 3 & 0xFF, (length & 7) << 5 | 0x1F, 0xFC};
        std::copy(b, b + audio::kAdtsHeaderBytes, s.nAdtsBytes);
        return true;
    }
    // A length past 13 bits widens its field: the text, and the padding of
    // the H.264 and HEVC variant, decide which bytes come out.
    const QString rateBits = SampleRateBits(qint32(s.nSoundSampleRate));
    QString bits;
    bits += "111111111111000101"; // syncword, MPEG-4, layer 00, no CRC, AAC LC
    bits += rateBits;
    bits += "0";                   // private bit
    bits += BinaryText(int(s.nSoundChannels), 3);
    bits += "0000";                // original/copy, home, copyright bits
    bits += BinaryText(int(payloadLength + audio::kAdtsHeaderBytes), 13);
    bits += "1111111111100";       // buffer fullness 0x7FF, one raw data block

    const QString hex = BitsToHexPairs(bits, variant == Variant::H264Hevc);
    std::istringstream in(hex.toStdString());
    in >> std::hex;
    for (quint32 &b : s.nAdtsBytes) {
        unsigned v = 0;
        in >> v;
        b = v;
    }
    return true;
}

} // namespace adts
