// SPDX-License-Identifier: GPL-3.0-or-later
// What libFuzzer calls, for the one target of this program.
#include "fuzz/targets.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::KIV_FUZZ_TARGET(QByteArrayView(data, static_cast<qsizetype>(size)));
    return 0;
}
