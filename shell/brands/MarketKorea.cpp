// Links the market variant for Korea into a program.
#include "Brand.h"

const MarketRow &brand::Market() { return kMarkets[2]; }
