#pragma once
// Presentation times for a video track that ffmpeg wrote from a raw H.264
// stream. Without timestamps in its input ffmpeg gives every frame its
// decoding time as presentation time, so B-frames come out late and the
// picture lags the sound by the reorder delay. The display order read from
// the stream's headers gives each sample its composition offset (ctts), and
// an edit starts the track at the first picture shown.

#include "carve/video/H264Timing.h"

#include <QString>

namespace mux {

// Patches the file in place when it is an ISO file whose moov is its last
// atom, whose video track holds as many samples as `order` has pictures at
// one duration each, and has no composition offsets yet. True when patched;
// a file that doesn't fit, or a write that fails, is left as it was.
bool AddCompositionTimes(const QString &path, const carve::PictureOrder &order);

} // namespace mux
