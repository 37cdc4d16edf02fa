#include "Startup.h"

int main(int argc, char **argv)
{
    return startup::Run(argc, argv);
}
