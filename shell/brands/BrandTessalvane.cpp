// Links the Tessalvane brand into a program.
#include "Brand.h"

const BrandRow &brand::Current() { return kBrands[2]; }
