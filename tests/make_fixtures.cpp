// Builds every media fixture once, before the tests that share them run in
// parallel. Fails when one can't be made: on a machine set up by the project
// scripts that means a broken ffmpeg, not a reason to skip.

#include "support/Fixtures.h"

#include <QCoreApplication>
#include <cstdio>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    int failed = 0;
    for (const QString &name : fixtures::healthyNames()) {
        if (fixtures::healthy(name).isEmpty()) {
            std::fprintf(stderr, "fixture %s could not be made\n", qPrintable(name));
            ++failed;
        }
    }
    std::printf("%d fixtures ready, %d failed\n", int(fixtures::healthyNames().size()) - failed, failed);
    return failed ? 1 : 0;
}
