#pragma once
// The splitters that tell sound by where it stands (raw PCM, A-law, mu-law,
// IMA ADPCM, Opus between chains of units) or by its own frames (AC-3).

#include "carve/video/CarveStages.h"

namespace carve {

bool PositionSplitterBuilt(Splitter id);
Split SplitByPosition(Splitter id, CarverArgs &args, Env &env);

// Bytes of an AC-3 frame by sample rate code and frame size code; -1 for a
// reserved rate (3) or a code past the table (38 and up).
int Ac3FrameSize(int fscod, int frmsizecod);

} // namespace carve
