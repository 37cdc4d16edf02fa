#pragma once
// Streams that the repair hands to ffmpeg whole: a Video CD's program stream,
// bare or as sectors copied off the disc, and a surveillance export behind an
// "IMKH" header. Made with ffmpeg on first use and cached in fixtures::dir();
// empty when they can't be made.

#include <QByteArray>
#include <QString>

namespace fixtures {

// 6 s at 25 frames a second (150 pictures) with MP2 sound.
QString vcdStream();  // -target pal-vcd -f vcd: MPEG-1 in 2324-byte packs
QString imkhStream(); // "IMKH" + 36 header bytes + -f vob with H.264 (no B-frames, as cameras send) and MP2

// A Video CD track as a file copied off the disc (AVSEQ01.DAT): RIFF "CDXA",
// an fmt chunk and a data chunk of 2352-byte Mode 2 sectors, each with sync,
// header (address, mode 2) and subheader; two empty Form 1 sectors (2048 bytes
// of payload) lead, then Form 2 sectors carry 2324 bytes of the stream each.
QByteArray cdxaImage(const QByteArray &program);

} // namespace fixtures
