/* The engine's header is C. */
#include "engine/SectionEngine.h"

void use_of_the_header(int32_t* err) { CLOSESECTIONDATABASE(err); }
