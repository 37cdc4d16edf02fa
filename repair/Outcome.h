#pragma once
// What a repair of one file came to, in words a user can act on: why a file
// has no result, and what a result holds (frames of picture, seconds of
// sound, the share of the media data a carve used).
//
// The engine fills a FileReport per file; the front ends judge the result
// file with it and show the summary and the reason.

#include <QMetaType>
#include <QString>
#include <QtGlobal>

namespace outcome {

// Why a file has no result (or a lesser one). The first that applies wins.
enum class Why {
    None,
    NoSample,     // the file waits for a healthy sample
    NotHandled,   // this kind of file isn't handled yet
    WrongSample,  // the sample isn't from the same camera and settings
    NothingFound, // nothing recoverable found
    WriteFailed,  // the disk refused the result (full, quota, too large)
    NoVideo,      // the result holds no video stream
};

// What the engine knows about one file once its run is over.
struct FileReport
{
    Why why = Why::None;
    QString detail;          // what differs, which kind of file, which write error
    bool carved = false;     // the result comes from a carve of the media data
    quint64 mediaBytes = 0;  // media data walked by the carve
    quint64 claimedBytes = 0; // of it, taken into a stream
};

// What a result file holds, read with ffprobe (beside ffmpeg).
struct Probe
{
    bool ran = false;        // ffprobe ran and read the file
    bool hasVideo = false;
    qint64 videoFrames = 0;
    double audioSeconds = 0;
    double videoSeconds = 0;
};
// Empty path or no ffprobe: ran stays false.
Probe ProbeResult(const QString &path);
// "<application folder>/Libmp4/ffprobe" if it is there, else ffprobe on PATH;
// empty when there is none.
QString FindFfprobe();

// The verdict of a row with what it holds.
struct Judged
{
    QString status;          // the status after judging (a result without video fails)
    QString reason;          // empty for a complete result
    QString summary;         // one line: frames, seconds of sound, share used
    qint64 videoFrames = -1; // -1: not known
    double audioSeconds = -1;
    double mediaUsed = -1;   // 0..1 for carved files, -1 otherwise
};

// status: "Completed", "Awaiting Action", "Failed" or "Aborted";
// resultPath: the finished file when status is "Completed".
Judged Judge(const QString &status, const QString &resultPath, const FileReport &report, bool sampleGiven);

// The reason in words, e.g. "the sample isn't from the same camera and
// settings: codec H.264 in the recording, HEVC in the sample".
QString ReasonText(Why why, const QString &detail);

} // namespace outcome

Q_DECLARE_METATYPE(outcome::FileReport)
