// Links the whole logic library and nothing else: what it needs beyond the language's standard library is missing here.
#include "common/Version.h"

int main() { return 0; }
