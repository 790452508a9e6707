// Loading whole files, into a block of memory or a string. Callable from any thread; the only state
// used is the offset of the status codes, which xReadWholeFile2() reads.
#pragma once

#include <cstdint>
#include <string>

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

/// Reads the whole file at `path` into `contents`, which then has the file's size; zero bytes are
/// kept. Prints nothing.
///
/// Returns 0, or the status code offset - 50 ("Fail to open file") when the file cannot be opened
/// or has no size (a folder, a pipe); `contents` is untouched then. Bytes that could not be read go
/// unnoticed: they stay what `contents` held in their place, or are zero. A file that does not fit
/// in memory throws std::bad_alloc.
///
/// @warning To open a pipe is to wait for its writer.
int xReadWholeFile2(const char* path, std::string& contents);

/// Returns the bytes of the file at `path`, or an empty string where xReadWholeFile2() fails.
std::string xReadWholeFile(const char* path);
