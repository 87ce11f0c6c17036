// What the fuzzer and the corpus test both feed: every rule that reads bytes of a song.
#pragma once

#include <cstddef>
#include <cstdint>

/// Reads the bytes as the start of files of several lengths and their end as a tag. Ends the program when a reading
/// breaks a promise that holds for any bytes.
void readBytes(const std::uint8_t *data, std::size_t size);
