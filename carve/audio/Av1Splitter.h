#pragma once
// The AV1 splitter: OBUs by their sizes, a temporal delimiter before each group.

#include "carve/video/CarveStages.h"

namespace carve {

Split SplitAv1(CarverArgs &args, Env &env);

} // namespace carve
