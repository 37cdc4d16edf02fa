#pragma once
// The WAV files the muxer is given for sound it can't read raw: a header of
// one of three forms in front of the carved sound. The headers are those
// the muxer is known to accept, not tidy ones: see the field tables.

#include <QByteArray>
#include <QString>

struct RepairState;

namespace carve {

enum class WavForm {
    None,
    Alaw, // 18-byte format block; its last 14 bytes go into the raw sound file first
    Ima,  // IMA ADPCM, 20-byte format block, the whole header written here
    Sowt, // plain PCM, 16-byte format block, sizes left at 44 and 0
};

// The 14 bytes the splitter puts in front of the first sound byte (Alaw form).
QByteArray WavSoundPrefix(WavForm form);

// The whole header of the form for a raw file of rawSize bytes.
QByteArray WavHeader(WavForm form, quint64 rawSize, const RepairState &s);

// Writes `out` from the raw sound file: header, the sound as it is (copied in
// pieces), and for the Alaw form 20 zero bytes. An empty raw file sets
// bNoAudioForMux. strictChecks: the IMA and Opus chains, which stop at an
// empty or unreadable raw file and say so. Returns whether `out` was written.
bool BuildWav(WavForm form, const QString &raw, const QString &out, RepairState &s, bool strictChecks, bool opusWords);

} // namespace carve
