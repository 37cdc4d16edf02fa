// Links no market variant into a program: every language, the update check.
#include "Brand.h"

const MarketRow &brand::Market() { return kMarkets[0]; }
