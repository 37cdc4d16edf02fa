// Links the market variant for China into a program.
#include "Brand.h"

const MarketRow &brand::Market() { return kMarkets[3]; }
