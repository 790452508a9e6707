/// @file
/// Image buffers: copying a region of pixels, turning upside down, swapping BGR and RGB, removing
/// row padding.
///
/// An image buffer is a run of rows from top to bottom, each a run of interleaved pixels of a fixed
/// number of bytes. Rows begin a fixed stride (in bytes) apart, which may exceed the bytes of their
/// pixels. The caller owns every buffer: nothing here is released or put in another place, and no
/// size is passed for a target, which must be large enough. Two buffers of one call must be one and
/// the same or not overlap, unless stated. Sizes and positions are in pixels, unless stated.
///
/// No state; callable from any thread. Messages go to standard output.
#pragma once

/// Copies a region from one image into another. What lies outside either image is left out. Rows
/// are copied from top to bottom; the images, and the mask with them, may overlap.
///
/// With a mask only pixels whose mask byte is not 0 are copied, from left to right. When the first
/// copied column s of the source is not 0, the last s columns of the visible region are not copied
/// in this mode: of n visible columns n - s are looked at, none when s is n or more.
///
/// - Prints "Error: invalid input (inside copyImage)!\n", with nothing touched, when an image is
///   null, when a width, height or stride of an image or `bytesPerPixel` is below 1, or when a mask
///   is given with a `maskStride` below 1.
/// - Prints "Error: %s (inside {%s}; file: utility.cpp; line: %d)\n" with "bounding box error!" or
///   "unknown error occurs!", this function's signature, and 2949 or 2955, should the clipping be
///   wrong. No arguments lead there.
///
/// @warning With a mask, pixels of the region that are not selected may be written again with the
/// value that they had; no other thread may write to them meanwhile.
/// @param source  the image to copy from
/// @param sourceWidth,sourceHeight  the source's size
/// @param sourceStride  bytes; must be at least the bytes of sourceWidth pixels
/// @param bytesPerPixel  bytes of a pixel in both images
/// @param x,y  where in the source the region's top left pixel lies; may be negative
/// @param regionWidth,regionHeight  the region's size; with either below 1 nothing is copied
/// @param destination  the image to copy to
/// @param destinationWidth,destinationHeight  the destination's size
/// @param destinationStride  bytes; must be at least the bytes of destinationWidth pixels
/// @param destinationX,destinationY  where in the destination the region's top left pixel comes to
/// lie; may be negative
/// @param clearFirst  whether all destinationStride * destinationHeight bytes become 0 before
/// @param mask  one byte for each source pixel, or null to copy them all
/// @param maskStride  bytes from one row of the mask to the next; ignored without a mask
/// @return true, also when no pixel is visible; false after a message
bool copyImageAnywhere(unsigned char* source, int sourceWidth, int sourceHeight, int sourceStride,
                       int bytesPerPixel, int x, int y, int regionWidth, int regionHeight,
                       unsigned char* destination, int destinationWidth, int destinationHeight,
                       int destinationStride, int destinationX, int destinationY, bool clearFirst,
                       unsigned char* mask, int maskStride);

/// Writes the rows of an image in reverse order.
///
/// @warning In place the row rows / 2 - 1 keeps its content, for 2 rows or more: 2 rows become 0 0,
/// 3 rows 0 1 0, 4 rows 3 1 1 0, 5 rows 4 1 2 1 0 (in numbers of old rows).
/// @param source  the image
/// @param rows  the image's height; below 1 nothing is written
/// @param rowBytes  bytes of a row; below 1 nothing is written
/// @param bufferLength  bytes of the source
/// @param target  receives the rows; `source` itself to reverse them in place
/// @return 0; 1, with nothing touched, when a pointer is null, rows * rowBytes exceeds
/// `bufferLength` or, in place, ceil(rows / 2) * rowBytes is negative
int xImageUpsideDown(unsigned char* source, int rows, int rowBytes, int bufferLength,
                     unsigned char*& target);

/// Copies an image of 3 bytes a pixel and swaps the first and the third byte of every pixel of the
/// copy. Row padding is copied and not swapped.
///
/// @warning The first byte decides whether to copy: where `target` begins with the same byte as
/// `source`, it is taken for a copy (or for `source` itself) and swapped as it stands.
/// @param source  the image; not looked at for a `length` below 1
/// @param width,height  the image's size; with either below 1 nothing is swapped
/// @param stride  bytes
/// @param length  bytes of the image, padding of the last row included
/// @param target  receives the image; `source` itself to swap in place
/// @return 0; 1, with nothing touched, when a pointer is null, height * stride is not `length`, or
/// `stride` is below width * 3
int xSwapImageDataOrder(const unsigned char* source, int width, int height, int stride, int length,
                        unsigned char*& target);

/// Copies an image of 3 bytes a pixel into rows of exactly width * 3 bytes.
///
/// @warning Without padding (`stride` is width * 3) the first byte decides whether to copy: where
/// `target` begins with the same byte as `source`, it stays as it is.
/// @param source  the image
/// @param width,height  the image's size; with either below 1 nothing is written
/// @param stride  bytes
/// @param length  bytes of the image
/// @param target  receives the rows; may be `source`
/// @return 0; 1, with nothing touched, when a pointer is null, width * height * 3 exceeds `length`,
/// or width * 3 exceeds `stride`
int xTruncateImagePadding(const unsigned char* source, int width, int height, int stride,
                          int length, unsigned char*& target);
