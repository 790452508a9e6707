/// @file
/// Loading whole files. No state; callable from any thread.
#pragma once

#include <cstdint>

/// Loads the whole file at `path` into memory. Prints nothing; the caller judges by `buffer` and
/// `length`:
///
/// - The file cannot be opened: `length` is 0 and `buffer` is left as it was; set it to null first.
/// - Otherwise `length` is the file's size in bytes and `buffer` a new block of that size, which
///   the caller releases with `free`. What `buffer` pointed to before is not released. Bytes that
///   could not be read are zero. For an empty file `length` is 0, and there may or may not be a
///   block.
/// - No memory for the block: `buffer` is null and `length` the size all the same.
/// - What has no size (a folder, a pipe) counts as larger than any memory: `buffer` is null and
///   `length` 2^64 - 1.
/// @param path  zero-terminated
/// @param buffer  receives the block
/// @param length  receives the bytes
void xLoadBinFile(const char* path, unsigned char*& buffer, std::uint64_t& length);
