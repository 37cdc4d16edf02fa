#pragma once
// The MPEG-4 Visual splitter: frames by their start codes, sound cut at the
// sample's openings between them.

#include "carve/video/CarveStages.h"

namespace carve {

Split SplitMpeg4(CarverArgs &args, Env &env);

} // namespace carve
