/// @file
/// Masks: unpacking, packing, overlap, erosion, and on which side of a line segment a mask lies.
///
/// A byte mask has one byte for each pixel: row r begins at byte r * width, and 0 is background. A
/// packed mask has one bit for each pixel: each row begins on a byte of its own and takes
/// ceil(width / 8) bytes. The first pixel of eight is bit 7 of its byte, the eighth is bit 0; the
/// unused low bits of a row's last byte are 0. Sizes and positions are in pixels.
///
/// bitData2Byte() and maskMaskOverlap() count the bytes of a packed row in single precision. Above
/// a width of 2^24 they may count too few, and pixels without a bit are 0; from 134,217,752 on they
/// may count up to 8 too many and read beyond rows such as byte2BitData() makes. See
/// docs/hazards.md.
///
/// No state; callable from any thread. Messages go to standard output; nothing throws.
#pragma once

/// @defgroup mask Masks
/// @{

/// Unpacks a packed mask into the byte image `out`, with its top left pixel at (x0, y0): 255 for a
/// set bit, 0 for a clear one. Columns that would pass the image's right edge are cut off; they do
/// not wrap. Pixels around the mask become 0 with `clearFirst` and else stay as they are. `out`
/// must not overlap `packed`.
///
/// Does nothing, silently, when a pointer is null, a size is below 1, (x0, y0) does not lie in the
/// image, or the mask's rows reach below it.
void bitData2Byte(unsigned char* packed, int width, int height, unsigned char* out, int outWidth,
                  int outHeight, int x0, int y0, bool clearFirst);

/// Packs a byte mask, in which every byte but 0 is a set pixel, into a new block of `packedLength`,
/// height * ((width + 7) / 8), bytes, which the caller releases with `free`.
///
/// - Prints "Error: invalid input (inside byte2BitData(...))!\n" when `width` or `height` is 0 or
///   `bytes` null; `packedLength` is 0 and `packed` stays as it was.
/// - Prints "Error: unknown error occurs where packed data length is invalid (inside
///   byte2BitData(...))!\n" (one line) when the length is 0 still; `packedLength` is 0 and `packed`
///   null.
/// - Prints "Error: cannot allocate output memory (inside byte2BitData(...))!\n" when there is no
///   memory; `packed` is null and `packedLength` keeps the length.
///
/// The length is computed as a signed 32-bit number that wraps around. A negative one cannot be
/// allocated; where it wraps around to a smaller one, only the rows that fit are packed. A negative
/// size may give a block of zeros.
///
/// @warning For widths that are a multiple of 8 the last byte of each row stays 0: the last eight
/// pixels of every row are lost. See docs/hazards.md.
/// @param packed  must be null or come from `malloc`; what it points to is released first, so that
/// `bytes` must not lie in it
void byte2BitData(unsigned char* bytes, int width, int height, unsigned char*& packed,
                  unsigned long& packedLength);

/// Returns whether two packed masks, placed on a canvas by their top left pixels, have a set pixel
/// in the same place. Bits after a row's last pixel do not count. Allocates nothing.
///
/// A row that passes the canvas's right edge wraps into the canvas's next row. Where mask A is
/// wider than the canvas, each of its rows overwrites what the row above wrapped into it. What
/// would lie below the canvas is cut off.
///
/// Prints "Error: invalid input (inside maskMaskOverlap(...))!\n" and returns false when a pointer
/// is null, a size is below 1, or a top left pixel is not on the canvas.
bool maskMaskOverlap(int canvasWidth, int canvasHeight, unsigned char* packedA, int widthA,
                     int heightA, int xA, int yA, unsigned char* packedB, int widthB, int heightB,
                     int xB, int yB);

/// Erodes a byte image in place by a square of 3 x 3 pixels and returns the number of pixels that
/// are left. A pixel of 127 or more is foreground; it keeps its value when all its eight neighbours
/// are foreground too. Every other pixel becomes 0, the image's border always.
///
/// Returns 0, with the image as it was, for a size below 1, a null `image`, or without memory for
/// three rows.
int erosion(unsigned char* image, int width, int height);

/// Returns where a byte mask lies, seen along the segment from (x2, y2) to (x1, y1): 0 when the
/// segment touches a set pixel, 1 when the mask lies to the left (y pointing up), -1 when it lies
/// to the right. The mask's pixel (c, r) lies at (originX + c, originY + r), and every byte but 0
/// is set; with a size below 1 there is none.
///
/// The segment is walked pixel by pixel along x when it is longer in x than in y, else along y. The
/// other coordinate is computed in single precision and truncated toward zero in coordinates that
/// begin at the mask's origin, so that the line still touches the first row or column from less
/// than a pixel before it. Each of these coordinates is converted to single precision before it is
/// subtracted, which matters above 2^24 only. A segment without length touches nothing.
///
/// When the segment touches no set pixel, isLeft2DLineDouble((x2, y2), (x1, y1), pixel) decides:
/// - when the segment's extension touches a set pixel, the side on which more positions of the
///   mask's whole rectangle lie, set or not; 1 when they are as many. This looks at every
///   position;
/// - otherwise the side of the first set pixel, row by row; 0 when it lies exactly on the line;
/// - without a set pixel the side of (originX + width / 2, originY + height / 2), halved in whole
///   numbers; -1 when it lies exactly on the line.
///
/// Prints "Error: invalid input (inside lineSegmentMaskIntersect(...))!\n" and returns 0 when
/// `mask` is null.
int lineSegmentMaskIntersect(unsigned char* mask, int originX, int originY, int width, int height,
                             int x1, int y1, int x2, int y2);

/// @}
