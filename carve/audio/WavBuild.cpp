#include "carve/audio/WavBuild.h"

#include "repair/RepairState.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QtDebug>

namespace carve {

namespace {

// Where a header field's value comes from.
enum class Src { Text, Const, RawSize, Rate, Channels, Bits, PcmByteRate, PcmBlockAlign };
struct Field
{
    int width; // 2 or 4 bytes, little-endian; 4 for a text
    Src src;
    quint32 value; // Const: the value; RawSize: added to the size
    const char *text;
};

// Bytes 0 to 27; the splitter wrote the 14 bytes from 28 on in front of the sound.
const Field kAlawHead[] = {
    {4, Src::Text, 0, "RIFF"}, {4, Src::RawSize, 20, nullptr}, {4, Src::Text, 0, "WAVE"}, {4, Src::Text, 0, "fmt "},
    {4, Src::Const, 18, nullptr},
    {2, Src::Const, 6, nullptr}, // A-law's tag, kept for mu-law and Opus sound too
    {2, Src::Const, 1, nullptr}, // one channel
    {4, Src::Rate, 0, nullptr},
};
const Field kAlawPrefix[] = {
    {4, Src::Const, 16000, nullptr}, // byte rate, whatever the sound's
    {2, Src::Const, 2, nullptr},     // block align
    {2, Src::Const, 8, nullptr},     // bits
    {2, Src::Const, 0, nullptr},     // extra size
    {4, Src::Text, 0, "data"},       // no size behind it: the sound starts at 42
};
const Field kImaHead[] = {
    {4, Src::Text, 0, "RIFF"}, {4, Src::RawSize, 34, nullptr}, {4, Src::Text, 0, "WAVE"}, {4, Src::Text, 0, "fmt "},
    {4, Src::Const, 20, nullptr}, {2, Src::Const, 0x11, nullptr},
    {2, Src::Const, 2, nullptr},     // two channels, whatever the sample said
    {4, Src::Rate, 0, nullptr},
    {4, Src::Const, 32000, nullptr}, // byte rate
    {2, Src::Const, 1024, nullptr},  // block align
    {2, Src::Const, 4, nullptr},     // bits
    {2, Src::Const, 2, nullptr},     // extra size
    {2, Src::Const, 1017, nullptr},  // samples a block
    {4, Src::Text, 0, "data"}, {4, Src::RawSize, 34, nullptr},
};
const Field kSowtHead[] = {
    {4, Src::Text, 0, "RIFF"},
    {4, Src::Const, 44, nullptr}, // RIFF size fixed at 44
    {4, Src::Text, 0, "WAVE"}, {4, Src::Text, 0, "fmt "}, {4, Src::Const, 16, nullptr},
    {2, Src::Const, 1, nullptr}, {2, Src::Channels, 0, nullptr}, {4, Src::Rate, 0, nullptr},
    {4, Src::PcmByteRate, 0, nullptr}, {2, Src::PcmBlockAlign, 0, nullptr}, {2, Src::Bits, 0, nullptr},
    {4, Src::Text, 0, "data"},
    {4, Src::Const, 0, nullptr}, // data size 0: the sound runs to the end of the file
};

template <size_t N>
QByteArray render(const Field (&fields)[N], quint64 rawSize, const RepairState *s)
{
    QByteArray out;
    for (const Field &f : fields) {
        if (f.src == Src::Text) {
            out.append(f.text, 4);
            continue;
        }
        quint32 v = 0;
        switch (f.src) {
        case Src::Const: v = f.value; break;
        case Src::RawSize: v = quint32(rawSize + f.value); break;
        case Src::Rate: v = s->nSoundSampleRate; break;
        case Src::Channels: v = s->nSoundChannels; break;
        case Src::Bits: v = s->nSoundSampleBits; break;
        case Src::PcmByteRate: v = s->nSoundSampleRate * s->nSoundChannels * s->nSoundSampleBits / 8; break;
        case Src::PcmBlockAlign: v = s->nSoundSampleBits * s->nSoundChannels / 8; break;
        case Src::Text: break;
        }
        for (int i = 0; i < f.width; ++i)
            out.append(char(v >> (8 * i)));
    }
    return out;
}

// "0x1A,0x00,..." lowest byte first, as the log shows sizes and rates.
QString hexBytes(quint32 v, int n)
{
    QStringList parts;
    for (int i = 0; i < n; ++i)
        parts << QStringLiteral("0x%1").arg((v >> (8 * i)) & 0xFF, 2, 16, QLatin1Char('0')).toUpper().replace("0X", "0x");
    return parts.join(',');
}
} // namespace

QByteArray WavSoundPrefix(WavForm form)
{
    return form == WavForm::Alaw ? render(kAlawPrefix, 0, nullptr) : QByteArray();
}

QByteArray WavHeader(WavForm form, quint64 rawSize, const RepairState &s)
{
    switch (form) {
    case WavForm::Alaw: return render(kAlawHead, rawSize, &s);
    case WavForm::Ima: return render(kImaHead, rawSize, &s);
    case WavForm::Sowt: return render(kSowtHead, rawSize, &s);
    case WavForm::None: break;
    }
    return QByteArray();
}

bool BuildWav(WavForm form, const QString &raw, const QString &out, RepairState &s, bool strictChecks, bool opusWords)
{
    const quint64 size = quint64(qMax<qint64>(0, QFileInfo(raw).size()));
    if (size == 0) {
        s.bNoAudioForMux = true;
        if (strictChecks) {
            qDebug().noquote() << "ERROR: Audio file missing or size 0:" << raw;
            return false;
        }
    }
    QFile wav(out);
    if (!wav.open(QIODevice::ReadWrite | QIODevice::Truncate)) {
        qDebug().noquote() << "ERROR: Failed to open output WAV file:" << out;
        return false;
    }
    qDebug().noquote() << "audiofileSize1 =" << hexBytes(quint32(size), 4);
    qDebug().noquote() << "sampel_rate =" << hexBytes(s.nSoundSampleRate, 4);
    if (form == WavForm::Sowt) {
        qDebug().noquote() << "No_Channel =" << hexBytes(s.nSoundChannels, 2);
        qDebug().noquote() << "ByteParSamplehexList1 ="
                           << hexBytes(s.nSoundSampleRate * s.nSoundChannels * s.nSoundSampleBits / 8, 4);
        qDebug().noquote() << "BlockSize =" << hexBytes(s.nSoundSampleBits * s.nSoundChannels / 8, 2);
        qDebug().noquote() << "BitPerSample =" << hexBytes(s.nSoundSampleBits, 2);
    }
    QFile in(raw);
    if (!in.open(QIODevice::ReadOnly) && strictChecks) {
        qDebug().noquote() << (opusWords ? "ERROR: Failed to open original audio file:"
                                         : "ERROR: Failed to open original audio file for reading:")
                           << raw;
        return false;
    }
    bool ok = wav.write(WavHeader(form, size, s)) >= 0;
    // The sound in pieces, not a buffer of the whole recording.
    QByteArray piece;
    quint64 got = 0;
    while (ok && in.isOpen() && got < size) {
        piece = in.read(qint64(qMin<quint64>(size - got, 1 << 20)));
        if (piece.isEmpty())
            break;
        ok = wav.write(piece) == piece.size();
        got += quint64(piece.size());
    }
    if (got < size) {
        if (strictChecks)
            qDebug().noquote() << "WARNING: Expected" << size << "bytes, got" << got;
        // What couldn't be read stands as zeros, as a zeroed buffer would give.
        const QByteArray zeros(1 << 20, '\0');
        for (; ok && got < size; got += qMin<quint64>(size - got, 1 << 20))
            ok = wav.write(zeros.constData(), qint64(qMin<quint64>(size - got, 1 << 20))) >= 0;
    }
    // The Alaw form ends in 20 zero bytes (the buffer read size + 20).
    if (ok && form == WavForm::Alaw)
        ok = wav.write(QByteArray(20, '\0')) == 20;
    ok = wav.flush() && ok;
    if (!ok) {
        wav.close();
        wav.remove();
        s.carve.fail(outcome::Why::WriteFailed, wav.errorString());
    }
    return ok;
}

} // namespace carve
