// Where libFuzzer and AFL++ come in.
#include "Fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzzOne({reinterpret_cast<const char*>(data), size});
    return 0;
}
