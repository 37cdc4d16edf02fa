// Links the market variant for Japan into a program.
#include "Brand.h"

const MarketRow &brand::Market() { return kMarkets[1]; }
