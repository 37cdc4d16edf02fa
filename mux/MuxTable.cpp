#include "mux/MuxTable.h"

#include <QHash>

namespace mux {

namespace {
// In the order of RowId.
const Row kRows[] = {
    {RowId::H264AacMux, "H264AacMux", Form::S,
     "-r 30 -i {video} -i {audio} -bsf:a aac_adtstoasc -c:v copy -c:a copy {out}", false},
    {RowId::H264AacMuxAlt, "H264AacMuxAlt", Form::S,
     "-r {fps} -i {video} -i {audio} -bsf:a aac_adtstoasc -c:v copy -c:a copy {alt}", false},
    {RowId::H264AacVideoFallback, "H264AacVideoFallback", Form::S, "-r {fps} -i {video} -c:v copy {out}", false},
    {RowId::H264AacVideoOnly, "H264AacVideoOnly", Form::S, "-r {fps} -i {video} -c:v copy {out}", false},
    {RowId::HevcAacMux, "HevcAacMux", Form::S,
     "-r {fps} -i {video} -i {audio} -bsf:a aac_adtstoasc -c:v copy -c:a copy {out}", false},
    {RowId::HevcAacVideoFallback, "HevcAacVideoFallback", Form::S, "-r {fps} -i {video} -c:v copy {out}", false},
    {RowId::HevcAacVideoOnly, "HevcAacVideoOnly", Form::S, "-r {fps} -i {video} -c:v copy {out}", false},
    {RowId::Av1AacMux, "Av1AacMux", Form::P,
     "-fflags +genpts -r {fps} -i {video} -i {audio} -map 0:v:0 -map 1:a:0 -c:v copy -c:a copy -movflags +faststart {out}",
     true},
    {RowId::Av1Reencode, "Av1Reencode", Form::S,
     "-fflags +genpts -r {fps} -i {video} -c:v libx264 -preset ultrafast -crf 28 {out}", false},
    {RowId::H264Ac3Mux, "H264Ac3Mux", Form::S, "-r {fps} -i {video} -i {audio} -c:v copy -c:a copy {out}", false},
    {RowId::TsMux, "TsMux", Form::S,
     "-fflags +genpts -framerate 25 -i {video} -i {audio} -c:v libx264 -preset ultrafast -c:a aac -shortest {out}", false},
    {RowId::TsVideoFallback, "TsVideoFallback", Form::S, "-r {fps} -i {video} -c:v copy {out}", false},
    {RowId::H264AlawMux, "H264AlawMux", Form::S, "-i {video} -i {audio} -c:v copy -c:a aac -b:a 128k {out}", false},
    {RowId::H264UlawMux, "H264UlawMux", Form::S, "-i {video} -i {audio} -c:v copy -c:a aac -b:a 128k {out}", false},
    {RowId::H264WavVideoOnly, "H264WavVideoOnly", Form::S, "-i {video} -c:v copy {out}", false},
    {RowId::HevcAlawMux, "HevcAlawMux", Form::S, "-i {video} -i {audio} -c:v copy -c:a aac -b:a 128k {out}", false},
    {RowId::HevcUlawMux, "HevcUlawMux", Form::S, "-i {video} -i {audio} -c:v copy -c:a aac -b:a 128k {out}", false},
    {RowId::HevcWavVideoOnly, "HevcWavVideoOnly", Form::S, "-i {video} -c:v copy {out}", false},
    {RowId::H264OpusMux, "H264OpusMux", Form::S, "-i {video} -c:v copy {out}", false},
    {RowId::H264ImaMux, "H264ImaMux", Form::S, "-r 30 -i {video} -i {audio} -c:v copy -c:a aac -b:a 128k {out}", false},
    {RowId::H264ImaVideoOnly, "H264ImaVideoOnly", Form::S, "-r 30 -i {video} -c:v copy {out}", false},
    {RowId::H264SowtMux, "H264SowtMux", Form::S, "-r {fps} -i {video} -i {audio} -c:v copy -c:a aac -b:a 128k {out}",
     false},
    {RowId::H264SowtVideoFallback, "H264SowtVideoFallback", Form::S, "-r {fps} -i {video} -c:v copy {out}", false},
    {RowId::H264LpcmMux, "H264LpcmMux", Form::S,
     "-i {video} -f {fmt} -ar {rate} -ac {ch} -i {audio} -c:v copy -c:a aac -preset ultrafast {out}", false},
    {RowId::HevcLpcmMux, "HevcLpcmMux", Form::S,
     "-i {video} -f {fmt} -ar {rate} -ac {ch} -i {audio} -c:v copy -c:a aac -preset ultrafast {out}", false},
    {RowId::H264TwosMux, "H264TwosMux", Form::L,
     "-framerate {fps} -i {video} -f s16be -ar {rate} -ac 2 -i {audio} -c:v copy -c:a aac {out}", false},
    {RowId::HevcTwosMux, "HevcTwosMux", Form::S,
     "-fflags +genpts -f hevc -i {video} -f s16be -ar 48000 -ac 2 -i {audio} -c:v copy -c:a aac -async 1 {out}", false},
    {RowId::H264Mp3Mux, "H264Mp3Mux", Form::S, "-r {fps} -i {video} -i {audio} -c:v copy -c:a copy {out}", false},
    {RowId::H264Mp3VideoFallback, "H264Mp3VideoFallback", Form::S, "-r {fps} -i {video} -c:v copy {out}", false},
    {RowId::Mpeg4AacMux, "Mpeg4AacMux", Form::S, "-r 30 -i {video} -i {audio} -c:v copy -c:a copy {out}", false},
    {RowId::Mpeg4VideoOnly, "Mpeg4VideoOnly", Form::S, "-r 30 -i {video} -c copy {out}", false},
    {RowId::MpegPsMux, "MpegPsMux", Form::S, "-i {video} -i {audio} -c:v copy -c:a copy {out}", false},
    {RowId::MpegPsVideoFallback, "MpegPsVideoFallback", Form::S, "-r {fps} -i {video} -c:v copy {out}", false},
    {RowId::MkvAacMux, "MkvAacMux", Form::S,
     "-r {fps} -i {video} -i {audio} -bsf:a aac_adtstoasc -c:v copy -c:a copy {out}", false},
    {RowId::MkvVideoOnly, "MkvVideoOnly", Form::S, "-r {fps} -i {video} -c:v copy -c:a copy -shortest {out}", false},

    {RowId::Av1Remux, "Av1Remux", Form::S,
     "-fflags +genpts -i {source} -c:v libx264 -preset ultrafast -crf 28 -c:a copy {out}", false},
    {RowId::H264RemuxAac192, "H264RemuxAac192", Form::S,
     "-i {source} -c:v copy -c:a aac -b:a 192k -movflags faststart {out}", false},
    {RowId::H264RemuxAac192Opus, "H264RemuxAac192Opus", Form::S,
     "-i {source} -c:v copy -c:a aac -b:a 192k -movflags faststart {out}", false},
    {RowId::H264RemuxSowt, "H264RemuxSowt", Form::S, "-i {source} -c:v copy -c:a aac -b:a 192k {out}", false},
    {RowId::H264RemuxLpcmVideo, "H264RemuxLpcmVideo", Form::P, "-i {source} -vcodec copy -movflags faststart {out}",
     false},
    {RowId::H264RemuxLpcmAudio, "H264RemuxLpcmAudio", Form::P,
     "-i {source} -c:v copy -c:a aac -b:a 192k -movflags faststart {out}", true},
    {RowId::RemuxVideoOnly, "RemuxVideoOnly", Form::S, "-i {source} -vcodec copy -movflags faststart {out}", false},
    {RowId::RemuxCopyAudio, "RemuxCopyAudio", Form::S,
     "-i {source} -vcodec copy -acodec copy -movflags faststart {out}", false},
    {RowId::H264TwosRemux, "H264TwosRemux", Form::S,
     "-i {source} -vcodec copy -acodec copy -movflags faststart {out}", false},
    {RowId::TsRemux, "TsRemux", Form::S,
     "-err_detect ignore_err -fflags +discardcorrupt -i {source} -map 0:v:0 -map 0:a? -c:v copy -c:a copy {out}", false},
    {RowId::MpegPsRemux, "MpegPsRemux", Form::S,
     "-err_detect ignore_err -fflags +discardcorrupt -i {source} -map 0:v:0 -c:v copy -an {out}", false},

    {RowId::AsfRemux, "AsfRemux", Form::S, "-fflags +genpts -i {in} -c copy {alt}", false},
    {RowId::MkvRemux, "MkvRemux", Form::P, "-fflags +genpts -i {in} -map 0 -c copy {out}", false},
    // Built as a list, a name with a blank stays one argument here too.
    {RowId::ImkhRemux, "ImkhRemux", Form::S, "-r 25 -i {source} -map 0 -c copy {alt}.mkv", false},
    {RowId::DatRecode, "DatRecode", Form::S, "-i {source} -c:v libx264 -c:a aac -strict experimental {stem}.mov",
     false},
};
static_assert(sizeof kRows / sizeof kRows[0] == size_t(RowId::Count), "one row per RowId, in order");

QString fill(const QString &token, const Values &v)
{
    if (!token.contains('{'))
        return token;
    static const struct { const char *key; QString Values::*field; } kKeys[] = {
        {"{video}", &Values::video}, {"{audio}", &Values::audio}, {"{source}", &Values::source},
        {"{in}", &Values::in}, {"{out}", &Values::out}, {"{alt}", &Values::alt}, {"{stem}", &Values::stem},
        {"{fps}", &Values::fps}, {"{fmt}", &Values::fmt}, {"{rate}", &Values::rate}, {"{ch}", &Values::ch},
    };
    QString out = token;
    for (const auto &k : kKeys)
        out.replace(QLatin1String(k.key), v.*k.field);
    return out;
}

bool isFileToken(const QString &token)
{
    for (const char *k : {"{out}", "{alt}", "{stem}", "{video}", "{audio}", "{source}", "{in}"})
        if (token.startsWith(QLatin1String(k)))
            return true;
    return false;
}
// The option at i gives the raw video input behind it a rate.
bool rateBeforeRawVideo(const QStringList &tokens, int i)
{
    return (tokens.at(i) == "-r" || tokens.at(i) == "-framerate") && tokens.value(i + 2) == "-i" &&
           tokens.value(i + 3) == "{video}";
}
} // namespace

const Row &RowOf(RowId id) { return kRows[int(id)]; }

bool GivesRawVideoARate(const Row &row)
{
    // With the sample's rate known, every raw video input gets it (see BuildArguments).
    return QString::fromLatin1(row.arguments).contains(QLatin1String("-i {video}"));
}

const Row *RowByName(const QString &name)
{
    for (const Row &r : kRows)
        if (name == QLatin1String(r.name))
            return &r;
    return nullptr;
}

QStringList RowNames()
{
    QStringList names;
    for (const Row &r : kRows)
        names << r.name;
    return names;
}

QStringList BuildArguments(const Row &row, const Values &values)
{
    QStringList args;
    const QStringList tokens = QString::fromLatin1(row.arguments).split(' ', Qt::SkipEmptyParts);
    for (int i = 0; i < tokens.size(); ++i) {
        const QString &token = tokens.at(i);
        QString filled = fill(token, values);
        // Departure from the fixed 30 (or whole frames per second): a raw
        // stream muxed at the sample's exact rate keeps its speed and its sync.
        const bool rateOfRawVideo = i > 0 && rateBeforeRawVideo(tokens, i - 1);
        if (rateOfRawVideo && !values.exactRate.isEmpty())
            filled = values.exactRate;
        // Departure: a raw stream given without a rate would play at ffmpeg's 25 fps.
        if (token == "-i" && tokens.value(i + 1) == "{video}" && !values.exactRate.isEmpty() &&
            !(i >= 2 && (tokens.at(i - 2) == "-r" || tokens.at(i - 2) == "-framerate")))
            args << QStringLiteral("-r") << values.exactRate;
        // A file name that ffmpeg would read as an option or a protocol is
        // made a plain path; ordinary names stay as they are.
        args << (isFileToken(token) ? FileArgument(filled) : filled);
    }
    return args;
}

PcmDescription DescribePcm(quint32 bits, quint32 sampleRate, quint32 channels)
{
    PcmDescription d;
    switch (bits) {
    case 0:
    case 24: d.fmt = "s24le"; break;
    case 16: d.fmt = "s16le"; break;
    case 32: d.fmt = "s32le"; break;
    default: break; // an empty -f value: ffmpeg refuses, as it always has
    }
    d.rate = sampleRate ? sampleRate : 48000;
    d.channels = (channels == 1 || channels == 2) ? channels : 2;
    return d;
}

} // namespace mux
