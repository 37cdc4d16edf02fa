#include "carve/audio/Adts.h"

#include "carve/audio/AudioConstants.h"
#include "repair/RepairState.h"

#include <QMap>
#include <QtDebug>
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

bool BuildAdtsHeader(RepairState &s, quint32 payloadLength, Variant variant)
{
    if (variant == Variant::Mkv || s.nSoundSampleRate == 0 || s.nSoundSampleRate == audio::kUnsetRate)
        s.nSoundSampleRate = audio::kDefaultRate;
    // Every header says two channels, mono sound included.
    s.nSoundChannels = 2;
    const QString rateBits = SampleRateBits(qint32(s.nSoundSampleRate));
    if (rateBits.isEmpty()) {
        qWarning().noquote() << "ADTS: no AAC sampling index for the rate" << s.nSoundSampleRate;
        return false;
    }
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
