#include "shell/Module1.h"

int main(int argc, char** argv) {
  return morvane::RunMorvane(argc, argv);
}
