#pragma once
// What an MP4/QuickTime file says about its tracks, read from its moov by a
// walk of the atom tree (each atom clamped to the one that encloses it), and
// what its media data looks like when the moov is gone.
//
// The mux uses the sample's exact frame rate; a sample run compares sample and
// recording to say what differs when they come from different cameras.

#include <QString>
#include <QtGlobal>

class BufferedReader;

namespace mp4info {

struct Track
{
    bool present = false;
    quint32 codec = 0;       // first sample entry's four-character code
    quint32 timeScale = 0;   // mdhd
    quint32 commonDelta = 0; // the most common sample duration of stts
    quint64 samples = 0;     // samples counted by stts
    quint16 width = 0, height = 0; // visual sample entry
    quint32 sampleRate = 0;        // sound sample entry (integer part)
    quint16 channels = 0;
};

struct Info
{
    bool moov = false;
    Track video, sound;
};

// Reads the first moov of the file; Info::moov is false when there is none
// whose tracks could be read.
Info Read(BufferedReader &file);
Info ReadFile(const QString &path);

// True when the file begins with an atom a QuickTime or MP4 file begins with.
bool StartsLikeMp4(BufferedReader &file);

// A frame rate as a fraction in lowest terms: 30000/1001, 25/1.
struct Rate
{
    quint32 num = 0, den = 0;
    bool known() const { return num != 0 && den != 0; }
    // "30000/1001", or "25" for a whole rate: what ffmpeg's -r takes.
    QString text() const;
};
// The track's time scale over its most common sample duration; unknown when
// either is missing or the rate is beyond any camera (over 1000 per second).
Rate ExactRate(const Track &video);

// Video codecs by family, for comparing a recording with its sample.
enum class Codec { Unknown, H264, Hevc, Mpeg4, Av1, ProRes, Mjpeg, Other };
Codec CodecOf(quint32 fourcc);
const char *CodecName(Codec c);

// The codec of length-prefixed NAL units in the file's media data (from the
// mdat on, or from the start when no atom says where): chains of units whose
// lengths lead from one valid header to the next. Unknown when neither
// codec's chains clearly win. Reads at most kNalProbeBytes.
// `expected` (a sample's codec) is the answer whenever the file shows enough
// chains of it at all: PCM sound makes chance chains of the other codec by
// the hundred, and they must not outvote the real stream.
Codec DetectNalCodec(BufferedReader &file, Codec expected = Codec::Unknown);

// "codec H.264 in the recording, HEVC in the sample; frame size ..." — what
// differs between a recording's moov (or, without one, its NAL units) and
// its sample's; empty when nothing known differs.
QString Differences(const Info &recording, Codec recordingCodec, const Info &sample);

} // namespace mp4info
