// Loading whole files. No state; callable from any thread.
#pragma once

#include <cstdint>

/// Loads the whole file at `path` into memory. Prints nothing; the caller judges by `buffer` and
/// `length`:
///
/// - The file cannot be opened: `length` is 0 and `buffer` is left as it was (set it to null
/// first).
/// - Otherwise `length` is the file's size in bytes and `buffer` a new block of that size, which
/// the
///   caller releases with `free`. What `buffer` pointed to before is not released. For an empty
///   file `length` is 0 and `buffer` is null or a block without a byte.
/// - No memory for the block: `buffer` is null and `length` the size all the same.
///
/// Bytes that could not be read are zero. What has no size (a pipe, most directories) counts as
/// larger than memory, as far as the system does not report a size of 0 for it.
void xLoadBinFile(const char* path, unsigned char*& buffer, std::uint64_t& length);
