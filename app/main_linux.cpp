// The Linux edition's entry point: the run itself is the host's
// (app/start_up.cpp).
#include "app/host.h"

int main() { return RunPuffino(); }
