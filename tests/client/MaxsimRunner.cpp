// The maxsim tests' runner (starting, controlling and dumping a real maxsim), built into this
// executable as well.
#include "maxsim/MaxsimProcess.cpp"
