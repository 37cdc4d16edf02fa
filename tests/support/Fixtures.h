#pragma once

// Small media files for the tests, made on demand with the ffmpeg program and
// cached in the build tree (VM_FIXTURE_DIR), so no binary file lives in git.
// Every function returns an empty string when the file cannot be made; tests
// then skip rather than fail, because a machine without ffmpeg (or without one
// of its encoders) says nothing about our code.

#include <QByteArray>
#include <QList>
#include <QString>
#include <QVector>
#include <QStringList>
#include <functional>

namespace fixtures {

QString dir();     // the cache folder, created on first use
QString ffmpeg();  // absolute path of "ffmpeg" on PATH, empty if absent

// A healthy recording (about 2 s, 320x240) by file name, e.g. "h264_aac.mov".
// Names and their sample-entry fourccs:
//   h264_aac.mp4            avc1 + mp4a (esds 40 15)
//   h264_aac.mov            avc1 + mp4a, moov is the last top-level atom
//   h264_aac_faststart.mov  same, moov before mdat
//   h264_mp3.mp4            avc1 + mp4a (esds 6B 15)
//   h264_sowt.mov / h264_twos.mov / h264_lpcm.mov (96 kHz) / h264_in24.mov (little-endian)
//   h264_alaw.mov / h264_ulaw.mov / h264_ima.mov (6D 73 00 11)
//   h264_opus.mp4 / h264_ac3.mp4
//   hevc_aac.mp4 (hvc1) / hevc_pcm.mov (hvc1 + twos)
//   mpeg4.mp4 (mp4v) / av1.mp4 (av01) / prores.mov (apcn)
//   prores_silent.mov / mjpeg_silent.mov   ProRes and Motion JPEG without sound
//   video_only.mp4          avc1, no sound track
//   h264_aac.ts             transport stream, PMT lists H.264 (0x1B) then AAC (0x0F)
//   h264_mp2.ps             program stream, H.264 + MP2 (PS cannot carry AAC)
//   h264_aac.3gp            3GP, avc1 + mp4a
QString healthy(const QString &name);
QStringList healthyNames();

// Damaged copies, written beside the source as <base>.<damage>.<ext> and cached.
// The source file is never modified.
QString moovRemoved(const QString &src);   // top-level moov cut out, everything else kept
QString moovAtEndCut(const QString &src);  // needs moov last: truncated 100 bytes into the moov
QString ftypZeroed(const QString &src);
QString moovZeroed(const QString &src);    // the whole moov atom, header included, zero-filled    // the whole ftyp atom, header included, zero-filled
QString mdatSizeZero(const QString &src);  // mdat's 32-bit size field set to 0
QString mdatSize64(const QString &src);    // mdat header rewritten as size 1 + 64-bit largesize
                                           // (8 bytes inserted; chunk offsets are NOT adjusted)
QString emptyFile(const QString &name);
// The first `percent` of the file: a recording that stopped before its index.
QString cutAt(const QString &src, int percent);
// 64 KiB of zeros or of random bytes in the middle of the media data; the
// damaged range starts at *damageOffset.
QString damagedMiddle(const QString &src, bool random, quint64 *damageOffset = nullptr);    // a 0-byte file in dir()

// Each stream's packets in order, where ffprobe finds them in the file.
struct Packet {
    quint64 pos;
    quint64 size;
};
QVector<QVector<Packet>> packets(const QString &path);

// The recording laid out as cameras write theirs: about `seconds` of video,
// then as much sound, in chunks of 30 and 47 samples a second, moov at the end
// (ffmpeg writes a chunk per frame or two).
// soundPerSecond: packets of the second track a second (47 for AAC at 48 kHz).
QString cameraLayout(const QString &src, double seconds = 1.0, int soundPerSecond = 47);

// A surveillance-style export: "IMKH" plus 60 bytes of vendor header, then an
// MPEG program stream (H.264 + MP2). Named imkh_stream.mp4, as such files are
// usually handed out with a misleading extension.
QString imkhFile();

// A byte-identical copy named <src file name>.<suffix> (".mov" and "mov" both
// work), e.g. h264_aac.ts -> h264_aac.ts.mov, for extension-vs-content tests.
QString withSuffix(const QString &src, const QString &suffix);

// Top-level atoms in file order. Size 1 uses the 64-bit largesize, size 0
// runs to the end of the file. Reading stops after an atom whose declared
// size passes the end of the file (it is still listed, with that size) or at
// an impossible size (2..7, not listed).
struct Atom {
    quint64 offset = 0;
    quint64 size = 0;
    QByteArray type;
};
QList<Atom> topLevelAtoms(const QString &path);

// Runs body in a child process whose files may not grow past maxFileBytes
// (a write beyond fails instead of killing it) and returns the exit status
// the child passed to _exit (body's return value); -1 when the limit can't
// be set here or the child didn't exit normally.
int inChildWithFileLimit(quint64 maxFileBytes, const std::function<int()> &body);

// What ffprobe finds in a file: packets of the first video and audio stream
// (-1: no such stream), their durations, the video's rate, the audio streams.
struct Streams {
    int video = -1, audio = -1, audioStreams = 0;
    double videoSeconds = 0, audioSeconds = 0;
    QString videoRate;
};
Streams probe(const QString &path);

// SHA-1 of a file's bytes (empty when it can't be read): "unchanged" checks.
QByteArray digest(const QString &path);

} // namespace fixtures

// For QtTest test functions (the test must include <QtTest>):
//   VM_FIXTURE(path, fixtures::healthy("h264_aac.mov"));
// declares `path` and skips the test when the file could not be made.
#define VM_FIXTURE(var, expr)                                          \
    const QString var = (expr);                                        \
    if (var.isEmpty())                                                 \
        QSKIP("fixture unavailable (ffmpeg missing or failed): " #expr)
