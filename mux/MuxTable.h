#pragma once
// Every ffmpeg command of the engine as data: the row's name, how it runs and
// its arguments. A template is the command behind the program's name, split
// at blanks; "{video}", "{audio}", "{source}", "{in}", "{out}", "{alt}",
// "{stem}", "{fps}", "{fmt}", "{rate}" and "{ch}" are filled in, each as one
// argument (or inside one, as in "{alt}.mkv").

#include "mux/FfmpegRunner.h"

#include <QString>
#include <QStringList>

namespace mux {

enum class RowId {
    H264AacMux, H264AacMuxAlt, H264AacVideoFallback, H264AacVideoOnly,
    HevcAacMux, HevcAacVideoFallback, HevcAacVideoOnly,
    Av1AacMux, Av1Reencode,
    H264Ac3Mux,
    TsMux, TsVideoFallback,
    H264AlawMux, H264UlawMux, H264WavVideoOnly, HevcAlawMux, HevcUlawMux, HevcWavVideoOnly,
    H264OpusMux,
    H264ImaMux, H264ImaVideoOnly,
    H264SowtMux, H264SowtVideoFallback,
    H264LpcmMux, HevcLpcmMux,
    H264TwosMux, HevcTwosMux,
    H264Mp3Mux, H264Mp3VideoFallback,
    Mpeg4AacMux, Mpeg4VideoOnly,
    MpegPsMux, MpegPsVideoFallback,
    MkvAacMux, MkvVideoOnly,
    // Source remuxes
    Av1Remux, H264RemuxAac192, H264RemuxAac192Opus, H264RemuxSowt, H264RemuxLpcmVideo, H264RemuxLpcmAudio,
    RemuxVideoOnly, RemuxCopyAudio, H264TwosRemux, TsRemux, MpegPsRemux,
    // Other paths
    AsfRemux, MkvRemux, ImkhRemux, DatRecode,
    Count
};

struct Row
{
    RowId id;
    const char *name;
    Form form;
    const char *arguments;
    bool logOutput; // standard output and error go to the debug log
};

const Row &RowOf(RowId id);
const Row *RowByName(const QString &name);
QStringList RowNames();

// What fills the placeholders of a row.
struct Values
{
    QString video, audio, source, in, out, alt, stem, fps, fmt, rate, ch;
    // The sample's exact frame rate ("30000/1001", "25"); when set it replaces
    // the rate a row gives the raw video stream ("-r 30", "-r {fps}",
    // "-framerate {fps}").
    QString exactRate;
};

QStringList BuildArguments(const Row &row, const Values &values);

// True for a row that gives a raw video stream a rate ("-r 30 -i {video}").
bool GivesRawVideoARate(const Row &row);

// The raw PCM description of the LPCM rows: format from the bit depth (0 and
// 24 give s24le, 16 s16le, 32 s32le, anything else nothing), rate (48000 when
// unknown) and channels (1 or 2, else 2).
struct PcmDescription
{
    QString fmt;
    quint32 rate;
    quint32 channels;
};
PcmDescription DescribePcm(quint32 bits, quint32 sampleRate, quint32 channels);

} // namespace mux
