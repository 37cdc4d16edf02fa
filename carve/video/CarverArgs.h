#pragma once
// Paths (and, once the carvers open them, handles) handed from stage to stage
// of one carving chain. The driver fills the first two; each chain fills the
// rest as it goes.

#include <QString>

struct CarverArgs
{
    QString strSource; // the damaged file
    QString strSample; // the sample (reference) file
};
