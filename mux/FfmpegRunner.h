#pragma once
// Runs the external ffmpeg program for the mux stages, and the frame-rate
// rules around it.
//
// Commands are argument lists, never shell strings: a file name with blanks,
// quotes, non-ASCII letters or a leading "-" reaches ffmpeg as exactly one
// argument and can neither add an option nor move the output elsewhere.

#include <QString>
#include <QStringList>
#include <QtGlobal>

namespace mux {

// How a command runs. S and L block the repair thread until ffmpeg ends;
// P waits at most 30 seconds, then the process is ended with its object.
enum class Form { S, L, P };

constexpr int kStartedWaitMs = 30000;
constexpr int kFormPWaitMs = 30000;
constexpr quint32 kDefaultFps = 30;

// "<application folder>/Libmp4": where a bundled ffmpeg lives.
QString FfmpegDir();
// The bundled ffmpeg if it is there and executable, else "ffmpeg" on PATH;
// empty when there is none. Looked up at every call.
QString FindFfmpeg();

struct RunResult
{
    bool started = false;
    bool finished = false; // false for a form P run cut off at its limit
    int exitCode = -1;
    QString output;        // standard output and error, merged
};

// Runs ffmpeg with `arguments` in `workDir`. Standard input is closed so ffmpeg
// never waits for a key.
RunResult Run(Form form, const QStringList &arguments, const QString &workDir);

// Ends the ffmpeg that a mux stage runs now, from any thread.
void KillRunning();

// Frames per second of a mux: frames / whole seconds of the sample, on
// unsigned 32-bit integers, 30 when the sample can't say.
quint32 FrameRate(quint32 frames, quint32 duration, quint32 timeScale);

// True for a rate outside 25..32: one unsigned comparison, (fps - 25) > 7.
inline bool RateOutsideUsual(quint32 fps) { return fps - 25u > 7u; }

// A name starting with "-" gets its leading run of "-" replaced by "_".
QString FixLeadingDashes(const QString &name);

// A bare output name as an argument: one that ffmpeg would read as an option
// ("-y.mov") or as a protocol ("a:b.mov") is given as "./name".
QString FileArgument(const QString &bareName);

// The frame rate ffmpeg reports for an H.264 stream with AAC sound; empty
// when either is missing or ffmpeg can't be run.
QString ProbeFrameRate(const QString &inputPath, const QString &ffmpegPath);

} // namespace mux
