/// @file
/// Loading whole files, into a block of memory or a string. Nothing is printed. Callable from any
/// thread; the only state used is the offset of the status codes, which xReadWholeFile2() reads.
///
/// A null path counts as an empty one, which names no file. Folders, and what cannot be positioned
/// (FIFOs, sockets, terminals), have no size.
///
/// @warning Opening a FIFO blocks until the other end is opened. See docs/hazards.md.
#pragma once

#include <cstdint>
#include <string>

/// @defgroup loading Loading files
/// @{

/// Loads a whole file into memory. The caller judges by `buffer` and `length`:
///
/// - The file cannot be opened: `length` is 0 and `buffer` is left as it was; set it to null first.
/// - Otherwise `length` is the file's size and `buffer` a new block of that size, which the caller
///   releases with `free`. Bytes that could not be read are zero. An empty file may have no block.
/// - No memory for the block: `buffer` is null and `length` still the size.
/// - What has no size is treated as too large: `buffer` is null and `length` 2^64 - 1.
///
/// What `buffer` pointed to before is not released.
void xLoadBinFile(const char* path, unsigned char*& buffer, std::uint64_t& length);

/// Reads a whole file into a string, zero bytes included. Bytes that could not be read go
/// unnoticed, and stay what `contents` held in their place, or are zero. Throws std::bad_alloc, or
/// std::length_error beyond what any string holds, with `contents` untouched, for a file that does
/// not fit in memory.
/// @return 0; or, with `contents` untouched, the status code offset - 50 ("Fail to open file") when
/// the file cannot be opened or has no size
int xReadWholeFile2(const char* path, std::string& contents);

/// Returns what xReadWholeFile2() reads; an empty string where that returns a code.
std::string xReadWholeFile(const char* path);

/// @}
