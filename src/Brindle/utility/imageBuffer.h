// Image buffers: copying a region of pixels, turning upside down, swapping BGR and RGB, removing
// row padding.
//
// An image buffer is a run of rows from top to bottom, each a run of interleaved pixels of a fixed
// number of bytes. Rows begin a fixed stride (in bytes) apart, which may exceed the bytes of their
// pixels. The caller owns every buffer: nothing here is released or put in another place, and no
// size is passed for a target, which must be large enough. Two buffers of one call are one and the
// same or do not overlap, unless stated.
//
// No state; callable from any thread. Messages go to standard output.
#pragma once

/// Copies the region of `regionWidth` x `regionHeight` pixels with its top left pixel at (x, y) of
/// the source to (destinationX, destinationY) of the destination. What lies outside either image is
/// left out. Each stride must be at least its width in bytes. Rows are copied from top to bottom,
/// and the images may overlap.
///
/// With `clearFirst`, all destinationStride * destinationHeight bytes become 0 before.
///
/// With a `mask`, of one byte for each source pixel and rows `maskStride` bytes apart, only pixels
/// whose mask byte is not 0 are copied, from left to right. When the first copied column s of the
/// source is not 0, the last s columns of the visible region are not copied in this mode: of n
/// visible columns n - s are looked at, none when s is n or more.
///
/// Returns true, also when no pixel is visible or `regionHeight` is below 1. Prints "Error: invalid
/// input (inside copyImage)!\n" and returns false, with nothing touched, when an image is null,
/// when a width, height or stride of an image or `bytesPerPixel` is below 1, or when a mask is
/// given with a `maskStride` below 1.
///
/// Two more errors, "bounding box error!" and "unknown error occurs!" (lines 2949 and 2955), guard
/// the result of the clipping: the line "Error: %s (inside {%s}; file: utility.cpp; line: %d)\n"
/// with the error, this function's signature and the line, and false. Correct clipping reaches
/// neither.
bool copyImageAnywhere(unsigned char* source, int sourceWidth, int sourceHeight, int sourceStride,
                       int bytesPerPixel, int x, int y, int regionWidth, int regionHeight,
                       unsigned char* destination, int destinationWidth, int destinationHeight,
                       int destinationStride, int destinationX, int destinationY, bool clearFirst,
                       unsigned char* mask, int maskStride);

/// Writes the rows of `source` to `target` in reverse order and returns 0. Returns 1, with nothing
/// touched, when a pointer is null or rows * rowBytes exceeds `bufferLength`.
///
/// When `target` is `source` itself, the row rows / 2 - 1 keeps its content, for 2 rows or more:
/// 2 rows become 0 0, 3 rows 0 1 0, 4 rows 3 1 1 0, 5 rows 4 1 2 1 0 (in numbers of old rows).
int xImageUpsideDown(unsigned char* source, int rows, int rowBytes, int bufferLength,
                     unsigned char*& target);

/// Copies an image of 3 bytes a pixel to `target`, swaps the first and the third byte of every
/// pixel there, and returns 0. Row padding is copied and not swapped. Returns 1, with nothing
/// touched, when a pointer is null, height * stride is not `length`, or `stride` is below width
/// * 3.
///
/// @warning The first byte decides whether to copy: where `target` begins with the same byte as
/// `source`, it is taken for a copy (or for `source` itself) and swapped as it stands.
int xSwapImageDataOrder(const unsigned char* source, int width, int height, int stride, int length,
                        unsigned char*& target);

/// Writes an image of 3 bytes a pixel to `target` in rows of exactly width * 3 bytes and returns 0.
/// Returns 1, with nothing touched, when a pointer is null, width * height * 3 exceeds `length`, or
/// width * 3 exceeds `stride`. `target` may be `source`.
///
/// @warning Without padding (`stride` is width * 3) the first byte decides whether to copy: where
/// `target` begins with the same byte as `source`, it stays as it is.
int xTruncateImagePadding(const unsigned char* source, int width, int height, int stride,
                          int length, unsigned char*& target);
