// What the C++ runtime says before it aborts has nowhere to go in a page: the message and all that
// would format it are left out.
#include <cstdlib>

// The runtime's own name for it; this definition comes before that of its library.
extern "C" [[noreturn]] void abort_message(const char* format, ...);

void abort_message(const char* /*format*/, ...) { std::abort(); }
