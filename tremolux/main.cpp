#include "tremolux/program.h"

int main(int argc, char **argv) { return tremolux::RunProgram(argc, argv); }
