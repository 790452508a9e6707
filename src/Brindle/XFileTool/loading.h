/// @file
/// Loading whole files, into a block of memory or a string. Nothing is printed. Callable from any
/// thread; the only state used is the offset of the status codes, which xReadWholeFile2() reads.
///
/// A path is zero-terminated; a null path counts as an empty one, which names no file. Folders and
/// pipes have no size.
///
/// @warning To open a pipe is to wait for its writer.
#pragma once

#include <cstdint>
#include <string>

/// Loads a whole file into memory. There is no result; the caller judges by `buffer` and `length`:
///
/// - The file cannot be opened: `length` is 0 and `buffer` is left as it was; set it to null first.
/// - Otherwise `length` is the file's size and `buffer` a new block of that size. Bytes that could
///   not be read are zero. For an empty file there may or may not be a block.
/// - No memory for the block: `buffer` is null and `length` the size all the same.
/// - What has no size counts as larger than any memory: `buffer` is null and `length` 2^64 - 1.
/// @param path  a file
/// @param buffer  receives the block, which the caller releases with `free`; what it pointed to
/// before is not released
/// @param length  receives the size in bytes
void xLoadBinFile(const char* path, unsigned char*& buffer, std::uint64_t& length);

/// Reads a whole file into a string, zero bytes included. Throws std::bad_alloc, with `contents`
/// untouched, for a file that does not fit in memory.
/// @param path  a file
/// @param contents  takes the file's size and its bytes; those that could not be read go unnoticed,
/// and stay what `contents` held in their place, or are zero
/// @return 0; or, with `contents` untouched, the status code offset - 50 ("Fail to open file") when
/// the file cannot be opened or has no size
int xReadWholeFile2(const char* path, std::string& contents);

/// Reads a whole file as xReadWholeFile2() does.
/// @param path  a file
/// @return its bytes; an empty string where xReadWholeFile2() returns a code
std::string xReadWholeFile(const char* path);
