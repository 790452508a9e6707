/// @file
/// Image buffers: copying a region of pixels, turning upside down, swapping BGR and RGB, removing
/// row padding.
///
/// An image buffer is a run of rows from top to bottom, each a run of interleaved pixels of a fixed
/// number of bytes. Rows begin a fixed stride (in bytes) apart, which may exceed the bytes of their
/// pixels. The caller owns every buffer: nothing here is released or allocated, `target` pointers
/// stay what they are, and no size is passed for a target, which must be large enough. Two buffers
/// of one call must be one and the same or not overlap, unless stated. Sizes and positions are in
/// pixels, unless stated; positions may be negative.
///
/// No state; callable from any thread. Messages go to standard output; nothing throws.
#pragma once

/// @defgroup imageBuffer Image buffers
/// @{

/// Copies the region at (x, y) of one image to (destinationX, destinationY) of another. What lies
/// outside either image is left out, up to the whole region. Rows are copied from top to bottom;
/// the images, and the mask with them, may overlap. With `clearFirst` all destinationStride *
/// destinationHeight bytes become 0 before. Returns true, also when nothing is visible.
///
/// With a mask only pixels whose mask byte is not 0 are copied, from left to right. When the first
/// copied column s of the source is not 0, the last s columns of the visible region are not copied
/// in this mode: of n visible columns n - s are looked at, none when s is n or more.
///
/// - Prints "Error: invalid input (inside copyImage)!\n" and returns false, with nothing touched,
///   when an image is null, when a width, height or stride of an image or `bytesPerPixel` is below
///   1, or when a mask is given with a `maskStride` below 1.
/// - Prints "Error: %s (inside {%s}; file: utility.cpp; line: %d)\n" with "bounding box error!" or
///   "unknown error occurs!", this function's signature, and 2949 or 2955, and returns false,
///   should the clipping be wrong. Unreachable; a guard.
///
/// @warning With a mask, pixels of the region that are not selected may be written again with the
/// value that they had; no other thread may write to them meanwhile.
/// @param sourceStride,destinationStride  bytes; at least those of a row's pixels
/// @param mask  one byte for each source pixel, or null to copy them all
/// @param maskStride  bytes from one row of the mask to the next; ignored without a mask
bool copyImageAnywhere(unsigned char* source, int sourceWidth, int sourceHeight, int sourceStride,
                       int bytesPerPixel, int x, int y, int regionWidth, int regionHeight,
                       unsigned char* destination, int destinationWidth, int destinationHeight,
                       int destinationStride, int destinationX, int destinationY, bool clearFirst,
                       unsigned char* mask, int maskStride);

/// Writes the rows of an image of `bufferLength` bytes to `target` in reverse order. Returns 0; 1,
/// with nothing touched, when a pointer is null, rows * rowBytes exceeds `bufferLength` or, in
/// place, ceil(rows / 2) * rowBytes is negative. With `rows` or `rowBytes` below 1 nothing is
/// written.
///
/// @warning In place the row rows / 2 - 1 keeps its content, for 2 rows or more: 2 rows become 0 0,
/// 3 rows 0 1 0, 4 rows 3 1 1 0, 5 rows 4 1 2 1 0 (in numbers of old rows).
int xImageUpsideDown(unsigned char* source, int rows, int rowBytes, int bufferLength,
                     unsigned char*& target);

/// Copies an image of 3 bytes a pixel and swaps the first and the third byte of every pixel of the
/// copy. Row padding is copied and not swapped. Returns 0; 1, with nothing touched, when a pointer
/// is null, height * stride is not `length`, or `stride` is below width * 3. With `width` or
/// `height` below 1 nothing is swapped; with a `length` below 1 nothing is read or written.
///
/// @warning The first byte decides whether to copy: where `target` begins with the same byte as
/// `source`, it is taken for a copy (or for `source` itself) and swapped as it stands.
/// @param length  bytes of the image, padding of the last row included
int xSwapImageDataOrder(const unsigned char* source, int width, int height, int stride, int length,
                        unsigned char*& target);

/// Copies an image of 3 bytes a pixel into rows of exactly width * 3 bytes; `target` may be
/// `source`. Returns 0; 1, with nothing touched, when a pointer is null, width * height * 3 exceeds
/// `length`, or width * 3 exceeds `stride`. Nothing is written when width * height is below 1.
///
/// @warning Without padding (`stride` is width * 3) the first byte decides whether to copy: where
/// `target` begins with the same byte as `source`, it stays as it is.
/// @warning Reads (height - 1) * stride + width * 3 bytes, even where that exceeds `length`. See
/// docs/hazards.md.
int xTruncateImagePadding(const unsigned char* source, int width, int height, int stride,
                          int length, unsigned char*& target);

/// @}
