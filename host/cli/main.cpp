#include <cstdlib>

#include "TProgram.h"

int main(int argc, char** argv) { return NZELVYR20::TProgram::Run(argc, argv, std::exit); }
