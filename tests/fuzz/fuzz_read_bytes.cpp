// The entry of libFuzzer.
#include "fuzz/read_bytes.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    readBytes(data, size);
    return 0;
}
